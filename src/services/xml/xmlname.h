#pragma once
#include <string>
#include <string_view>

/// `name` in UTF-8 with each character that cannot stand in its place in an XML name replaced by
/// '_'; "_" for the empty name. Letters beyond ASCII stay when the parser accepts them.
std::string ToXMLName(std::string_view name);
/// Whether every character of `name` can stand there: ToXMLName replaces none, though it may change
/// the encoding.
bool IsXMLName(std::string_view name);
