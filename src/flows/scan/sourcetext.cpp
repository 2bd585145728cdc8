#include "flows/scan/sourcetext.h"

namespace {

unsigned char ByteAt(std::string_view text, std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

bool IsTail(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

}  // namespace

std::size_t LengthOfByteOrderMark(std::string_view text) {
    return text.starts_with("\xEF\xBB\xBF") ? 3 : 0;
}

std::size_t LengthOfUtf8Character(std::string_view text) {
    if (text.empty()) return 0;
    const unsigned char first = ByteAt(text, 0);
    const unsigned char second = ByteAt(text, 1);
    if (first < 0x80) return 1;
    if (first < 0xC2 || first > 0xF4 || !IsTail(second)) return 0;
    if (first < 0xE0) return 2;
    if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F)) return 0;
    if (!IsTail(ByteAt(text, 2))) return 0;
    if (first < 0xF0) return 3;
    if ((first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F)) return 0;
    return IsTail(ByteAt(text, 3)) ? 4 : 0;
}

bool IsUtf8Text(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = LengthOfUtf8Character(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string Latin1ToUtf8(std::string_view text) {
    std::string converted;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            converted += c;
        } else {
            converted += static_cast<char>(0xC0 | (byte >> 6));
            converted += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return converted;
}
