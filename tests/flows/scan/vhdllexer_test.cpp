#include "flows/scan/vhdllexer.h"
#include <gtest/gtest.h>
#include <string>

namespace {

/// Every token with a letter for its kind: identifiers, extended ones (x), keywords, numbers,
/// strings, bit strings, characters, delimiters and others.
std::string TokensOf(std::string_view text, const TScanOptions& options = {}) {
    TVhdlLexer lexer(text, options);
    std::string tokens;
    for (TVhdlToken token = lexer.Next(); !token.Is(TVhdlTokenKind::End); token = lexer.Next()) {
        if (!tokens.empty()) tokens += ' ';
        tokens += " ixknsbcdo"[static_cast<int>(token.Kind)];
        tokens += ':';
        tokens += lexer.TextOf(token);
    }
    return tokens;
}

struct TRow {
    const char* Text;
    const char* Tokens;
};

void ExpectTokens(const std::vector<TRow>& rows) {
    for (const TRow& row : rows) EXPECT_EQ(TokensOf(row.Text), row.Tokens) << row.Text;
}

}  // namespace

TEST(VhdlLexer, ReadsWords) {
    ExpectTokens({
        {"Entity e1 is", "k:Entity i:e1 k:is"},
        {"a_b__c_ _d", "i:a_b__c_ o:_ i:d"},
        {"\\a\\\\b\\ \\end\\ \\a b--\\c", "x:\\a\\\\b\\ x:\\end\\ x:\\a b--\\ i:c"},
        {"\\a\nb", "x:\\a i:b"},
        {"context protected property", "i:context i:protected i:property"},
    });
}

TEST(VhdlLexer, ReadsNumbers) {
    ExpectTokens({
        {"12 1_000 1.5e-3 2E+6 3e", "n:12 n:1_000 n:1.5e-3 n:2E+6 n:3 i:e"},
        {"16#FF#e2 2#1.0#E-1 16#F", "n:16#FF#e2 n:2#1.0#E-1 n:16#F"},
        {"0 to 3.x 10ns", "n:0 k:to n:3 d:. i:x n:10 i:ns"},
    });
}

TEST(VhdlLexer, ReadsStrings) {
    ExpectTokens({
        {"\"a\"\"b\"\"\" & \"\"", "s:\"a\"\"b\"\"\" d:& s:\"\""},
        {"\"-- no comment\" \"/*\" & '\"' x", "s:\"-- no comment\" s:\"/*\" d:& c:'\"' i:x"},
        {"\"open\nentity", "s:\"open k:entity"},
        {"%a%%b% % c", "s:%a%%b% o:% i:c"},
        {"x\"0F\" B\"1_0\" 12uX\"F\" sb\"1\" d\"1\"",
         "b:x\"0F\" b:B\"1_0\" b:12uX\"F\" b:sb\"1\" b:d\"1\""},
        {"ab\"1\" xx\"1\"", "i:ab s:\"1\" i:xx s:\"1\""},
    });
}

TEST(VhdlLexer, TellsCharactersFromTicks) {
    ExpectTokens({
        {"a'('1')", "i:a d:' d:( c:'1' d:)"},
        {"std_logic '('1')", "i:std_logic d:' d:( c:'1' d:)"},
        {"x'event and y='1'", "i:x d:' i:event k:and i:y d:= c:'1'"},
        {"'''", "c:'''"},
        {"('a','b')", "d:( c:'a' d:, c:'b' d:)"},
        {"f(x)'length", "i:f d:( i:x d:) d:' i:length"},
        {"p.all'a' (x)", "i:p d:. k:all d:' i:a d:' d:( i:x d:)"},
        {"x'range'('a')", "i:x d:' k:range d:' d:( c:'a' d:)"},
        {"t'subtype'('-')", "i:t d:' k:subtype d:' d:( c:'-' d:)"},
        {"s[i]'a", "i:s d:[ i:i d:] d:' i:a"},
        {"\"and\"'a", "s:\"and\" d:' i:a"},
        {"<<signal a.b : t>>'c'd", "d:<< k:signal i:a d:. i:b d:: i:t d:>> d:' i:c d:' i:d"},
        {"and'1' & 'x'&'\"'", "k:and c:'1' d:& c:'x' d:& c:'\"'"},
        {"s <= force '1';", "i:s d:< d:= i:force c:'1' d:;"},
        {"force'event", "i:force d:' i:event"},
        {"return'('", "k:return c:'('"},
        {"(''', '-', '\\', '`')", "d:( c:''' d:, c:'-' d:, c:'\\' d:, c:'`' d:)"},
        {"('\n')", "d:( d:' d:' d:)"},
    });
}

