#include "flows/scan/veriloglexer.h"
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

/// Every token with a letter for its kind: identifiers, escaped ones (x), system names (y),
/// keywords, numbers, strings, marks, directives and others.
std::string TokensOf(std::string_view text) {
    TVerilogLexer lexer(text);
    std::string tokens;
    for (TVerilogToken token = lexer.Next(); !token.Is(TVerilogTokenKind::End);
         token = lexer.Next()) {
        if (!tokens.empty()) tokens += ' ';
        tokens += " ixyknsmdo"[static_cast<int>(token.Kind)];
        tokens += ':';
        tokens += token.Text;
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

TEST(VerilogLexer, ReadsWords) {
    ExpectTokens({
        {"module m$1 _a a$", "k:module i:m$1 i:_a i:a$"},
        {"$display $ $unit::x", "y:$display m:$ y:$unit m::: i:x"},
        {"\\a+b(c ;\\end\n\\", "x:\\a+b(c m:; x:\\end o:\\"},
        {"\\//x */ y", "x:\\//x m:* m:/ i:y"},
        {"gr\xC3\xB6sse gr\xF6sse", "i:gr\xC3\xB6sse i:gr\xF6sse"},
        {"\xEF\xBB\xBFmodule", "k:module"},
    });
}

TEST(VerilogLexer, ReadsNumbers) {
    ExpectTokens({
        {"12 1_0 1.5e-3 2E+6 3e 10ns 1step 1.5us",
         "n:12 n:1_0 n:1.5e-3 n:2E+6 n:3e n:10ns "
         "n:1step n:1.5us"},
        {"8'hFF 8 'shz? 4'b 10xZ 'd12and", "n:8 n:'hFF n:8 n:'shz? n:4 n:'b 10xZ n:'d12a i:nd"},
        {"'0 '1 'x 'Z", "n:'0 n:'1 n:'x n:'Z"},
        {"8'h`W 8'h", "n:8 n:'h d:`W n:8 n:'h"},
        {"'{a} t'(x) '", "m:' m:{ i:a m:} i:t m:' m:( i:x m:) m:'"},
        {"1.x 1..2", "n:1 m:. i:x n:1 m:. m:. n:2"},
    });
}

TEST(VerilogLexer, ReadsStrings) {
    ExpectTokens({
        {R"("a\"b" "\\" c)", R"(s:"a\"b" s:"\\" i:c)"},
        {R"("// no" "/* no" c)", R"(s:"// no" s:"/* no" i:c)"},
        {"\"open\nmodule", "s:\"open k:module"},
        {"\"con\\\ntinued\" a \"with\\\r\ncr\" b",
         "s:\"con\\\ntinued\" i:a s:\"with\\\r\ncr\" i:b"},
        {"\"\"\"a \"b\"\n\\\"\"\" c\"\"\" d", "s:\"\"\"a \"b\"\n\\\"\"\" c\"\"\" i:d"},
        {"\"\" a", "s:\"\" i:a"},
        {"\"end\\", "s:\"end\\"},
        {"\"\"\"end", "s:\"\"\"end"},
    });
}

TEST(VerilogLexer, PassesOverComments) {
    ExpectTokens({
        {"a // b \" \n c /* d \" // \n */ e", "i:a i:c i:e"},
        {"a /* // */ b /*/ c */ d /* e", "i:a i:b i:d"},
        {"a // b\rc // d\r\ne", "i:a i:c i:e"},
        {"a / b /", "i:a m:/ i:b m:/"},
    });
}

TEST(VerilogLexer, ReadsMarks) {
    ExpectTokens({
        {"a::b:c", "i:a m::: i:b m:: i:c"},
        {"(* keep *) @(*) @( * ) (*\n)",
         "m:(* i:keep m:* m:) m:@ m:( m:* m:) m:@ m:( m:* m:) "
         "m:( m:* m:)"},
        {"`define `x `` `\" `1", "d:`define d:`x o:` o:` o:` s:\" `1"},
        {"<<>>", "m:< m:< m:> m:>"},
    });
}

TEST(VerilogLexer, TellsTheWordsOfSystemVerilog) {
    TVerilogLexer lexer("class class module");
    lexer.SetSystemVerilog(false);
    EXPECT_TRUE(lexer.Next().Is(TVerilogTokenKind::Identifier));
    lexer.SetSystemVerilog(true);
    EXPECT_TRUE(lexer.Next().Is(TVerilogKeyword::Class));
    EXPECT_TRUE(lexer.Next().Is(TVerilogKeyword::Module));
    EXPECT_TRUE(lexer.Next().Is(TVerilogTokenKind::End));
    EXPECT_TRUE(lexer.Next().Is(TVerilogTokenKind::End));
}

TEST(VerilogLexer, PassesOverEnvelopesInComments) {
    ExpectTokens({
        {"a //pragma protect begin_protected\nmodule \" /*\n// pragma protect end_protected\nb",
         "i:a i:b"},
        {"a // pragma protect\nb", "i:a i:b"},
        {"a //pragma protect begin_protected\nb", "i:a"},
    });
}
