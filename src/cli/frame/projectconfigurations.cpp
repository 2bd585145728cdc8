#include "cli/frame/projectconfigurations.h"
#include "cli/frame/filereports.h"
#include "cli/frame/texts.h"
#include "flows/knownnames.h"

int ReportProjectResult(THpjFileResult result, const TXMLReadError& error, const std::string& file,
                        const TToolStreams& streams) {
    if (result == HPJ_FILE_DONE) return kExitDone;
    if (result == HPJ_FILE_UNREADABLE)
        ReportReadError(error, file, streams);
    else
        ReportError(streams, file + ": " + THpjFile::GetErrorString(result));
    const bool isProblem =
        result == HPJ_FILE_INVALID_SETTINGS || result == HPJ_FILE_REPEATED_SETTINGS;
    return isProblem ? kExitProblems : kExitFile;
}

std::vector<std::string> NamesOf(const TProjectSimConfigList& configurations) {
    std::vector<std::string> names;
    for (const TProjectSimConfig* configuration : configurations.GetConfigurations())
        names.emplace_back(configuration->GetName());
    return names;
}

TProjectSimConfig* FindConfiguration(TProjectSimSettings& settings, const std::string& name,
                                     const TToolStreams& streams) {
    if (TProjectSimConfig* configuration = settings.GetConfiguration(name.c_str()))
        return configuration;
    const std::vector<std::string> known = NamesOf(settings);
    ReportError(streams, known.empty()
                             ? "unknown configuration '" + name + "': the project has none"
                             : UnknownName("configuration", name, known));
    return nullptr;
}

TProjectSimConfig* FindNamedOrCurrent(TProjectSimSettings& settings, const std::string& name,
                                      const TToolStreams& streams) {
    if (!name.empty()) return FindConfiguration(settings, name, streams);
    if (TProjectSimConfig* current = settings.GetCurrentConfig()) return current;
    const std::string known = JoinNames(NamesOf(settings));
    ReportError(streams, known.empty()
                             ? "the project has no configurations"
                             : "the project has no current configuration; known: " + known);
    return nullptr;
}
