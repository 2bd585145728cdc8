#pragma once
#include "flows/trees/json.h"
#include <string>
#include <string_view>

/// Whether a text of UTF-8 comes back out of YAML: some code points are no characters there.
bool IsYamlText(std::string_view text);

/// The value as a document of YAML in block style, without a line end behind it. Texts that a
/// reader might take for something else are quoted. The texts must be UTF-8 and
/// pass IsYamlText().
std::string YamlText(const TJson& value);
