#pragma once
#include "cli/frame/streams.h"
#include "flows/trees/json.h"
#include <string>

/// An object with the members that every result begins with: "format", "version".
TJson MakeResult(const std::string& format);
/// The same about a file, which is under `key`.
TJson MakeResult(const std::string& format, const char* key, const std::string& file);
/// Prints `result` indented, with a line end.
void PrintJson(const TJson& result, const TToolStreams& streams);
/// Prints an object with the status and the errors of a command that failed, when it was asked for
/// JSON and has printed none.
void PrintFailureAsJson(int status, const TToolStreams& streams);
