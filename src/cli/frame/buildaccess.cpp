#include "cli/frame/buildaccess.h"
#include "cli/frame/buildstate.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/progressline.h"
#include "cli/frame/sourcechanges.h"
#include "flows/filepatterns.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
#include <algorithm>
#include <map>
#include <utility>

TBuildAccess::TBuildAccess(const std::string& build, const TCommonArguments& arguments,
                           const TToolStreams& streams)
    : File(build),
      Arguments(arguments),
      Streams(streams),
      Edit(ISFileName::NewISFileName(build.c_str())) {}

int TBuildAccess::Read() {
    const TQuietMessageBox quiet;
    if (Streams.Progress) Streams.Progress->SetFile(File);
    TXMLReadError error;
    return Finish(Edit.Read(&error), &error);
}

int TBuildAccess::ReadToChange() {
    if (Arguments.DryRun) return Read();
    const TQuietMessageBox quiet;
    if (Streams.Progress) Streams.Progress->SetFile(File);
    TXMLReadError error;
    return Finish(Edit.ReadToChange(&error), &error);
}

int TBuildAccess::Finish(bool isRead, TXMLReadError* error) {
    if (!isRead) {
        ReportReadError(*error, File, Streams);
        return kExitFile;
    }
    THdlBuildFile& build = GetBuild();
    ReportNoBuild(build, Streams);
    const THdlBuildFileReadResults result = build.GetReadResult();
    const bool isUnderstood = result == READ_NO_ERROR || result == READ_FILES_MISSING;
    if (!isUnderstood) ReportError(Streams, THdlBuildFile::GetErrorString(result));
    StateRead = StateOf(build);
    UnsavedGroupsRead = ListUnsavedGroups(build);
    return isUnderstood && build.HasBuildElement() ? kExitDone : kExitProblems;
}

int TBuildAccess::Make(THdlLanguage language) {
    const std::string reason = Edit.Make(language, !Arguments.DryRun);
    if (!reason.empty()) {
        ReportError(Streams, File + ": " + reason);
        return kExitFile;
    }
    THdlBuildFile empty;
    StateRead = StateOf(empty);
    return kExitDone;
}

TBuildSource TBuildAccess::FindSource(const std::string& path) {
    const TBuildSource found = FindListed(GetBuild(), ISFileName::NewISFileName(path.c_str()));
    if (!found.Source) ReportError(Streams, path + " is no source of the build");
    return found;
}

int TBuildAccess::FindSources(const std::vector<std::string>& paths,
                              std::vector<TBuildSource>* sources) {
    for (const std::string& path : paths) {
        if (!IsFilePattern(path)) {
            const TBuildSource source = FindSource(path);
            if (!source.Source) return kExitUsage;
            sources->push_back(source);
            continue;
        }
        bool isMatched = false;
        const std::string pattern = TUtilFileName(path.c_str()).CanonicalWithoutFinalSlash();
        for (const THdlLanguage language : GetBuild().GetSourceFileLanguages()) {
            for (IHdlSourceFile* const source : *GetBuild().GetSourceFileGroup(language)) {
                if (!MatchesFilePattern(pattern, source->GetFileName()->Canonical(false))) continue;
                sources->push_back({language, source});
                isMatched = true;
            }
        }
        if (!isMatched) {
            ReportError(Streams, "no source of the build matches '" + path + "'");
            return kExitUsage;
        }
    }
    return kExitDone;
}

void TBuildAccess::Note(const char* key, const std::vector<std::string>& names,
                        const std::string& text) {
    Notes.push_back({key, names, text});
}

std::string TBuildAccess::FindEdits(TState* after) {
    std::string reason = Edit.FindEdits();
    *after = StateOf(Edit.GetFound());
    if (!reason.empty()) return reason;
    TState wanted = StateOf(GetBuild());
    NameAll(&wanted, after);
    const std::map<std::string, TJson> found(after->begin(), after->end());
    for (const auto& [name, value] : wanted)
        if (const TJson& other = found.at(name); other != value)
            return name + " " + value.Dump() + " cannot be stored: a reader would find " +
                   other.Dump();
    return "";
}

void TBuildAccess::WarnOfUnsavedGroups() {
    for (const THdlLanguage language : ListUnsavedGroups(Edit.GetFound()))
        if (std::find(UnsavedGroupsRead.begin(), UnsavedGroupsRead.end(), language) ==
            UnsavedGroupsRead.end())
            ReportWarning(Streams, std::string("the general settings do not compile ") +
                                       GetStringFromHdlLanguage(language) +
                                       " files: a save by the environment drops these sources");
}

int TBuildAccess::Save(const char* verb) {
    const TQuietMessageBox quiet;
    TFileChange change{
        MakeResult("hdlbuild-" + std::string(verb), "build", File), File, StateRead, {}};
    const std::string reason = FindEdits(&change.After);
    NameAll(&change.Before, &change.After);
    if (reason.empty() && Edit.IsChanged())
        AddSourceChanges({Edit.GetSourcesBefore(), Edit.GetSourcesAfter(), Edit.GetSourceChanges(),
                          Edit.GetLibraries()},
                         Form, &change.Before, &change.After);
    for (TJson::TMember& member : Members) change.Result[member.first] = std::move(member.second);
    for (const TNote& note : Notes) {
        change.Result[note.Key] = note.Names;
        if (Arguments.Json || !reason.empty()) continue;
        for (const std::string& name : note.Names) PrintLine(Streams.Out, name + note.Text);
    }
    const int status =
        SaveEditedFile(std::move(change), reason, Edit.GetFile(), Arguments, Streams);
    if (status == kExitDone) WarnOfUnsavedGroups();
    return status;
}
