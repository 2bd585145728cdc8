#pragma once
#include "flows/plan/buildplan.h"
#include <initializer_list>
#include <string>
#include <vector>

/// A word of a shell's command line, in single quotes where it needs them.
std::string ShellWord(const std::string& text);
/// The words one list behind the other.
std::vector<std::string> JoinedWords(std::initializer_list<std::vector<std::string>> lists);
/// All of them, each with a blank before it.
std::string ShellWords(const std::vector<std::string>& texts);

/// What follows "--std=" of GHDL: "08", also when no standard is chosen.
std::string GhdlStandard(const TPlanSettings& settings);
