#include "services/xml/xmlsectionfile.h"

#include "services/xml/xmlstream.h"
#include "services/xml/xmltext.h"

namespace {

// With its length, so that one text cannot look like two. Files hold UTF-8.
void AppendText(std::string_view text, std::string* all) {
    const std::string written = ToUtf8(text);
    all->append(std::to_string(written.size())).append(1, ' ').append(written);
}

void AppendElement(const TElement& element, std::string* all) {
    *all += std::to_string(element.ElemType) + " ";
    AppendText(element.ElemType == TElement::TEXT ? element.Text.View() : element.Name.View(), all);
    for (const auto& [name, value] : element.GetAttributes()) {
        AppendText(name, all);
        AppendText(value, all);
    }
    *all += '\n';
}

}  // namespace

TXMLSectionFile::TXMLSectionFile(const char* section, const char* parent, TPlacement placement)
    : Placement(placement), Section{section}, Parent{parent} {
    SetHoldsRoot(true);
}

TXMLSectionFile::~TXMLSectionFile() = default;

std::string TXMLSectionFile::GetSectionText() const {
    std::string text;
    if (Section.Count == 0) return text;
    TElementIterator element = Section.Start;
    for (std::size_t i = Section.Begin; i <= Section.End; ++i, ++element)
        AppendElement(*element.Current(), &text);
    return text;
}

bool TXMLSectionFile::ReplaceSection(const char* path) {
    const bool hasPlace = IsEmpty() ? MayBeNew() : Section.Count > 0 || Parent.Count > 0;
    if (!hasPlace) return false;
    KeepElements();
    const bool isWritten = WriteFile(path);
    Kept.clear();
    Locate();
    return isWritten;
}

void TXMLSectionFile::FillElements() {
    if (Kept.empty()) {
        PushStart(this, Parent.Name);
        FillSection();
        return PushEnd(this, Parent.Name);
    }
    const bool isThere = Section.Count > 0;
    PushKept(0, isThere ? Section.Begin : Parent.End);
    FillSection();
    PushKept(isThere ? Section.End + 1 : Parent.End, Kept.size());
}

// Whether the save makes a new file: not for a file that could not be read, nor for one that was
// read and holds no elements.
bool TXMLSectionFile::MayBeNew() const {
    return GetReadError().IsError() ? GetReadError().Missing : !WasRead;
}

bool TXMLSectionFile::InterpretElements() {
    WasRead = true;
    Locate();
    return true;
}

// Places count elements from the beginning, and an iterator may not outlive its element.
void TXMLSectionFile::ObjectRemoved(TElement*) {
    ForgetPlaces();
}

void TXMLSectionFile::ForgetPlaces() {
    Section = {Section.Name};
    Parent = {Parent.Name};
}

void TXMLSectionFile::Locate() {
    ForgetPlaces();
    std::size_t depth = 0;
    std::size_t number = 0;
    for (TElementIterator element(*this); element.NotAtTail(); ++element, ++number) {
        if (IsAtStart(element)) {
            if (Placement == ANYWHERE || depth == 0) MeetStart(Parent, element, depth, number);
            if (Placement == ANYWHERE || (depth == 1 && Parent.Count > 0))
                MeetStart(Section, element, depth, number);
            ++depth;
        } else if (IsAtEnd(element)) {
            --depth;
            MeetEnd(Section, depth, number);
            MeetEnd(Parent, depth, number);
        }
    }
}

void TXMLSectionFile::MeetStart(TPlace& place, const TElementIterator& element, std::size_t depth,
                                std::size_t number) {
    if (place.OpenAt != kNotOpen || !IsAtStart(element, place.Name)) return;
    place.OpenAt = depth;
    if (++place.Count > 1) return;
    place.Start = element;
    place.Begin = number;
}

void TXMLSectionFile::MeetEnd(TPlace& place, std::size_t depth, std::size_t number) {
    if (place.OpenAt != depth) return;
    place.OpenAt = kNotOpen;
    if (place.Count == 1) place.End = number;
}

// Writing flushes the list before it fills it. The places then hold for what is kept.
void TXMLSectionFile::KeepElements() {
    const TPlace section = Section;
    const TPlace parent = Parent;
    for (TElementIterator element(*this); element.NotAtTail(); ++element)
        Kept.emplace_back(element.Current());
    Flush(0);
    Section = section;
    Parent = parent;
}

void TXMLSectionFile::PushKept(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) AddAtTail(Kept[i].release());
}
