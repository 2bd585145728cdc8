#include "flows/scan/veriloglexer.h"
#include "flows/scan/sourcetext.h"
#include "flows/scan/verilogkeywords.h"
#include <algorithm>
#include <array>

namespace {

enum TVerilogCharClass : unsigned char {
    VERILOG_OTHER,
    VERILOG_BLANK,
    VERILOG_LETTER,
    VERILOG_DIGIT
};

constexpr auto MakeVerilogClasses() {
    std::array<TVerilogCharClass, 256> classes{};
    // Control characters too: nothing that they may do is of use to a scan.
    for (std::size_t c = 0; c <= ' '; ++c) classes[c] = VERILOG_BLANK;
    classes[0x7F] = VERILOG_BLANK;
    for (std::size_t c = '0'; c <= '9'; ++c) classes[c] = VERILOG_DIGIT;
    for (std::size_t c = 'a'; c <= 'z'; ++c) classes[c] = classes[c - 'a' + 'A'] = VERILOG_LETTER;
    classes['_'] = VERILOG_LETTER;
    // The language has none of these, some tools take them.
    for (std::size_t c = 0x80; c <= 0xFF; ++c) classes[c] = VERILOG_LETTER;
    return classes;
}
constexpr auto kVerilogClasses = MakeVerilogClasses();

TVerilogCharClass VerilogClassOf(char c) {
    return kVerilogClasses[static_cast<unsigned char>(c)];
}
bool IsVerilogWordChar(char c) {
    return VerilogClassOf(c) == VERILOG_LETTER || VerilogClassOf(c) == VERILOG_DIGIT || c == '$';
}
bool EndsVerilogLine(char c) {
    return c == '\n' || c == '\r';
}
bool IsIn(char c, std::string_view characters) {
    return characters.find(c) != std::string_view::npos;
}
bool IsBasedDigit(char c) {
    constexpr std::string_view kMore = "abcdefABCDEFxXzZ?_";
    return VerilogClassOf(c) == VERILOG_DIGIT || (c != '\0' && IsIn(c, kMore));
}

}  // namespace

bool IsVerilogWord(std::string_view text) {
    return !text.empty() && VerilogClassOf(text[0]) == VERILOG_LETTER &&
           std::all_of(text.begin(), text.end(), IsVerilogWordChar);
}

TVerilogLexer::TVerilogLexer(std::string_view text, std::uint32_t file)
    : Text(text), At(LengthOfByteOrderMark(text)), File(file) {}

std::size_t TVerilogLexer::EndOfLine(std::size_t at) const {
    while (at < Text.size() && !EndsVerilogLine(Text[at])) ++at;
    return at;
}

/// Behind the line end at `at`, if there is one.
std::size_t TVerilogLexer::EndOfLineEnd(std::size_t at) const {
    if (CharAt(at) == '\r' && CharAt(at + 1) == '\n') return at + 2;
    return at < Text.size() && EndsVerilogLine(Text[at]) ? at + 1 : at;
}

std::size_t TVerilogLexer::EndOfWord(std::size_t at) const {
    while (at < Text.size() && IsVerilogWordChar(Text[at])) ++at;
    return at;
}

std::size_t TVerilogLexer::EndOfEscaped(std::size_t at) const {
    while (at < Text.size() && VerilogClassOf(Text[at]) != VERILOG_BLANK) ++at;
    return at;
}

std::size_t TVerilogLexer::SkipSpaces(std::size_t at) const {
    while (CharAt(at) == ' ' || CharAt(at) == '\t') ++at;
    return at;
}

/// Behind the string whose first quote is at `at`.
std::size_t TVerilogLexer::EndOfString(std::size_t at) const {
    const bool isThreefold = Text.substr(at, 3) == R"(""")";
    at += isThreefold ? 3 : 1;
    while (at < Text.size()) {
        const char c = Text[at];
        if (c == '\\') {
            // Also in front of a line end, which then is no part of the string.
            const std::size_t behind = EndOfLineEnd(at + 1);
            at = behind > at + 1 ? behind : at + 2;
        } else if (c == '"' && !isThreefold) {
            return at + 1;
        } else if (c == '"' && Text.substr(at, 3) == R"(""")") {
            return at + 3;
        } else if (EndsVerilogLine(c) && !isThreefold) {
            return at;
        } else {
            ++at;
        }
    }
    return Text.size();
}

/// Behind the comment that begins at `at`, or `at` when none does. Does not take the line end.
std::size_t TVerilogLexer::EndOfComment(std::size_t at) const {
    if (CharAt(at) != '/') return at;
    if (CharAt(at + 1) == '/') return EndOfLine(at);
    if (CharAt(at + 1) != '*') return at;
    const std::size_t end = Text.find("*/", at + 2);
    return end == std::string_view::npos ? Text.size() : end + 2;
}

