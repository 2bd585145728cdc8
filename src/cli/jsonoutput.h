#pragma once
#include "cli/tool.h"
#include <nlohmann/json.hpp>

using TJson = nlohmann::ordered_json;

/// An object with the members that every result begins with: "format", "version", "build".
TJson MakeResult(const char* format, const TToolArguments& arguments);
/// The same about a file that is no build file: "format", "version", and `file` under `key`.
TJson MakeResult(const char* format, const char* key, const std::string& file);
/// Prints `result` indented, with a line end. Bytes that are not UTF-8 print as U+FFFD.
void PrintJson(const TJson& result, const TToolStreams& streams);
