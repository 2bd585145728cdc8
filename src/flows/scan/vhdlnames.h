#pragma once
#include "flows/scan/asciicase.h"
#include <string>
#include <string_view>

/// Whether `text` is `lowerCase` but for the case of ASCII letters.
bool IsVhdlWord(std::string_view text, std::string_view lowerCase);

/// The text by which VHDL tells names apart: equal for equal ones. Of a basic identifier its small
/// letters, those of Latin-1 too; an extended one with its backslashes. `name` is in UTF-8.
std::string FoldVhdlName(std::string_view name);
/// The same, added to `*folded`.
void AppendFoldedVhdlName(std::string_view name, std::string* folded);
