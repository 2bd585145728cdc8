#pragma once
#include "cli/frame/changereport.h"
#include "cli/translator/commands.h"
#include "flows/editedfile.h"
#include "translation/v2vtranslationoptionslist.h"
#include <memory>
#include <string>
#include <vector>

class THdlBuildFile;
class TV2VTranslationOption;
class TXMLList;

/// One of the two translators.
struct TTranslator {
    const char* Name;  ///< for the user
    const char* Tag;   ///< of its section in a build file
    void (*Populate)(TV2VTranslationOptionsList* options);
};

/// The arguments of the switch, each as a build file holds it.
std::vector<std::string> ArgumentsOf(TV2VTranslationOption& option);

/// The switches of the translator of the arguments, as the build of the arguments has them.
class TTranslatorAccess {
public:
    TTranslatorAccess(const TTranslatorArguments& arguments, const TToolStreams& streams);

    /// kExitUsage for an unknown translator, kExitFile for a build that cannot be read or, unless
    /// for a dry run, locked, kExitProblems when its switches cannot be read; each with one line on
    /// Err.
    int Read();
    int ReadToChange();

    const TV2VTranslationOptionsList& GetOptions() const { return *Options; }
    /// Whether the build has the switches of the other translator only. GetOptions() then gives the
    /// defaults.
    bool IsOthersBuild() const { return OthersBuild; }

    /// The switch that the first word of the arguments names, of which the leading '-' may be left
    /// out. Null, with one line on Err, when there is none.
    TV2VTranslationOption* FindOption();
    /// Whether a build that does not mention the switch has it enabled.
    bool IsEnabledByDefault(const TV2VTranslationOption& option) const;

    /// Saves what differs from what was read, and prints it. `verb` names the command in JSON
    /// output. Only the elements of the switches that changed are edited in the build file. A file
    /// that has changed since it was read, and one that cannot take the change, stays as it is: one
    /// line on Err, and kExitFile.
    int Save(const char* verb);

private:
    struct TOptionsDeleter {
        void operator()(TV2VTranslationOptionsList* options) const;
    };
    using TOptions = std::unique_ptr<TV2VTranslationOptionsList, TOptionsDeleter>;

    /// What a build is made of, as far as it tells two builds apart.
    struct TBuildState {
        TState Switches;
        std::string Rest;  // all other sections, as a save prints them
        bool operator==(const TBuildState&) const = default;
    };

    int ReadBuild(bool isLocked);
    static TOptions MakeDefaults(const TTranslator& translator);
    static TState StateOf(const TV2VTranslationOptionsList& options);
    TOptions TakeOptions(THdlBuildFile& build) const;
    TBuildState ReadState(const std::string& document) const;
    std::string FindProblem() const;
    void PushChanges(TXMLList* base, TXMLList* wanted) const;

    const TTranslatorArguments& Arguments;
    const TToolStreams& Streams;
    const TTranslator* Translator = nullptr;
    TOptions Options;
    TEditedFile File;
    TState StateRead;
    std::vector<std::vector<std::string>> ArgumentsRead;  // of the switches, in list order
    bool OthersBuild = false;
};
