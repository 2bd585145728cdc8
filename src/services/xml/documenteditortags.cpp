// What TDocumentEditor does to an element itself: its text and its attributes.
#include <algorithm>
#include <map>

#include "services/xml/documenteditor.h"
#include "services/xml/tagtext.h"
#include "services/xml/xmltext.h"

namespace {

bool StartsBlank(std::string_view text) {
    return !text.empty() && IsXMLBlank(text.substr(0, 1));
}
bool EndsBlank(std::string_view text) {
    return !text.empty() && IsXMLBlank(text.substr(text.size() - 1));
}

}  // namespace

// All that the element stands for get the text, so that it does not matter which of them a reader
// takes. Returns what a blank element gets: whatever else comes into it has to know.
std::string TDocumentEditor::EditText(const TVisit& visit) {
    const TNode wanted = visit.Wanted;
    const TNode base = Difference.GetBase(wanted);
    const bool hasText = Wanted[wanted].Text != nullptr;
    if (hasText == (Base[base].Text != nullptr) && Base.GetText(base) == Wanted.GetText(wanted))
        return {};
    bool isReplaced = false;
    for (const TIndex element : visit.Elements) {
        if (!Layout.HasText(element)) continue;
        isReplaced = true;
        const bool isThere = hasText && GetElementText(Places, element) == Wanted.GetText(wanted);
        if (!isThere) ReplaceText(element, wanted);
    }
    if (isReplaced || !hasText) return {};
    const TIndex last = visit.Elements.back();
    std::string text = New.PrintText(Wanted.GetText(wanted));
    const TDocumentPlaces::TPlace& place = Places[last];
    if (IsXMLBlank(Text.substr(place.ContentBegin, place.ContentEnd - place.ContentBegin)))
        return text;
    Edits.Replace(place.ContentBegin, 0, text);
    return {};
}

// Comments stay, and so do blanks around the text that the stream does not have.
void TDocumentEditor::ReplaceText(TIndex element, TNode wanted) {
    std::vector<TTextPiece> pieces = Places.FindPieces(element);
    const auto isBlank = [this](const TTextPiece& piece) {
        return !piece.IsCdata && IsXMLBlank(Text.substr(piece.Begin, piece.End - piece.Begin));
    };
    const std::string_view base = Base.GetText(Difference.GetBase(wanted));
    if (!StartsBlank(base)) {
        pieces.erase(pieces.begin(), std::find_if_not(pieces.begin(), pieces.end(), isBlank));
        if (!pieces.front().IsCdata)
            pieces.front().Begin = Text.find_first_not_of(kXMLBlanks, pieces.front().Begin);
    }
    if (Places[element].FirstChild != kNone || !EndsBlank(base)) {
        while (isBlank(pieces.back())) pieces.pop_back();
        TTextPiece& last = pieces.back();
        if (!last.IsCdata) last.End -= Layout.GetBlanksBefore(last.End).size();
    }
    const bool hasText = Wanted[wanted].Text != nullptr;
    for (const TTextPiece& piece : pieces)
        Edits.Replace(
            piece.Begin, piece.End - piece.Begin,
            hasText && &piece == &pieces.front() ? New.PrintText(Wanted.GetText(wanted)) : "");
}

void TDocumentEditor::EditAttributes(const TVisit& visit) {
    const TElement& base = *Base[Difference.GetBase(visit.Wanted)].Start;
    const TElement& wanted = *Wanted[visit.Wanted].Start;
    std::map<std::string_view, std::string_view> values;
    for (const auto& [name, value] : base.GetAttributes()) values.emplace(name, value);
    const auto attributes = FindAttributes(Text, Places[visit.Elements.back()].Begin);
    std::string former;
    for (const TAttributeList::TAttribute& attribute : wanted.GetAttributes()) {
        const auto value = values.find(attribute.first);
        if (value == values.end() || value->second != attribute.second)
            EditAttribute(visit, attribute, former);
        values.erase(attribute.first);
        if (FindAttribute(attributes, attribute.first)) former = attribute.first;
    }
    for (const auto& [name, value] : values)
        for (const TIndex element : visit.Elements) RemoveAttribute(element, std::string(name));
}

void TDocumentEditor::EditAttribute(const TVisit& visit,
                                    const TAttributeList::TAttribute& attribute,
                                    const std::string& former) {
    const auto& [name, value] = attribute;
    bool isThere = false;
    for (const TIndex element : visit.Elements) {
        const auto attributes = FindAttributes(Text, Places[element].Begin);
        const TAttributePlace* const found = FindAttribute(attributes, name);
        if (!found) continue;
        isThere = true;
        const std::size_t size = found->Value.size();
        if (GetAttributeText(found->Value) != value)
            Edits.Replace(found->ValueEnd - size, size,
                          New.PrintValue(value, Text[found->ValueEnd]));
    }
    if (!isThere) InsertAttribute(visit.Elements.back(), attribute, former);
}

// Behind the attribute that the stream has in front of it, else behind the last one.
void TDocumentEditor::InsertAttribute(TIndex element, const TAttributeList::TAttribute& attribute,
                                      const std::string& former) {
    const std::size_t begin = Places[element].Begin;
    const auto attributes = FindAttributes(Text, begin);
    const TAttributePlace* neighbour = FindAttribute(attributes, former);
    if (!neighbour && !attributes.empty()) neighbour = &attributes.back();
    const char quote = neighbour ? Text[neighbour->ValueEnd] : '"';
    std::string text = " ";
    if (neighbour)
        text = Text.substr(neighbour->BlankBegin, neighbour->NameBegin - neighbour->BlankBegin);
    text.append(New.CheckName(attribute.first)).append(1, '=').append(1, quote);
    text.append(New.PrintValue(attribute.second, quote)).append(1, quote);
    Edits.Replace(neighbour ? neighbour->ValueEnd + 1 : FindNameEnd(Text, begin), 0,
                  std::move(text));
}

void TDocumentEditor::RemoveAttribute(TIndex element, const std::string& name) {
    const auto attributes = FindAttributes(Text, Places[element].Begin);
    if (const TAttributePlace* const found = FindAttribute(attributes, name))
        Edits.Replace(found->BlankBegin, found->ValueEnd + 1 - found->BlankBegin, {});
}
