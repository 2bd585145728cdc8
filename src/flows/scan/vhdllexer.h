#pragma once
#include "flows/scan/scannedfile.h"
#include "flows/scan/vhdlconditions.h"
#include "flows/scan/vhdltoken.h"
#include <string>
#include <string_view>

/// The tokens of a VHDL source, of any version of the language from 93 on, one after the other.
///
/// Passes over comments, directives of tools, protected envelopes and what conditional analysis
/// leaves out. Any bytes will do: what the language has no use for becomes a token of its own, and
/// each literal ends at the latest with its line. Takes time in proportion to the bytes, allocates
/// for nested conditions alone.
class TVhdlLexer {
public:
    /// Keeps `text` and `options`, not copies.
    TVhdlLexer(std::string_view text, const TScanOptions& options);

    /// The next token; at the end of the text an End, as often as it is asked for.
    TVhdlToken Next();

    std::string_view TextOf(const TVhdlToken& token) const {
        return Text.substr(token.Offset, token.Length);
    }
    /// The text of an identifier in UTF-8, whatever the encoding of the source.
    std::string NameOf(const TVhdlToken& token);

private:
    enum class TEncoding { Undecided, Utf8, Latin1 };

    char CharAt(std::size_t at) const { return at < Text.size() ? Text[at] : '\0'; }
    bool IsUtf8();
    std::size_t LetterLength(std::size_t at);
    std::size_t CharacterLength(std::size_t at);
    std::size_t EndOfLine(std::size_t at) const;

    TVhdlToken ReadToken();
    bool SkipBlank();
    bool SkipComment();
    TVhdlToken Make(TVhdlTokenKind kind, std::size_t length);
    TVhdlToken ReadWord();
    TVhdlToken ReadNumber();
    TVhdlToken ReadMark();
    bool ReadTick(TVhdlToken* token);
    std::size_t LengthOfQuoted(std::size_t at, char quote) const;
    std::size_t LengthOfBitString(std::size_t at) const;

    void ObeyDirective();
    std::string_view ReadDirectiveWord(std::size_t* at) const;
    void SkipEnvelope();

    std::string_view Text;
    TVhdlConditions Conditions;
    std::size_t At = 0;
    TEncoding Encoding = TEncoding::Undecided;
    TVhdlToken Last;        // the token before
    bool EndsName = false;  // a tick behind it begins an attribute, or a qualified expression
};
