#include "services/base/fold.h"

#include <charconv>
#include <cstdint>
#include <limits>

#include "services/base/eightbytes.h"

namespace {

constexpr std::size_t kWordSize = sizeof(std::uint64_t);

/// FoldChar of eight bytes at once.
std::uint64_t FoldWord(std::uint64_t word) {
    // Sums below 256 leave the neighbours alone; the top bit tells whether the limit was reached.
    const std::uint64_t low = word & ~kTopBits;
    const std::uint64_t isFromA = low + kEveryByte * (0x80 - 'A');
    const std::uint64_t isAboveZ = low + kEveryByte * (0x80 - 'Z' - 1);
    const std::uint64_t isUpper = (isFromA ^ isAboveZ) & ~word & kTopBits;
    return word | isUpper >> 2;  // 'a' - 'A'
}

/// Spreads what differs over all bits.
std::uint64_t Mix(std::uint64_t word) {
    word *= 0x9E3779B97F4A7C15U;
    return word ^ word >> 32;
}

}  // namespace

std::string FoldCase(std::string_view text) {
    std::string folded(text);
    for (char& c : folded) c = FoldChar(c);
    return folded;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    std::size_t i = 0;
    for (; i + kWordSize <= a.size(); i += kWordSize)
        if (FoldWord(LoadEightBytes(a.data() + i)) != FoldWord(LoadEightBytes(b.data() + i)))
            return false;
    for (; i < a.size(); ++i)
        if (FoldChar(a[i]) != FoldChar(b[i])) return false;
    return true;
}

std::size_t HashIgnoringCase(std::string_view text) {
    // Paths of one project share long beginnings, so every byte has to count.
    std::uint64_t hash = text.size();
    std::size_t i = 0;
    for (; i + kWordSize <= text.size(); i += kWordSize)
        hash = Mix(hash ^ FoldWord(LoadEightBytes(text.data() + i)));
    std::uint64_t rest = 0;
    for (; i < text.size(); ++i) rest = rest << 8 | static_cast<unsigned char>(FoldChar(text[i]));
    return static_cast<std::size_t>(Mix(hash ^ rest));
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
