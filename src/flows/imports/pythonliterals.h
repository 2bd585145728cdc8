#pragma once
#include <string>
#include <string_view>
#include <vector>

/// A text within a literal of Python.
struct TPythonText {
    std::string Key;  ///< in the outermost dictionary; "" without one
    std::string Text;
    int Line = 0;
};

/// What one statement of Python says, as far as no code is run.
struct TPythonStatement {
    std::string Name;  ///< that is assigned to; else the first word of the statement, if any
    bool IsLiteral =
        false;  ///< texts, and lists and dictionaries of texts, be they assigned or not
    std::vector<TPythonText> Texts;
    int Line = 0;
};

/// The statements of a text, one behind the other, those of blocks as well.
class TPythonStatements {
public:
    /// The text must outlive the object.
    explicit TPythonStatements(std::string_view text) : Text(text) {}

    /// False at the end, and from a fault on.
    bool Next(TPythonStatement* statement);
    /// What is wrong in the line of the statement that Next was to give; null: nothing.
    const char* GetFault() const { return Fault; }

private:
    char At(std::size_t ahead = 0) const {
        return Position + ahead < Text.size() ? Text[Position + ahead] : '\0';
    }
    bool IsAtEnd() const { return Position >= Text.size(); }
    void Step();
    bool SkipBlanks(bool isInBrackets);
    void Begin(TPythonStatement* statement);
    void TakeToken(TPythonStatement* statement);
    void TakeBracket(char c);
    std::string TakeName();
    std::string TakeText(bool isRaw);
    bool IsTextAhead(bool* isRaw) const;

    std::string_view Text;
    std::size_t Position = 0;
    int Line = 1;
    std::string Brackets;  // that are open
    std::string Key;
    bool IsAdjacent = false;  // the last token was a text, which another one behind it continues
    const char* Fault = nullptr;
};
