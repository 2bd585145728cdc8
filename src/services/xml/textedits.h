#pragma once
#include "services/xml/textedit.h"
#include <string>
#include <string_view>
#include <vector>

/// `text` after the edits, which are in the order of their places and do not overlap. Of those at
/// one place the earlier comes first.
std::string ApplyEdits(std::string_view text, const std::vector<TTextEdit>& edits);
