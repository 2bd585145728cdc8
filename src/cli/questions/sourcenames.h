#pragma once
#include "cli/frame/streams.h"
#include "cli/frame/texts.h"
#include "flows/buildneeds.h"
#include <optional>
#include <string>

/// The number of the file that the user named. None, with one line on Err that tells the nearest
/// ones, for a file that the build does not name.
std::optional<std::uint32_t> FindNamedFile(const std::string& path, const TBuildNeeds& needs,
                                           const TPathForm& form, const TToolStreams& streams);
