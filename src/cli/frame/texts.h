#pragma once
#include "flows/knownnames.h"
#include "flows/pathtexts.h"
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

/// `text` with its control characters as "\n", "\t", "\r", "\x1B" or "\u0085": names out of files
/// may hold them, and would break lines and columns or change the terminal. A backslash stays, as
/// paths have it. The characters of `kept` stay, too.
std::string Escaped(std::string_view text, std::string_view kept = {});

/// Prints the line escaped, and a line end. All text output goes through this function, but for the
/// command file, which is a file of its own, and what other programs take.
void PrintLine(std::ostream& out, std::string_view line);
/// Prints a line of words that another program takes: tabulators separate words and stay.
void PrintWords(std::ostream& out, std::string_view words);
/// Prints a difference of files, for a program that applies it: ends of lines and tabulators stay.
void PrintDiff(std::string_view diff, std::ostream& out);
/// Prints the text of a file of another tool, as it would be written.
void PrintFile(std::string_view text, std::ostream& out);
/// Prints a line of fields, escaped one by one and separated by tabulators.
void PrintFields(std::ostream& out, const std::vector<std::string>& fields);

/// Prints the text as it is, ended by a NUL, for a program that takes names so.
void PrintWithNul(std::ostream& out, std::string_view text);

/// Prints rows of equally many columns, padded to the widest text of each, two blanks between them.
/// Empty texts print as "-".
void PrintTable(std::vector<std::vector<std::string>> rows, std::ostream& out);

/// Prints the names one a line, `current` marked with a star.
void PrintNames(const std::vector<std::string>& names, const std::string& current,
                std::ostream& out);
