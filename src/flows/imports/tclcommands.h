#pragma once
#include <string>
#include <string_view>
#include <vector>

/// A command of a script in Tcl.
struct TTclCommand {
    std::vector<std::string> Words;
    bool IsLiteral = true;  ///< no word asks for a variable or another command
    int Line = 0;
};

/// The commands of a script, one behind the other. Nothing is run: what would be put in for a
/// variable or a command is left as it is written.
class TTclCommands {
public:
    /// The text must outlive the object.
    explicit TTclCommands(std::string_view text) : Text(text) {}

    /// False at the end, and from a fault on.
    bool Next(TTclCommand* command);
    /// What is wrong in the line of the command that Next was to give; null: nothing.
    const char* GetFault() const { return Fault; }

private:
    char At(std::size_t ahead = 0) const {
        return Position + ahead < Text.size() ? Text[Position + ahead] : '\0';
    }
    bool IsAtEnd() const { return Position >= Text.size(); }
    bool IsContinued() const;
    bool IsBlank() const { return At() == ' ' || At() == '\t' || At() == '\r' || IsContinued(); }
    bool IsEndOfCommand() const { return IsAtEnd() || At() == '\n' || At() == ';'; }
    void Step();
    void SkipBlanks();
    void SkipComment();
    void TakeWord(TTclCommand* command);
    void TakeBraced(std::string* word);
    void TakeQuoted(TTclCommand* command, std::string* word);
    void TakeBracketed(std::string* word);
    void TakeCharacter(TTclCommand* command, std::string* word);
    void TakeEscape(std::string* word);

    std::string_view Text;
    std::size_t Position = 0;
    int Line = 1;
    const char* Fault = nullptr;
};
