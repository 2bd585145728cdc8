#pragma once
#include "flows/scan/verilogtoken.h"
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The tokens of one Verilog or SystemVerilog text, one after the other, without regard to what
/// its directives do.
///
/// Passes over comments and protected envelopes. Any bytes will do: what the language has no use
/// for becomes a token of its own, and a string ends at the latest with its line, unless its quotes
/// are threefold. Takes time in proportion to the bytes, allocates nothing.
class TVerilogLexer {
public:
    /// Keeps `text`, not a copy. `file` is given to every token.
    explicit TVerilogLexer(std::string_view text, std::uint32_t file = 0);

    /// The next token; at the end of the text an End, as often as it is asked for.
    TVerilogToken Next() {
        TVerilogToken token;
        Next(&token);
        return token;
    }
    /// The same, without a copy: processors wait for what was written byte by byte just before.
    void Next(TVerilogToken* token);

    /// Whether the words that SystemVerilog added are keywords. They are at first.
    void SetSystemVerilog(bool isSystemVerilog) { IsSystemVerilog = isSystemVerilog; }

    // What stands behind a directive. Each moves behind what it gives.

    /// The word, an escaped identifier too, that follows on the line; empty when there is none.
    std::string_view ReadWord();
    /// The line up to its end or a comment, without the blanks around.
    std::string_view ReadLine();
    /// The string or the name in angle brackets that follows on the line, with its quotes; empty
    /// when there is none.
    std::string_view ReadQuoted();
    /// Passes over the parameters of a macro with their parentheses, if one opens at once.
    bool SkipParameters();
    /// The text of a macro, with the lines by which backslashes continue it.
    std::string_view ReadMacroText();
    /// The word of the next directive, with its backtick, when nothing but blanks and comments
    /// stands before it; else empty. Moves nowhere.
    std::string_view PeekDirective(std::string_view* word) const;
    void SkipTimescale();
    /// Passes over encrypted text, up to the directive that ends it.
    void SkipEnvelope();

    /// Where a token that Next() would give begins, at the earliest.
    std::size_t Offset() const { return At; }

private:
    char CharAt(std::size_t at) const { return at < Text.size() ? Text[at] : '\0'; }
    std::size_t EndOfLine(std::size_t at) const;
    std::size_t EndOfWord(std::size_t at) const;
    std::size_t EndOfEscaped(std::size_t at) const;
    std::size_t EndOfString(std::size_t at) const;
    std::size_t EndOfComment(std::size_t at) const;
    std::size_t EndOfLineEnd(std::size_t at) const;
    std::size_t SkipSpaces(std::size_t at) const;

    void SkipBlank();
    bool SkipComment();
    bool IsEnvelopeComment() const;
    bool EndsEnvelope(std::size_t at) const;
    void Make(TVerilogTokenKind kind, std::size_t length, TVerilogToken* token);
    void MakeMark(char mark, std::size_t length, TVerilogToken* token);
    void ReadIdentifier(TVerilogToken* token);
    void ReadNumber(TVerilogToken* token);
    void ReadTick(TVerilogToken* token);
    void ReadOther(TVerilogToken* token);
    bool OpensAttribute() const;

    std::string_view Text;
    std::size_t At = 0;
    std::uint32_t File;
    bool IsSystemVerilog = true;
};

/// Whether all of `text` could be an identifier that needs no backslash, keywords as well.
bool IsVerilogWord(std::string_view text);
