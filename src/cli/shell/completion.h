#pragma once
#include "cli/frame/command.h"
#include <string>
#include <vector>

/// A word that may stand on the command line.
struct TCandidate {
    std::string Word;
    std::string Help;  ///< "" without one
    bool operator==(const TCandidate&) const = default;
};

/// What may stand at the end of a command line.
struct TCompletion {
    std::vector<TCandidate> Candidates;  ///< those that begin with the last word, in their order
    bool TakesFiles = false;             ///< files, too, which the shell knows best
};

/// The argument that names commands, such as that of `help`.
inline constexpr const char* kCommandArgument = "COMMAND";

/// What may stand for the last of `words`, those behind the name of the tool; it may be "". Names
/// come out of the build or project that the words name: one that cannot be read gives none, and no
/// message.
TCompletion CompleteWords(const std::vector<TCommand>& commands,
                          const std::vector<std::string>& words);
