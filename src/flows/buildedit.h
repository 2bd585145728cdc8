#pragma once
#include "buildfile/simwraphdlbuildfile.h"
#include "flows/editedfile.h"
#include "flows/sourcelists.h"
#include "settings/projectsimlanguageconfig.h"
#include <map>
#include <memory>
#include <optional>
#include <string>

/// A build file of people's own that is changed: its model is read, changed through the library's
/// operations (see buildchanges.h), and what differs then is edited in the text.
///
///     TBuildEdit edit(file);
///     if (!edit.ReadToChange(&error)) return ...;  // or edit.Make(...)
///     AddSource(edit.GetBuild(), ...);
///     if (edit.FindEdits() == "" && edit.GetFile().Save() == "") edit.GoOn();
///
/// Whoever uses it keeps the library's message box quiet. Option texts of languages are stored as
/// they are, not converted to those of a simulator as a save by the library would do.
class TBuildEdit {
public:
    /// What Make() tells where a file is.
    static constexpr const char* kExists = "the file exists already";

    /// `file` must outlive the object and must not be null.
    explicit TBuildEdit(const ISFileName* file) : File(file) {}

    /// As TEditedFile does; false also for a document that cannot be parsed. GetReadResult() and
    /// HasBuildElement() of the build tell what its sections gave.
    bool Read(TXMLReadError* error);
    /// The same with the file's lock, for whoever is going to save.
    bool ReadToChange(TXMLReadError* error);
    /// Begins a build where no file is: `language` is its top-level, HVL and HDL language, and it
    /// has general settings. Locks the file unless `isLocked` is false. Returns why that cannot be
    /// done; "" when it is.
    std::string Make(THdlLanguage language, bool isLocked);

    /// Null before it is read or made.
    THdlBuildFile* GetBuild() { return Build.get(); }
    /// The settings of a language, which are made where the build has none: of those the document
    /// gets no more than what differs from the defaults, which must be something.
    TProjectSimLanguageConfig& GetOrMakeLanguageSettings(THdlLanguage language);

    /// Turns what was changed in the build into edits of the file, and looks at what a reader makes
    /// of the result. Returns why the file cannot take the change; "" when it can. To be called
    /// when the build is as wanted, and again when it was changed once more.
    std::string FindEdits();
    /// Whether the build differs from what was read.
    bool IsDifferent();
    /// After a save: what it wrote counts as read, so that the build may be changed further.
    void GoOn();
    /// To be saved, once FindEdits has returned "".
    TEditedFile& GetFile() { return File; }
    // What FindEdits found. The sources of a new build are all new.
    bool IsChanged() const { return Changed; }
    /// The build as a reader finds it in the edited text.
    THdlBuildFile& GetFound() { return Found ? *Found : *Build; }
    const TSourceListsDifference& GetSourceChanges() const { return *SourceChanges; }
    const TSourceLists& GetSourcesBefore() const { return SourcesBefore; }
    const TSourceLists& GetSourcesAfter() const { return SourcesAfter; }
    const TTextNumbers& GetLibraries() const { return Libraries; }

private:
    void RememberAsRead();
    void PushFront(THdlBuildFile& build, TXMLList* document) const;
    std::string PrintRest(THdlBuildFile& build) const;
    std::string PrintWhole(std::string* document);
    bool IsRead(const std::string& document, THdlBuildFile* build) const;
    bool IsAsWanted(const std::string& document, const std::string& rest);
    std::string ReadRestOfSave();

    TEditedFile File;
    std::unique_ptr<TSimWrapHdlBuildFile> Build;
    std::unique_ptr<TSimWrapHdlBuildFile> Found;  // null: nothing was changed
    bool IsNew = false;
    bool Changed = false;
    TTextNumbers Libraries;
    TSourceLists SourcesBefore;
    TSourceLists SourcesAfter;
    std::optional<TSourceListsDifference> SourceChanges;
    // Of the build as it was read.
    TXMLList Base;  // up to the settings of languages
    std::map<THdlLanguage, TProjectSimLanguageConfig> LanguagesBefore;  // and those made since
    TPseudoVariables VariablesBefore;
    std::string RestBefore;  // all but the sources
};
