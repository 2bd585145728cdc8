#pragma once
#include <string>
#include <string_view>
#include <vector>

/// How a tool writes the variables of the environment in its lists.
enum TListVariables : int {
    VARIABLES_NONE,
    VARIABLES_IN_BRACKETS,  ///< ${V} and $(V)
    VARIABLES_ALL           ///< $V, too
};

/// `text` with the values of its variables; the names of those that are not set are added to
/// `*unset`. In place of these stands what `keepsUnset` says: the text as it is, or nothing.
std::string WithVariables(std::string_view text, TListVariables form, bool keepsUnset,
                          std::vector<std::string>* unset);
