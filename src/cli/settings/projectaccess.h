#pragma once
#include "cli/frame/changereport.h"
#include "cli/settings/commands.h"
#include "settings/hpjfile.h"
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
    /// on Err. A missing file is a failure unless `mayBeMissing` is set.
    int Read(bool mayBeMissing = false);
    TProjectSimSettings& GetSettings() { return Settings; }
    /// Where the project file is, with the delimiter that ends it.
    std::string GetDirectory() const;
    const ISFileName* GetFile() const { return File; }

    /// The configuration that the arguments name, "Default" being the first one. Null, with one
    /// line on Err, when there is none.
    TProjectSimConfig* FindConfiguration();

    /// Saves the settings and prints what a reader of the file will find changed. `verb` names the
    /// command in JSON output. kExitProblems, with one line on Err and nothing changed, when the
    /// file holds what settings cannot hold.
    int Save(const char* verb);

private:
    TState StateOf(const TProjectSimSettings& settings) const;
    TState StateOfSaved();
    TState StateChanged();
    std::string FindLoss() const;
    std::string WriteFile();

    const TSettingsArguments& Arguments;
    const TToolStreams& Streams;
    const ISFileName* File;
    THpjFile Project;
    TProjectSimSettings Settings;
    TState StateRead;
    TState SavedUnchanged;  // what a save without any change would read back as
};

/// The names in list order.
std::vector<std::string> NamesOf(const TProjectSimConfigList& configurations);

/// The templates as the environment starts with them: the built-in ones, or those of the INI files
/// when these name any. kExitFile, with one line on Err, when an INI file cannot be read.
int ReadTemplates(TProjectTemplateSimConfigList* templates, const TToolStreams& streams);
