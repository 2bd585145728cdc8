#pragma once
#include "tests/misuse/misuse.h"
#include <string>
#include <vector>

/// What came of one call.
struct TCallOutcome {
    bool IsChanged = false;           ///< the object had been changed before
    std::vector<std::size_t> Values;  ///< the number of the value that each parameter was given
    std::string Result;
    std::string Changes;  ///< what the object answers otherwise than before, and what before
    std::string After;    ///< all that it answers
};

/// What came of all calls of one operation.
struct TRowOutcomes {
    std::vector<TCallOutcome> Calls;
    std::string Crash;  ///< the call that ended the process, and how; "" for none
};

/// Calls the operation, in a process of its own: with usual values, then with each other value of
/// one parameter, then with the first null of all; each on a fresh object and on a changed one.
/// `folder` is where that process may write. The objects are deleted.
TRowOutcomes CallInAllWays(const TMisuseRow& row, const std::string& folder);

/// The call as a person reads it.
std::string TextOf(const TMisuseRow& row, const TCallOutcome& call);
