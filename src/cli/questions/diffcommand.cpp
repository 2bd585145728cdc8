#include "buildfile/hdlbuildfile.h"
#include "cli/frame/buildstate.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/sourcechanges.h"
#include "cli/questions/commands.h"
#include "flows/editedfile.h"
#include "flows/textreaders.h"
#include "services/names/isfilename.h"
#include "translation/v2vtranslationoption.h"
#include "translation/v2vtranslationoptionslist.h"

namespace {

/// Reads `file` as if it were `place`; as LoadBuild does.
int LoadBuildAt(const std::string& place, const std::string& file, const TToolStreams& streams,
                THdlBuildFile* build) {
    const TQuietMessageBox quiet;
    TEditedFile document(ISFileName::NewISFileName(file.c_str()));
    TXMLReadError error;
    if (document.Read(&error) &&
        ReadBuildText(document.GetBytes(), ISFileName::NewISFileName(place.c_str()), build, &error))
        return build->GetReadResult() == 0 && build->HasBuildElement() ? kExitDone : kExitProblems;
    ReportReadError(error, file, streams);
    return kExitFile;
}

/// kExitProblems, with error lines on Err that name the file, for a build that was not read whole:
/// what it holds nobody knows. Missing sources do not matter.
int CheckRead(const THdlBuildFile& build, const std::string& file, const TToolStreams& streams) {
    const THdlBuildFileReadResults result = build.GetReadResult();
    const bool isRead = result == READ_NO_ERROR || result == READ_FILES_MISSING;
    ReportNoBuild(build, streams);
    if (!isRead) ReportError(streams, file + ": " + THdlBuildFile::GetErrorString(result));
    return isRead && build.HasBuildElement() ? kExitDone : kExitProblems;
}

/// Those that are enabled, with their arguments.
void AddSwitches(const THdlBuildFile& build, TState* state) {
    const TV2VTranslationOptionsList* const switches = build.GetV2VOptions();
    if (!switches) return;
    for (TV2VTranslationOption* const option : *switches) {
        if (!option->IsEnabled()) continue;
        const std::string words = option->GetListDisplayString();
        state->emplace_back(std::string(switches->GetTag()) + " " + option->GetDashOption(),
                            words.empty() ? TJson(true) : TJson(words));
    }
}

std::vector<TStateDifference> Compare(const THdlBuildFile& one, const THdlBuildFile& other,
                                      const TPathForm& form) {
    TState before = StateOf(one);
    TState after = StateOf(other);
    AddSwitches(one, &before);
    AddSwitches(other, &after);
    NameAll(&before, &after);
    TTextNumbers libraries;
    TSameFiles files;
    const TSourceLists sourcesBefore(one, &libraries, &files);
    const TSourceLists sourcesAfter(other, &libraries, &files);
    const TSourceListsDifference difference(sourcesBefore, sourcesAfter);
    AddSourceChanges({sourcesBefore, sourcesAfter, difference, libraries}, form, &before, &after);
    return FindDifferences(before, after);
}

}  // namespace

int RunDiff(const TQuestionArguments& arguments, const TToolStreams& streams) {
    THdlBuildFile one;
    THdlBuildFile other;
    if (LoadBuild(arguments.Build, streams, &one) == kExitFile) return kExitFile;
    const int read = arguments.SameFolder
                         ? LoadBuildAt(arguments.Build, arguments.Other, streams, &other)
                         : LoadBuild(arguments.Other, streams, &other);
    if (read == kExitFile) return kExitFile;
    if (CheckRead(one, arguments.Build, streams) || CheckRead(other, arguments.Other, streams))
        return kExitProblems;
    const std::vector<TStateDifference> differences = Compare(one, other, arguments.Paths);
    if (arguments.Json) {
        TJson result = MakeResult("hdlbuild-diff", "build", arguments.Build);
        result["other"] = arguments.Other;
        result["equal"] = differences.empty();
        result["differences"] = AsJson(differences);
        PrintJson(result, streams);
    } else {
        for (const TStateDifference& difference : differences)
            PrintLine(streams.Out, TextOf(difference));
    }
    return differences.empty() ? kExitDone : kExitProblems;
}
