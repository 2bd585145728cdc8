#include "services/xml/documentlayout.h"

#include <algorithm>

#include "services/xml/tagtext.h"
#include "services/xml/xmltext.h"

namespace {

constexpr std::string_view kBlanksInLine = " \t\r";
constexpr std::string_view kUsualStep = "  ";
constexpr std::string_view kCommentBegin = "<!--";
constexpr std::string_view kCommentEnd = "-->";

bool HasLineEnd(std::string_view blanks) {
    return blanks.find('\n') != std::string_view::npos;
}

}  // namespace

TInsertionPlace TDocumentLayout::PlaceBehind(TIndex element) const {
    TInsertionPlace place;
    SetSeparators(Places[element].Parent, element, &place);
    place.First = place.Next;
    place.Begin = SkipRestOfLine(Places[element].End);
    return place;
}

TInsertionPlace TDocumentLayout::PlaceAtBegin(TIndex parent) const {
    const TIndex child = Places[parent].FirstChild;
    const std::size_t childBegin = Places[child].Begin;
    TInsertionPlace place;
    SetSeparators(parent, child, &place);
    place.First = place.Next;
    if (IsBehindText(child)) {
        // Nothing may come between the text and the next tag.
        place.First.clear();
        place.Behind = place.Next;
        place.Begin = childBegin;
    } else if (HasText(parent)) {
        place.Begin = childBegin - GetBlanksBefore(childBegin).size();
    } else {
        place.Begin = FindContentBegin(parent);
    }
    return place;
}

TInsertionPlace TDocumentLayout::PlaceInside(TIndex parent, std::string_view newText) const {
    const TDocumentPlaces::TPlace& outer = Places[parent];
    const bool hasText = !newText.empty() || HasText(parent);
    const bool isLine = !IsInOneLine(parent);
    TInsertionPlace place;
    if (isLine) SetLines(parent, *FindLineIndent(outer.Begin) + FindStep(parent), &place);
    const std::string closing = isLine ? place.LineEnd + *FindLineIndent(outer.Begin) : "";
    place.First = hasText ? "" : place.Next;
    place.Begin = outer.ContentEnd;
    if (outer.IsEmptyTag()) {
        place.Begin = FindTagEnd(parent);
        place.Removed = outer.End - place.Begin;
        place.First = ">" + std::string(newText) + place.First;
        place.Behind = closing + "</" + std::string(Places.GetName(parent)) + ">";
        return place;
    }
    if (!newText.empty()) {
        place.Begin = outer.ContentBegin;
        place.Removed = outer.ContentEnd - outer.ContentBegin;
        place.First = newText;
        place.Behind = closing;
        return place;
    }
    const std::string_view blanks = GetBlanksBefore(outer.ContentEnd);
    const std::size_t blankSize = std::min(blanks.size(), outer.ContentEnd - outer.ContentBegin);
    if (!isLine) return place;
    if (blankSize == 0) {
        place.Behind = closing;
        return place;
    }
    place.First = place.Next;
    place.Begin -= blankSize;
    if (HasLineEnd(blanks)) return place;
    place.Removed = blankSize;
    place.Behind = closing;
    return place;
}

std::vector<TTextRange> TDocumentLayout::FindRemovedRanges(
    const std::vector<TTextRange>& elements) const {
    std::vector<TTextRange> ranges;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        TTextRange run = elements[i];
        TTextRange range = FindRemovedRange(run);
        // Neighbours in one line go together, so that the line goes.
        for (; i + 1 < elements.size(); ++i) {
            const std::size_t next = elements[i + 1].Begin;
            if (next > range.End && !IsInLine(run.End, next)) break;
            run.End = elements[i + 1].End;
            range = FindRemovedRange(run);
        }
        ranges.push_back(range);
    }
    return ranges;
}

TTextRange TDocumentLayout::GetRange(TIndex element) const {
    return {Places[element].Begin, Places[element].End};
}

TTextRange TDocumentLayout::GetRangeWithComments(TIndex element) const {
    return {Places[element].Begin, SkipRestOfLine(Places[element].End)};
}

// Whether nothing but blanks of one line stands between the places.
bool TDocumentLayout::IsInLine(std::size_t begin, std::size_t end) const {
    const std::string_view between = Text.substr(begin, end - begin);
    return between.find_first_not_of(kBlanksInLine) == std::string_view::npos;
}

TTextRange TDocumentLayout::FindRemovedRange(TTextRange run) const {
    const std::optional<std::string> indent = FindLineIndent(run.Begin);
    if (indent && EndsLine(run.End)) {
        const std::size_t end = Text.find('\n', run.End);
        return {run.Begin - indent->size(), end == std::string_view::npos ? Text.size() : end + 1};
    }
    const char before = run.Begin == 0 ? '>' : Text[run.Begin - 1];
    if (before == '>' || IsXMLBlank({&before, 1})) return run;
    // Behind a text, which would get the blanks that follow.
    const std::size_t next = std::min(Text.find_first_not_of(kXMLBlanks, run.End), Text.size());
    if (next < Text.size() && Text[next] == '<') run.End = next;
    return run;
}

