#pragma once
#include "flows/imports/imported.h"
#include "services/hdl/hdllanguage.h"

class TBuildEdit;

/// The language of a build of these sources: VHDL where there are some, else that of the first one.
/// LANGUAGE_NONE without sources.
THdlLanguage LanguageOfImported(const TImported& imported);

/// Puts the record into a build that was made: sources with their libraries, tops
/// and settings. The general settings have every language compiled that has sources.
void AddImported(const TImported& imported, TBuildEdit* edit);
