#include "buildfile/hdlbuildfile.h"
#include "cli/build/commands.h"
#include "cli/frame/filereports.h"
#include "cli/frame/json.h"
#include "cli/frame/texts.h"
#include "flows/dependencycycles.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"

namespace {

/// The library that a source is compiled into.
std::string LibraryOf(const IHdlSourceFile* file, const THdlBuildFile& build) {
    std::string library = file->GetPrecompiledLibraryGroupName();
    if (!library.empty()) return library;
    const std::string destination = build.GetDestinationLibrary();
    return destination.empty() ? "work" : destination;
}

void PrintOrder(const TIHdlSourceFileList& files, const THdlBuildFile& build,
                const TBuildArguments& arguments, const TToolStreams& streams) {
    for (const IHdlSourceFile* file : files) {
        if (arguments.Tsv) streams.Out << LibraryOf(file, build) << '\t';
        streams.Out << PathText(file->GetFileName(), arguments.Paths) << '\n';
    }
}

void PrintOrderAsJson(const TIHdlSourceFileList& files, const THdlBuildFile& build,
                      THdlLanguage language, const TBuildArguments& arguments,
                      const TToolStreams& streams) {
    TJson result = MakeResult("hdlbuild-order", "build", arguments.Build);
    result["language"] = GetStringFromHdlLanguage(language);
    TJson& list = result["files"] = TJson::Array();
    for (const IHdlSourceFile* file : files)
        list.Add({{"library", LibraryOf(file, build)},
                  {"path", PathText(file->GetFileName(), arguments.Paths)}});
    PrintJson(result, streams);
}

/// Warns of cycles among `files`: no order is a compile order then.
bool WarnOfCycles(const TIHdlSourceFileList& files, const TToolStreams& streams) {
    const auto cycles = FindDependencyCycles({files.begin(), files.end()});
    if (cycles.empty()) return false;
    ReportWarning(streams, "the dependencies have " + std::to_string(cycles.size()) +
                               (cycles.size() == 1 ? " cycle" : " cycles") +
                               "; 'hdlbuild check' shows them");
    return true;
}

}  // namespace

int RunOrder(const TBuildArguments& arguments, const TToolStreams& streams) {
    const THdlLanguage language = GetHdlLanguageFromString(arguments.Language.c_str());
    if (language == LANGUAGE_NONE) {
        ReportError(streams, "unknown language '" + arguments.Language + "'");
        return kExitUsage;
    }
    THdlBuildFile build;
    const int status = LoadBuild(arguments.Build, streams, &build);
    if (status == kExitFile) return status;
    ReportReadResult(build, streams);
    build.OrderFilesForCompile(language);
    const TIHdlSourceFileList& files = *build.GetFilesToCompile(language);
    if (arguments.Json)
        PrintOrderAsJson(files, build, language, arguments, streams);
    else
        PrintOrder(files, build, arguments, streams);
    return WarnOfCycles(files, streams) ? kExitProblems : status;
}
