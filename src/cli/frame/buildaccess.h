#pragma once
#include "cli/frame/changereport.h"
#include "cli/frame/command.h"
#include "cli/frame/texts.h"
#include "flows/buildchanges.h"
#include "flows/buildedit.h"
#include <string>
#include <vector>

/// The build that a command changes, and the report of it.
class TBuildAccess {
public:
    /// `build` is the file as the user named it. All must outlive the object.
    TBuildAccess(const std::string& build, const TCommonArguments& arguments,
                 const TToolStreams& streams);

    /// kExitFile for a file that cannot be read or, to change it unless for a dry run, locked,
    /// kExitProblems for a document that is no build and for a section that cannot be read; each
    /// with one line on Err. Sources that are missing do not matter.
    int Read();
    int ReadToChange();
    /// Begins a build; kExitFile, with one line on Err, where a file is.
    int Make(THdlLanguage language);

    THdlBuildFile& GetBuild() { return *Edit.GetBuild(); }
    TBuildEdit& GetEdit() { return Edit; }
    /// See TBuildEdit.
    TProjectSimLanguageConfig& GetOrMakeLanguageSettings(THdlLanguage language) {
        return Edit.GetOrMakeLanguageSettings(language);
    }

    /// The listed source that the user named; null, with one line on Err, for another file.
    TBuildSource FindSource(const std::string& path);
    /// The listed sources that the user named, by paths and by patterns (see filepatterns.h), in
    /// the order of the paths, then of the groups; one may come twice. kExitUsage, with one line on
    /// Err, for one that names none.
    int FindSources(const std::vector<std::string>& paths, std::vector<TBuildSource>* sources);
    /// A path as it is told, relative to the current directory.
    std::string TextOf(const ISFileName* file) const { return PathText(file, Form); }

    /// Tells in addition to the changes what `texts` say, in JSON under `key`.
    void Note(const char* key, const std::vector<std::string>& names, const std::string& text);
    /// Adds a member to the JSON output, in front of those of Note.
    void AddToResult(const char* key, TJson value) { Members.emplace_back(key, std::move(value)); }

    /// Saves what was changed, and prints it. `verb` names the command in JSON output. A file that
    /// has changed since it was read, and one that cannot take the change, stays as it is: one line
    /// on Err, and kExitFile. Groups that a save by the library would leave out from now on are
    /// warnings on Err.
    int Save(const char* verb);

private:
    struct TNote {
        const char* Key;
        std::vector<std::string> Names;
        std::string Text;
    };

    int Finish(bool isRead, TXMLReadError* error);
    std::string FindEdits(TState* after);
    void WarnOfUnsavedGroups();

    const std::string& File;
    const TCommonArguments& Arguments;
    const TToolStreams& Streams;
    TBuildEdit Edit;
    TState StateRead;
    std::vector<THdlLanguage> UnsavedGroupsRead;
    std::vector<TJson::TMember> Members;
    std::vector<TNote> Notes;
    TPathForm Form;
};
