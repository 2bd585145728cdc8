#pragma once
#include "cli/frame/streams.h"
#include "settings/hpjfile.h"
#include "settings/projectsimsettings.h"
#include <string>
#include <vector>

/// kExitDone for a project file that was read; else kExitProblems when it holds no settings that
/// can be read, kExitFile when the file itself cannot be read, with one line on Err. `error` counts
/// for HPJ_FILE_UNREADABLE.
int ReportProjectResult(THpjFileResult result, const TXMLReadError& error, const std::string& file,
                        const TToolStreams& streams);

/// The names in list order.
std::vector<std::string> NamesOf(const TProjectSimConfigList& configurations);

/// The configuration of that name, "Default" being the first one. Null, with one line on Err, when
/// there is none.
TProjectSimConfig* FindConfiguration(TProjectSimSettings& settings, const std::string& name,
                                     const TToolStreams& streams);
/// The same; without a name the current one.
TProjectSimConfig* FindNamedOrCurrent(TProjectSimSettings& settings, const std::string& name,
                                      const TToolStreams& streams);
