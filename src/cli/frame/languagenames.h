#pragma once
#include "cli/frame/streams.h"
#include "services/hdl/hdllanguage.h"
#include <string>
#include <vector>

/// The names of the languages that a command may be asked for.
std::vector<std::string> OfferedLanguages();

/// The help of an option that takes one of them. `preset`, unless empty, is marked as the default.
std::string LanguageHelp(const std::string& preset = {});

/// The language of an option's text. LANGUAGE_NONE, with one line on Err, for an unknown one.
THdlLanguage FindLanguage(const std::string& text, const TToolStreams& streams);
