#include "services/xml/xmlstream.h"

#include "services/base/fold.h"
#include "services/xml/xmlname.h"

namespace {

bool IsAt(const TElementIterator& element, TElement::ElemTypes type) {
    const TElement* current = element.Current();
    return current && current->ElemType == type;
}

bool IsAt(const TElementIterator& element, TElement::ElemTypes type, const char* name) {
    return IsAt(element, type) && element.Current()->Name == name;
}

}  // namespace

void PushStart(TXMLList* document, const char* name, TAttributeTexts attributes) {
    if (!document) return;
    if (!HasRepeatedName(attributes))
        return document->Push(TElement::START, name ? name : "", {}, attributes);
    TAttributeList list;
    for (const auto& [attribute, value] : attributes)
        list.Psh(std::string(attribute).c_str(), TXMLString(std::string(value)));
    document->Psh(name, &list, TElement::START, nullptr);
}

void PushEnd(TXMLList* document, const char* name) {
    if (document) document->Push(TElement::END, name ? name : "", {});
}

void PushText(TXMLList* document, std::string_view text) {
    if (document) document->Push(TElement::TEXT, {}, text);
}

void PushTextElement(TXMLList* document, const char* name, std::string_view text,
                     TAttributeTexts attributes) {
    if (document && !HasRepeatedName(attributes))
        return document->PushTextElement(name ? name : "", text, attributes);
    PushStart(document, name, attributes);
    PushText(document, text);
    PushEnd(document, name);
}

bool IsAtStart(const TElementIterator& element) {
    return IsAt(element, TElement::START);
}
bool IsAtStart(const TElementIterator& element, const char* name) {
    return IsAt(element, TElement::START, name);
}
bool IsAtEnd(const TElementIterator& element) {
    return IsAt(element, TElement::END);
}
bool IsAtEnd(const TElementIterator& element, const char* name) {
    return IsAt(element, TElement::END, name);
}
bool IsAtText(const TElementIterator& element) {
    return IsAt(element, TElement::TEXT);
}

void SkipToStart(TElementIterator& element) {
    while (element.NotAtTail() && !IsAtStart(element)) ++element;
}

void SkipEnds(TElementIterator& element) {
    while (IsAtEnd(element)) ++element;
}

void SkipEnd(TElementIterator& element) {
    if (IsAtEnd(element)) ++element;
}

void SkipElement(TElementIterator& element) {
    std::size_t open = 0;
    do {
        if (IsAtStart(element)) ++open;
        if (open > 0 && IsAtEnd(element)) --open;
        ++element;
    } while (open > 0 && element.NotAtTail());
}

void DropWhatWasRead(const TElementIterator& element) {
    // Only a TXMLList makes such iterators.
    if (DList<TElement*>* list = element.GetListWalkedOnce())
        static_cast<TXMLList*>(list)->DeleteBefore(element);
}

std::string TrimmedText(const TElementIterator& element) {
    return std::string(TrimmedTextView(element));
}

std::string_view TrimmedTextView(const TElementIterator& element) {
    return IsAtText(element) ? TrimmedView(element.Current()->Text.View()) : std::string_view();
}
