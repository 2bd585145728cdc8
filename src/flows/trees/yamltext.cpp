#include "flows/trees/yamltext.h"
#include <algorithm>
#include <array>
#include <cstdint>
#include <yaml-cpp/emitter.h>
#include <yaml-cpp/emittermanip.h>

namespace {

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Readers of YAML 1.1 take more words for booleans than those of 1.2.
bool IsKeyword(const std::string& text) {
    constexpr std::array<std::string_view, 9> kWords = {"y",   "n",    "yes",   "no",  "on",
                                                        "off", "true", "false", "null"};
    std::string folded = text;
    for (char& c : folded)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return std::find(kWords.begin(), kWords.end(), folded) != kWords.end();
}

/// Whether every reader takes it for the text that it is.
bool IsPlain(const std::string& text) {
    return !text.empty() && IsLetter(text.front()) && !IsKeyword(text) &&
           std::all_of(text.begin(), text.end(), [](char c) {
               return IsLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '.' || c == '/' ||
                      c == '-';
           });
}

/// What YAML does not count as printable, though the emitter does.
bool HasUnprintable(const std::string& text) {
    return text.find('\x7F') != std::string::npos;
}

std::size_t LengthOfCharacter(unsigned char lead) {
    if (lead < 0xC0) return 1;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

}  // namespace

bool IsYamlText(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto lead = static_cast<unsigned char>(text[at]);
        const std::size_t length = LengthOfCharacter(lead);
        std::uint32_t code = length == 1 ? lead : lead & (0xFFu >> (length + 1));
        for (std::size_t next = at + 1; next < at + length && next < text.size(); ++next)
            code = code << 6 | (static_cast<unsigned char>(text[next]) & 0x3Fu);
        if ((code & 0xFFFEu) == 0xFFFEu || (code >= 0xFDD0u && code <= 0xFDEFu)) return false;
        at += length;
    }
    return true;
}

struct TYamlPrint {
    void operator()(std::monostate) const { Out << YAML::Null; }
    void operator()(bool value) const { Out << value; }
    void operator()(long long value) const { Out << value; }
    void operator()(const std::string& value) const {
        if (!IsPlain(value)) Out << YAML::DoubleQuoted;
        if (HasUnprintable(value)) Out << YAML::EscapeNonAscii;
        Out << value;
    }
    void operator()(const std::vector<TJson>& values) const {
        Out << YAML::BeginSeq;
        for (const TJson& value : values) Print(value);
        Out << YAML::EndSeq;
    }
    void operator()(const std::vector<TJson::TMember>& members) const {
        Out << YAML::BeginMap;
        for (const auto& [name, value] : members) {
            Out << YAML::Key;
            (*this)(name);
            Out << YAML::Value;
            Print(value);
        }
        Out << YAML::EndMap;
    }

    /// Prints any value.
    void Print(const TJson& value) const { std::visit(*this, value.Value); }

    YAML::Emitter& Out;
};

std::string YamlText(const TJson& value) {
    YAML::Emitter emitter;
    TYamlPrint{emitter}.Print(value);
    return emitter.c_str();
}
