#include "flows/imports/listwords.h"

bool TListWords::IsBlank() const {
    const char c = At();
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

// A backslash at the end of a line takes the line end away.
bool TListWords::IsContinued() const {
    return Syntax.Names == NAME_TO_BLANK && At() == '\\' &&
           (At(1) == '\n' || (At(1) == '\r' && At(2) == '\n'));
}

bool TListWords::BeginsLineComment(bool isInWord) const {
    if (At() == '/' && At(1) == '/') return !isInWord || Syntax.SlashesEndWords;
    if (At() != '#') return false;
    switch (Syntax.Hash) {
        case HASH_IN_COLUMN_1:
            return Position == LineBegin;
        case HASH_FIRST_ON_LINE:
            return !isInWord && IsFirstOnLine;
        case HASH_AT_WORD:
            return !isInWord;
        default:
            return true;
    }
}

bool TListWords::BeginsComment(bool isInWord) const {
    if (BeginsLineComment(isInWord)) return true;
    if (At() != '/' || At(1) != '*') return false;
    return Syntax.Star == STAR_ANYWHERE || (Syntax.Star == STAR_AT_WORD && !isInWord);
}

void TListWords::Step() {
    if (At() == '\n') {
        ++Line;
        LineBegin = Position + 1;
        IsFirstOnLine = true;
    }
    ++Position;
}

void TListWords::SkipBlanks() {
    while (!IsAtEnd() && (IsBlank() || IsContinued())) Step();
}

void TListWords::SkipComment() {
    if (At(1) != '*' || At() != '/') {
        while (!IsAtEnd() && At() != '\n') Step();
        return;
    }
    FaultWord = WordHere();
    Step();
    Step();
    while (!IsAtEnd() && (At() != '*' || At(1) != '/')) Step();
    if (IsAtEnd()) {
        Fault = "a comment that does not end";
        return;
    }
    Step();
    Step();
    IsFirstOnLine = false;
}

bool TListWords::Next(TListWord* word) {
    SkipBlanks();
    while (!Fault && !IsAtEnd() && BeginsComment(false)) {
        SkipComment();
        SkipBlanks();
    }
    if (Fault || IsAtEnd()) return false;
    *word = FaultWord = WordHere();
    TakeWord(word);
    IsFirstOnLine = false;
    return !Fault;
}

bool TListWords::IsEndOfWord(bool isLine) const {
    if (IsAtEnd() || IsLineEnd()) return true;
    return !isLine && IsBlank();
}

void TListWords::TakeWord(TListWord* word) {
    const bool isOption = At() == '+' || At() == '-';
    const bool isLine =
        Syntax.Names == ITEM_TO_LINE_END || (Syntax.Names == NAME_TO_LINE_END && !isOption);
    const std::size_t begin = Position;
    while (!Fault && !IsEndOfWord(isLine) && !IsContinued()) {
        if (Position != begin && BeginsComment(true)) break;
        TakeCharacter(&word->Text);
    }
    if (!isLine) return;
    const std::size_t last = word->Text.find_last_not_of(" \t\r");
    word->Text.erase(last == std::string::npos ? 0 : last + 1);
}

void TListWords::TakeCharacter(std::string* text) {
    const char c = At();
    const bool isQuote = Syntax.Quotes.find(c) != std::string_view::npos;
    if (isQuote && (Syntax.QuotesInWords || c == '"' || text->empty())) {
        if (!TakeQuoted(text)) Fault = "a quote that does not end";
        return;
    }
    const bool isEscape =
        c == '\\' && (Syntax.HasEscapes || (Syntax.HasEscapedQuotes && At(1) == '"'));
    const bool isPair = isEscape || (Syntax.IsGluedBehindQuote && c == '\'');
    if (isPair && Position + 1 < Text.size()) {
        if (c == '\'') *text += c;
        Step();
    }
    *text += At();
    Step();
}

// A line end is a character of the text as any other.
bool TListWords::TakeQuoted(std::string* text) {
    const char quote = At();
    for (Step(); !IsAtEnd() && At() != quote; Step()) {
        if (Syntax.HasEscapes && At() == '\\' && Position + 1 < Text.size()) Step();
        *text += At();
    }
    if (IsAtEnd()) return false;
    Step();
    return true;
}
