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

/// Elements that have left their list with their nodes.
class TElementRow : public DList<TElement*> {
public:
    TElementRow() = default;
    ~TElementRow() override { Flush(1); }
    TElementRow(const TElementRow&) = delete;
    TElementRow& operator=(const TElementRow&) = delete;
    using DList::TakeAll;
    using DList::TakeFirstOf;
};

/// What the list held before the section is replaced. What is written around it goes back to the
/// list; nothing of that takes memory.
struct TKeptSection {
    TElementRow Before;
    TElementRow Section;
    TElementRow Behind;
    std::size_t LinkedBefore = 0;
    std::size_t LinkedBehind = 0;
};

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
    if (!IsEmpty()) KeepElements();
    bool isWritten = false;
    try {
        isWritten = WriteFile(path);
    } catch (...) {
        PutBack();
        throw;
    }
    Kept.reset();
    Locate();
    return isWritten;
}

void TXMLSectionFile::FillElements() {
    if (!Kept) {
        PushStart(this, Parent.Name);
        FillSection();
        return PushEnd(this, Parent.Name);
    }
    LinkAll(&Kept->Before, &Kept->LinkedBefore);
    FillSection();
    LinkAll(&Kept->Behind, &Kept->LinkedBehind);
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

// Writing flushes the list before it fills it. One behind the other leaves it, as whoever overrides
// ObjectRemoved() expects.
void TXMLSectionFile::KeepElements() {
    Kept = std::make_unique<TKeptSection>();
    const bool isThere = Section.Count > 0;
    const std::size_t begin = isThere ? Section.Begin : Parent.End;
    const std::size_t end = isThere ? Section.End + 1 : Parent.End;
    for (std::size_t number = 0; !IsEmpty(); ++number) {
        TElement* const element = DListIterator<TElement*>(*this).Current();
        TElementRow& row = number < begin ? Kept->Before
                           : number < end ? Kept->Section
                                          : Kept->Behind;
        row.TakeFirstOf(this);
        ObjectRemoved(element);
    }
}

// The list has some of them again, and elements of the section between those.
void TXMLSectionFile::PutBack() {
    if (!Kept) return;
    TElementRow all;
    for (std::size_t i = 0; i < Kept->LinkedBefore; ++i) all.TakeFirstOf(this);
    all.TakeAll(&Kept->Before);
    all.TakeAll(&Kept->Section);
    TElementRow made;
    while (GetCount() > Kept->LinkedBehind) made.TakeFirstOf(this);
    all.TakeAll(this);
    all.TakeAll(&Kept->Behind);
    TakeAll(&all);
    Kept.reset();
    Locate();
}

void TXMLSectionFile::LinkAll(DList<TElement*>* kept, std::size_t* count) {
    while (!kept->IsEmpty()) {
        TElement* const element = DListIterator<TElement*>(*kept).Current();
        TakeFirstOf(kept);
        ++*count;
        ObjectAdded(element);
    }
}
