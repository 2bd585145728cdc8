#include "projectfiles/languageconfigmap.h"
#include "services/base/keeper.h"
#include "settings/projectsimlanguageconfig.h"
#include <unordered_map>

namespace {

using TSlotsByConfig = std::unordered_map<const TProjectSimLanguageConfig*,
                                          std::shared_ptr<const TLanguageConfigSlot>>;

// Never destroyed: maps with static lifetime may outlive it otherwise.
TSlotsByConfig& SlotsByConfig() {
    static auto* slots = new TSlotsByConfig;
    return *slots;
}

void Delete(const TProjectSimLanguageConfig* config) {
    ForgetKept(config);
    delete config;
}

}  // namespace

TLanguageConfigMap::~TLanguageConfigMap() {
    Clear();
}

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
    // A build that does not own its configurations leaves them behind, where pointers to them stay
    // good.
    KeepUntilExit(config);
    SlotsByConfig()[config] = slot;
    if (!former) return;
    SlotsByConfig().erase(former);
    Delete(former);
}

void TLanguageConfigMap::Clear() {
    for (const auto& [language, slot] : Slots) SlotsByConfig().erase(slot->Config);
    Slots.clear();
}

void TLanguageConfigMap::DeleteAll() {
    const TSlots slots = Slots;
    Clear();
    for (const auto& [language, slot] : slots) {
        Delete(slot->Config);
        slot->Config = nullptr;
    }
}

std::shared_ptr<const TLanguageConfigSlot> FindLanguageConfigSlot(
    const TProjectSimLanguageConfig* config) {
    const auto found = SlotsByConfig().find(config);
    return found == SlotsByConfig().end() ? nullptr : found->second;
}
