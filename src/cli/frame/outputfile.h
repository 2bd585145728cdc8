#pragma once
#include "cli/frame/streams.h"
#include "cli/frame/texts.h"
#include <string>
#include <string_view>

class THdlBuildFile;

/// Whether `output`, as the user gave it, names a file; "" and "-" are standard output.
bool IsFileOutput(const std::string& output);

/// kExitUsage, with one line on Err, for an output that would replace the build file.
int CheckOutput(const std::string& output, const std::string& buildFile,
                const TToolStreams& streams);
/// kExitUsage, with one line on Err, for an output that would replace a source of the build.
int CheckOutput(const std::string& output, const THdlBuildFile& build, const TPathForm& paths,
                const TToolStreams& streams);

/// Replaces the file whole; kExitFile, with one line on Err, when that fails.
int SaveOutput(const std::string& output, std::string_view text, const TToolStreams& streams);
