#pragma once
#include <string>
#include <string_view>

/// Why make cannot read a name as a target or prerequisite of a rule; null when it can.
const char* MakeComplaint(std::string_view name);
/// The name as a target or prerequisite; ninja reads it so in a depfile, too.
std::string MakeName(const std::string& name);
