#include "cli/settings/projectaccess.h"
#include "cli/frame/filereports.h"
#include "cli/frame/knownnames.h"
#include "cli/frame/texts.h"
#include "cli/settings/settingsloss.h"
#include "cli/settings/settingstext.h"
#include "services/ini/propcache.h"
#include "services/names/isfilename.h"
#include "services/xml/xmlsectionfile.h"
#include <map>

namespace {

/// Reads the section of the settings and never writes it.
class TSettingsSection : public TXMLSectionFile {
public:
    TSettingsSection() : TXMLSectionFile("ProjectSettings", "SimulationProject", CHILD_OF_ROOT) {}

protected:
    void FillSection() override {}
};

/// The names; equal ones are numbered, as in "a (2 of 2)".
std::vector<std::string> TellApart(const std::vector<std::string>& names) {
    std::map<std::string, int> counts;
    for (const std::string& name : names) ++counts[name];
    std::map<std::string, int> met;
    std::vector<std::string> labels;
    for (const std::string& name : names) {
        std::string label = name;
        if (const int count = counts[name]; count > 1) {
            label += " (" + std::to_string(++met[name]);
            label += " of " + std::to_string(count) + ")";
        }
        labels.push_back(label);
    }
    return labels;
}

using TValues = std::map<std::string, TJson>;

TValues ValuesOf(const TState& state) {
    return {state.begin(), state.end()};
}

TJson Find(const TValues& values, const std::string& name) {
    const auto value = values.find(name);
    return value == values.end() ? TJson() : value->second;
}

}  // namespace

TProjectAccess::TProjectAccess(const TSettingsArguments& arguments, const TToolStreams& streams)
    : Arguments(arguments),
      Streams(streams),
      File(ISFileName::NewISFileName(arguments.Project.c_str())),
      Project(File) {}

int TProjectAccess::Read(bool mayBeMissing) {
    const TQuietMessageBox quiet;
    const THpjFileResult result = Project.Read(&Settings);
    StateRead = StateOf(Settings);
    SavedUnchanged = StateOfSaved();
    if (result == HPJ_FILE_DONE || (result == HPJ_FILE_MISSING && mayBeMissing)) return kExitDone;
    if (result == HPJ_FILE_UNREADABLE)
        ReportReadError(Project.GetReadError(), Arguments.Project, Streams);
    else
        ReportError(Streams, Arguments.Project + ": " + THpjFile::GetErrorString(result));
    const bool isProblem =
        result == HPJ_FILE_INVALID_SETTINGS || result == HPJ_FILE_REPEATED_SETTINGS;
    return isProblem ? kExitProblems : kExitFile;
}

std::string TProjectAccess::GetDirectory() const {
    return File->GetPathOnly();
}

TProjectSimConfig* TProjectAccess::FindConfiguration() {
    const std::string& name = Arguments.Configuration;
    if (TProjectSimConfig* configuration = Settings.GetConfiguration(name.c_str()))
        return configuration;
    const std::vector<std::string> known = NamesOf(Settings);
    ReportError(Streams, known.empty()
                             ? "unknown configuration '" + name + "': the project has none"
                             : UnknownName("configuration", name, known));
    return nullptr;
}

// Re-reads the file and names what saving would drop. Settings that have changed since the first
// read are not saved over anyway.
std::string TProjectAccess::FindLoss() const {
    const TQuietMessageBox quiet;
    TSettingsSection section;
    section.ReadFile(File->Canonical(false));
    return FindSettingsLoss(section.GetSection());
}

int TProjectAccess::Save(const char* verb) {
    if (const std::string loss = FindLoss(); !loss.empty()) {
        ReportError(Streams, Arguments.Project + ": a save would lose " + loss);
        return kExitProblems;
    }
    const TFileChange change{
        MakeResult("hdlbuild-settings-" + std::string(verb), "project", Arguments.Project),
        Arguments.Project, StateRead, StateChanged()};
    return SaveChange(change, Arguments, Streams, [this] { return WriteFile(); });
}

std::string TProjectAccess::WriteFile() {
    const TQuietMessageBox quiet;
    const THpjFileResult result = Project.Save(&Settings);
    if (result == HPJ_FILE_NOT_WRITTEN && !quiet.GetText().empty()) return quiet.GetText();
    return THpjFile::GetErrorString(result);
}

// Saving alone changes some values, such as the include lists of languages that the file did not
// mention. Those are reported only when the command touched them.
TState TProjectAccess::StateChanged() {
    const TValues read = ValuesOf(StateRead);
    const TValues savedUnchanged = ValuesOf(SavedUnchanged);
    const TValues held = ValuesOf(StateOf(Settings));
    TState state = StateOfSaved();
    for (auto& [name, value] : state)
        if (Find(held, name) == Find(read, name) && value == Find(savedUnchanged, name))
            value = Find(read, name);
    return state;
}

// Not the settings themselves: an empty include list and an unknown current configuration read back
// as something else.
TState TProjectAccess::StateOfSaved() {
    TXMLList document;
    document.SetFileName(File->Canonical(false));
    Settings.WriteToProjectFile(&document);
    DListIterator<TElement*> element(document);
    TProjectSimSettings saved;
    saved.ReadFromFile(element, File);
    return StateOf(saved);
}

TState TProjectAccess::StateOf(const TProjectSimSettings& settings) const {
    const TProjectSimConfig* current = settings.GetCurrentConfig();
    const std::vector<std::string> names = NamesOf(settings);
    const std::vector<std::string> labels = TellApart(names);
    TState state = {{"current configuration", current ? TJson(current->GetName()) : TJson()},
                    {"configurations", names}};
    for (std::size_t i = 0; i < names.size(); ++i)
        for (TSettingValue& setting :
             ListSettings(*settings.GetConfigurations()[i], GetDirectory())) {
            const std::string language = setting.Language.empty() ? "" : setting.Language + " ";
            state.emplace_back(labels[i] + ": " + language + setting.Key, std::move(setting.Value));
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
