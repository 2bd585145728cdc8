#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The inside of elements in the text of a document that the parser has taken, in UTF-8.

/// One attribute of a start tag.
struct TAttributePlace {
    std::string_view Name;
    std::string_view Value;  ///< as it stands between the quotes
    std::size_t BlankBegin;  ///< of the white space in front of it
    std::size_t NameBegin;
    std::size_t ValueEnd;  ///< at the second quote
};

/// The attributes of the start tag at `begin`, in order.
std::vector<TAttributePlace> FindAttributes(std::string_view text, std::size_t begin);
/// That of a name; null when there is none.
const TAttributePlace* FindAttribute(const std::vector<TAttributePlace>& attributes,
                                     std::string_view name);
/// Where the name of the tag ends.
std::size_t FindNameEnd(std::string_view text, std::size_t begin);

/// A run of character data, or a CDATA section with its marks.
struct TTextPiece {
    std::size_t Begin;
    std::size_t End;
    bool IsCdata;
};

/// The pieces of text between two places that have no tag between them; comments and processing
/// instructions part them.
std::vector<TTextPiece> FindTextPieces(std::string_view text, std::size_t begin, std::size_t end);

/// What the parser makes of a piece, and of the text between the quotes of an attribute: references
/// resolved, line ends as LF, in attributes as blanks.
std::string GetPieceText(std::string_view text, const TTextPiece& piece);
std::string GetAttributeText(std::string_view value);
