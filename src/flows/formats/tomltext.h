#pragma once
#include <string>
#include <string_view>

/// A basic string of TOML, with its quotes. `text` is UTF-8.
std::string TomlText(std::string_view text);
