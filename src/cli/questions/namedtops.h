#pragma once
#include "cli/frame/streams.h"
#include "flows/check/toldscan.h"
#include "flows/neededfiles.h"
#include <optional>
#include <string>

/// The unit of a scanned build that a user named LIBRARY.ENTITY(ARCHITECTURE), in a language or,
/// with LANGUAGE_NONE, in any; the library and the architecture may be left out. None, with one
/// line on Err, for a name that means no unit or several.
std::optional<TWantedTop> FindTop(const std::string& text, THdlLanguage language,
                                  const TNeededFiles& files, const TToldScan& told,
                                  const std::string& destinationLibrary,
                                  const TToolStreams& streams);
