#pragma once
#include "services/xml/tagtext.h"
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Where the elements of a document stand in its text, in document order: the root is the first.
class TDocumentPlaces {
public:
    using TIndex = std::uint32_t;
    static constexpr TIndex kNone = static_cast<TIndex>(-1);

    struct TPlace {
        std::size_t Begin;         ///< of the start tag
        std::size_t ContentBegin;  ///< behind the start tag
        std::size_t ContentEnd;    ///< of the end tag; of an empty-element tag the end
        std::size_t End;           ///< behind the end tag
        TIndex Parent;             ///< kNone for the root
        TIndex FirstChild;
        TIndex LastChild;
        TIndex NextSibling;
        bool IsEmptyTag() const { return ContentBegin == End; }
    };

    /// `text` is UTF-8 without a mark, whatever its declaration says, and must outlive the object.
    /// Declarations of its document type supply nothing. False, with GetReason() and no elements,
    /// for what the reader of documents refuses.
    bool Read(std::string_view text);
    const std::string& GetReason() const { return Reason; }

    std::string_view GetText() const { return Text; }
    TIndex GetCount() const { return static_cast<TIndex>(Places.size()); }
    const TPlace& operator[](TIndex element) const { return Places[element]; }

    std::string_view GetName(TIndex element) const;
    /// The pieces of the text in front of its first child.
    std::vector<TTextPiece> FindPieces(TIndex element) const;
    std::vector<TIndex> GetChildren(TIndex element) const;

private:
    friend class TPlaceCollector;
    std::string_view Text;
    std::vector<TPlace> Places;
    std::string Reason;
};

/// Takes over where elements stand, from whoever reads a document and meets its tags in order.
class TPlaceCollector {
public:
    /// Both must outlive the object; the elements of `places` are dropped.
    TPlaceCollector(std::string_view text, TDocumentPlaces* places);

    /// False, with the tag left out, for more elements or levels than can be held.
    bool MeetStart(std::size_t begin, std::size_t end);
    /// Of an empty-element tag the end is met behind it, with nothing in it.
    void MeetEnd(std::size_t begin, std::size_t end);

private:
    using TIndex = TDocumentPlaces::TIndex;

    std::vector<TDocumentPlaces::TPlace>& Places;
    std::vector<TIndex> Open;
};
