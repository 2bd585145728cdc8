#pragma once
#include "flows/trees/json.h"
#include "settings/settingtable.h"
#include <string>
#include <vector>

/// The value of a setting that is no list. `text` is what project files hold.
TJson ValueOf(TSettingKind kind, const std::string& text);

/// What project files hold for `text`, which ValueComplaint takes.
std::string FileTextOf(TSettingKind kind, const std::string& text);

/// Why a setting of `kind` does not take `text`; "" when it does. `language` is that of the
/// setting, LANGUAGE_NONE for a general one.
std::string ValueComplaint(TSettingKind kind, const std::string& text, THdlLanguage language);

/// The names of all settings.
std::vector<std::string> KnownKeys();
