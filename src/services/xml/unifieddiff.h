#pragma once
#include "services/xml/textedit.h"
#include <string>
#include <string_view>
#include <vector>

/// The edits of a text, in the order of their places, in the unified form with three lines of
/// context; "" when they change nothing. `path` is put into both head lines.
std::string MakeUnifiedDiff(std::string_view text, const std::vector<TTextEdit>& edits,
                            std::string_view path);
