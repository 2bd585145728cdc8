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
    VERILOG_DIGIT,
    VERILOG_MARK  // one that is a token on its own, whatever follows
};

constexpr auto MakeVerilogClasses() {
    std::array<TVerilogCharClass, 256> classes{};
    // Control characters too: nothing that they may do is of use to a scan.
    for (std::size_t c = 0; c <= ' '; ++c) classes[c] = VERILOG_BLANK;
    classes[0x7F] = VERILOG_BLANK;
    for (std::size_t c = '0'; c <= '9'; ++c) classes[c] = VERILOG_DIGIT;
    for (std::size_t c = 'a'; c <= 'z'; ++c) classes[c] = classes[c - 'a' + 'A'] = VERILOG_LETTER;
    classes['_'] = VERILOG_LETTER;
    for (const char c : std::string_view(")*+,-.;<=>|[]?@^!{}#%&~"))
        classes[static_cast<unsigned char>(c)] = VERILOG_MARK;
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

void TVerilogLexer::Next(TVerilogToken* token) {
    while (At < Text.size()) {
        switch (VerilogClassOf(Text[At])) {
            case VERILOG_BLANK:
                SkipBlank();
                break;
            case VERILOG_LETTER:
                return ReadIdentifier(token);
            case VERILOG_DIGIT:
                return ReadNumber(token);
            case VERILOG_MARK:
                return MakeMark(Text[At], 1, token);
            case VERILOG_OTHER:
                if (!SkipComment()) return ReadOther(token);
        }
    }
    return Make(TVerilogTokenKind::End, 0, token);
}

void TVerilogLexer::ReadOther(TVerilogToken* token) {
    const char c = Text[At];
    const bool isBeforeWord = VerilogClassOf(CharAt(At + 1)) == VERILOG_LETTER;
    if (c == '"') return Make(TVerilogTokenKind::String, EndOfString(At) - At, token);
    if (c == '\'') return ReadTick(token);
    if (c == '`' && isBeforeWord)
        return Make(TVerilogTokenKind::Directive, EndOfWord(At + 1) - At, token);
    if (c == '$' && isBeforeWord)
        return Make(TVerilogTokenKind::SystemName, EndOfWord(At + 1) - At, token);
    if (c == '\\' && EndOfEscaped(At + 1) > At + 1)
        return Make(TVerilogTokenKind::EscapedIdentifier, EndOfEscaped(At + 1) - At, token);
    if (c == ':' && CharAt(At + 1) == ':') return MakeMark(kVerilogScope, 2, token);
    if (c == '(' && OpensAttribute()) return MakeMark(kVerilogOpenAttribute, 2, token);
    if (c == '(' || c == ':' || c == '/' || c == '$') return MakeMark(c, 1, token);
    return Make(TVerilogTokenKind::Other, 1, token);
}

/// Whether the parenthesis here does. (*) is the list of all events.
bool TVerilogLexer::OpensAttribute() const {
    if (CharAt(At + 1) != '*') return false;
    std::size_t behind = At + 2;
    while (behind < Text.size() && VerilogClassOf(Text[behind]) == VERILOG_BLANK) ++behind;
    return CharAt(behind) != ')';
}

void TVerilogLexer::MakeMark(char mark, std::size_t length, TVerilogToken* token) {
    Make(TVerilogTokenKind::Mark, length, token);
    token->Mark = mark;
}

void TVerilogLexer::Make(TVerilogTokenKind kind, std::size_t length, TVerilogToken* token) {
    token->Kind = kind;
    token->Keyword = TVerilogKeyword::None;
    token->Mark = 0;
    token->IsCertain = true;
    token->File = File;
    token->Offset = At;
    token->Text = Text.substr(At, length);
    At += token->Text.size();
}

void TVerilogLexer::SkipBlank() {
    while (At < Text.size() && VerilogClassOf(Text[At]) == VERILOG_BLANK) ++At;
}

bool TVerilogLexer::SkipComment() {
    const std::size_t end = EndOfComment(At);
    if (end == At) return false;
    const bool isEnvelope = IsEnvelopeComment();
    At = end;
    if (isEnvelope) SkipEnvelope();
    return true;
}

void TVerilogLexer::ReadIdentifier(TVerilogToken* token) {
    Make(TVerilogTokenKind::Identifier, EndOfWord(At) - At, token);
    token->Keyword = FindVerilogKeyword(token->Text, IsSystemVerilog);
    if (token->Keyword != TVerilogKeyword::None) token->Kind = TVerilogTokenKind::Keyword;
}

/// With the unit of a time, if there is one. The base and value that follow a size are a number of
/// their own.
void TVerilogLexer::ReadNumber(TVerilogToken* token) {
    std::size_t end = EndOfWord(At);
    if (CharAt(end) == '.' && VerilogClassOf(CharAt(end + 1)) == VERILOG_DIGIT)
        end = EndOfWord(end + 1);
    const bool isPower = CharAt(end - 1) == 'e' || CharAt(end - 1) == 'E';
    if (isPower && IsIn(CharAt(end), "+-") && VerilogClassOf(CharAt(end + 1)) == VERILOG_DIGIT)
        end = EndOfWord(end + 1);
    return Make(TVerilogTokenKind::Number, end - At, token);
}

/// A number with a base, one whose bits are all alike, or the mark of a cast or a pattern.
void TVerilogLexer::ReadTick(TVerilogToken* token) {
    const char first = CharAt(At + 1);
    const bool isSigned = first == 's' || first == 'S';
    const std::size_t base = At + (isSigned ? 2 : 1);
    if (CharAt(base) != '\0' && IsIn(CharAt(base), "bodhBODH")) {
        std::size_t digits = base + 1;
        while (VerilogClassOf(CharAt(digits)) == VERILOG_BLANK && digits < Text.size()) ++digits;
        if (!IsBasedDigit(CharAt(digits)))
            return Make(TVerilogTokenKind::Number, base + 1 - At, token);
        while (IsBasedDigit(CharAt(digits))) ++digits;
        return Make(TVerilogTokenKind::Number, digits - At, token);
    }
    if (first != '\0' && IsIn(first, "01xXzZ")) return Make(TVerilogTokenKind::Number, 2, token);
    return MakeMark('\'', 1, token);
}
