#pragma once
#include "settings/projectdiagramsimconfig.h"
#include "settings/projectsimconfig.h"
#include "settings/projectsimconfiglist.h"
#include "settings/projecttemplatesimconfiglist.h"

/// The source name and the lines under which the failed checks of a configuration are logged. They
/// never change, even when the code moves.
namespace ProjectSettingsConfigurations {

inline constexpr const char* kSource = "projectsettingsconfigurations";

enum TCheckLine : int {
    kStoreInvalidLanguage = 142,
    kResetInvalidLanguage = 207,
    kResetMissingLanguage = 214,
    kReadInvalidElement = 318
};

}  // namespace ProjectSettingsConfigurations
