#pragma once
#include "cli/frame/command.h"
#include "flows/trees/json.h"
#include <functional>
#include <string>
#include <utility>
#include <vector>

class TEditedFile;

/// Everything that a command may change, as values under the names that the tool shows, in the
/// order in which changes are reported.
using TState = std::vector<std::pair<std::string, TJson>>;

/// A value that differs between two states.
struct TStateDifference {
    std::string Name;
    TJson Before;
    TJson After;
};

/// In the order of `after`. Values that only one of the states has do not count.
std::vector<TStateDifference> FindDifferences(const TState& before, const TState& after);
/// "name: before -> after", without a line end.
std::string TextOf(const TStateDifference& difference);
TJson AsJson(const std::vector<TStateDifference>& differences);

/// What a command that changes a file has done to it.
struct TFileChange {
    TJson Result;      ///< as MakeResult gives it
    std::string File;  ///< as the user named it
    TState Before;
    TState After;           ///< values that only one of the states has are not reported
    std::string Diff = {};  ///< of the file in the unified form
};

/// Saves, unless nothing changed or for a dry run, and prints what changed, behind a dry run also
/// the difference of the file. `save` returns the reason of a failure, "" for success. A failure is
/// one line on Err, and kExitFile.
int SaveChange(const TFileChange& change, const TCommonArguments& arguments,
               const TToolStreams& streams, const std::function<std::string()>& save);

/// The same for a file that was changed in place. `reason` is what TEditedFile::Change returned;
/// unless it is "", that is the failure.
int SaveEditedFile(TFileChange change, const std::string& reason, const TEditedFile& file,
                   const TCommonArguments& arguments, const TToolStreams& streams);
