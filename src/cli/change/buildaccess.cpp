#include "cli/change/buildaccess.h"
#include "cli/change/buildstate.h"
#include "cli/frame/filereports.h"
#include "cli/frame/progressline.h"
#include "flows/filepatterns.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
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

int TBuildAccess::Save(const char* verb) {
    const TQuietMessageBox quiet;
    const std::string reason = Edit.FindEdits();
    TFileChange change{MakeResult("hdlbuild-" + std::string(verb), "build", File), File, StateRead,
                       StateOf(Edit.GetFound())};
    NameAll(&change.Before, &change.After);
    if (reason.empty()) AddSourceChanges(&change);
    for (const TNote& note : Notes) {
        change.Result[note.Key] = note.Names;
        if (Arguments.Json || !reason.empty()) continue;
        for (const std::string& name : note.Names) PrintLine(Streams.Out, name + note.Text);
    }
    return SaveEditedFile(std::move(change), reason, Edit.GetFile(), Arguments, Streams);
}

namespace {

/// The values of a source, as they are told.
class TSourceValues {
public:
    TSourceValues(const TListedRecord& record, const TSourceLists& lists,
                  const TTextNumbers& libraries, const TPathForm& form)
        : Library(libraries.GetText(record.Library)), IsLibraryFile(record.IsLibraryFile) {
        for (const ISFileName* file : lists.GetDependencies(record))
            Dependencies.Add(PathText(file, form));
    }

    TJson AsJson() const {
        TJson json = {{"library", Library}};
        if (IsLibraryFile.IsTrue()) json["libraryFile"] = true;
        if (!Dependencies.GetEntries().empty()) json["dependencies"] = Dependencies;
        return json;
    }
    TState AsState(const std::string& name) const {
        return {{name + ", library", Library},
                {name + ", library file", IsLibraryFile},
                {name + ", dependencies", Dependencies}};
    }

private:
    TJson Library;
    TJson IsLibraryFile;
    TJson Dependencies = TJson::Array();
};

void Append(const TState& values, TState* state) {
    state->insert(state->end(), values.begin(), values.end());
}

}  // namespace

void TBuildAccess::AddSourceChanges(TFileChange* change) const {
    if (!Edit.IsChanged()) return;
    const TSourceListsDifference& difference = Edit.GetSourceChanges();
    for (const TListedChange& source : difference.GetChanges()) {
        const TListedRecord& named = source.After ? *source.After : *source.Before;
        const std::string name = std::string(GetStringFromHdlLanguage(source.Language)) +
                                 " source " + TextOf(named.File);
        const auto valuesOf = [&](const TListedRecord& record, const TSourceLists& lists) {
            return TSourceValues(record, lists, Edit.GetLibraries(), Form);
        };
        const auto behind = [&](const ISFileName* file) {
            return file ? TJson(TextOf(file)) : TJson();
        };
        if (!source.Before || !source.After) {
            change->Before.emplace_back(
                name, source.Before ? valuesOf(*source.Before, Edit.GetSourcesBefore()).AsJson()
                                    : TJson());
            change->After.emplace_back(
                name,
                source.After ? valuesOf(*source.After, Edit.GetSourcesAfter()).AsJson() : TJson());
            continue;
        }
        Append(valuesOf(*source.Before, Edit.GetSourcesBefore()).AsState(name), &change->Before);
        Append(valuesOf(*source.After, Edit.GetSourcesAfter()).AsState(name), &change->After);
        if (!source.IsMoved) continue;
        change->Before.emplace_back(name + ", behind",
                                    behind(difference.GetFileInFrontBefore(source)));
        change->After.emplace_back(name + ", behind",
                                   behind(difference.GetFileInFrontAfter(source)));
    }
}
