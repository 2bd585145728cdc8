#include "flows/graph/graphtext.h"
#include <algorithm>
#include <cstddef>

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

struct TSequence {
    unsigned char First, Last;              // of the first byte
    unsigned char SecondFirst, SecondLast;  // of the second byte
    std::size_t Size;
};

// What the Unicode standard calls well-formed, but for ASCII and the controls U+0080 to U+009F.
constexpr TSequence kSequences[] = {
    {0xC2, 0xC2, 0xA0, 0xBF, 2}, {0xC3, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

unsigned char ByteAt(std::string_view text, std::size_t place) {
    return place < text.size() ? static_cast<unsigned char>(text[place]) : 0;
}

/// The bytes of the character that `text` begins with; 0 when it begins with none.
std::size_t SizeOfCharacter(std::string_view text) {
    // XML has no such characters.
    if (text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF")) return 0;
    for (const TSequence& sequence : kSequences) {
        if (ByteAt(text, 0) < sequence.First || ByteAt(text, 0) > sequence.Last) continue;
        if (ByteAt(text, 1) < sequence.SecondFirst || ByteAt(text, 1) > sequence.SecondLast)
            continue;
        for (std::size_t at = 2; at < sequence.Size; ++at)
            if (ByteAt(text, at) < 0x80 || ByteAt(text, at) > 0xBF) return 0;
        return sequence.Size;
    }
    return 0;
}

/// U+2400 and on, which show the ASCII control characters.
std::string PictureOf(unsigned char control) {
    const unsigned char number = control == 0x7F ? 0x21 : control;
    return {'\xE2', '\x90', static_cast<char>(0x80 + number)};
}

/// ShownText with each ASCII character that is no control character as `append` appends it.
template <class Append>
std::string Rewritten(std::string_view text, Append append) {
    std::string rewritten;
    rewritten.reserve(text.size() + 2);
    while (!text.empty()) {
        const unsigned char byte = ByteAt(text, 0);
        std::size_t size = 1;
        if (byte < 0x20 || byte == 0x7F) {
            rewritten += PictureOf(byte);
        } else if (byte < 0x80) {
            append(text.front(), &rewritten);
        } else if (const std::size_t found = SizeOfCharacter(text)) {
            rewritten += text.substr(0, found);
            size = found;
        } else {
            rewritten += kReplacement;
        }
        text.remove_prefix(size);
    }
    return rewritten;
}

}  // namespace

std::string ShownText(std::string_view text) {
    return Rewritten(text, [](char c, std::string* shown) { *shown += c; });
}

std::string DotText(std::string_view text) {
    // Graphviz reads quoted strings of up to 16384 bytes, but any number of them in a row.
    constexpr std::size_t kLongest = 2048;
    std::string quoted = "\"";
    while (!text.empty()) {
        std::size_t size = std::min(kLongest, text.size());
        // Not within a character.
        for (int step = 0; step < 3 && (ByteAt(text, size) & 0xC0) == 0x80; ++step) --size;
        quoted += Rewritten(text.substr(0, size), [](char c, std::string* shown) {
            if (c == '&')
                *shown += "&amp;";
            else if (c == '"' || c == '\\')
                *shown += {'\\', c};
            else
                *shown += c;
        });
        text.remove_prefix(size);
        if (!text.empty()) quoted += "\" + \"";
    }
    return quoted + '"';
}

std::string JsonText(std::string_view text) {
    return '"' +
           Rewritten(text,
                     [](char c, std::string* shown) {
                         if (c == '<')
                             *shown += "\\u003c";
                         else if (c == '"' || c == '\\')
                             *shown += {'\\', c};
                         else
                             *shown += c;
                     }) +
           '"';
}

std::string HtmlText(std::string_view text) {
    return Rewritten(text, [](char c, std::string* shown) {
        if (c == '&')
            *shown += "&amp;";
        else if (c == '<')
            *shown += "&lt;";
        else if (c == '"')
            *shown += "&quot;";
        else
            *shown += c;
    });
}
