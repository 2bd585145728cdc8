#include "services/ini/iniline.h"

#include <algorithm>

namespace {

bool HasOuterBlank(std::string_view text) {
    return !text.empty() && (kIniBlanks.find(text.front()) != std::string_view::npos ||
                             kIniBlanks.find(text.back()) != std::string_view::npos);
}

bool IsQuoted(std::string_view text) {
    return text.size() >= 2 && text.front() == '"' && text.back() == '"';
}

// A name that its line cannot hold as it is is written in double quotes, with its awkward bytes as
// %XX. A name that looks like such a form takes it too, so that no two names share one.
bool LooksEncoded(std::string_view name) {
    return IsQuoted(name) && (name.size() == 2 || name.find('%') != std::string_view::npos);
}

std::string Encoded(std::string_view name) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string encoded = "\"";
    for (const char c : name) {
        if (std::string_view("\r\n\t =%\";#[").find(c) == std::string_view::npos) {
            encoded += c;
            continue;
        }
        encoded += '%';
        encoded += kDigits[c >> 4];
        encoded += kDigits[c & 15];
    }
    return encoded + '"';
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

std::string_view WithoutOuterBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(kIniBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kIniBlanks) - first + 1);
}

void Classify(TIniLine* line) {
    const auto text = WithoutOuterBlanks(line->Text);
    if (text.empty() || text.front() == ';' || text.front() == '#') return;
    const bool isSection = text.front() == '[';
    const auto end = isSection ? text.rfind(']') : text.find('=');
    if (end == std::string_view::npos || end == 0) return;
    line->Kind = isSection ? TIniLineKind::Section : TIniLineKind::Key;
    line->Name = isSection ? text.substr(1, end - 1) : WithoutOuterBlanks(text.substr(0, end));
}

}  // namespace

std::string_view WithoutByteOrderMark(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    return text;
}

TIniLine TakeIniLine(std::string_view* text) {
    TIniLine line;
    const auto length = std::min(text->find_first_of(kIniLineEnds), text->size());
    line.Text = text->substr(0, length);
    text->remove_prefix(length);
    const std::size_t endLength = text->starts_with("\r\n") ? 2 : text->empty() ? 0 : 1;
    line.End = text->substr(0, endLength);
    text->remove_prefix(endLength);
    Classify(&line);
    return line;
}

std::string StoredIniSection(std::string_view section) {
    const bool fits =
        section.find_first_of(kIniLineEnds) == std::string_view::npos && !LooksEncoded(section);
    return fits ? std::string(section) : Encoded(section);
}

std::string StoredIniKey(std::string_view key) {
    const bool fits = !key.empty() && key.find_first_of("\r\n=") == std::string_view::npos &&
                      std::string_view(";#[").find(key.front()) == std::string_view::npos &&
                      !HasOuterBlank(key) && !LooksEncoded(key);
    return fits ? std::string(key) : Encoded(key);
}

std::string NameFromIni(std::string_view stored) {
    if (!LooksEncoded(stored)) return std::string(stored);
    stored = stored.substr(1, stored.size() - 2);
    std::string name;
    for (std::size_t i = 0; i < stored.size(); ++i) {
        const bool hasDigits = stored[i] == '%' && i + 2 < stored.size() &&
                               HexDigit(stored[i + 1]) >= 0 && HexDigit(stored[i + 2]) >= 0;
        if (!hasDigits) {
            name += stored[i];
            continue;
        }
        name += static_cast<char>(HexDigit(stored[i + 1]) * 16 + HexDigit(stored[i + 2]));
        i += 2;
    }
    return name;
}

std::string StoredIniValue(const std::string& value) {
    return HasOuterBlank(value) || IsQuoted(value) ? '"' + value + '"' : value;
}

std::string ValueFromIni(std::string_view stored) {
    return std::string(IsQuoted(stored) ? stored.substr(1, stored.size() - 2) : stored);
}
