#pragma once
#include <string>
#include <string_view>

// Letter case as the library knows it: that of ASCII letters alone.

constexpr char FoldAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// `text` in small letters.
inline std::string FoldAscii(std::string_view text) {
    std::string folded(text);
    for (char& c : folded) c = FoldAscii(c);
    return folded;
}
