#include "simtools/simtoolmap.h"

#include "services/xml/xmlstream.h"

namespace {

constexpr const char* kSection = "ExternalSimulatorSettings";

}  // namespace

void TSimToolMap::AddSimTool(TBaseSimTool* tool) {
    if (!tool) return;
    // It is handed over, whether there is memory for its place or not.
    CallersShare->Keep(std::unique_ptr<TBaseSimTool>(tool));
    Tools[tool->GetLanguage()] = tool;
}

bool TSimToolMap::RemoveSimTool(THdlLanguage language) {
    return Tools.erase(language) > 0;
}

const TBaseSimTool* TSimToolMap::GetSimTool(THdlLanguage language) const {
    const auto entry = Tools.find(language);
    return entry == Tools.end() ? nullptr : entry->second;
}

TBaseSimTool* TSimToolMap::GetSimTool(THdlLanguage language) {
    const auto entry = Tools.find(language);
    return entry == Tools.end() ? nullptr : entry->second;
}

std::vector<THdlLanguage> TSimToolMap::GetSimToolLanguages() const {
    std::vector<THdlLanguage> languages;
    for (const auto& [language, tool] : Tools) languages.push_back(language);
    return languages;
}

bool TSimToolMap::ReadFromFile(DListIterator<TElement*>& element) {
    if (IsAtStart(element, kSection)) ++element;
    while (IsAtStart(element, "Tool")) {
        auto made = std::make_unique<TBaseSimTool>();
        // A tool cut short is kept with what it has.
        (void)made->ReadFromFile(element);
        TBaseSimTool* const tool = Read.Keep(std::move(made));
        Tools[tool->GetLanguage()] = tool;
        SkipEnd(element);
    }
    return true;
}

void TSimToolMap::WriteToFile(TXMLList* document) const {
    if (!document || Tools.empty()) return;
    PushStart(document, kSection);
    for (const auto& [language, tool] : Tools) tool->WriteToFile(document);
    PushEnd(document, kSection);
}

void TSimToolMap::Clear() {
    for (const auto& [language, tool] : Tools) {
        CallersShare->Delete(tool);
        Read.Delete(tool);
    }
    Tools.clear();
}
