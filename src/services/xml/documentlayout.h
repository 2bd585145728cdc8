#pragma once
#include "services/xml/documentplaces.h"
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Where elements are put into a document, and what stands around each.
struct TInsertionPlace {
    std::size_t Begin = 0;
    std::size_t Removed = 0;  ///< bytes that the insertion replaces
    std::string First;        ///< in front of the first element
    std::string Next;         ///< in front of each further one
    std::string Behind;       ///< behind the last one
    std::string LineEnd;      ///< between the tags of an element; empty: all in one line
    std::string Indent;       ///< of the elements
    std::string Step;         ///< that their children are indented further
};

/// A part of a text.
struct TTextRange {
    std::size_t Begin = 0;
    std::size_t End = 0;
    bool IsEmpty() const { return Begin == End; }
};

/// How a document is laid out: lines, indentation, what stands on a line with an element.
class TDocumentLayout {
public:
    using TIndex = TDocumentPlaces::TIndex;
    /// `places` must outlive the object.
    explicit TDocumentLayout(const TDocumentPlaces& places)
        : Places(places), Text(places.GetText()), HasLines(Text.find('\n') != Text.npos) {}

    /// Behind an element that has a parent, and behind what comments on it in its line.
    TInsertionPlace PlaceBehind(TIndex element) const;
    /// In front of the first child of an element that has one, and of the comments on that child.
    TInsertionPlace PlaceAtBegin(TIndex parent) const;
    /// Into an element without children. `newText` is the text that a blank element gets at the
    /// same time, escaped: it is put there as well.
    TInsertionPlace PlaceInside(TIndex parent, std::string_view newText) const;

    /// What goes with ranges of sibling elements, in document order: the whole line of those that
    /// are alone on it.
    std::vector<TTextRange> FindRemovedRanges(const std::vector<TTextRange>& elements) const;
    /// An element, and the same with what comments on it in its line.
    TTextRange GetRange(TIndex element) const;
    TTextRange GetRangeWithComments(TIndex element) const;

    /// Whether there is text in the element in front of its first child.
    bool HasText(TIndex element) const;
    /// The blanks directly in front of a place.
    std::string_view GetBlanksBefore(std::size_t place) const;
    /// Where the "/>" of an empty-element tag begins, with the blanks in front of it.
    std::size_t FindTagEnd(TIndex element) const;

private:
    std::optional<std::string> FindLineIndent(std::size_t place) const;
    std::string FindLineEnd(std::size_t place) const;
    bool IsInOneLine(TIndex element) const;
    bool IsBehindText(TIndex element) const;
    std::size_t FindContentBegin(TIndex parent) const;
    std::size_t SkipRestOfLine(std::size_t place) const;
    bool IsInLine(std::size_t begin, std::size_t end) const;
    bool EndsLine(std::size_t place) const;
    std::string FindStep(TIndex parent) const;
    std::optional<std::string> FindStepBelow(TIndex parent, TIndex child) const;
    const std::string& FindStepOfDocument() const;
    TTextRange FindRemovedRange(TTextRange run) const;
    void SetLines(TIndex parent, std::string indent, TInsertionPlace* place) const;
    void SetSeparators(TIndex parent, TIndex child, TInsertionPlace* place) const;

    const TDocumentPlaces& Places;
    const std::string_view Text;
    const bool HasLines;
    mutable std::optional<std::string> StepOfDocument;
};
