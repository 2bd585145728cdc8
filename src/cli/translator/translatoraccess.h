#pragma once
#include "cli/frame/changereport.h"
#include "cli/translator/commands.h"
#include "cli/translator/translatorsection.h"
#include "translation/v2vtranslationoptionslist.h"
#include <memory>
#include <string>
#include <vector>

class THdlBuildFile;
class TV2VTranslationOption;

/// One of the two translators.
struct TTranslator {
    const char* Name;  ///< for the user
    const char* Tag;   ///< of its section in a build file
    void (*Populate)(TV2VTranslationOptionsList* options);
};

/// The switches of the translator of the arguments, as the build of the arguments has them.
class TTranslatorAccess {
public:
    TTranslatorAccess(const TTranslatorArguments& arguments, const TToolStreams& streams)
        : Arguments(arguments), Streams(streams) {}

    /// kExitUsage for an unknown translator, kExitFile for a build that cannot be read,
    /// kExitProblems when its switches cannot; each with one line on Err.
    int Read();

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
    /// output. Only the elements of the switches that changed are replaced in the build file. When
    /// its section has changed since it was read, nothing is saved: one line on Err, and kExitFile.
    /// (A save of others while the new file is being written is not noticed.)
    int Save(const char* verb);

private:
    struct TOptionsDeleter {
        void operator()(TV2VTranslationOptionsList* options) const;
    };
    using TOptions = std::unique_ptr<TV2VTranslationOptionsList, TOptionsDeleter>;

    static TOptions MakeDefaults(const TTranslator& translator);
    void ReadSection();
    void TakeOptions(THdlBuildFile& build);
    TState GetState() const;
    std::vector<TChangedSwitch> FindChanges() const;
    std::string FindProblem(const TTranslatorSection& section) const;

    const TTranslatorArguments& Arguments;
    const TToolStreams& Streams;
    const TTranslator* Translator = nullptr;
    TOptions Options;
    std::string SectionRead;  // as GetSectionText gives it
    TState StateRead;
    std::vector<std::vector<std::string>> ArgumentsRead;  // of the switches, in list order
    bool OthersBuild = false;
};
