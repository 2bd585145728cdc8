#include "projectfiles/languageconfigmap.h"
#include "services/base/keeper.h"
#include "settings/projectsimlanguageconfig.h"
#include <unordered_map>
#include <utility>

namespace {

using TSlotsByConfig =
    std::unordered_map<const TProjectSimLanguageConfig*, std::shared_ptr<TLanguageConfigSlot>>;

// Never destroyed: maps with static lifetime may outlive it otherwise.
TSlotsByConfig& SlotsByConfig() {
    static auto* slots = new TSlotsByConfig;
    return *slots;
}

}  // namespace

TProjectSimLanguageConfig* TLanguageConfigMap::Find(THdlLanguage language) const {
    const auto found = Slots.find(language);
    return found == Slots.end() ? nullptr : found->second->Config;
}

std::shared_ptr<const TLanguageConfigSlot> TLanguageConfigMap::FindSlot(
    THdlLanguage language) const {
    const auto found = Slots.find(language);
    return found == Slots.end() ? nullptr : found->second;
}

void TLanguageConfigMap::Store(THdlLanguage language, TProjectSimLanguageConfig* config) {
    auto& slot = Slots[language];
    if (!slot) slot = std::make_shared<TLanguageConfigSlot>();
    TProjectSimLanguageConfig* former = slot->Config;
    slot->Config = config;
    SlotsByConfig()[config] = slot;
    KeepUntilExit(config);
    if (former) DeleteLanguageConfig(former);
}

void TLanguageConfigMap::Clear() {
    Slots.clear();
}

void TLanguageConfigMap::DeleteAll() {
    const TSlots slots = std::exchange(Slots, {});
    for (const auto& [language, slot] : slots) DeleteLanguageConfig(slot->Config);
}

std::shared_ptr<const TLanguageConfigSlot> FindLanguageConfigSlot(
    const TProjectSimLanguageConfig* config) {
    const auto found = SlotsByConfig().find(config);
    return found == SlotsByConfig().end() ? nullptr : found->second;
}

void DeleteLanguageConfig(const TProjectSimLanguageConfig* config) {
    const auto found = SlotsByConfig().find(config);
    if (found != SlotsByConfig().end()) {
        if (found->second->Config == config) found->second->Config = nullptr;
        SlotsByConfig().erase(found);
    }
    delete config;
}
