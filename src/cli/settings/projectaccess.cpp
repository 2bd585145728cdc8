#include "cli/settings/projectaccess.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/projectconfigurations.h"
#include "cli/frame/settingstext.h"
#include "flows/editrules.h"
#include "flows/textreaders.h"
#include "services/ini/propcache.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <map>
#include <utility>

namespace {

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
      File(ISFileName::NewISFileName(arguments.Project.c_str())) {}

int TProjectAccess::Read() {
    return ReadFile(false);
}

int TProjectAccess::ReadToChange(bool mayBeMissing) {
    if (!Arguments.DryRun) File.TakeLock();
    return ReadFile(mayBeMissing);
}

int TProjectAccess::ReadFile(bool mayBeMissing) {
    TXMLReadError error;
    THpjFileResult result = HPJ_FILE_UNREADABLE;
    if (File.Read(&error))
        result = ReadProjectText(File.GetBytes(), GetFile(), &Settings, &error);
    else
        Settings.SetProjectFileName(GetFile());
    if (result == HPJ_FILE_DONE || (error.Missing && mayBeMissing)) return kExitDone;
    return ReportProjectResult(result, error, Arguments.Project, Streams);
}

std::string TProjectAccess::GetDirectory() const {
    return GetFile()->GetPathOnly();
}

TProjectSimConfig* TProjectAccess::FindConfiguration() {
    return ::FindConfiguration(Settings, Arguments.Configuration, Streams);
}

int TProjectAccess::Save(const char* verb) {
    TProjectSimSettings read;
    (void)ReadProjectText(File.GetBytes(), GetFile(), &read, nullptr);
    const std::string reason = Change(&read);
    TFileChange change{
        MakeResult("hdlbuild-settings-" + std::string(verb), "project", Arguments.Project),
        Arguments.Project, StateOf(read), ReadState(File.GetChanged())};
    return SaveEditedFile(std::move(change), reason, File, Arguments, Streams);
}

// `read` are the settings as the file has them.
std::string TProjectAccess::Change(TProjectSimSettings* read) {
    std::string whole;
    std::string reason = PrintWhole(&whole);
    if (!reason.empty()) return reason;
    if (!File.WasThere()) return File.Make(whole);
    // Some values, such as an empty include list, read back as something else.
    const TValues held = ValuesOf(StateOf(Settings));
    const TValues savedWhole = ValuesOf(ReadState(whole));
    const auto isAsWanted = [&](const std::string& edited) {
        const TValues found = ValuesOf(ReadState(edited));
        return found.size() == savedWhole.size() &&
               std::all_of(found.begin(), found.end(), [&](const auto& value) {
                   return value.second == Find(held, value.first) ||
                          value.second == Find(savedWhole, value.first);
               });
    };
    TXMLList base;
    TXMLList wanted;
    base.SetFileName(GetFile()->Canonical(false));
    wanted.SetFileName(GetFile()->Canonical(false));
    read->WriteToProjectFile(&base);
    Settings.WriteToProjectFile(&wanted);
    return File.Change(base, wanted, MakeProjectFileRules(GetFile()), isAsWanted);
}

// The document that a save of the settings alone would make.
std::string TProjectAccess::PrintWhole(std::string* document) {
    constexpr const char* kRoot = "SimulationProject";
    TXMLList list;
    list.SetHoldsRoot(true);
    list.SetFileName(GetFile()->Canonical(false));
    list.Push(TElement::START, kRoot, {}, {});
    Settings.WriteToProjectFile(&list);
    list.Push(TElement::END, kRoot, {}, {});
    std::string reason;
    list.WriteToText(document, &reason);
    return reason;
}

TState TProjectAccess::ReadState(const std::string& document) const {
    TProjectSimSettings settings;
    (void)ReadProjectText(document, GetFile(), &settings, nullptr);
    return StateOf(settings);
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

int ReadTemplates(TProjectTemplateSimConfigList* templates, const TToolStreams& streams) {
    templates->ResetAllTemplateConfigurations();
    templates->ReadFromINI();
    const TIniReadError& error = GetSystemPropCache()->GetReadError();
    if (error.Reason.empty()) return kExitDone;
    ReportError(streams, error.File + ": " + error.Reason);
    return kExitFile;
}
