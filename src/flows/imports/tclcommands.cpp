#include "flows/imports/tclcommands.h"

bool TTclCommands::IsContinued() const {
    return At() == '\\' && (At(1) == '\n' || (At(1) == '\r' && At(2) == '\n'));
}

void TTclCommands::Step() {
    if (At() == '\n') ++Line;
    ++Position;
}

void TTclCommands::SkipBlanks() {
    while (!IsAtEnd() && IsBlank()) {
        if (At() == '\\')
            while (At() != '\n') Step();
        Step();
    }
}

void TTclCommands::SkipComment() {
    while (!IsAtEnd() && At() != '\n') {
        if (At() == '\\') Step();
        if (!IsAtEnd()) Step();
    }
}

bool TTclCommands::Next(TTclCommand* command) {
    *command = {};
    for (SkipBlanks(); !IsAtEnd(); SkipBlanks()) {
        if (At() == '#')
            SkipComment();
        else if (IsEndOfCommand())
            Step();
        else
            break;
    }
    command->Line = Line;
    if (IsAtEnd() || Fault) return false;
    for (; !Fault && !IsEndOfCommand(); SkipBlanks()) TakeWord(command);
    return !Fault;
}

void TTclCommands::TakeWord(TTclCommand* command) {
    std::string word;
    if (Text.substr(Position).starts_with("{*}")) {
        command->IsLiteral = false;
        Position += 3;
    }
    if (At() == '{')
        TakeBraced(&word);
    else if (At() == '"')
        TakeQuoted(command, &word);
    else
        while (!Fault && !IsEndOfCommand() && !IsBlank()) TakeCharacter(command, &word);
    if (!Fault && !IsEndOfCommand() && !IsBlank()) Fault = "a word that goes on behind its end";
    command->Words.push_back(std::move(word));
}

void TTclCommands::TakeBraced(std::string* word) {
    std::size_t depth = 1;
    for (Step(); !IsAtEnd(); Step()) {
        if (At() == '\\' && Position + 1 < Text.size()) {
            *word += At();
            Step();
        } else if (At() == '{') {
            ++depth;
        } else if (At() == '}' && --depth == 0) {
            Step();
            return;
        }
        *word += At();
    }
    Fault = "a brace that is not closed";
}

void TTclCommands::TakeQuoted(TTclCommand* command, std::string* word) {
    Step();
    while (!Fault && !IsAtEnd() && At() != '"') TakeCharacter(command, word);
    if (IsAtEnd()) Fault = "a quote that does not end";
    Step();
}

void TTclCommands::TakeBracketed(std::string* word) {
    std::size_t depth = 0;
    for (; !IsAtEnd(); Step()) {
        *word += At();
        if (At() == '[') ++depth;
        if (At() == ']' && --depth == 0) {
            Step();
            return;
        }
    }
    Fault = "a bracket that is not closed";
}

void TTclCommands::TakeCharacter(TTclCommand* command, std::string* word) {
    if (At() == '\\' && Position + 1 < Text.size()) return TakeEscape(word);
    if (At() == '$' || At() == '[') command->IsLiteral = false;
    if (At() == '[') return TakeBracketed(word);
    *word += At();
    Step();
}

void TTclCommands::TakeEscape(std::string* word) {
    const bool isContinued = IsContinued();
    Step();
    if (isContinued) {
        while (At() == '\r') Step();
        *word += ' ';
    } else {
        constexpr std::string_view kNames = "abfnrtv";
        constexpr std::string_view kValues = "\a\b\f\n\r\t\v";
        const std::size_t known = kNames.find(At());
        *word += known == std::string_view::npos ? At() : kValues[known];
    }
    Step();
    // The blanks that begin the next line belong to the end of the one before.
    while (isContinued && (At() == ' ' || At() == '\t')) Step();
}
