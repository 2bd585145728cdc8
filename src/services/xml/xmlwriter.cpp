#include "services/xml/xmlwriter.h"

#include <algorithm>
#include <cstring>

#include "services/logging/binarylog.h"
#include "services/xml/elementblocks.h"
#include "services/xml/elementsequence.h"
#include "services/xml/plainprint.h"
#include "services/xml/xmlprint.h"
#include "services/xml/xmlprologue.h"
#include "services/xml/xmlreader.h"
#include "services/xml/xmltext.h"

namespace {

constexpr int kBlanksALevel = 2;

bool HasForbiddenCharacter(std::string_view text) {
    return FindForbiddenCharacter(text) != std::string_view::npos;
}

bool HoldsForeignBytes(const TElement& element) {
    const auto& attributes = element.GetAttributes();
    return !IsUtf8(element.Name.View()) || !IsUtf8(element.Text.View()) ||
           std::any_of(attributes.begin(), attributes.end(), [](const auto& attribute) {
               return !IsUtf8(attribute.first) || !IsUtf8(attribute.second);
           });
}

std::string DescribeForbidden(std::string_view text) {
    return " holds the character " + DescribeCharacter(text, FindForbiddenCharacter(text)) +
           ", which no XML document can hold";
}

}  // namespace

TXMLWriter::TXMLWriter(TXMLList* list, bool isSaved, TPrintBuffer* document)
    : List(*list), IsSaved(isSaved), Buffer(*document), Stream(document) {
    HasFailed = !WriteProlog();
}

void TXMLWriter::Write(TElement& element) {
    WriteEvent({element.ElemType, element.Name.View(), {}, {}, &element});
}

void TXMLWriter::Push(TElement::ElemTypes type, std::string_view name, std::string_view text,
                      std::span<const TAttributeView> attributes) {
    WriteEvent({type, name, text, attributes});
}

bool TXMLWriter::PushPlainTextElement(std::string_view name, std::string_view text) {
    const bool isPlain = !IsSaved && !HasFailed && !Open.IsEmpty() && !IsNestedDeepest() &&
                         IsPlainName(name) && IsPlainXMLContent(text);
    if (!isPlain || !PrintTextElementAsItIs(&Buffer, GetIndent(), name, text)) return false;
    AfterStart = AfterText = false;
    return true;
}

bool TXMLWriter::Finish() {
    const bool isDone = !HasFailed && Complete();
    for (const TCheck check : LateChecks) ReportCheck(check);
    return isDone;
}

bool TXMLWriter::Complete() {
    while (Open.GetCount() > RootLevels) {
        NoteCheck(CHECK_UNCLOSED_START);
        if (!CloseInnermost(nullptr)) return false;
    }
    if (RootLevels > 0 && !CloseInnermost(nullptr)) return false;
    if (!HasElement) return Fail("the document has no root element");
    if (HasForeignBytes) NoteCheck(CHECK_UTF8);
    Buffer.Append("\n");
    return true;
}

bool TXMLWriter::WriteProlog() {
    if (List.GetDocumentType().empty()) return true;
    HasForeignBytes = !IsUtf8(List.GetDocumentType());
    const std::string type = ToUtf8(List.GetDocumentType());
    const std::string name = GetDocumentTypeRoot(type);
    TElementSequence none;
    TXMLReadError error;
    if (!ReadXMLDocument(type, {}, &none, &error))
        return Fail("the document type is malformed: " + error.Reason);
    if (name.empty() || !none.IsEmpty()) return Fail("the document type names no root element");
    Buffer.Append(type);
    if (List.HoldsRoot()) return true;
    RootLevels = 1;
    return OpenElement({TElement::START, name});
}

void TXMLWriter::WriteEvent(const TEvent& event) {
    if (HasFailed) return;
    switch (event.Type) {
        case TElement::START:
            HasFailed = !OpenElement(event);
            return;
        case TElement::END:
            HasFailed = !CloseElement(event);
            return;
        case TElement::TEXT:
            HasFailed = !WriteText(event);
            return;
    }
}

bool TXMLWriter::OpenElement(const TEvent& event) {
    if (Open.IsEmpty() && HasElement) return Fail("the document has more than one root element");
    if (IsNestedDeepest())
        return Fail("elements are nested deeper than " + std::to_string(kMaxXMLNesting));
    const std::size_t attributes =
        event.Element ? event.Element->GetAttributes().size() : event.Attributes.size();
    if (attributes > kMaxXMLAttributes)
        return Fail("an element has more than " + std::to_string(kMaxXMLAttributes) +
                    " attributes");
    HasElement = true;
    const std::size_t size = Buffer.GetSize();
    if (!Print(event, GetIndent())) return false;
    // Whoever overrides SaveElement may have changed it.
    Open.Open(event.Element ? event.Element->Name.View() : event.Name);
    AfterStart = Buffer.GetSize() > size && Buffer.GetLast() == '>';
    AfterText = false;
    return true;
}

bool TXMLWriter::IsNestedDeepest() const {
    const std::size_t heldLevels = List.HoldsRoot() ? 1 : 0;
    return Open.GetCount() == RootLevels + heldLevels + kMaxXMLNesting;
}

bool TXMLWriter::CloseElement(const TEvent& event) {
    if (Open.GetCount() > RootLevels && Open.GetInnermost() == event.Name)
        return CloseInnermost(&event);
    if (!Open.Contains(event.Name, RootLevels)) {
        // Its bytes count, though it is not printed.
        const bool isForeign =
            event.Element ? HoldsForeignBytes(*event.Element) : !IsUtf8(event.Name);
        HasForeignBytes = HasForeignBytes || isForeign;
        NoteCheck(CHECK_STRAY_END);
        return true;
    }
    while (Open.GetInnermost() != event.Name) {
        NoteCheck(CHECK_UNCLOSED_START);
        if (!CloseInnermost(nullptr)) return false;
    }
    return CloseInnermost(&event);
}

