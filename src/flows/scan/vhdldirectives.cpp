#include "flows/scan/vhdllexer.h"
#include "flows/scan/vhdlnames.h"

// The directives of VHDL, which take what is left of their line, are part of the lexer: they tell
// it what to pass over.

/// The word at `*at` behind blanks, up to the end of its line; moves `*at` behind it.
std::string_view TVhdlLexer::ReadDirectiveWord(std::size_t* at) const {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    const auto isWordChar = [](char c) {
        return (FoldAscii(c) >= 'a' && FoldAscii(c) <= 'z') || c == '_';
    };
    while (isBlank(CharAt(*at))) ++*at;
    const std::size_t begin = *at;
    while (isWordChar(CharAt(*at))) ++*at;
    return Text.substr(begin, *at - begin);
}

void TVhdlLexer::ObeyDirective() {
    EndsName = false;
    std::size_t at = At + 1;
    const std::string_view word = ReadDirectiveWord(&at);
    At = EndOfLine(at);
    const std::string_view rest = Text.substr(at, At - at);
    if (IsVhdlWord(word, "if"))
        Conditions.If(rest);
    else if (IsVhdlWord(word, "elsif"))
        Conditions.Elsif(rest);
    else if (IsVhdlWord(word, "else"))
        Conditions.Else();
    else if (IsVhdlWord(word, "end"))
        Conditions.End();
    else if (IsVhdlWord(word, "protected") ||
             (IsVhdlWord(word, "protect") && IsVhdlWord(ReadDirectiveWord(&at), "begin_protected")))
        SkipEnvelope();
}

/// Passes over encrypted text, up to the directive that ends it.
void TVhdlLexer::SkipEnvelope() {
    while (At < Text.size()) {
        const std::size_t found = Text.find('`', At);
        if (found == std::string_view::npos) break;
        At = found + 1;
        // A line of encrypted text may hold the mark as well, but not before all else.
        const std::size_t before = Text.find_last_not_of(" \t", found == 0 ? 0 : found - 1);
        const bool beginsLine =
            before == std::string_view::npos || Text[before] == '\n' || Text[before] == '\r';
        if (!beginsLine) continue;
        const std::string_view word = ReadDirectiveWord(&At);
        const bool isEnd =
            IsVhdlWord(word, "endprotected") ||
            (IsVhdlWord(word, "protect") && IsVhdlWord(ReadDirectiveWord(&At), "end_protected"));
        if (!isEnd) continue;
        At = Text.find_first_of("\r\n", At);
        if (At == std::string_view::npos) break;
        return;
    }
    At = Text.size();
}
