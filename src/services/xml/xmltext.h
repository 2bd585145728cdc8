#pragma once
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

// The characters of XML texts. Texts in the process are UTF-8; bytes that are not are taken as
// Windows-1252, the encoding of the environment's older files.

/// The code point of a byte in Windows-1252. The five bytes that the encoding leaves open mean
/// the control characters of their number, as Windows itself converts them.
char32_t GetWindows1252CodePoint(unsigned char byte);

/// The length of the UTF-8 sequence at `position`; 0 when the bytes there are not UTF-8.
std::size_t Utf8LengthAt(std::string_view text, std::size_t position);
bool IsUtf8(std::string_view text);
/// The character at `position` of a UTF-8 text; a byte that is not UTF-8 by its number, and 0 at
/// the end.
char32_t GetCodePointAt(std::string_view text, std::size_t position);
void AppendUtf8(char32_t character, std::string* text);
/// `text` with each byte that is not UTF-8 converted from Windows-1252.
std::string ToUtf8(std::string_view text);

/// The place of the first character that no XML document can hold, even as a reference; npos when
/// there is none. `text` must be UTF-8.
std::size_t FindForbiddenCharacter(std::string_view text);
/// "U+0001" for the character at `position` of a UTF-8 text.
std::string DescribeCharacter(std::string_view text, std::size_t position);

/// What XML calls white space.
inline constexpr std::string_view kXMLBlanks = " \t\r\n";
bool IsXMLBlank(std::string_view text);

/// Whether all of `text` is ASCII that is written as it is, in character data and in attributes.
bool IsPlainXMLText(std::string_view text);
/// The same for a whole text between two tags: blank text and the empty one are not written as they
/// are.
bool IsPlainXMLContent(std::string_view text);

/// Which characters are written as references, by their byte; null means the byte itself.
struct TXMLEscapes {
    std::array<const char*, 256> References;

    static const TXMLEscapes kAnywhere;      ///< the five named references
    static const TXMLEscapes kText;          ///< in character data
    static const TXMLEscapes kAttribute;     ///< between double quotes
    static const TXMLEscapes kSingleQuoted;  ///< between single quotes
};

/// Hands `text`, escaped, to `append` part by part.
template <class TAppend>
void AppendEscaped(std::string_view text, const TXMLEscapes& escapes, TAppend append) {
    std::size_t begin = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char* reference = escapes.References[static_cast<unsigned char>(text[i])];
        if (!reference) continue;
        append(text.substr(begin, i - begin));
        append(std::string_view(reference));
        begin = i + 1;
    }
    append(text.substr(begin));
}
