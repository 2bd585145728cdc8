#include "cli/shell/offerednames.h"
#include "buildfile/hdlbuildfile.h"
#include "cli/frame/filereports.h"
#include "cli/frame/languagenames.h"
#include "cli/frame/projectconfigurations.h"
#include "cli/frame/settingkeys.h"
#include "cli/frame/texts.h"
#include "cli/shell/shellscripts.h"
#include "flows/buildattributes.h"
#include "flows/buildtops.h"
#include "flows/editedfile.h"
#include "flows/formats/exportformats.h"
#include "flows/imports/importformats.h"
#include "flows/listedsources.h"
#include "flows/run/runtools.h"
#include "flows/simulatornames.h"
#include "flows/textreaders.h"
#include "flows/toptexts.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"
#include "settings/projectsimconfig.h"
#include "settings/projectsimsettings.h"
#include "settings/projecttemplatesimconfiglist.h"
#include "translation/v2vtranslationoption.h"
#include "translation/v2vtranslationoptionslist.h"
#include <sstream>
#include <string_view>
#include <unordered_set>

namespace {

std::string ValueOf(const TGivenValues& given, const char* argument) {
    const auto value = given.find(argument);
    return value == given.end() ? "" : value->second;
}

/// Reads the build of the command line, as far as it can be read. False without one.
bool ReadBuildOf(const TGivenValues& given, THdlBuildFile* build) {
    const std::string file = ValueOf(given, "BUILD");
    std::ostringstream unheard;
    return !file.empty() && LoadBuild(file, {unheard, unheard}, build) != kExitFile;
}

TOfferedNames Files(const TGivenValues&) {
    return {{}, true};
}

TOfferedNames Sources(const TGivenValues& given) {
    TOfferedNames offered;
    THdlBuildFile build;
    if (!ReadBuildOf(given, &build)) return offered;
    const TPathForm form;
    const std::vector<TListedSource> sources = ListSources(build);
    offered.Names.reserve(sources.size());
    for (const TListedSource& source : sources)
        offered.Names.push_back(PathText(source.File->GetFileName(), form));
    return offered;
}

TOfferedNames Libraries(const TGivenValues& given) {
    TOfferedNames offered;
    THdlBuildFile build;
    if (!ReadBuildOf(given, &build)) return offered;
    std::unordered_set<std::string> met;
    for (const TListedSource& source : ListSources(build)) {
        const std::string library = LibraryOfSource(*source.File, build);
        if (met.insert(library).second) offered.Names.push_back(library);
    }
    return offered;
}

TOfferedNames Tops(const TGivenValues& given) {
    THdlBuildFile build;
    return {ReadBuildOf(given, &build) ? FullNamesOf(ListTops(build)) : std::vector<std::string>()};
}

TOfferedNames Languages(const TGivenValues&) {
    return {OfferedLanguages()};
}

TOfferedNames Simulators(const TGivenValues&) {
    return {KnownSimulators(LANGUAGE_NONE)};
}

TOfferedNames ExportFormats(const TGivenValues&) {
    TOfferedNames offered;
    for (const TExportFormat& format : GetExportFormats()) offered.Names.emplace_back(format.Name);
    offered.Names.emplace_back("list");
    return offered;
}

TOfferedNames ImportFormats(const TGivenValues&) {
    TOfferedNames offered;
    for (const TImportFormat& format : GetImportFormats()) offered.Names.emplace_back(format.Name);
    offered.Names.emplace_back("list");
    return offered;
}

TOfferedNames RunTools(const TGivenValues&) {
    TOfferedNames offered;
    for (const TRunTool& tool : GetRunTools()) offered.Names.emplace_back(tool.Name);
    return offered;
}

TOfferedNames Settings(const TGivenValues&) {
    return {KnownKeys()};
}

/// Of a build: its attributes and variables as well.
TOfferedNames Keys(const TGivenValues& given) {
    TOfferedNames offered;
    for (const TBuildAttribute& attribute : GetBuildAttributes())
        offered.Names.emplace_back(attribute.Name);
    for (const std::string& key : KnownKeys()) offered.Names.push_back(key);
    THdlBuildFile build;
    if (ReadBuildOf(given, &build))
        for (const auto& variable : *build.GetPseudoEnvironmentVariables())
            offered.Names.push_back("variable." + variable.first);
    return offered;
}

TOfferedNames Configurations(const TGivenValues& given) {
    const TQuietMessageBox quiet;
    TEditedFile file(ISFileName::NewISFileName(ValueOf(given, "PROJECT").c_str()));
    TXMLReadError error;
    TProjectSimSettings settings;
    if (!file.Read(&error) ||
        ReadProjectText(file.GetBytes(), file.GetFile(), &settings, &error) != HPJ_FILE_DONE)
        return {};
    return {NamesOf(settings)};
}

TOfferedNames Templates(const TGivenValues&) {
    const TQuietMessageBox quiet;
    TProjectTemplateSimConfigList templates;
    templates.ResetAllTemplateConfigurations();
    templates.ReadFromINI();
    return {NamesOf(templates)};
}

TOfferedNames ConfigurationsAndTemplates(const TGivenValues& given) {
    TOfferedNames offered = Configurations(given);
    for (std::string& name : Templates(given).Names) offered.Names.push_back(std::move(name));
    return offered;
}

TOfferedNames Switches(const TGivenValues& given) {
    TV2VTranslationOptionsList options(nullptr, "");
    if (ValueOf(given, "TRANSLATOR") == "vhdl2v")
        TV2VTranslationOptionsList::PopulateWithDefaultVhdl2VerilogOptions(&options);
    else
        TV2VTranslationOptionsList::PopulateWithDefaultVerilog2VhdlOptions(&options);
    TOfferedNames offered;
    for (TV2VTranslationOption* const option : options)
        offered.Names.emplace_back(option->GetDashOption());
    options.Flush();
    return offered;
}

/// What an argument takes, in every command unless one is named.
struct TArgumentRow {
    std::string_view Argument;
    std::string_view Command;  // with its verb; "": all that have no row of their own
    TOfferedNames (*Offer)(const TGivenValues& given);
    std::initializer_list<const char*> Names;  // those that never change
};

const TArgumentRow kArguments[] = {
    {"BUILD", "", Files, {}},
    {"A", "", Files, {}},
    {"B", "", Files, {}},
    {"PROJECT", "", Files, {}},
    {"PATH", "source", Sources, {}},
    {"PATH", "remove", Sources, {}},
    {"PATH", "", Files, {}},
    {"FILE", "deps", Sources, {}},
    {"FILE", "depend", Sources, {}},
    {"FILE", "", Files, {}},
    {"OLD", "", Sources, {}},
    {"NEW", "", Files, {}},
    {"FORMAT", "", ImportFormats, {}},
    {"LANGUAGE", "", Languages, {}},
    {"SIMULATOR", "", Simulators, {}},
    {"COMPONENT", "top remove", Tops, {}},
    {"STATE", "", nullptr, {"on", "off"}},
    {"KEY", "settings set", Settings, {}},
    {"KEY", "", Keys, {}},
    {"CONFIGURATION", "", Configurations, {}},
    {"NAME", "templates show", Templates, {}},
    {"NAME", "", Configurations, {}},
    {"FROM", "", ConfigurationsAndTemplates, {}},
    {"TRANSLATOR", "", nullptr, {"v2vhdl", "vhdl2v"}},
    {"SWITCH", "", Switches, {}},
    {"SHELL", "", nullptr, {"bash", "fish", "powershell", "zsh"}},
    {"--after", "", Sources, {}},
    {"--around", "", Sources, {}},
    {"--as-library-file", "source", nullptr, {"on", "off"}},
    {"--before", "", Sources, {}},
    {"--by", "", nullptr, {"file", "library", "folder"}},
    {"--fail-on", "", nullptr, {"note", "warning", "error", "failure"}},
    {"--farm", "", nullptr, {"slurm"}},
    {"--file", "", Files, {}},
    {"--format", "graph", nullptr, {"dot", "svg", "html"}},
    {"--format", "check", nullptr, {"text", "json", "sarif"}},
    {"--junit", "", Files, {}},
    {"--language", "", Languages, {}},
    {"--library", "add", Libraries, {}},
    {"--library", "list", Libraries, {}},
    {"--library", "source", Libraries, {}},
    {"--not-on", "", Sources, {}},
    {"--on", "", Sources, {}},
    {"--output", "", Files, {}},
    {"--path", "", Files, {}},
    {"--path-to", "", Sources, {}},
    {"--pli", "", Files, {}},
    {"--relative-to", "", Files, {}},
    {"--step", "", nullptr, {"compile", "elaborate", "run"}},
    {"--to", "", ExportFormats, {}},
    {"--tool-path", "", Files, {}},
    {"--top", "", Tops, {}},
    {"--top-language", "", Languages, {}},
    {"--with", "", RunTools, {}},
};

}  // namespace

TOfferedNames NamesFor(const std::string& command, const std::string& argument,
                       const TGivenValues& given) {
    for (const TArgumentRow& row : kArguments)
        if (row.Argument == argument && (row.Command.empty() || row.Command == command))
            return row.Offer ? row.Offer(given)
                             : TOfferedNames{{row.Names.begin(), row.Names.end()}};
    return {};
}
