#pragma once
#include <string>
#include <string_view>
#include <vector>

/// The names of `known` that take the fewest edits to become `name`, in their order; none when more
/// than a third of its letters would change. A letter that is missing, added, another or exchanged
/// with its neighbour is one edit, and so is all that a name has behind `name`. The case of ASCII
/// letters does not count.
std::vector<std::string> NearestNames(std::string_view name, const std::vector<std::string>& known);