TVerilogToken TVerilogLexer::Next() {
    while (At < Text.size()) {
        if (SkipBlank() || SkipComment()) continue;
        const char c = Text[At];
        if (VerilogClassOf(c) == VERILOG_LETTER) return ReadIdentifier();
        if (VerilogClassOf(c) == VERILOG_DIGIT) return ReadNumber();
        if (c == '"') return Make(TVerilogTokenKind::String, EndOfString(At) - At);
        if (c == '\'') return ReadTick();
        if (c == '`' && VerilogClassOf(CharAt(At + 1)) == VERILOG_LETTER)
            return Make(TVerilogTokenKind::Directive, EndOfWord(At + 1) - At);
        if (c == '$' && VerilogClassOf(CharAt(At + 1)) == VERILOG_LETTER)
            return Make(TVerilogTokenKind::SystemName, EndOfWord(At + 1) - At);
        if (c == '\\' && EndOfEscaped(At + 1) > At + 1)
            return Make(TVerilogTokenKind::EscapedIdentifier, EndOfEscaped(At + 1) - At);
        return ReadMark();
    }
    return Make(TVerilogTokenKind::End, 0);
}

TVerilogToken TVerilogLexer::Make(TVerilogTokenKind kind, std::size_t length) {
    TVerilogToken token;
    token.Kind = kind;
    token.File = File;
    token.Offset = At;
    token.Text = Text.substr(At, length);
    At += token.Text.size();
    return token;
}

bool TVerilogLexer::SkipBlank() {
    const std::size_t begin = At;
    while (At < Text.size() && VerilogClassOf(Text[At]) == VERILOG_BLANK) ++At;
    return At > begin;
}

bool TVerilogLexer::SkipComment() {
    const std::size_t end = EndOfComment(At);
    if (end == At) return false;
    const bool isEnvelope = IsEnvelopeComment();
    At = end;
    if (isEnvelope) SkipEnvelope();
    return true;
}

TVerilogToken TVerilogLexer::ReadIdentifier() {
    TVerilogToken token = Make(TVerilogTokenKind::Identifier, EndOfWord(At) - At);
    token.Keyword = FindVerilogKeyword(token.Text, IsSystemVerilog);
    if (token.Keyword != TVerilogKeyword::None) token.Kind = TVerilogTokenKind::Keyword;
    return token;
}

/// With the unit of a time, if there is one. The base and value that follow a size are a number of
/// their own.
TVerilogToken TVerilogLexer::ReadNumber() {
    std::size_t end = EndOfWord(At);
    if (CharAt(end) == '.' && VerilogClassOf(CharAt(end + 1)) == VERILOG_DIGIT)
        end = EndOfWord(end + 1);
    const bool isPower = CharAt(end - 1) == 'e' || CharAt(end - 1) == 'E';
    if (isPower && IsIn(CharAt(end), "+-") && VerilogClassOf(CharAt(end + 1)) == VERILOG_DIGIT)
        end = EndOfWord(end + 1);
    return Make(TVerilogTokenKind::Number, end - At);
}

/// A number with a base, one whose bits are all alike, or the mark of a cast or a pattern.
TVerilogToken TVerilogLexer::ReadTick() {
    const char first = CharAt(At + 1);
    const bool isSigned = first == 's' || first == 'S';
    const std::size_t base = At + (isSigned ? 2 : 1);
    if (CharAt(base) != '\0' && IsIn(CharAt(base), "bodhBODH")) {
        std::size_t digits = base + 1;
        while (VerilogClassOf(CharAt(digits)) == VERILOG_BLANK && digits < Text.size()) ++digits;
        if (!IsBasedDigit(CharAt(digits))) return Make(TVerilogTokenKind::Number, base + 1 - At);
        while (IsBasedDigit(CharAt(digits))) ++digits;
        return Make(TVerilogTokenKind::Number, digits - At);
    }
    if (first != '\0' && IsIn(first, "01xXzZ")) return Make(TVerilogTokenKind::Number, 2);
    return ReadMark();
}

TVerilogToken TVerilogLexer::ReadMark() {
    constexpr std::string_view kMarks = "'()*+,-./:;<=>|[]?@^!{}$#%&~";
    const char c = Text[At];
    if (!IsIn(c, kMarks)) return Make(TVerilogTokenKind::Other, 1);
    char mark = c;
    std::size_t length = 1;
    if (c == ':' && CharAt(At + 1) == ':') {
        mark = kVerilogScope;
        length = 2;
    } else if (c == '(' && CharAt(At + 1) == '*') {
        // (*) is the list of all events.
        std::size_t behind = At + 2;
        while (behind < Text.size() && VerilogClassOf(Text[behind]) == VERILOG_BLANK) ++behind;
        if (CharAt(behind) != ')') {
            mark = kVerilogOpenAttribute;
            length = 2;
        }
    }
    TVerilogToken token = Make(TVerilogTokenKind::Mark, length);
    token.Mark = mark;
    return token;
}
