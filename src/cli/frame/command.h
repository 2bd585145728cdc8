#pragma once
#include "cli/frame/streams.h"
#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

/// A flag for one of several values: it sets *Value to Number. Flags with one Value exclude each
/// other.
struct TChoice {
    std::size_t* Value;
    std::size_t Number;
};

/// Where an argument's value goes: into the arguments that a family of commands owns. Of an option
/// that may be given several times, one word for each; of an argument found by its place, all words
/// from there on.
using TArgumentPlace = std::variant<bool*, std::string*, std::vector<std::string>*, TChoice>;

/// One argument of a command: an option when its name begins with '-', else found by its place.
struct TArgument {
    const char* Name;
    TArgumentPlace Value;
    std::string Help;
    bool IsRequired = false;
};

inline constexpr bool kRequired = true;

/// The words that may follow the named arguments, also those that begin with '-'.
struct TWords {
    const char* Usage = "";                      ///< as the usage line names them
    std::vector<std::string>* Values = nullptr;  ///< null: the command takes no words
};

/// One command of the tool, or one verb of a command with verbs.
struct TCommand {
    const char* Name;
    const char* Description;
    /// Returns the exit status. Empty: one of the verbs must be given.
    std::function<int(const TToolStreams&)> Run;
    std::vector<TArgument> Arguments;
    /// They read the command's arguments as well.
    std::vector<TCommand> Verbs = {};
    const char* Footer = "";  ///< ends the help text
    TWords Words = {};
};

/// What the commands of every family may be asked for.
struct TCommonArguments {
    bool Json = false;
    bool DryRun = false;
};

inline TArgument JsonArgument(TCommonArguments& arguments) {
    return {"--json", &arguments.Json, "Print one JSON object"};
}

inline TArgument DryRunArgument(TCommonArguments& arguments) {
    return {"--dry-run", &arguments.DryRun, "Show what would change, and change nothing"};
}

/// Makes the Run of a row out of a command's function. The rows of a family share its arguments.
template <class TArguments>
class TRunWith {
public:
    explicit TRunWith(std::shared_ptr<const TArguments> arguments)
        : Arguments(std::move(arguments)) {}

    std::function<int(const TToolStreams&)> operator()(int (*run)(const TArguments&,
                                                                  const TToolStreams&)) const {
        return [arguments = Arguments, run](const TToolStreams& streams) {
            return run(*arguments, streams);
        };
    }

private:
    std::shared_ptr<const TArguments> Arguments;
};
