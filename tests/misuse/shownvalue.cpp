#include "tests/misuse/shownvalue.h"

std::string Quoted(const std::string& text) {
    if (text.size() > 200) return std::to_string(text.size()) + " characters";
    std::string quoted = "\"";
    for (const char c : text) {
        constexpr char kDigits[] = "0123456789ABCDEF";
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= ' ' && byte < 0x7F)
            quoted += c;
        else
            quoted += {'\\', 'x', kDigits[byte / 16], kDigits[byte % 16]};
    }
    return quoted + "\"";
}
