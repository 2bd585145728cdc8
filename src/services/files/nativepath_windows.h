#pragma once
#include <string>
#include <string_view>
#include <vector>
#include <windows.h>

// Texts and paths as the system calls of Windows take them.

std::wstring Widen(std::string_view utf8);
std::string Narrow(std::wstring_view text);

/// The path as system calls take it, whatever its length. Empty stays empty.
std::wstring NativePath(const std::string& path);

/// Calls `fill(buffer, size)`, which returns the length of a text or, for a buffer that is too
/// small, the size it needs or the size given; 0 for a failure.
template <class Fill>
std::wstring TextFrom(Fill fill) {
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const auto size = static_cast<DWORD>(buffer.size());
        const DWORD length = fill(buffer.data(), size);
        if (length < size) return {buffer.data(), length};
        buffer.resize(length > size ? length : buffer.size() * 2);
    }
}