bool TDocumentLayout::HasText(TIndex element) const {
    const auto pieces = Places.FindPieces(element);
    return std::any_of(pieces.begin(), pieces.end(), [this](const TTextPiece& piece) {
        return piece.IsCdata || !IsXMLBlank(Text.substr(piece.Begin, piece.End - piece.Begin));
    });
}

std::string_view TDocumentLayout::GetBlanksBefore(std::size_t place) const {
    std::size_t begin = place;
    while (begin > 0 && IsXMLBlank(Text.substr(begin - 1, 1))) --begin;
    return Text.substr(begin, place - begin);
}

std::size_t TDocumentLayout::FindTagEnd(TIndex element) const {
    const std::size_t slash = Places[element].ContentBegin - 2;
    return slash - GetBlanksBefore(slash).size();
}

// The blanks in front of a place that begins its line.
std::optional<std::string> TDocumentLayout::FindLineIndent(std::size_t place) const {
    std::size_t begin = place;
    while (begin > 0 && (Text[begin - 1] == ' ' || Text[begin - 1] == '\t')) --begin;
    if (begin > 0 && Text[begin - 1] != '\n') return std::nullopt;
    return std::string(Text.substr(begin, place - begin));
}

// As the line before ends, else as the next one.
std::string TDocumentLayout::FindLineEnd(std::size_t place) const {
    std::size_t end = Text.rfind('\n', place);
    if (end == std::string_view::npos) end = Text.find('\n', place);
    if (end == std::string_view::npos || end == 0 || Text[end - 1] != '\r') return "\n";
    return "\r\n";
}

bool TDocumentLayout::IsInOneLine(TIndex element) const {
    return !HasLines || !FindLineIndent(Places[element].Begin);
}

bool TDocumentLayout::IsBehindText(TIndex element) const {
    const std::size_t begin = Places[element].Begin;
    return begin > 0 && Text[begin - 1] != '>' && !IsXMLBlank(Text.substr(begin - 1, 1));
}

std::size_t TDocumentLayout::FindContentBegin(TIndex parent) const {
    return SkipRestOfLine(Places[parent].ContentBegin);
}

// To the line end when nothing but comments stands in front of it; else the place itself.
std::size_t TDocumentLayout::SkipRestOfLine(std::size_t place) const {
    for (std::size_t next = place;;) {
        if (EndsLine(next)) return next == place ? place : next;
        next = std::min(Text.find_first_not_of(kBlanksInLine, next), Text.size());
        if (!Text.substr(next).starts_with(kCommentBegin)) return place;
        next = Text.find(kCommentEnd, next + kCommentBegin.size());
        if (next == std::string_view::npos) return place;
        next += kCommentEnd.size();
    }
}

bool TDocumentLayout::EndsLine(std::size_t place) const {
    const std::size_t next = Text.find_first_not_of(kBlanksInLine, place);
    return next == std::string_view::npos || Text[next] == '\n';
}

// That of the nearest elements around, else of the document.
std::string TDocumentLayout::FindStep(TIndex parent) const {
    for (TIndex child = parent; Places[child].Parent != TDocumentPlaces::kNone;
         child = Places[child].Parent) {
        const auto step = FindStepBelow(Places[child].Parent, child);
        if (step && !step->empty()) return *step;
    }
    return FindStepOfDocument();
}

// Nothing unless both begin their lines, and one's indentation continues the other's.
std::optional<std::string> TDocumentLayout::FindStepBelow(TIndex parent, TIndex child) const {
    const auto outer = FindLineIndent(Places[parent].Begin);
    const auto inner = FindLineIndent(Places[child].Begin);
    if (!outer || !inner || !inner->starts_with(*outer)) return std::nullopt;
    return inner->substr(outer->size());
}

// The first there is; empty for a document that indents nothing.
const std::string& TDocumentLayout::FindStepOfDocument() const {
    if (StepOfDocument) return *StepOfDocument;
    std::optional<std::string> found;
    for (TIndex element = 1; element < Places.GetCount() && (!found || found->empty()); ++element) {
        const auto step = FindStepBelow(Places[element].Parent, element);
        if (step) found = step;
    }
    StepOfDocument = found ? *found : std::string(kUsualStep);
    return *StepOfDocument;
}

void TDocumentLayout::SetLines(TIndex parent, std::string indent, TInsertionPlace* place) const {
    place->LineEnd = FindLineEnd(Places[parent].Begin);
    place->Indent = std::move(indent);
    place->Step = FindStep(parent);
    place->Next = place->LineEnd + place->Indent;
}

// As `child` stands among its siblings.
void TDocumentLayout::SetSeparators(TIndex parent, TIndex child, TInsertionPlace* place) const {
    const std::string_view blanks = GetBlanksBefore(Places[child].Begin);
    if (HasLineEnd(blanks)) {
        SetLines(parent, std::string(blanks.substr(blanks.rfind('\n') + 1)), place);
        place->LineEnd = FindLineEnd(Places[child].Begin);
        place->Next = place->LineEnd + place->Indent;
    } else if (IsBehindText(child) && !IsInOneLine(parent)) {
        SetLines(parent, *FindLineIndent(Places[parent].Begin) + FindStep(parent), place);
    } else {
        place->Next = std::string(blanks);
    }
}
