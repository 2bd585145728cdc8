#pragma once
#include "flows/imports/imported.h"
#include <string>
#include <string_view>

/// What begins a comment with '#'.
enum TListHash : int {
    HASH_IN_COLUMN_1,
    HASH_FIRST_ON_LINE,  ///< blanks may precede
    HASH_AT_WORD,        ///< at the beginning of any word
    HASH_ANYWHERE        ///< it ends a word, too
};

enum TListStar : int { STAR_NOWHERE, STAR_AT_WORD, STAR_ANYWHERE };

/// What a name that is no option reaches to.
enum TListName : int {
    NAME_TO_BLANK,
    NAME_TO_LINE_END,  ///< options end at a blank
    ITEM_TO_LINE_END   ///< options reach to the end, too
};

/// How a tool takes its lists of sources apart.
struct TListSyntax {
    TListName Names = NAME_TO_BLANK;
    TListHash Hash = HASH_AT_WORD;
    bool SlashesEndWords = false;  ///< "//" begins a comment within a word, too
    TListStar Star = STAR_AT_WORD;
    std::string_view Quotes = {};     ///< which quotes group, and are taken off
    bool QuotesInWords = true;        ///< single quotes group within a word, too
    bool HasEscapedQuotes = false;    ///< a backslash gives the double quote behind it
    bool HasEscapes = false;          ///< a backslash gives the character behind it
    bool IsGluedBehindQuote = false;  ///< a single quote gives itself and the character behind it
};

struct TListWord {
    std::string Text;
    int Line = 0;
    int Column = 0;
};

/// The words of a list, one behind the other.
class TListWords {
public:
    /// Both must outlive the object.
    TListWords(std::string_view text, const TListSyntax& syntax) : Text(text), Syntax(syntax) {}

    /// False at the end, and from a fault on.
    bool Next(TListWord* word);
    /// What is wrong; null: nothing.
    const char* GetFault() const { return Fault; }
    /// The line and column of the word or comment in which it is.
    const TListWord& GetFaultWord() const { return FaultWord; }

private:
    char At(std::size_t ahead = 0) const {
        return Position + ahead < Text.size() ? Text[Position + ahead] : '\0';
    }
    bool IsAtEnd() const { return Position >= Text.size(); }
    bool IsBlank() const;
    bool IsLineEnd() const { return At() == '\n' || (At() == '\r' && At(1) == '\n'); }
    bool IsContinued() const;
    bool BeginsLineComment(bool isInWord) const;
    bool BeginsComment(bool isInWord) const;
    bool IsEndOfWord(bool isLine) const;
    void Step();
    void SkipBlanks();
    void SkipComment();
    void TakeWord(TListWord* word);
    TListWord WordHere() const { return {"", Line, static_cast<int>(Position - LineBegin) + 1}; }
    void TakeCharacter(std::string* text);
    bool TakeQuoted(std::string* text);

    std::string_view Text;
    const TListSyntax& Syntax;
    std::size_t Position = 0;
    int Line = 1;
    std::size_t LineBegin = 0;
    bool IsFirstOnLine = true;
    const char* Fault = nullptr;
    TListWord FaultWord;
};
