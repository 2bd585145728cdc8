#pragma once
#include "services/hdl/hdllanguage.h"
#include <map>
#include <memory>

class TProjectSimLanguageConfig;

/// The place of one language's configuration in a build. Sources that took the configuration from
/// the build refer to the place, so that a replacement reaches all of them by one write.
struct TLanguageConfigSlot {
    TProjectSimLanguageConfig* Config = nullptr;
};

/// The language configurations of a build. Deletes one only when another takes its place.
class TLanguageConfigMap {
public:
    using TSlots = std::map<THdlLanguage, std::shared_ptr<TLanguageConfigSlot>>;

    TLanguageConfigMap() = default;
    TLanguageConfigMap(const TLanguageConfigMap&) = delete;
    TLanguageConfigMap& operator=(const TLanguageConfigMap&) = delete;

    /// Null when there is none.
    TProjectSimLanguageConfig* Find(THdlLanguage language) const;
    /// The slot of `language`; null when there is none.
    std::shared_ptr<const TLanguageConfigSlot> FindSlot(THdlLanguage language) const;
    /// Puts `config`, not null and in no map yet, in the place of the language's former one, which
    /// is deleted. Without a keeper, `config` stays valid until the process ends.
    void Store(THdlLanguage language, TProjectSimLanguageConfig* config);
    /// Forgets all. The configurations stay, also in the sources that have them.
    void Clear();
    /// Forgets and deletes all. Sources that have one then have none.
    void DeleteAll();

    const TSlots& GetSlots() const { return Slots; }

private:
    TSlots Slots;
};

/// The slot in which a map stored `config`, also when that map forgot it; null when none did.
std::shared_ptr<const TLanguageConfigSlot> FindLanguageConfigSlot(
    const TProjectSimLanguageConfig* config);
/// Deletes a configuration that a map stored. Sources that have it then have none.
void DeleteLanguageConfig(const TProjectSimLanguageConfig* config);
