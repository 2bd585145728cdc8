#include "flows/imports/pythonliterals.h"

namespace {

bool IsNamePart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

}  // namespace

void TPythonStatements::Step() {
    if (At() == '\n') ++Line;
    ++Position;
}

/// False at the end of the statement.
bool TPythonStatements::SkipBlanks(bool isInBrackets) {
    for (; !IsAtEnd(); Step()) {
        const char c = At();
        if (c == '#') {
            while (!IsAtEnd() && At(1) != '\n') Step();
            if (IsAtEnd()) break;
        } else if (c == '\\' && (At(1) == '\n' || At(1) == '\r')) {
            while (!IsAtEnd() && At() != '\n') Step();
        } else if (c == '\n' || c == ';') {
            if (!isInBrackets) return false;
        } else if (c != ' ' && c != '\t' && c != '\r' && c != '\f') {
            return true;
        }
    }
    return false;
}

bool TPythonStatements::Next(TPythonStatement* statement) {
    *statement = {};
    Brackets.clear();
    Key.clear();
    IsAdjacent = false;
    while (!IsAtEnd() && !SkipBlanks(false)) Step();
    statement->Line = Line;
    if (IsAtEnd() || Fault) return false;
    Begin(statement);
    while (!Fault && SkipBlanks(!Brackets.empty())) TakeToken(statement);
    if (!Brackets.empty() && !Fault) Fault = "a bracket that is not closed";
    return !Fault;
}

void TPythonStatements::Begin(TPythonStatement* statement) {
    bool isRaw = false;
    if (!IsTextAhead(&isRaw)) statement->Name = TakeName();
    statement->IsLiteral = statement->Name.empty();
    if (statement->Name.empty()) return;
    if (!SkipBlanks(false)) return;
    if (At() == '+' && At(1) == '=') Step();
    if (At() != '=' || At(1) == '=') return;
    Step();
    statement->IsLiteral = true;
}

std::string TPythonStatements::TakeName() {
    const std::size_t begin = Position;
    while (IsNamePart(At())) ++Position;
    return std::string(Text.substr(begin, Position - begin));
}

bool TPythonStatements::IsTextAhead(bool* isRaw) const {
    const bool hasPrefix = At() == 'r' || At() == 'u' || At() == 'R' || At() == 'U';
    *isRaw = At() == 'r' || At() == 'R';
    const char quote = At(hasPrefix ? 1 : 0);
    return quote == '"' || quote == '\'';
}

void TPythonStatements::TakeToken(TPythonStatement* statement) {
    bool isRaw = false;
    if (IsTextAhead(&isRaw)) {
        const int line = Line;
        std::string text = TakeText(isRaw);
        if (IsAdjacent)
            statement->Texts.back().Text += text;
        else
            statement->Texts.push_back({Key, std::move(text), line});
        IsAdjacent = true;
        return;
    }
    const bool wasText = IsAdjacent;
    IsAdjacent = false;
    if (IsNamePart(At())) {
        const std::string name = TakeName();
        if (name != "None") statement->IsLiteral = false;
        return;
    }
    constexpr std::string_view kPlain = "[](){},:";
    if (kPlain.find(At()) == std::string_view::npos) statement->IsLiteral = false;
    if (At() == ':' && Brackets == "{" && wasText) {
        Key = statement->Texts.back().Text;
        statement->Texts.pop_back();
    } else {
        TakeBracket(At());
    }
    Step();
}

void TPythonStatements::TakeBracket(char c) {
    constexpr std::string_view kOpen = "[({";
    constexpr std::string_view kClosed = "])}";
    if (kOpen.find(c) != std::string_view::npos) Brackets += c;
    const std::size_t closed = kClosed.find(c);
    if (closed == std::string_view::npos) return;
    if (Brackets.empty() || Brackets.back() != kOpen[closed])
        Fault = "a bracket that is not open";
    else
        Brackets.pop_back();
}

std::string TPythonStatements::TakeText(bool isRaw) {
    if (At() != '"' && At() != '\'') Step();
    const char quote = At();
    const bool isLong = At(1) == quote && At(2) == quote;
    for (int count = isLong ? 3 : 1; count > 0; --count) Step();
    std::string text;
    while (!IsAtEnd() && (isLong || At() != '\n')) {
        if (At() == quote && (!isLong || (At(1) == quote && At(2) == quote))) {
            for (int count = isLong ? 3 : 1; count > 0; --count) Step();
            return text;
        }
        if (At() == '\\' && Position + 1 < Text.size()) {
            Step();
            constexpr std::string_view kQuoted = "\\'\"";
            const bool isContinued = At() == '\n';
            if (isRaw || (kQuoted.find(At()) == std::string_view::npos && !isContinued))
                text += '\\';
            if (isContinued && !isRaw) {
                Step();
                continue;
            }
        }
        text += At();
        Step();
    }
    Fault = "a quote that does not end";
    return text;
}
