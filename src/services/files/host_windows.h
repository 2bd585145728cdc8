#pragma once
#include <string>
#include <string_view>

// What the two Windows halves of Host share.
namespace Host {

std::wstring Widen(std::string_view utf8);
std::string Narrow(std::wstring_view text);

/// The path as system calls take it, whatever its length. Empty stays empty.
std::wstring NativePath(const std::string& path);

}  // namespace Host
