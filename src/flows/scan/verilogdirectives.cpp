#include "flows/scan/veriloglexer.h"
#include <algorithm>

// What stands behind directives, which keep to lines where the language does not.

std::string_view TVerilogLexer::ReadWord() {
    At = SkipSpaces(At);
    const std::size_t begin = At;
    At = CharAt(At) == '\\' ? EndOfEscaped(At) : EndOfWord(At);
    return Text.substr(begin, At - begin);
}

std::string_view TVerilogLexer::ReadLine() {
    At = SkipSpaces(At);
    const std::size_t begin = At;
    At = EndOfLine(At);
    std::string_view line = Text.substr(begin, At - begin);
    line = line.substr(0, line.find("//"));
    while (!line.empty() && (line.back() == ' ' || line.back() == '\t')) line.remove_suffix(1);
    return line;
}

std::string_view TVerilogLexer::ReadQuoted() {
    // No name is longer: so that those that nobody closes cost no more than this each.
    constexpr std::size_t kLongest = 4096;
    const std::size_t begin = SkipSpaces(At);
    const char first = CharAt(begin);
    if (first != '"' && first != '<') return {};
    const std::string_view rest = Text.substr(begin, kLongest);
    const std::size_t last = rest.find_first_of(first == '<' ? ">\r\n" : "\"\r\n", 1);
    if (last == std::string_view::npos || rest[last] == '\r' || rest[last] == '\n') return {};
    At = begin + last + 1;
    return rest.substr(0, last + 1);
}

bool TVerilogLexer::SkipParameters() {
    if (CharAt(At) != '(') return false;
    std::size_t depth = 0;
    // Up to the next directive at the latest: parentheses may not match.
    for (std::size_t at = At; at < Text.size() && Text[at] != '`' && Text[at] != ';'; ++at) {
        if (Text[at] == '(') ++depth;
        if (Text[at] != ')' || --depth > 0) continue;
        At = at + 1;
        return true;
    }
    return true;
}

std::string_view TVerilogLexer::ReadMacroText() {
    At = SkipSpaces(At);
    const std::size_t begin = At;
    bool isInComment = false;
    while (At < Text.size() && Text[At] != '\n' && Text[At] != '\r') {
        const char c = Text[At];
        if (c == '\\') {
            const std::size_t behind = EndOfLineEnd(At + 1);
            isInComment = isInComment && behind == At + 1;
            At = std::max(behind, At + 1);
        } else if (isInComment) {
            ++At;
        } else if (c == '`' && (CharAt(At + 1) == '"' || CharAt(At + 1) == '\\')) {
            // `" is a quote in what the macro gives; `\`" is one in a string of that.
            At += 2;
        } else if (c == '"') {
            At = EndOfString(At);
        } else if (c == '/' && CharAt(At + 1) == '/') {
            isInComment = true;
            At += 2;
        } else {
            const std::size_t end = EndOfComment(At);
            At = end > At ? end : At + 1;
        }
    }
    return Text.substr(begin, At - begin);
}

std::string_view TVerilogLexer::PeekDirective(std::string_view* word) const {
    std::size_t at = At;
    while (at < Text.size()) {
        const std::size_t end = EndOfComment(at);
        if (end == at && static_cast<unsigned char>(Text[at]) > ' ') break;
        at = std::max(end, at + 1);
    }
    if (CharAt(at) != '`') return {};
    const std::size_t end = EndOfWord(at + 1);
    const std::size_t begin = SkipSpaces(end);
    *word = Text.substr(begin, EndOfWord(begin) - begin);
    return Text.substr(at, end - at);
}

void TVerilogLexer::SkipTimescale() {
    for (int side = 0; side < 2; ++side) {
        At = SkipSpaces(At);
        while (CharAt(At) >= '0' && CharAt(At) <= '9') ++At;
        At = SkipSpaces(At);
        while (CharAt(At) >= 'a' && CharAt(At) <= 'z') ++At;
        At = SkipSpaces(At);
        if (side == 0 && CharAt(At) != '/') return;
        if (side == 0) ++At;
    }
}

namespace {

/// Takes a word from the front of a text and tells whether it was there.
bool SkipWord(std::string_view word, std::string_view* text) {
    text->remove_prefix(std::min(text->find_first_not_of(" \t"), text->size()));
    if (!text->starts_with(word)) return false;
    text->remove_prefix(word.size());
    return true;
}

}  // namespace

/// Older tools write the directives of an envelope as comments.
bool TVerilogLexer::IsEnvelopeComment() const {
    std::string_view rest = Text.substr(At, 64);
    return SkipWord("//", &rest) && SkipWord("pragma", &rest) && SkipWord("protect", &rest) &&
           SkipWord("begin_protected", &rest);
}

bool TVerilogLexer::EndsEnvelope(std::size_t at) const {
    std::string_view rest = Text.substr(at, 64);
    if (SkipWord("`endprotected", &rest)) return true;
    if (SkipWord("`protect", &rest)) return SkipWord("end_protected", &rest);
    return (SkipWord("`", &rest) || SkipWord("//", &rest)) && SkipWord("pragma", &rest) &&
           SkipWord("protect", &rest) && SkipWord("end_protected", &rest);
}

void TVerilogLexer::SkipEnvelope() {
    while (At < Text.size()) {
        // A line of encrypted text may hold the marks as well, but not before all else.
        const std::size_t begin = SkipSpaces(At);
        const bool isEnd = EndsEnvelope(begin);
        At = EndOfLine(begin);
        if (isEnd) return;
        At = EndOfLineEnd(At);
    }
}
