#pragma once
#include "cli/frame/changereport.h"
#include "cli/settings/commands.h"
#include "flows/editedfile.h"
#include "settings/projectsimsettings.h"
#include "settings/projecttemplatesimconfiglist.h"
#include <string>
#include <vector>

/// The settings in the project file that the arguments name.
class TProjectAccess {
public:
    TProjectAccess(const TSettingsArguments& arguments, const TToolStreams& streams);

    /// Reads the settings, without showing messages: kExitDone, kExitProblems when the file holds
    /// no settings that can be read, kExitFile when the file itself cannot be read; with one line
    /// on Err.
    int Read();
    /// The same under the file's lock, unless for a dry run; kExitFile also when it cannot be had.
    /// A missing file is a failure unless `mayBeMissing` is set.
    int ReadToChange(bool mayBeMissing = false);
    TProjectSimSettings& GetSettings() { return Settings; }
    /// Where the project file is, with the delimiter that ends it.
    std::string GetDirectory() const;
    const ISFileName* GetFile() const { return File.GetFile(); }

    /// The configuration that the arguments name, "Default" being the first one. Null, with one
    /// line on Err, when there is none.
    TProjectSimConfig* FindConfiguration();

    /// Saves the settings and prints what a reader of the file will find changed. `verb` names the
    /// command in JSON output. Only the elements of what changed are edited. A file that has
    /// changed since it was read, and one that cannot take the change, stays as it is: one line on
    /// Err, and kExitFile.
    int Save(const char* verb);

private:
    int ReadFile(bool mayBeMissing);
    TState StateOf(const TProjectSimSettings& settings) const;
    TState ReadState(const std::string& document) const;
    std::string PrintWhole(std::string* document);
    std::string Change(TProjectSimSettings* read);

    const TSettingsArguments& Arguments;
    const TToolStreams& Streams;
    TEditedFile File;
    TProjectSimSettings Settings;
};

/// The templates as the environment starts with them: the built-in ones, or those of the INI files
/// when these name any. kExitFile, with one line on Err, when an INI file cannot be read.
int ReadTemplates(TProjectTemplateSimConfigList* templates, const TToolStreams& streams);