// Turns a tag that nothing followed into an empty-element tag. Null for an END that is missing.
bool TXMLWriter::CloseInnermost(const TEvent* end) {
    bool isDone = true;
    if (AfterStart) {
        Open.CloseInnermost();
        Buffer.DropLast();
        Buffer.Append("/>");
    } else if (end) {
        Open.CloseInnermost();
        isDone = Print(*end, GetIndent());
    } else {
        const std::string name(Open.GetInnermost());
        Open.CloseInnermost();
        isDone = Print({TElement::END, name}, GetIndent());
    }
    AfterStart = AfterText = false;
    return isDone;
}

bool TXMLWriter::WriteText(const TEvent& event) {
    if (Open.IsEmpty()) return Fail("text stands outside the root element");
    if (!Print(event, -1)) return false;
    AfterStart = false;
    AfterText = true;
    return true;
}

// Nothing may be added next to a text, and nothing before the first line.
int TXMLWriter::GetIndent() const {
    if (AfterText || Buffer.GetSize() == 0) return -1;
    return kBlanksALevel * static_cast<int>(Open.GetCount());
}

bool TXMLWriter::Print(const TEvent& event, int indent) {
    if (event.Element) return PrintElement(*event.Element, indent);
    if (!IsSaved && PrintPlain(event, indent)) return true;
    TElement element(event.Type, event.Name, event.Text);
    element.SetAttributes({event.Attributes.begin(), event.Attributes.end()});
    return PrintElement(element, indent);
}

// False, with nothing printed, for an element with anything to escape, convert or refuse.
bool TXMLWriter::PrintPlain(const TEvent& event, int indent) {
    const bool isPlain =
        event.Type == TElement::TEXT ? IsPlainXMLContent(event.Text) : IsPlainName(event.Name);
    const auto isPlainAttribute = [this](const TAttributeView& attribute) {
        return IsPlainName(attribute.first) && IsPlainXMLText(attribute.second);
    };
    return isPlain &&
           std::all_of(event.Attributes.begin(), event.Attributes.end(), isPlainAttribute) &&
           PrintAsItIs(&Buffer, indent, event.Type, event.Name, event.Text, event.Attributes);
}

bool TXMLWriter::PrintElement(TElement& element, int indent) {
    HasForeignBytes =
        HasForeignBytes || (!TElementBlocks::PrintsAsIs(element) && HoldsForeignBytes(element));
    if (IsSaved) {
        List.SaveElement(&element, Stream, indent);
    } else {
        LateChecks.insert(LateChecks.end(), CountNameFaults(element), CHECK_NAME);
        PrintXMLElementUnchecked(element, Stream, indent);
    }
    return Stream.good() || Fail(DescribeFault(element));
}

bool TXMLWriter::IsPlainName(std::string_view name) {
    if (name.empty()) return false;
    std::string& known = PlainNames[GetNamePlace(name)];
    // Compilers leave the comparison of views a call, and every element asks.
    const bool isKnown =
        known.size() == name.size() && std::memcmp(known.data(), name.data(), name.size()) == 0;
    if (isKnown) return true;
    if (!IsAsciiXMLName(name)) return false;
    known = name;
    return true;
}

std::string TXMLWriter::DescribeFault(const TElement& element) const {
    const bool isInOpen = element.ElemType == TElement::TEXT && !Open.IsEmpty();
    const std::string owner(isInOpen ? Open.GetInnermost() : element.Name.View());
    const std::string place = "element \"" + owner + "\"";
    if (HasForbiddenCharacter(element.Text.View()))
        return place + DescribeForbidden(element.Text.View());
    for (const auto& [name, value] : element.GetAttributes())
        if (HasForbiddenCharacter(value))
            return ("attribute \"" + name + "\" of ").append(place + DescribeForbidden(value));
    return place + " cannot be written";
}

bool TXMLWriter::Fail(std::string error) {
    Error = std::move(error);
    return false;
}

void TXMLWriter::NoteCheck(TCheck check) {
    if (IsSaved)
        ReportCheck(check);
    else
        LateChecks.push_back(check);
}

void TXMLWriter::ReportCheck(TCheck check) {
    if (check == CHECK_NAME) return ReportNameFault();
    static TCheckSite sites[] = {
        {"openElements.empty() && \"A START has no END.\"", "xmllist", 102},
        {"IsOpen(name) && \"An END has no START.\"", "xmllist", 103},
        {"IsUtf8(text)", "xmllist", 104},
    };
    sites[check - CHECK_UNCLOSED_START].Report();
}

bool TXMLWriter::TOpenNames::Contains(std::string_view name, std::size_t from) const {
    for (std::size_t i = from; i < Begins.size(); ++i)
        if (Get(i) == name) return true;
    return false;
}

void TXMLWriter::TOpenNames::Open(std::string_view name) {
    Begins.push_back(Names.size());
    Names += name;
}

void TXMLWriter::TOpenNames::CloseInnermost() {
    Names.resize(Begins.back());
    Begins.pop_back();
}

std::string_view TXMLWriter::TOpenNames::Get(std::size_t index) const {
    const std::size_t end = index + 1 < Begins.size() ? Begins[index + 1] : Names.size();
    return std::string_view(Names).substr(Begins[index], end - Begins[index]);
}
