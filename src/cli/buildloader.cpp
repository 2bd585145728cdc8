#include "cli/buildloader.h"
#include "cli/filereports.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"

int LoadBuild(const TToolArguments& arguments, const TToolStreams& streams, THdlBuildFile* build) {
    const TQuietMessageBox quiet;
    build->SetBuildFileName(ISFileName::NewISFileName(arguments.Build.c_str()));
    const THdlBuildFileReadResults result = build->ReadFromFile();
    TXMLReadError error = build->GetReadError();
    if (!error.IsError()) return result == 0 ? kExitDone : kExitProblems;
    error.File = arguments.Build;  // as the user typed it
    ReportError(streams, ReadErrorText(error));
    return kExitFile;
}

void ReportReadResult(const THdlBuildFile& build, const TToolStreams& streams) {
    if (build.GetReadResult() != 0)
        ReportError(streams, THdlBuildFile::GetErrorString(build.GetReadResult()));
}

std::vector<TListedSource> ListSources(const THdlBuildFile& build) {
    std::vector<TListedSource> sources;
    for (const THdlLanguage language : SelectableLanguages())
        for (const IHdlSourceFile* file : *build.GetSourceFileGroup(language))
            sources.push_back({language, file});
    return sources;
}

std::vector<TListedSource> ListMissingSources(const THdlBuildFile& build) {
    std::vector<TListedSource> missing;
    if (build.GetReadResult() == 0) return missing;
    for (const TListedSource& source : ListSources(build))
        if (!source.File->GetFileName()->Exists()) missing.push_back(source);
    return missing;
}

const std::vector<THdlLanguage>& SelectableLanguages() {
    static const std::vector<THdlLanguage> languages = {
        LANGUAGE_VERILOG,   LANGUAGE_VHDL,      LANGUAGE_BLUESPECVERILOG, LANGUAGE_SYSTEMC,
        LANGUAGE_CPLUSPLUS, LANGUAGE_RESERVED5, LANGUAGE_SPECMAN,         LANGUAGE_TESTBUILDER,
        LANGUAGE_RESERVED8, LANGUAGE_NONE};
    return languages;
}

std::string PathText(const char* path, const TToolArguments& arguments) {
    if (arguments.Absolute) return path;
    std::string relative;
    IFileName::CreateRelativeFileName(arguments.Directory.c_str(), path, &relative, false, false);
    return relative;
}

std::string PathText(const ISFileName* file, const TToolArguments& arguments) {
    return file ? PathText(file->Canonical(false), arguments) : std::string();
}
