#pragma once
#include <string>
#include <string_view>
#include <vector>

/// The words of an option text: blanks separate them, double quotes group and are taken off. A
/// quote that is not closed reaches to the end.
std::vector<std::string> WordsOfOptions(std::string_view text);

/// The values of an option that lists them: what stands between '+', without empty ones.
std::vector<std::string> ValuesOfList(std::string_view list);
