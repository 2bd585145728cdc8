#include "services/xml/xmltext.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "services/base/eightbytes.h"

namespace {

constexpr char16_t kWindows1252From80To9F[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
static_assert(std::size(kWindows1252From80To9F) == 32);

// The highest bit of a byte is set where one of the word is below the blank, and nowhere when none
// is. The other bits mean nothing.
constexpr std::uint64_t MarkControls(std::uint64_t word) {
    return (word - kEveryByte * 0x20) & ~word;
}

// Whether eight bytes are all ASCII from the blank on: the run that needs no closer look.
bool AreEightPlainBytes(const char* bytes) {
    const std::uint64_t word = LoadEightBytes(bytes);
    return ((word | MarkControls(word)) & kTopBits) == 0;
}

std::size_t SkipAscii(std::string_view text, std::size_t position) {
    while (position + 8 <= text.size() && (LoadEightBytes(text.data() + position) & kTopBits) == 0)
        position += 8;
    return position;
}

std::size_t SkipPlainBytes(std::string_view text, std::size_t position) {
    while (position + 8 <= text.size() && AreEightPlainBytes(text.data() + position)) position += 8;
    return position;
}

unsigned ByteAt(std::string_view text, std::size_t position) {
    return position < text.size() ? static_cast<unsigned char>(text[position]) : 0;
}

// One row for each range of lead bytes; the second byte's range keeps out overlong forms,
// surrogates and numbers beyond U+10FFFF.
struct TUtf8Lead {
    unsigned First, Last;
    std::size_t Length;
    unsigned SecondFirst, SecondLast;
};
constexpr TUtf8Lead kUtf8Leads[] = {
    {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF}, {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF}, {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

bool HasTail(std::string_view text, std::size_t position, const TUtf8Lead& lead) {
    const unsigned second = ByteAt(text, position + 1);
    if (second < lead.SecondFirst || second > lead.SecondLast) return false;
    for (std::size_t i = 2; i < lead.Length; ++i)
        if ((ByteAt(text, position + i) & 0xC0) != 0x80) return false;
    return true;
}

constexpr std::array<const char*, 256> MakeEscapes(std::string_view characters) {
    std::array<const char*, 256> references{};
    for (const char c : characters) {
        const auto byte = static_cast<unsigned char>(c);
        switch (c) {
            case '&':
                references[byte] = "&amp;";
                break;
            case '<':
                references[byte] = "&lt;";
                break;
            case '>':
                references[byte] = "&gt;";
                break;
            case '"':
                references[byte] = "&quot;";
                break;
            case '\'':
                references[byte] = "&apos;";
                break;
            case '\t':
                references[byte] = "&#9;";
                break;
            case '\n':
                references[byte] = "&#10;";
                break;
            case '\r':
                references[byte] = "&#13;";
                break;
            default:
                break;
        }
    }
    return references;
}

constexpr bool IsPlainByte(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 0x20) & (byte < 0x80) & (c != '&') & (c != '<') & (c != '>') & (c != '"');
}

using TSixteenBytes = signed char __attribute__((vector_size(16)));
using TTwoWords = std::int64_t __attribute__((vector_size(16)));

// Without a branch: '<' and '>' differ in one bit, '"' and '&' in another. Signed, bytes from 0x80
// on are below the blank, too.
bool AreSixteenPlainTextBytes(const char* bytes) {
    TSixteenBytes text;
    std::memcpy(&text, bytes, sizeof text);
    const auto others = (text < 0x20) | ((text & ~2) == '<') | ((text & ~4) == '"');
    const auto words = reinterpret_cast<TTwoWords>(others);
    return (words[0] | words[1]) == 0;
}

}  // namespace

const TXMLEscapes TXMLEscapes::kAnywhere{MakeEscapes("&<>\"'")};
// A literal carriage return would be read as a line feed.
const TXMLEscapes TXMLEscapes::kText{MakeEscapes("&<>\r")};
// Literal white space in an attribute would be read as blanks.
const TXMLEscapes TXMLEscapes::kAttribute{MakeEscapes("&<>\"\t\n\r")};
const TXMLEscapes TXMLEscapes::kSingleQuoted{MakeEscapes("&<>'\t\n\r")};

char32_t GetWindows1252CodePoint(unsigned char byte) {
    return byte >= 0x80 && byte <= 0x9F ? kWindows1252From80To9F[byte - 0x80] : byte;
}

void AppendUtf8(char32_t character, std::string* text) {
    const auto append = [&](char32_t byte) { *text += static_cast<char>(byte); };
    const auto appendRest = [&](int shift) { append(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) return append(character);
    if (character < 0x800) {
        append(0xC0 | character >> 6);
        return appendRest(0);
    }
    if (character < 0x10000) {
        append(0xE0 | character >> 12);
    } else {
        append(0xF0 | character >> 18);
        appendRest(12);
    }
    appendRest(6);
    appendRest(0);
}

char32_t GetCodePointAt(std::string_view text, std::size_t position) {
    const std::size_t length = Utf8LengthAt(text, position);
    char32_t code = ByteAt(text, position);
    if (length > 1) code &= 0xFFU >> (length + 1);
    for (std::size_t i = 1; i < length; ++i) code = code << 6 | (ByteAt(text, position + i) & 0x3F);
    return code;
}

std::size_t Utf8LengthAt(std::string_view text, std::size_t position) {
    const unsigned byte = ByteAt(text, position);
    if (byte < 0x80) return position < text.size() ? 1 : 0;
    for (const TUtf8Lead& lead : kUtf8Leads)
        if (byte >= lead.First && byte <= lead.Last)
            return HasTail(text, position, lead) ? lead.Length : 0;
    return 0;
}

bool IsUtf8(std::string_view text) {
    for (std::size_t i = SkipAscii(text, 0); i < text.size(); i = SkipAscii(text, i)) {
        const std::size_t length = Utf8LengthAt(text, i);
        if (length == 0) return false;
        i += length;
    }
    return true;
}

std::string ToUtf8(std::string_view text) {
    std::string converted;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = Utf8LengthAt(text, i);
        if (length > 0)
            converted += text.substr(i, length);
        else
            AppendUtf8(GetWindows1252CodePoint(static_cast<unsigned char>(text[i])), &converted);
        i += length > 0 ? length : 1;
    }
    return converted;
}

std::size_t FindForbiddenCharacter(std::string_view text) {
    for (std::size_t i = SkipPlainBytes(text, 0); i < text.size(); i = SkipPlainBytes(text, i)) {
        const char c = text[i];
        const bool isControl = static_cast<unsigned char>(c) < 0x20;
        if (isControl && c != '\t' && c != '\n' && c != '\r') return i;
        const std::string_view character = text.substr(i, 3);
        if (character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF") return i;
        ++i;
    }
    return std::string_view::npos;
}

bool IsPlainXMLText(std::string_view text) {
    constexpr std::size_t kStep = sizeof(TSixteenBytes);
    if (text.size() < kStep) return std::all_of(text.begin(), text.end(), IsPlainByte);
    const char* const last = text.data() + text.size() - kStep;
    for (const char* bytes = text.data(); bytes < last; bytes += kStep)
        if (!AreSixteenPlainTextBytes(bytes)) return false;
    return AreSixteenPlainTextBytes(last);
}

bool IsPlainXMLContent(std::string_view text) {
    return !text.empty() && text[0] != ' ' && IsPlainXMLText(text);
}

std::string DescribeCharacter(std::string_view text, std::size_t position) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "U+%04X",
                  static_cast<unsigned>(GetCodePointAt(text, position)));
    return digits;
}

bool IsXMLBlank(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; };
    return std::all_of(text.begin(), text.end(), isBlank);
}
