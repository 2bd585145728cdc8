#pragma once
#include <string>
#include <string_view>

/// `name` in UTF-8 with each character that XML does not allow at its place in a name replaced
/// by '_'; "_" for the empty name. Letters beyond ASCII stay when the parser accepts them.
std::string ToXMLName(std::string_view name);
/// Whether `name` is a name of ASCII characters: one that is printed as it is.
bool IsAsciiXMLName(std::string_view name);
/// Whether every character of `name` is allowed at its place: ToXMLName replaces none, though it
/// may change the encoding.
bool IsXMLName(std::string_view name);
