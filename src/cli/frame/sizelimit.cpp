#include "cli/frame/sizelimit.h"
#include <charconv>

namespace {

struct TSizeUnit {
    std::string_view Name;
    unsigned Bits;
};

constexpr TSizeUnit kUnits[] = {{"", 0},   {"K", 10}, {"k", 10}, {"M", 20},
                                {"m", 20}, {"G", 30}, {"g", 30}};

}  // namespace

std::optional<std::uint64_t> ParseSize(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    for (const TSizeUnit& unit : kUnits)
        if (text == unit.Name && number << unit.Bits >> unit.Bits == number)
            return number << unit.Bits;
    return std::nullopt;
}

std::string ComplaintOfSize(const std::string& text) {
    if (ParseSize(text)) return "";
    return "'" + text + "' is no size: a number of bytes, or one with K, M or G behind it";
}

TSizeLimit::TSizeLimit(std::string_view text) {
    if (const auto size = ParseSize(text)) SetFileSizeLimit(*size);
}
