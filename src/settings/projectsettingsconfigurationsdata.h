#pragma once
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"

/// The source name and the lines under which the failed checks of the general and of the language
/// settings are logged. They never change, even when the code moves.
namespace ProjectSettingsConfigurationsData {

inline constexpr const char* kSource = "projectsettingsconfigurationsdata";

enum TCheckLine : int {
    kResolveDirectory = 131,
    kInvalidSimulator = 264,
    kWriteWithoutSimulator = 517,
    kReadInvalidElement = 602,
    kReadSimulatorNumber = 661,
    kReadWithoutSimulator = 673,
    kWriteIniWithoutSimulator = 854
};

}  // namespace ProjectSettingsConfigurationsData
