#pragma once
#include <map>
#include <string>
#include <vector>

/// The values that a command line has given so far, by the names of the arguments, such as "BUILD"
/// and "--language".
using TGivenValues = std::map<std::string, std::string>;

/// What an argument of a command takes.
struct TOfferedNames {
    std::vector<std::string> Names;
    bool TakesFiles = false;
};

/// `command` is the command with its verb, as "settings set", `argument` the name of one of its
/// arguments. Nothing for an argument that takes any text.
TOfferedNames NamesFor(const std::string& command, const std::string& argument,
                       const TGivenValues& given);
