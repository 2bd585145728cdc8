#include "buildfile/buildfileparts.h"
#include "buildfile/hdlbuildfile.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "projectfiles/sourcesahead.h"
#include "services/base/mystring.h"
#include "services/files/pathtext.h"
#include "services/names/isfilename.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include <algorithm>
#include <ostream>

namespace {

// So many bytes of lines are handed to a stream at a time.
constexpr std::size_t kLinesAtOnce = 16384;

/// Without general settings the options are those of the default ones.
const TProjectSimGeneralConfig& OrDefault(const TProjectSimGeneralConfig* general) {
    static const TProjectSimGeneralConfig& defaults = *new TProjectSimGeneralConfig;
    return general ? *general : defaults;
}

void AddLogFile(const std::string& directory, const char* logFile, std::string* out) {
    *out += " -l ";
    TMyString lower = logFile;
    lower.toLower();
    if (lower == "nolog")
        *out += "nolog";
    else
        AddRelativePath(directory.c_str(), logFile, out);
}

const char* DelaySwitch(TSimProjectDelayType type) {
    switch (type) {
        case DELAY_TYPE_MINIMUM:
            return " +mindelays";
        case DELAY_TYPE_TYPICAL:
            return " +typdelays";
        case DELAY_TYPE_MAXIMUM:
            return " +maxdelays";
    }
    return "";
}

/// " +incdir+a+b+" ends with a plus, " +libext+.v+.vo" does not: the simulators read them so.
void AddIncludeDirectories(const std::string& directory, const std::vector<std::string>& includes,
                           std::string* out) {
    if (includes.empty()) return;
    *out += " +incdir";
    for (const std::string& include : ResolveOrvaneEnvVariables(includes)) {
        *out += "+";
        AddRelativePath(directory.c_str(), include.c_str(), out);
    }
    *out += "+";
}

void AddLibraryExtensions(const std::vector<std::string>& extensions, std::string* out) {
    if (extensions.empty()) return;
    *out += " +libext";
    for (const std::string& extension : extensions) *out += "+" + extension;
}

std::string ResolvedOptions(const TProjectSimLanguageConfig* config,
                            const char* (TProjectSimLanguageConfig::*options)() const,
                            const TPseudoVariables& variables) {
    return config ? ResolveOrvaneEnvVariables((config->*options)(), &variables) : std::string();
}

}  // namespace

void AddRelativePath(const char* directory, const char* path, std::string* out) {
    if (!out) return;
    std::string display;
    IFileName::CreateNiceFileNameForUI(directory, path, &display);
    std::replace(display.begin(), display.end(), '\\', '/');
    const bool quoted = display.find(' ') != std::string::npos;
    *out += quoted ? '"' + display + '"' : display;
}

std::string THdlBuildFile::GetVerilogCommandLineOptions(const std::string& projectDirectory,
                                                        const TProjectSimLanguageConfig* language,
                                                        const TProjectSimGeneralConfig* general,
                                                        const char* extra, bool isGOFBuild) {
    std::string options;
    if (!language) return options;
    if (OrDefault(general).GetBreakAtTimeZeroAfterCompile()) options += " -s";
    if (!isGOFBuild)
        AddLogFile(projectDirectory, OrDefault(general).GetSimulationLogFileName(), &options);
    for (const std::string& library :
         ResolveOrvaneEnvVariables(language->GetLibraryDirectories())) {
        options += " -y ";
        AddRelativePath(projectDirectory.c_str(), library.c_str(), &options);
    }
    AddIncludeDirectories(projectDirectory, language->GetIncludeDirectories(), &options);
    AddLibraryExtensions(language->GetLibraryExtensions(), &options);
    options += DelaySwitch(language->GetDelayType());
    options += " " + ResolveOrvaneEnvVariables(language->GetRuntimeOptions());
    if (extra) options += extra;
    return options;
}

std::string THdlBuildFile::GetVerilogCommandLineOptions() {
    const TProjectSimLanguageConfig* language = GetProjectLanguageConfig(LANGUAGE_VERILOG);
    if (!language) return {};
    const bool isGOFBuild = IsGOFBuildFile;
    IsGOFBuildFile = false;
    std::string extra;
    if (!isGOFBuild && !VerilogUserDefines.empty()) extra += " " + VerilogUserDefines;
    if (!isGOFBuild && !VerilogOtherPlusOptions.empty()) extra += " " + VerilogOtherPlusOptions;
    return GetVerilogCommandLineOptions(GetProjectPath(), language, GeneralConfiguration,
                                        extra.c_str(), isGOFBuild);
}

void THdlBuildFile::GenerateVerilogCommandFile(std::ostream& out) {
    out << GetVerilogCommandLineOptions();
    AddSourceFilesToCommandFile(out, LANGUAGE_VERILOG);
}

void THdlBuildFile::AddSourceFilesToCommandFile(std::ostream& out, THdlLanguage language) const {
    std::string lines;
    TBaseDirectory& directory = Parts->DirectoryOf(BuildFileName);
    const TIHdlSourceFileList& sources = *GetSourceFileGroup(language);
    TSourcesAhead ahead(sources);
    for (const IHdlSourceFile* source : sources) {
        ahead.Step();
        const ISFileName* name = source->GetFileName();
        if (!name || source->IsExcludeFromBuild()) continue;
        if (source->IsLibrary()) lines += "-v ";
        const std::size_t begin = lines.size();
        if (IsSharedHandle(name))
            lines += directory.MakeRelative(GetSharedText(name));
        else
            lines += GetRelativeFileNameStr(name->GetParts(PART_ALL));
        // Nearly no path has one, and looking for it is cheaper than replacing byte by byte.
        for (std::size_t at = lines.find('\\', begin); at != std::string::npos;
             at = lines.find('\\', at + 1))
            lines[at] = '/';
        lines += '\n';
        if (lines.size() < kLinesAtOnce) continue;
        out << lines;
        lines.clear();
    }
    out << lines;
}

std::string THdlBuildFile::GetRelativeFileNameStr(const char* path) const {
    if (IsOnlyFileName(path) || IsRelativePath(path)) return path;
    std::string relative;
    IFileName::CreateRelativeFileName(GetProjectPath().c_str(), path, &relative, false, false);
    return relative;
}

std::string THdlBuildFile::GetCompileOptions(THdlLanguage language) {
    return ResolvedOptions(GetProjectLanguageConfig(language),
                           &TProjectSimLanguageConfig::GetBuildOptions, Variables);
}

std::string THdlBuildFile::GetElaboratorOptions(THdlLanguage language) {
    return ResolvedOptions(GetProjectLanguageConfig(language),
                           &TProjectSimLanguageConfig::GetLinkerOptions, Variables);
}

std::string THdlBuildFile::GetRuntimeOptions(THdlLanguage language) {
    return ResolvedOptions(GetProjectLanguageConfig(language),
                           &TProjectSimLanguageConfig::GetRuntimeOptions, Variables);
}
