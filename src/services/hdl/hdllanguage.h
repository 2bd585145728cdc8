#pragma once
#include "services/base/api.h"
#include "services/base/languagenumber.h"

/// The text stored in files, THdlLanguageRecord::Name. Numbers outside 0 to 9 give "None". Never
/// null, static.
HDLBUILDFILE_API const char* GetStringFromHdlLanguage(THdlLanguage language);

/// The inverse: trims, ignores ASCII case and takes THdlLanguageRecord::OtherNames too.
/// Unknown, empty and null texts give LANGUAGE_NONE.
HDLBUILDFILE_API THdlLanguage GetHdlLanguageFromString(const char* text);

/// The text for messages, THdlLanguageRecord::DisplayName. Never null, static.
HDLBUILDFILE_API const char* GetDisplayStringFromHdlLanguage(THdlLanguage language);
