#include "services/base/fold.h"

#include <cstdint>

std::string FoldCase(std::string_view text) {
    std::string folded(text);
    for (char& c : folded) c = FoldChar(c);
    return folded;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (FoldChar(a[i]) != FoldChar(b[i])) return false;
    return true;
}

std::size_t HashIgnoringCase(std::string_view text) {
    // FNV-1a: paths of one project share long beginnings, so every byte has to count.
    std::uint64_t hash = 14695981039346656037u;
    for (const char c : text) {
        hash ^= static_cast<unsigned char>(FoldChar(c));
        hash *= 1099511628211u;
    }
    return static_cast<std::size_t>(hash);
}

std::string_view TrimmedView(std::string_view text) {
    constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";
    const auto first = text.find_first_not_of(kWhiteSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}
