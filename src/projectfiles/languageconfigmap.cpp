#include "projectfiles/languageconfigmap.h"
#include "services/base/keeper.h"
#include "settings/projectsimlanguageconfig.h"
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace {

using TSlot = std::shared_ptr<TLanguageConfigSlot>;

struct TConfigEnd {
    void operator()(const TProjectSimLanguageConfig* config) const { DeleteLanguageConfig(config); }
};
using TOwnConfig = std::unique_ptr<TProjectSimLanguageConfig, TConfigEnd>;

/// The slots of the configurations of all builds, on all threads.
class TSlotsByConfig {
public:
    static TSlotsByConfig& GetInstance() {
        // Never destroyed: maps with static lifetime may outlive it otherwise.
        static auto& slots = *new TSlotsByConfig;
        return slots;
    }
    void Set(const TProjectSimLanguageConfig* config, const TSlot& slot) {
        const std::lock_guard guard(Lock);
        Slots[config] = slot;
    }
    /// Null when no map stored `config`.
    TSlot Find(const TProjectSimLanguageConfig* config) {
        const std::lock_guard guard(Lock);
        const auto found = Slots.find(config);
        return found == Slots.end() ? nullptr : found->second;
    }
    TSlot Take(const TProjectSimLanguageConfig* config) {
        const std::lock_guard guard(Lock);
        const auto found = Slots.find(config);
        if (found == Slots.end()) return nullptr;
        TSlot slot = std::move(found->second);
        Slots.erase(found);
        return slot;
    }

private:
    std::mutex Lock;
    std::unordered_map<const TProjectSimLanguageConfig*, TSlot> Slots;
};

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
    // It is handed over, whether there is memory for its place or not.
    TOwnConfig given(config);
    const auto found = Slots.find(language);
    const TSlot slot =
        found == Slots.end() ? std::make_shared<TLanguageConfigSlot>() : found->second;
    KeepUntilExit(config);
    TSlotsByConfig::GetInstance().Set(config, slot);
    Slots.try_emplace(language, slot);
    const TOwnConfig former(std::exchange(slot->Config, given.release()));
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
    return TSlotsByConfig::GetInstance().Find(config);
}

void DeleteLanguageConfig(const TProjectSimLanguageConfig* config) {
    const TSlot slot = TSlotsByConfig::GetInstance().Take(config);
    if (slot && slot->Config == config) slot->Config = nullptr;
    delete config;
}
