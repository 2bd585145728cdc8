#pragma once
#include "flows/scan/vhdllexer.h"
#include <array>
#include <cstddef>

/// The tokens of a source with a look at those ahead.
class TVhdlTokens {
public:
    TVhdlTokens(std::string_view text, const TScanOptions& options);

    /// The token that is `ahead` places behind the next one, up to 3.
    const TVhdlToken& Peek(std::size_t ahead = 0) const { return Ahead[(First + ahead) % kAhead]; }
    /// Passes over a token and gives it.
    TVhdlToken Take();
    /// The token that was taken last.
    const TVhdlToken& Previous() const { return Taken; }
    bool IsAtEnd() const { return Peek().Is(TVhdlTokenKind::End); }

    /// Whether the token ahead is an identifier of that text, in any case: a word that later
    /// versions reserved.
    bool PeekWord(std::string_view lowerCase, std::size_t ahead = 0) const;
    std::string NameOf(const TVhdlToken& token) { return Lexer.NameOf(token); }

private:
    static constexpr std::size_t kAhead = 4;

    TVhdlLexer Lexer;
    std::array<TVhdlToken, kAhead> Ahead;
    std::size_t First = 0;
    TVhdlToken Taken;
};
