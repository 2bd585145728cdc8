#include "cli/translator/translatorsection.h"
#include "translation/v2vtranslationoption.h"
#include <algorithm>

namespace {

using TIterator = DListIterator<TElement*>;

bool IsAt(const TIterator& element, TElement::ElemTypes type) {
    return element.NotAtTail() && element.Current()->ElemType == type;
}

void PushCopy(const TElement& element, TXMLList* document) {
    TAttributeList attributes;
    for (const auto& [name, value] : element.GetAttributes())
        attributes.Psh(name.c_str(), value.c_str());
    document->Psh(element.Name.c_str(), &attributes, element.ElemType, element.Text.c_str());
}

void PushCopies(const TXMLList& elements, TXMLList* document) {
    for (TIterator element(elements); element.NotAtTail(); ++element)
        PushCopy(*element.Current(), document);
}

/// Moves from a START behind its END and calls `take` for each element passed.
template <class Take>
void PassElement(TIterator& element, Take take) {
    int depth = 0;
    do {
        if (IsAt(element, TElement::START)) ++depth;
        if (IsAt(element, TElement::END)) --depth;
        take(*element.Current());
        ++element;
    } while (depth > 0 && element.NotAtTail());
}

void PushEnabled(const TElement& start, TXMLList* document) {
    TAttributeList attributes;
    for (const auto& [name, value] : start.GetAttributes())
        attributes.Psh(name.c_str(), value.c_str());
    attributes.Psh("Enabled", "true");  // keeps its place among them
    document->Psh(start.Name.c_str(), &attributes, TElement::START, "");
}

/// Whether a reader takes the element for that switch: names count from their first '-' on.
bool IsElementOf(const TIterator& element, const TChangedSwitch& change) {
    if (!IsAt(element, TElement::START)) return false;
    const std::string name = element.Current()->Name.Str();
    const std::size_t dash = name.find('-');
    return dash != std::string::npos && change.Option->IsMatch(name.c_str() + dash);
}

}  // namespace

void TTranslatorSection::Change(const std::vector<TChangedSwitch>& changes) {
    Changed.Flush(1);
    std::vector<bool> areWritten(changes.size(), false);
    TIterator element = GetSection();
    if (element.NotAtTail())
        PushCopy(*element.Current(), &Changed);
    else
        Changed.Psh(Tag, nullptr, TElement::START, "");
    if (element.NotAtTail()) ++element;
    while (element.NotAtTail() && !IsAt(element, TElement::END)) {
        const auto change = std::find_if(changes.begin(), changes.end(), [&](const auto& one) {
            return IsElementOf(element, one);
        });
        if (change == changes.end()) {
            PassElement(element, [this](const TElement& kept) { PushCopy(kept, &Changed); });
            continue;
        }
        const auto number = static_cast<std::size_t>(change - changes.begin());
        areWritten[number] = ChangeElement(element, *change, areWritten[number]);
    }
    for (std::size_t i = 0; i < changes.size(); ++i)
        if (changes[i].Option->IsEnabled() && !areWritten[i])
            changes[i].Option->WriteToFile(&Changed);
    Changed.Psh(Tag, nullptr, TElement::END, "");
}

// Returns whether the switch needs no further element: all of them are dealt with here.
bool TTranslatorSection::ChangeElement(TIterator& element, const TChangedSwitch& change,
                                       bool isWritten) {
    if (change.Option->IsEnabled() && !change.HasNewArguments) {
        // Arguments may be relative to something that only the file's writer knew.
        const TElement* const start = element.Current();
        PassElement(element, [this, start](const TElement& kept) {
            if (&kept == start)
                PushEnabled(kept, &Changed);
            else
                PushCopy(kept, &Changed);
        });
        return true;
    }
    if (change.Option->IsEnabled() && !isWritten) change.Option->WriteToFile(&Changed);
    PassElement(element, [](const TElement&) {});
    return true;
}

void TTranslatorSection::FillSection() {
    PushCopies(Changed, this);
}

std::vector<std::string> ArgumentsOf(TV2VTranslationOption& option) {
    TXMLList document;
    option.WriteToFile(&document);
    std::vector<std::string> arguments;
    for (TIterator element(document); element.NotAtTail(); ++element)
        if (IsAt(element, TElement::TEXT)) arguments.push_back(element.Current()->Text.Str());
    return arguments;
}
