#include "cli/build/commands.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/texts.h"
#include "flows/listedsources.h"
#include "flows/toptexts.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include <algorithm>

namespace {

// What the build holds is gathered as JSON first; the text is printed from it, so that both say the
// same.

std::string LanguageText(THdlLanguage language) {
    return GetStringFromHdlLanguage(language);
}

TJson LanguagesOf(const THdlBuildFile& build) {
    return {{"top", LanguageText(build.GetTopLanguage())},
            {"hvl", LanguageText(build.GetHvlLanguage())},
            {"hdl", LanguageText(build.GetHdlLanguage())}};
}

TJson LibrariesOf(const THdlBuildFile& build) {
    return {{"destination", build.GetDestinationLibrary()},
            {"generation", build.GetGenerationDestinationLibrary()},
            {"snapshot", build.GetSnapshotName()},
            {"groups", build.GetPrecompiledLibraryGroups()}};
}

TJson TopLevelComponentsOf(const THdlBuildFile& build) {
    TJson components = TJson::Array();
    for (const TBuildTop& top : ListTops(build)) components.Add(TopAsJson(top));
    return components;
}

TJson SimulatorsOf(const THdlBuildFile& build) {
    TJson simulators = TJson::Array();
    for (const THdlLanguage language : build.GetSimToolLanguages()) {
        const TBaseSimTool* tool = build.GetSimTool(language);
        simulators.Add({{"language", LanguageText(language)},
                        {"simulator", GetSimulatorNameFromType(tool->GetSimulatorType())},
                        {"path", tool->GetExecutablePath()},
                        {"pliLibrary", tool->GetPliLibrary()}});
    }
    return simulators;
}

TJson SettingsOf(TProjectSimLanguageConfig& config, THdlLanguage language,
                 const TBuildArguments& arguments) {
    const auto paths = [&](const std::vector<std::string>& directories) {
        TJson list = TJson::Array();
        for (const std::string& directory : directories)
            list.Add(PathText(directory.c_str(), arguments.Paths));
        return list;
    };
    return {{"language", LanguageText(language)},
            {"simulator", GetSimulatorNameFromType(config.GetTool())},
            {"delayType", static_cast<int>(config.GetDelayType())},
            {"includeDirectories", paths(config.GetIncludeDirectories())},
            {"libraryDirectories", paths(config.GetLibraryDirectories())},
            {"libraryExtensions", config.GetLibraryExtensions()},
            {"buildOptions", std::string(config.GetBuildOptions())},
            {"linkerOptions", std::string(config.GetLinkerOptions())},
            {"runtimeOptions", std::string(config.GetRuntimeOptions())}};
}

TJson OptionsOf(THdlBuildFile& build, const TBuildArguments& arguments) {
    TJson options = TJson::Array();
    for (const THdlLanguageRecord& record : GetHdlLanguageTable())
        if (TProjectSimLanguageConfig* config = build.GetProjectLanguageConfig(record.Language))
            options.Add(SettingsOf(*config, record.Language, arguments));
    return options;
}

TJson GroupsOf(const THdlBuildFile& build) {
    TJson groups = TJson::Array();
    for (const THdlLanguageRecord& record : GetHdlLanguageTable()) {
        const THdlLanguage language = record.Language;
        const TIHdlSourceFileList& files = *build.GetSourceFileGroup(language);
        if (files.begin() == files.end()) continue;
        const auto libraries =
            std::count_if(files.begin(), files.end(),
                          [](const IHdlSourceFile* file) { return file->IsLibrary(); });
        groups.Add({{"language", LanguageText(language)},
                    {"files", std::distance(files.begin(), files.end())},
                    {"libraryFiles", libraries}});
    }
    return groups;
}

TJson MissingFilesOf(const THdlBuildFile& build, const TBuildArguments& arguments) {
    const std::vector<TListedSource> sources = ListMissingSources(build);
    TJson missing = TJson::Array(sources.size());
    for (const TListedSource& source : sources)
        missing.Add(PathText(source.File->GetFileName(), arguments.Paths));
    return missing;
}

TJson ContentsOf(THdlBuildFile& build, const TBuildArguments& arguments) {
    TJson contents = MakeResult("hdlbuild-show", "build", arguments.Build);
    contents["readResult"] = {{"number", static_cast<int>(build.GetReadResult())},
                              {"text", THdlBuildFile::GetErrorString(build.GetReadResult())}};
    contents["languages"] = LanguagesOf(build);
    contents["timeBase"] = {{"base", build.GetTimeBase()->GetBaseTimeUnitStr()},
                            {"display", build.GetTimeBase()->GetDisplayTimeUnitStr()}};
    contents["libraries"] = LibrariesOf(build);
    contents["forceTopLevelComponents"] = build.GetForceTopLevelComponents();
    contents["topLevelComponents"] = TopLevelComponentsOf(build);
    contents["simulators"] = SimulatorsOf(build);
    contents["options"] = OptionsOf(build, arguments);
    contents["variables"] = *build.GetPseudoEnvironmentVariables();
    contents["groups"] = GroupsOf(build);
    return contents;
}

std::string Text(const TJson& value) {
    return value.Text();
}

/// A line "label  value", left out for an empty value.
void PrintLabelled(std::ostream& out, const std::string& label, const std::string& value) {
    if (value.empty()) return;
    PrintLine(out, label + std::string(label.size() < 20 ? 20 - label.size() : 1, ' ') + value);
}

void PrintOptions(std::ostream& out, const TJson& options) {
    static constexpr std::pair<const char*, const char*> kLines[] = {
        {"includeDirectories", "  include"},   {"libraryDirectories", "  library dirs"},
        {"libraryExtensions", "  extensions"}, {"buildOptions", "  build options"},
        {"linkerOptions", "  linker options"}, {"runtimeOptions", "  runtime options"},
    };
    for (const TJson& config : options.GetEntries()) {
        PrintLabelled(out, "Settings " + Text(config["language"]),
                      Text(config["simulator"]) + ", delay type " + Text(config["delayType"]));
        for (const auto& [member, label] : kLines) PrintLabelled(out, label, Text(config[member]));
    }
}

void PrintContents(std::ostream& out, const TJson& contents) {
    const TJson& languages = contents["languages"];
    PrintLabelled(out, "Build file", Text(contents["build"]));
    PrintLabelled(
        out, "Read result",
        Text(contents["readResult"]["number"]) + ", " + Text(contents["readResult"]["text"]));
    PrintLabelled(out, "Languages",
                  "top " + Text(languages["top"]) + ", HVL " + Text(languages["hvl"]) + ", HDL " +
                      Text(languages["hdl"]));
    PrintLabelled(
        out, "Time base",
        Text(contents["timeBase"]["base"]) + ", shown in " + Text(contents["timeBase"]["display"]));
    PrintLabelled(out, "Library", Text(contents["libraries"]["destination"]));
    PrintLabelled(out, "Generated into", Text(contents["libraries"]["generation"]));
    PrintLabelled(out, "Snapshot", Text(contents["libraries"]["snapshot"]));
    PrintLabelled(out, "Compiled into", Text(contents["libraries"]["groups"]));
    for (const TJson& component : contents["topLevelComponents"].GetEntries())
        PrintLabelled(
            out, "Top level " + Text(component["language"]),
            TextOf(TBuildTop{LANGUAGE_NONE, Text(component["library"]), Text(component["entity"]),
                             Text(component["architecture"])}));
    if (contents["forceTopLevelComponents"].IsTrue()) PrintLabelled(out, "Top level", "forced");
    for (const TJson& tool : contents["simulators"].GetEntries()) {
        PrintLabelled(out, "Simulator " + Text(tool["language"]), Text(tool["simulator"]));
        PrintLabelled(out, "  path", Text(tool["path"]));
        PrintLabelled(out, "  PLI library", Text(tool["pliLibrary"]));
    }
    PrintOptions(out, contents["options"]);
    for (const auto& [name, value] : contents["variables"].GetMembers())
        PrintLabelled(out, "Variable " + name, Text(value));
    for (const TJson& group : contents["groups"].GetEntries())
        PrintLabelled(
            out, "Sources " + Text(group["language"]),
            Text(group["files"]) + " (" + Text(group["libraryFiles"]) + " library files)");
}

// Printed as they come: there may be a million.
void PrintMissingFiles(std::ostream& out, const THdlBuildFile& build,
                       const TBuildArguments& arguments) {
    for (const TListedSource& source : ListMissingSources(build))
        PrintLabelled(out, "Missing file", PathText(source.File->GetFileName(), arguments.Paths));
}

}  // namespace

int RunShow(const TBuildArguments& arguments, const TToolStreams& streams) {
    THdlBuildFile build;
    const int status = LoadBuild(arguments.Build, streams, &build);
    if (status == kExitFile) return status;
    ReportNoBuild(build, streams);
    TJson contents = ContentsOf(build, arguments);
    if (arguments.Json) {
        contents["missingFiles"] = MissingFilesOf(build, arguments);
        PrintJson(contents, streams);
    } else {
        PrintContents(streams.Out, contents);
        PrintMissingFiles(streams.Out, build, arguments);
    }
    return status;
}
