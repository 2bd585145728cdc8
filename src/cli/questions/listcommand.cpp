#include "buildfile/hdlbuildfile.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/languagenames.h"
#include "cli/questions/commands.h"
#include "flows/knownnames.h"
#include "flows/listedsources.h"
#include "flows/scan/vhdlnames.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include <unordered_set>

namespace {

/// A source that is asked for.
struct TShownSource {
    std::string Path;
    std::string Library;
    const char* Language;
    bool IsLibraryFile;
    bool IsMissing;
    std::size_t DependencyCount;
};

/// What a format prints.
struct TShownList {
    const TQuestionArguments& Arguments;
    std::vector<TShownSource> Sources;
};

using TTexts = std::vector<std::string>;

TTexts TextsOf(const TShownSource& source) {
    TTexts flags;
    if (source.IsLibraryFile) flags.emplace_back("library file");
    if (source.IsMissing) flags.emplace_back("missing");
    return {source.Path, source.Library, source.Language, JoinNames(flags),
            std::to_string(source.DependencyCount)};
}

void PrintListAsTable(const TShownList& list, const TToolStreams& streams) {
    if (list.Sources.empty()) return;
    std::vector<TTexts> rows = {{"PATH", "LIBRARY", "LANGUAGE", "FLAGS", "DEPENDENCIES"}};
    for (const TShownSource& source : list.Sources) rows.push_back(TextsOf(source));
    PrintTable(std::move(rows), streams.Out);
}

void PrintListAsFields(const TShownList& list, const TToolStreams& streams) {
    for (const TShownSource& source : list.Sources) PrintFields(streams.Out, TextsOf(source));
}

// As they are: the program that takes them opens the files.
void PrintPathsWithNul(const TShownList& list, const TToolStreams& streams) {
    for (const TShownSource& source : list.Sources) PrintWithNul(streams.Out, source.Path);
}

void PrintListAsJson(const TShownList& list, const TToolStreams& streams) {
    TJson result = MakeResult("hdlbuild-list", "build", list.Arguments.Build);
    TJson& sources = result["sources"] = TJson::Array();
    for (const TShownSource& source : list.Sources)
        sources.Add({{"path", source.Path},
                     {"library", source.Library},
                     {"language", source.Language},
                     {"libraryFile", source.IsLibraryFile},
                     {"missing", source.IsMissing},
                     {"dependencies", source.DependencyCount}});
    PrintJson(result, streams);
}

struct TListFormat {
    const char* Option;  ///< null: the format without one
    const char* Help;
    void (*Print)(const TShownList& list, const TToolStreams& streams);
};

// The first is printed when no option asks for another.
constexpr TListFormat kListFormats[] = {
    {nullptr, "", PrintListAsTable},
    {"--json", "Print one JSON object", PrintListAsJson},
    {"--tsv", "Print path, library, language, flags, number, separated by tabulators",
     PrintListAsFields},
    {"-0,--null", "Print the paths alone as they are, each ended by a NUL", PrintPathsWithNul},
};

/// The libraries that sources may be asked for by, each once.
TTexts LibrariesOf(const std::vector<TListedSource>& sources, const THdlBuildFile& build) {
    TTexts libraries;
    std::unordered_set<std::string> known;
    const auto add = [&](const std::string& library) {
        if (known.insert(FoldVhdlName(library)).second) libraries.push_back(library);
    };
    add(GetDestinationLibraryName(build));
    for (const TListedSource& source : sources) add(LibraryOfSource(*source.File, build));
    return libraries;
}

/// Whether sources can be in that library; else an error line on Err.
bool IsKnownLibrary(const std::string& library, const std::vector<TListedSource>& sources,
                    const THdlBuildFile& build, const TToolStreams& streams) {
    const TTexts libraries = LibrariesOf(sources, build);
    for (const std::string& known : libraries)
        if (FoldVhdlName(known) == FoldVhdlName(library)) return true;
    ReportError(streams, UnknownName("library", library, libraries));
    return false;
}

/// Those that are asked for. LANGUAGE_NONE: in all languages.
std::vector<TShownSource> SelectSources(const std::vector<TListedSource>& sources,
                                        THdlLanguage language, const THdlBuildFile& build,
                                        const TQuestionArguments& arguments) {
    const std::vector<TListedSource> allMissing = ListMissingSources(build);
    auto missing = allMissing.begin();
    const std::string wanted = FoldVhdlName(arguments.Library);
    std::vector<TShownSource> selected;
    for (const TListedSource& source : sources) {
        // They come in the order of all sources.
        const bool isMissing = missing != allMissing.end() && missing->File == source.File &&
                               missing->Group == source.Group;
        if (isMissing) ++missing;
        if (language != LANGUAGE_NONE && language != source.Group) continue;
        if (arguments.Missing && !isMissing) continue;
        std::string library = LibraryOfSource(*source.File, build);
        if (!wanted.empty() && FoldVhdlName(library) != wanted) continue;
        const TIHdlSourceFileList* const dependencies = source.File->GetDependencyList();
        selected.push_back({PathText(source.File->GetFileName(), arguments.Paths),
                            std::move(library), GetStringFromHdlLanguage(source.Group),
                            source.File->IsLibrary(), isMissing,
                            dependencies ? dependencies->size() : 0});
    }
    return selected;
}

}  // namespace

std::vector<TArgument> ListFormatArguments(TQuestionArguments& arguments) {
    std::vector<TArgument> options;
    for (std::size_t number = 0; number < std::size(kListFormats); ++number)
        if (const TListFormat& format = kListFormats[number]; format.Option)
            options.push_back({format.Option, TChoice{&arguments.ListFormat, number}, format.Help});
    return options;
}

int RunList(const TQuestionArguments& arguments, const TToolStreams& streams) {
    THdlLanguage language = LANGUAGE_NONE;
    if (!arguments.Language.empty()) {
        language = FindLanguage(arguments.Language, streams);
        if (language == LANGUAGE_NONE) return kExitUsage;
    }
    THdlBuildFile build;
    const int status = LoadBuild(arguments.Build, streams, &build);
    if (status == kExitFile) return status;
    const std::vector<TListedSource> sources = ListSources(build);
    if (!arguments.Library.empty() && !IsKnownLibrary(arguments.Library, sources, build, streams))
        return kExitUsage;
    ReportReadResult(build, streams);
    const TShownList list{arguments, SelectSources(sources, language, build, arguments)};
    kListFormats[arguments.ListFormat].Print(list, streams);
    return status;
}
