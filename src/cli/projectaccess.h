#pragma once
#include "cli/changereport.h"
#include "cli/tool.h"
#include "settings/projectfile.h"
#include "settings/projectsimsettings.h"
#include "settings/projecttemplatesimconfiglist.h"
#include <string>
#include <vector>

/// The settings in the project file of the arguments.
class TProjectAccess {
public:
    TProjectAccess(const TToolArguments& arguments, const TToolStreams& streams);

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

    /// Saves what differs from what was read, and prints it, for the command called `verb`.
    int Save(const char* verb);

private:
    TState GetState() const;
    std::string WriteFile();

    const TToolArguments& Arguments;
    const TToolStreams& Streams;
    const ISFileName* File;
    TProjectFile Project;
    TProjectSimSettings Settings;
    TState StateRead;
};

/// The names in list order.
std::vector<std::string> NamesOf(const TProjectSimConfigList& configurations);

/// The templates as the environment starts with them: the built-in ones, or those of the INI files
/// when these name any. kExitFile, with one line on Err, when an INI file cannot be read.
int ReadTemplates(TProjectTemplateSimConfigList* templates, const TToolStreams& streams);