TEST(VhdlLexer, ReadsDelimiters) {
    ExpectTokens({
        {"a=>b:=c<=d", "i:a d:=> i:b d::= i:c d:< d:= i:d"},
        {"**/=<>??", "d:* d:* d:/ d:= d:< d:> d:? d:?"},
        {"~#_", "o:~ o:# o:_"},
    });
}

TEST(VhdlLexer, PassesOverComments) {
    ExpectTokens({
        {"a -- b /* c\nd", "i:a i:d"},
        {"a /* b -- */ c */ d", "i:a i:c d:* d:/ i:d"},
        {"a /* b\n\"*/c/**/d", "i:a i:c i:d"},
        {"a /* b", "i:a"},
        {"a /*/ b */ c", "i:a i:c"},
        {"-- a\rb--c\vd--\fe", "i:b i:d i:e"},
        {"-- psl default clock is clk;\nx", "i:x"},
        {"a-b - - c", "i:a d:- i:b d:- d:- i:c"},
    });
}

TEST(VhdlLexer, PassesOverDirectives) {
    ExpectTokens({
        {"a `tool x y \"\nb", "i:a i:b"},
        {"`protect begin_protected\n`protect version=2\n\" x ` `protect end_protected\n"
         "entity ' `\n  ` Protect  end_protected  \nb",
         "i:b"},
        {"`protect begin\na\n`protect end\nb", "i:a i:b"},
        {"`protected\nxyz\n`endprotected\nb", "i:b"},
        {"`protect begin_protected\na", ""},
        {"`protect begin_protected\na\n`protect end_protected", ""},
        {"`protect BEGIN_PROTECTED\na\n`protect end_protectedx\nb", ""},
    });
}

TEST(VhdlLexer, LeavesOutWhatConditionsDo) {
    const TScanOptions options = {{{"TOOL", "x"}}};
    const TRow rows[] = {
        {"a `if TOOL = \"x\" then\nb\n`elsif TOOL = \"y\" then\nc\n`else\nd\n`end if\ne",
         "i:a i:b i:e"},
        {"`if TOOL /= \"x\" then\nb \"\n`else -- c\nd\n`end\ne", "i:d i:e"},
        {"`if TOOL /= \"x\" then\n`if TOOL = \"x\" then\nb\n`end if\nc\n`end if\nd", "i:d"},
        {"`if TOOL /= \"x\" then\n/*\n`else\n*/ b\n-- `end if\nc\n`end if\nd", "i:d"},
        {"`if FOO = \"x\" then\na\n`else\nb\n`end if\nc", "i:a i:b i:c"},
        {"`if TOOL /= \"x\" then\na", ""},
    };
    for (const TRow& row : rows) EXPECT_EQ(TokensOf(row.Text, options), row.Tokens) << row.Text;
}

TEST(VhdlLexer, ReadsBothEncodings) {
    ExpectTokens({
        {"Z\xC3\xA4hler := '\xC3\xA4' \xC3\x97 b",
         "i:Z\xC3\xA4hler d::= c:'\xC3\xA4' o:\xC3\x97 i:b"},
        {"Z\xE4hler := '\xE4' \xD7 b", "i:Z\xE4hler d::= c:'\xE4' o:\xD7 i:b"},
        {"a\xC2\xA0"
         "b",
         "i:a i:b"},
        {"a\xA0"
         "b\xE4",
         "i:a i:b\xE4"},
        {"\xEF\xBB\xBF"
         "a \xE2\x82\xAC b",
         "i:a o:\xE2\x82\xAC i:b"},
        {"\xEF\xBB\xBF"
         "a\xE4",
         "i:a o:\xE4"},  // the mark says UTF-8
        {"\xE4", "i:\xE4"},
        {"'\xC3", "d:' i:\xC3"},
    });
}

TEST(VhdlLexer, NamesIdentifiersInUtf8) {
    for (const char* text : {"Z\xE4hler", "Z\xC3\xA4hler"}) {
        TVhdlLexer lexer(text, {});
        EXPECT_EQ(lexer.NameOf(lexer.Next()), "Z\xC3\xA4hler");
    }
}

TEST(VhdlLexer, TakesEveryControlCharacterForABlank) {
    for (char c = 0; c < ' '; ++c) EXPECT_EQ(TokensOf(std::string("a") + c + "b"), "i:a i:b") << c;
}

TEST(VhdlLexer, TellsTheMarksThatMatter) {
    TVhdlLexer lexer("=> := << >> ;", {});
    std::string marks;
    for (int i = 0; i < 5; ++i) marks += lexer.Next().Mark;
    EXPECT_EQ(marks,
              std::string({kVhdlArrow, kVhdlAssign, kVhdlOpenExternal, kVhdlCloseExternal, ';'}));
    EXPECT_TRUE(lexer.Next().Is(TVhdlTokenKind::End));
    EXPECT_TRUE(lexer.Next().Is(TVhdlTokenKind::End));
}
