#pragma once
#include "services/hdl/hdllanguagetable.h"

/// Whether settings of `language` are stored; GetStoredLanguages() lists those that are.
inline bool IsStoredLanguage(THdlLanguage language) {
    return GetHdlLanguageRecord(language).HasStoredSettings;
}

/// Whether a settings configuration can have settings for `language` at all.
inline bool IsSettingsLanguage(THdlLanguage language) {
    return GetHdlLanguageRecord(language).IsValidForSettings;
}
