#include "services/hdl/identifier.h"

#include "services/base/fold.h"
#include <functional>
#include <string_view>

namespace {

bool IsAsciiLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The Latin-1 letters, which VHDL allows in basic identifiers, are U+00C0 to U+00FF without the
// signs for times and division: in UTF-8 the byte C3 and one that is the code point less 0x40.
constexpr char kLatin1Lead = '\xC3';

bool IsLatin1Tail(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x80 && byte <= 0xBF && byte != 0x97 && byte != 0xB7;
}

char FoldLatin1Tail(char c) {
    // 0x9F is the sharp s, whose capital is not in Latin-1.
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x9F ? static_cast<char>(byte + 0x20) : c;
}

/// The length of the letter at the beginning of `text`, 0 when there is none.
std::size_t VhdlLetterLength(std::string_view text) {
    if (text.empty()) return 0;
    if (IsAsciiLetter(text[0])) return 1;
    return text.size() > 1 && text[0] == kLatin1Lead && IsLatin1Tail(text[1]) ? 2 : 0;
}

bool IsVhdlBasic(std::string_view text) {
    if (!VhdlLetterLength(text) || text.back() == '_') return false;
    while (!text.empty()) {
        const bool isSingleUnderline = text.starts_with('_') && !text.starts_with("__");
        const std::size_t length =
            isSingleUnderline || IsDigit(text[0]) ? 1 : VhdlLetterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string FoldVhdlBasic(std::string_view text) {
    std::string folded = FoldCase(text);
    for (std::size_t i = 1; i < folded.size(); ++i)
        if (folded[i - 1] == kLatin1Lead) folded[i] = FoldLatin1Tail(folded[i]);
    return folded;
}

/// Sets `*content` to the characters between the backslashes of the extended identifier `text`, its
/// doubled backslashes single; false when `text` is none.
bool ReadVhdlExtended(std::string_view text, std::string* content) {
    if (text.size() < 3 || text.front() != '\\' || text.back() != '\\') return false;
    const auto inner = text.substr(1, text.size() - 2);
    std::string read;
    for (std::size_t i = 0; i < inner.size(); ++i) {
        if (inner[i] == '\\' && !inner.substr(i++).starts_with("\\\\")) return false;
        read += inner[i];
    }
    *content = read;
    return true;
}

std::string VhdlExtended(std::string_view content) {
    std::string text = "\\";
    for (const char c : content) text.append(c == '\\' ? 2 : 1, c);
    return text + '\\';
}

bool IsVerilogSimple(std::string_view text) {
    if (text.empty() || !(IsAsciiLetter(text[0]) || text[0] == '_')) return false;
    for (const char c : text)
        if (!IsAsciiLetter(c) && !IsDigit(c) && c != '_' && c != '$') return false;
    return true;
}

}  // namespace

TTBIdentifier::TTBIdentifier(const char* text, THdlLanguage language)
    : Content(text ? text : ""), Language(language) {
    if (language == LANGUAGE_VHDL) {
        Extended = !Content.empty() && !IsVhdlBasic(Content);
        if (Extended) ReadVhdlExtended(Content, &Content);
        Compared = Extended ? Content : FoldVhdlBasic(Content);
        return;
    }
    // White space ends a name, and readers of files trim: neither end is part of the identifier.
    Content = std::string(TrimmedView(Content));
    if (language == LANGUAGE_VERILOG && Content.starts_with('\\')) Content.erase(0, 1);
    Compared = Content;
}

bool TTBIdentifier::operator==(const TTBIdentifier& other) const {
    if (Language != other.Language) return Content == other.Content;
    return Extended == other.Extended && Compared == other.Compared;
}

// Folded in every language: contents that VHDL holds for equal must not tell identifiers of other
// languages apart, which compare with either of them.
std::size_t TTBIdentifier::GetHash() const {
    return std::hash<std::string>()(FoldVhdlBasic(Content));
}

TRope TTBIdentifier::GetEscapedName(THdlLanguage language, char /*reserved*/, bool, bool) const {
    if (Content.empty()) return {};
    if (language == LANGUAGE_VHDL)
        return Extended || !IsVhdlBasic(Content) ? VhdlExtended(Content) : Content;
    // The blank ends an escaped name.
    if (language == LANGUAGE_VERILOG && !IsVerilogSimple(Content)) return "\\" + Content + " ";
    return Content;
}
