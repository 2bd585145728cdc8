#pragma once
#include "flows/process/childprocess.h"
#include "flows/run/steprecord.h"
#include <functional>
#include <string_view>

/// What is called for a command of a step: the command itself, or what submits it to a farm.
std::vector<std::string> CalledWords(const TStepRecord& record,
                                     const std::vector<std::string>& command);

/// Runs the command of a request at the farm of the record, as RunChild does it here. One whose
/// node was lost is submitted again, with a line for `tell`. One that is interrupted is cancelled.
/// When it is not known how the command ended, the result is CHILD_NOT_STARTED with a whole reason.
TChildResult RunAtFarm(const TStepRecord& record, const TChildRequest& request,
                       const std::function<void(std::string_view)>& tell);
