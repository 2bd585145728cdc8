#include "services/base/fold.h"

#include <charconv>
#include <cstdint>
#include <limits>

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

int LeadingNumber(std::string_view text) {
    text = TrimmedView(text);
    if (text.starts_with('+') && text.size() > 1 && IsDecimalDigit(text[1])) text.remove_prefix(1);
    int number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc::result_out_of_range) return number;
    return text.front() == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}
