#pragma once
#include <ostream>
#include <string>
#include <vector>

/// Prints rows of equally many columns, padded to the widest text of each, two blanks between them.
/// Empty texts print as "-".
void PrintTable(std::vector<std::vector<std::string>> rows, std::ostream& out);

/// Prints the names one a line, `current` marked with a star.
void PrintNames(const std::vector<std::string>& names, const std::string& current,
                std::ostream& out);
