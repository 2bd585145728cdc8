#pragma once
#include "settings/projectsimsettings.h"

/// The source name and the lines under which the failed checks of a project's settings are logged.
/// They never change, even when the code moves.
namespace ProjectSettings {

inline constexpr const char* kSource = "projectsettings";

enum TCheckLine : int { kCopyMissingConfiguration = 97, kReadInvalidElement = 158 };

}  // namespace ProjectSettings
