#include "cli/projectaccess.h"
#include "cli/filereports.h"
#include "cli/settingstext.h"
#include "sibling/fileservices/isfilename.h"
#include "sibling/utilities/propcache.h"

TProjectAccess::TProjectAccess(const TToolArguments& arguments, const TToolStreams& streams)
    : Arguments(arguments),
      Streams(streams),
      File(ISFileName::NewISFileName(arguments.Project.c_str())),
      Project(File) {}

int TProjectAccess::Read(bool mayBeMissing) {
    const TQuietMessageBox quiet;
    const TProjectFileResult result = Project.Read(&Settings);
    StateRead = GetState();
    if (result == PROJECT_FILE_DONE || (result == PROJECT_FILE_MISSING && mayBeMissing))
        return kExitDone;
    TXMLReadError error = Project.GetReadError();
    error.File = Arguments.Project;  // as the user typed it
    ReportError(Streams, result == PROJECT_FILE_UNREADABLE
                             ? ReadErrorText(error)
                             : Arguments.Project + ": " + TProjectFile::GetErrorString(result));
    const bool isProblem =
        result == PROJECT_FILE_INVALID_SETTINGS || result == PROJECT_FILE_REPEATED_SETTINGS;
    return isProblem ? kExitProblems : kExitFile;
}

std::string TProjectAccess::GetDirectory() const {
    return File->GetPathOnly();
}

TProjectSimConfig* TProjectAccess::FindConfiguration() {
    const std::string& name = Arguments.Configuration;
    if (TProjectSimConfig* configuration = Settings.GetConfiguration(name.c_str()))
        return configuration;
    const std::string known = JoinNames(NamesOf(Settings));
    ReportError(Streams, known.empty()
                             ? "unknown configuration '" + name + "': the project has none"
                             : "unknown configuration '" + name + "'; known: " + known);
    return nullptr;
}

int TProjectAccess::Save(const char* verb) {
    const TFileChange change{MakeResult(("hdlbuild-settings-" + std::string(verb)).c_str(),
                                        "project", Arguments.Project),
                             Arguments.Project, StateRead, GetState()};
    return SaveChange(change, Arguments, Streams, [this] { return WriteFile(); });
}

std::string TProjectAccess::WriteFile() {
    const TQuietMessageBox quiet;
    const TProjectFileResult result = Project.Save(&Settings);
    if (result == PROJECT_FILE_NOT_WRITTEN && !quiet.GetText().empty()) return quiet.GetText();
    return TProjectFile::GetErrorString(result);
}

TState TProjectAccess::GetState() const {
    const TProjectSimConfig* current = Settings.GetCurrentConfig();
    TState state = {{"current configuration", current ? TJson(current->GetName()) : TJson()},
                    {"configurations", NamesOf(Settings)}};
    for (const TProjectSimConfig* configuration : Settings.GetConfigurations())
        for (TSettingValue& setting : ListSettings(*configuration, GetDirectory())) {
            const std::string language = setting.Language.empty() ? "" : setting.Language + " ";
            state.emplace_back(
                std::string(configuration->GetName()) + ": " + language + setting.Key,
                std::move(setting.Value));
        }
    return state;
}

std::vector<std::string> NamesOf(const TProjectSimConfigList& configurations) {
    std::vector<std::string> names;
    for (const TProjectSimConfig* configuration : configurations.GetConfigurations())
        names.emplace_back(configuration->GetName());
    return names;
}

int ReadTemplates(TProjectTemplateSimConfigList* templates, const TToolStreams& streams) {
    templates->ResetAllTemplateConfigurations();
    templates->ReadFromINI();
    const TIniReadError& error = GetSystemPropCache()->GetReadError();
    if (error.Reason.empty()) return kExitDone;
    ReportError(streams, error.File + ": " + error.Reason);
    return kExitFile;
}
