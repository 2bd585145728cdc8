#include "flows/formats/tomltext.h"

std::string TomlText(std::string_view text) {
    constexpr char kHex[] = "0123456789ABCDEF";
    std::string quoted = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < ' ' || byte == 0x7F) {
            quoted.append("\\u00").append(1, kHex[byte / 16]).append(1, kHex[byte % 16]);
            continue;
        }
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}
