#include "flows/scan/veriloglexer.h"
#include <gtest/gtest.h>

TEST(VerilogDirectives, ReadsTheTextsOfMacros) {
    const struct {
        const char* Text;
        const char* Macro;
        const char* Rest;
    } rows[] = {
        {" a b\nc", "a b", "c"},
        {" a \\\n b\\\r\n c\nd", "a \\\n b\\\r\n c", "d"},
        {" a // b \\\n c\nd", "a // b \\\n c", "d"},
        {" a // b ' \" \nd", "a // b ' \" ", "d"},
        {" a /* b\n c */ d\ne", "a /* b\n c */ d", "e"},
        {" \"http://a\" \\\n b\nc", "\"http://a\" \\\n b", "c"},
        {" `\"a `\\`\" // \\\n `endif\nc", "`\"a `\\`\" // \\\n `endif", "c"},
        {" \"a\\\nb\" c\nd", "\"a\\\nb\" c", "d"},
        {"\nc", "", "c"},
        {" a\\", "a\\", ""},
    };
    for (const auto& row : rows) {
        const std::string_view text = row.Text;
        TVerilogLexer lexer(text);
        EXPECT_EQ(lexer.ReadMacroText(), row.Macro) << text;
        EXPECT_EQ(lexer.Next().Text, row.Rest) << text;
    }
}

TEST(VerilogDirectives, ReadsWhatStandsBehindDirectives) {
    TVerilogLexer lexer(
        "\t \\a+b  c(x,\n (y)=1) \"f.v\"<g.v> rest // no\n 1 ns / 10 ps module \"x\ny");
    EXPECT_EQ(lexer.ReadWord(), "\\a+b");
    EXPECT_EQ(lexer.ReadWord(), "c");
    EXPECT_TRUE(lexer.SkipParameters());
    EXPECT_FALSE(lexer.SkipParameters());
    EXPECT_EQ(lexer.ReadQuoted(), "\"f.v\"");
    EXPECT_EQ(lexer.ReadQuoted(), "<g.v>");
    EXPECT_EQ(lexer.ReadQuoted(), "");
    EXPECT_EQ(lexer.ReadLine(), "rest");
    EXPECT_EQ(lexer.ReadWord(), "");
    EXPECT_TRUE(lexer.Next().Is(TVerilogTokenKind::Number));
    EXPECT_EQ(lexer.ReadWord(), "ns");
    EXPECT_EQ(lexer.Next().Text, "/");
    lexer.SkipTimescale();
    EXPECT_EQ(lexer.ReadWord(), "module");
    EXPECT_EQ(lexer.ReadQuoted(), "");
}

TEST(VerilogDirectives, PeeksAtTheNextDirective) {
    const struct {
        const char* Text;
        const char* Directive;
        const char* Word;
    } rows[] = {
        {" // c\n /* d */ `define  A x", "`define", "A"},
        {"`endif", "`endif", ""},
        {"a `define A", "", ""},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        const TVerilogLexer lexer(row.Text);
        std::string_view word;
        EXPECT_EQ(lexer.PeekDirective(&word), row.Directive) << row.Text;
        EXPECT_EQ(word, row.Word) << row.Text;
        EXPECT_EQ(lexer.Offset(), 0u);
    }
}
