#include "cli/frame/jsonresults.h"
#include "cli/frame/projectconfigurations.h"
#include "cli/frame/settingstext.h"
#include "cli/frame/texts.h"
#include "cli/settings/commands.h"
#include "cli/settings/projectaccess.h"
#include "flows/knownnames.h"
#include <memory>

namespace {

/// Why a configuration cannot be called `name`; "" when it can.
std::string NameComplaint(const std::string& name, const TProjectSimSettings& settings) {
    if (name.empty()) return "a configuration needs a name";
    // In an INI file it would end the line, and come back as another name.
    if (name.find_first_of("\r\n") != std::string::npos)
        return "the name '" + name + "' holds a line end";
    if (name == "Default") return "'Default' always means the first configuration";
    return settings.Find(name.c_str()) ? "the project has a configuration '" + name + "' already"
                                       : "";
}

/// Sets `*copy` to a copy of the configuration or template that the arguments name. kExitUsage when
/// there is neither, kExitFile when the templates cannot be read, each with one line on Err.
int CopySource(TProjectAccess& project, const TSettingsArguments& arguments,
               const TToolStreams& streams, std::unique_ptr<TProjectSimConfig>* copy) {
    const char* const name = arguments.Configuration.c_str();
    const TProjectSimConfig* source = project.GetSettings().GetConfiguration(name);
    TProjectTemplateSimConfigList templates;
    if (!source) {
        if (const int status = ReadTemplates(&templates, streams); status != kExitDone)
            return status;
        source = templates.Find(name);
    }
    if (source) {
        *copy = std::make_unique<TProjectSimConfig>(*source);
        return kExitDone;
    }
    std::vector<std::string> known = NamesOf(project.GetSettings());
    for (const std::string& templateName : NamesOf(templates)) known.push_back(templateName);
    ReportError(streams, UnknownName("configuration or template", arguments.Configuration, known));
    return kExitUsage;
}

}  // namespace

int RunSettingsList(const TSettingsArguments& arguments, const TToolStreams& streams) {
    TProjectAccess project(arguments, streams);
    if (const int status = project.Read(); status != kExitDone) return status;
    const TProjectSimSettings& settings = project.GetSettings();
    const std::vector<std::string> names = NamesOf(settings);
    if (!arguments.Json) {
        PrintNames(names, settings.GetCurrentConfigName(), streams.Out);
        return kExitDone;
    }
    TJson result = MakeResult("hdlbuild-settings-list", "project", arguments.Project);
    result["current"] =
        settings.GetCurrentConfig() ? TJson(settings.GetCurrentConfigName()) : TJson();
    result["configurations"] = names;
    PrintJson(result, streams);
    return kExitDone;
}

int RunSettingsShow(const TSettingsArguments& arguments, const TToolStreams& streams) {
    TProjectAccess project(arguments, streams);
    if (const int status = project.Read(); status != kExitDone) return status;
    const TProjectSimConfig* configuration =
        FindNamedOrCurrent(project.GetSettings(), arguments.Configuration, streams);
    if (!configuration) return kExitUsage;
    const bool isCurrent = configuration == project.GetSettings().GetCurrentConfig();
    const std::vector<TSettingValue> values =
        ListSettings(*configuration, arguments.Absolute ? "" : project.GetDirectory());
    if (!arguments.Json) {
        PrintLine(streams.Out,
                  std::string(configuration->GetName()) + (isCurrent ? " (current)" : ""));
        PrintSettings(values, streams.Out);
        return kExitDone;
    }
    TJson result = MakeResult("hdlbuild-settings-show", "project", arguments.Project);
    result["name"] = configuration->GetName();
    result["current"] = isCurrent;
    AddSettings(result, values);
    PrintJson(result, streams);
    return kExitDone;
}

int RunSettingsCurrent(const TSettingsArguments& arguments, const TToolStreams& streams) {
    TProjectAccess project(arguments, streams);
    if (const int status = project.ReadToChange(); status != kExitDone) return status;
    const TProjectSimConfig* configuration = project.FindConfiguration();
    if (!configuration) return kExitUsage;
    project.GetSettings().SelectCurrentConfig(configuration);
    return project.Save("current");
}

int RunSettingsCopy(const TSettingsArguments& arguments, const TToolStreams& streams) {
    TProjectAccess project(arguments, streams);
    if (const int status = project.ReadToChange(true); status != kExitDone) return status;
    TProjectSimSettings& settings = project.GetSettings();
    const std::string complaint = NameComplaint(arguments.NewName, settings);
    if (!complaint.empty()) {
        ReportError(streams, complaint);
        return kExitUsage;
    }
    std::unique_ptr<TProjectSimConfig> copy;
    if (const int status = CopySource(project, arguments, streams, &copy); status != kExitDone)
        return status;
    copy->SetName(arguments.NewName.c_str());
    copy->SetProjectFileName(project.GetFile());
    const bool isFirst = settings.GetConfigurations().empty();
    settings.AddConfiguration(copy.release());
    if (isFirst) settings.SelectCurrentConfig(arguments.NewName.c_str());
    return project.Save("copy");
}

int RunSettingsRemove(const TSettingsArguments& arguments, const TToolStreams& streams) {
    TProjectAccess project(arguments, streams);
    if (const int status = project.ReadToChange(); status != kExitDone) return status;
    const TProjectSimConfig* configuration = project.FindConfiguration();
    if (!configuration) return kExitUsage;
    const std::string name = configuration->GetName();
    project.GetSettings().RemoveConfiguration(name.c_str());
    return project.Save("remove");
}

int RunSettingsReset(const TSettingsArguments& arguments, const TToolStreams& streams) {
    TProjectAccess project(arguments, streams);
    if (const int status = project.ReadToChange(); status != kExitDone) return status;
    TProjectSimConfig* configuration = project.FindConfiguration();
    if (!configuration) return kExitUsage;
    const std::string name = configuration->GetName();
    configuration->Reset(arguments.Debug);
    configuration->SetName(name.c_str());
    // The fresh settings belong to no project file yet.
    configuration->SetProjectFileName(project.GetFile());
    return project.Save("reset");
}
