#pragma once
#include <string>
#include <string_view>

/// How grave a message of a simulation is.
enum TMessageLevel : int {
    LEVEL_NONE,
    LEVEL_NOTE,
    LEVEL_WARNING,
    LEVEL_ERROR,
    LEVEL_FAILURE,
};

/// "note", "warning", "error" or "failure"; "" for none. Static.
const char* GetLevelName(TMessageLevel level);
/// LEVEL_NONE for a text that names none.
TMessageLevel FindLevel(std::string_view name);

/// The gravest of the messages that a tool's simulations have printed, with the first line of that
/// level. `tool` is the name of a run tool; others print no messages that are known.
struct TGravestMessage {
    TMessageLevel Level = LEVEL_NONE;
    std::string Line = {};
};
TGravestMessage FindGravestMessage(std::string_view tool, std::string_view output);
