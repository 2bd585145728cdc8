#include "buildfile/hdlbuildfile.h"
#include "cli/build/commands.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/languagenames.h"
#include "flows/dependencycycles.h"
#include "flows/diagnosticrules.h"
#include "flows/listedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include <algorithm>

namespace {

constexpr std::size_t kMissingNamed = 10;

/// What a format prints. There may be millions of sources: no text is kept of them.
struct TOrder {
    const TBuildArguments& Arguments;
    THdlLanguage Language;
    const THdlBuildFile& Build;
    const TIHdlSourceFileList& Sources;

    /// That the source is compiled into.
    std::string LibraryOf(const IHdlSourceFile& source) const {
        return LibraryOfSource(source, Build);
    }
    std::string PathOf(const IHdlSourceFile& source) const {
        return PathText(source.GetFileName(), Arguments.Paths);
    }
};

void PrintPaths(const TOrder& order, const TToolStreams& streams) {
    for (const IHdlSourceFile* source : order.Sources)
        PrintLine(streams.Out, order.PathOf(*source));
}

void PrintLibrariesAndPaths(const TOrder& order, const TToolStreams& streams) {
    for (const IHdlSourceFile* source : order.Sources)
        PrintFields(streams.Out, {order.LibraryOf(*source), order.PathOf(*source)});
}

void PrintOrderAsJson(const TOrder& order, const TToolStreams& streams) {
    TJson result = MakeResult("hdlbuild-order", "build", order.Arguments.Build);
    result["language"] = GetStringFromHdlLanguage(order.Language);
    TJson& files = result["files"] = TJson::Array();
    for (const IHdlSourceFile* source : order.Sources)
        files.Add({{"library", order.LibraryOf(*source)}, {"path", order.PathOf(*source)}});
    PrintJson(result, streams);
}

struct TOrderFormat {
    const char* Option;  ///< null: the format without one
    const char* Help;
    void (*Print)(const TOrder& order, const TToolStreams& streams);
};

// The first is printed when no option asks for another.
constexpr TOrderFormat kFormats[] = {
    {nullptr, "", PrintPaths},
    {"--json", "Print one JSON object", PrintOrderAsJson},
    {"--tsv", "Print library, tabulator, path", PrintLibrariesAndPaths},
};

/// Names the sources that are not there, and points to what tells more.
void ReportMissing(const THdlBuildFile& build, const TBuildArguments& arguments,
                   const TToolStreams& streams) {
    const std::vector<TListedSource> missing = ListMissingSources(build);
    if (missing.empty()) return;
    const std::size_t named = std::min(missing.size(), kMissingNamed);
    for (std::size_t i = 0; i < named; ++i)
        ReportError(streams,
                    GetDiagnosticText({DIAGNOSTIC_MISSING_FILE,
                                       {PathText(missing[i].File->GetFileName(), arguments.Paths),
                                        GetStringFromHdlLanguage(missing[i].Group)}}));
    const std::size_t rest = missing.size() - named;
    ReportError(streams, (rest ? "and " + std::to_string(rest) + " more; " : "") +
                             "'hdlbuild check' shows everything");
}

}  // namespace

std::vector<TArgument> OrderFormatArguments(TBuildArguments& arguments) {
    std::vector<TArgument> options;
    for (std::size_t number = 0; number < std::size(kFormats); ++number)
        if (const TOrderFormat& format = kFormats[number]; format.Option)
            options.push_back(
                {format.Option, TChoice{&arguments.OrderFormat, number}, format.Help});
    return options;
}

int RunOrder(const TBuildArguments& arguments, const TToolStreams& streams) {
    const THdlLanguage language = FindLanguage(arguments.Language, streams);
    if (language == LANGUAGE_NONE) return kExitUsage;
    THdlBuildFile build;
    const int status = LoadBuild(arguments.Build, streams, &build);
    if (status == kExitFile) return status;
    ReportReadResult(build, streams);
    ReportMissing(build, arguments, streams);
    build.OrderFilesForCompile(language);
    const TIHdlSourceFileList& files = *build.GetFilesToCompile(language);
    // It may take long: nothing is printed before.
    const auto cycles = FindDependencyCycles({files.begin(), files.end()});
    kFormats[arguments.OrderFormat].Print({arguments, language, build, files}, streams);
    // No order is a compile order then.
    if (!cycles.empty()) ReportCycles(cycles.size(), streams);
    return cycles.empty() ? status : kExitProblems;
}
