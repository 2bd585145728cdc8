#include "filenames/componentnamelist.h"

#include "filenames/componentname.h"
#include "services/base/keeper.h"
#include "services/xml/xmlstream.h"
#include <algorithm>
#include <functional>
#include <memory>

namespace {

std::size_t CombineHashes(std::size_t a, std::size_t b) {
    return a ^ (b + 0x9e3779b9U + (a << 6) + (a >> 2));
}

std::size_t HashOf(const TTBIdentifier& entity, const TTBIdentifier& architecture,
                   const std::string& library) {
    return CombineHashes(CombineHashes(entity.GetHash(), architecture.GetHash()),
                         std::hash<std::string>()(library));
}

TXMLString EscapedText(const TTBIdentifier& identifier, THdlLanguage language) {
    return MakeXMLString(identifier.GetEscapedName(language, '-', false, false).c_str());
}

}  // namespace

TComponentNameList::TComponentNameList(THdlLanguage language) : Language(language) {}

bool TComponentNameList::AddComponentName(const char* entity, const char* architecture,
                                          const char* library) {
    return AddComponentName(TTBIdentifier(entity, Language), TTBIdentifier(architecture, Language),
                            library);
}

bool TComponentNameList::AddComponentName(TTBIdentifier entity, TTBIdentifier architecture,
                                          const char* library) {
    if (IsNameInList(entity, architecture, library)) return false;
    auto name = std::make_unique<const TComponentName>(entity, architecture, library);
    KeepUntilExit(name.get());
    // All memory is taken before anything changes.
    TNames entry{name.get()};
    NamesByHash.emplace(HashOf(entity, architecture, name->GetDestinationLibraryName()),
                        name.get());
    Names.splice(Names.end(), entry);
    (void)name.release();
    return true;
}

bool TComponentNameList::IsNameInList(TTBIdentifier entity, TTBIdentifier architecture,
                                      const char* library) const {
    const std::string libraryName = library ? library : "";
    const auto [first, last] = NamesByHash.equal_range(HashOf(entity, architecture, libraryName));
    return std::any_of(first, last, [&](const auto& entry) {
        return entry.second->IsEqualTo(entity, architecture, libraryName);
    });
}

void TComponentNameList::Flush() {
    for (const TComponentName* name : Names) delete name;
    Names.clear();
    NamesByHash.clear();
}

bool TComponentNameList::ReadFromFile(DListIterator<TElement*>& element) {
    while (IsAtStart(element, "Component")) {
        const std::string library = element.Current()->GetAttribute("Library");
        TMyString architecture = element.Current()->GetAttribute("Architecture");
        ++element;
        if (!element.NotAtTail()) return false;
        // Without a text this is the Component's own end, which gives the empty entity.
        TMyString entity = element.Current()->Text;
        entity.Trim(1, 0);
        architecture.Trim(1, 0);
        AddComponentName(entity, architecture, library.c_str());
        SkipToStart(element);
    }
    return true;
}

void TComponentNameList::WriteToFile(TXMLList* document) const {
    if (!document) return;
    for (const TComponentName* name : Names) {
        TAttributeList attributes;
        attributes.Psh("Library", MakeXMLString(name->GetDestinationLibraryName().c_str()));
        attributes.Psh("Architecture", EscapedText(name->GetArchitecture(), Language));
        document->Psh("Component", &attributes, TElement::START, nullptr);
        document->Psh("", nullptr, TElement::TEXT, EscapedText(name->GetEntity(), Language));
        PushEnd(document, "Component");
    }
}
