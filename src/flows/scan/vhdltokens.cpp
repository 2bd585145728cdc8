#include "flows/scan/vhdltokens.h"
#include "flows/scan/vhdlnames.h"

TVhdlTokens::TVhdlTokens(std::string_view text, const TScanOptions& options)
    : Lexer(text, options) {
    for (TVhdlToken& token : Ahead) token = Lexer.Next();
}

TVhdlToken TVhdlTokens::Take() {
    Taken = Ahead[First];
    Ahead[First] = Lexer.Next();
    First = (First + 1) % kAhead;
    return Taken;
}

bool TVhdlTokens::PeekWord(std::string_view lowerCase, std::size_t ahead) const {
    const TVhdlToken& token = Peek(ahead);
    return token.Is(TVhdlTokenKind::Identifier) && IsVhdlWord(Lexer.TextOf(token), lowerCase);
}
