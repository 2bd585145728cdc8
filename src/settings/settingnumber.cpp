#include "settings/settingnumber.h"
#include "services/base/fold.h"
#include <charconv>
#include <limits>

int LeadingNumber(std::string_view text) {
    text = TrimmedView(text);
    if (text.starts_with('+') && text.size() > 1 && IsDecimalDigit(text[1])) text.remove_prefix(1);
    int number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc::result_out_of_range) return number;
    return text.front() == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}
