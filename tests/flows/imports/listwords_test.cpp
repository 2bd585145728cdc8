#include "flows/imports/listwords.h"
#include "flows/imports/listdialects.h"
#include <gtest/gtest.h>

namespace {

/// The words with their places, a '|' behind each, and the fault.
std::string WordsOf(const std::string& text, const TListSyntax& syntax) {
    TListWords words(text, syntax);
    std::string listed;
    TListWord word;
    while (words.Next(&word))
        listed +=
            std::to_string(word.Line) + ":" + std::to_string(word.Column) + " " + word.Text + "|";
    if (words.GetFault())
        listed += std::to_string(words.GetFaultWord().Line) + ":" +
                  std::to_string(words.GetFaultWord().Column) + " " + words.GetFault();
    return listed;
}

}  // namespace

TEST(ListWords, EndWhereTheDialectSays) {
    const struct {
        const char* Label;
        const TListDialect& Dialect;
        const char* Text;
        const char* Words;
    } rows[] = {
        {"blanks", kCommonList, " a.v\tb.v\r\nc.v\n", "1:2 a.v|1:6 b.v|2:1 c.v|"},
        {"no line end", kCommonList, "a.v", "1:1 a.v|"},
        {"comments", kCommonList, "// x\n/* y\nz */ a.v # b\n  # c\nd//e.v f#g.v",
         "3:6 a.v|5:1 d//e.v|5:8 f#g.v|"},
        {"quotes", kCommonList, "\"a b.v\" 'c d.v' e'f.v g\" \"h",
         "1:1 a b.v|1:9 c d.v|1:17 e'f.v|1:23 g h|"},
        {"backslashes", kCommonList, "C:\\x\\a.v \\\n b.v", "1:1 C:\\x\\a.v|2:2 b.v|"},
        {"quotes in values", kCommonList, "+define+S=\\\"hi\\\" C:\\x",
         "1:1 +define+S=\"hi\"|1:18 C:\\x|"},
        {"quotes in values", kVcsList, "-d \\\"a \"b\\\"", "1:1 -d|1:4 \"a|1:8 b\\|"},
        {"open quote", kCommonList, "a.v \"b", "1:1 a.v|1:5 a quote that does not end"},
        {"open comment", kCommonList, "a.v\n /* b", "1:1 a.v|2:2 a comment that does not end"},
        {"names with blanks", kIcarusList, "  a b.v  \r\n+incdir+x y z.v\n-y\n lib\n",
         "1:3 a b.v|2:1 +incdir+x|2:11 y z.v|3:1 -y|4:2 lib|"},
        {"slashes in names", kIcarusList, "a//b.v\n/* c */ d/*e.v\n", "1:1 a|2:9 d/*e.v|"},
        {"hashes", kIcarusList, "# a\n # b\n", "2:2 # b|"},
        {"quotes in names", kIcarusList, "\"a\".v\n", "1:1 \"a\".v|"},
        {"whole lines", kVeribleList, " +incdir+a b \n  # c\n// d\ne // f.v\n/* g.v\n",
         "1:2 +incdir+a b|4:1 e // f.v|5:1 /* g.v|"},
        {"escapes", kVerilatorList, "\"a \\\" \\\\b.v\" c\\ d.v", "1:1 a \" \\b.v|1:14 c d.v|"},
        {"stars", kVerilatorList, "a/*b*/c.v", "1:1 a|1:7 c.v|"},
        {"single quotes", kVerilatorList, "4'b0 ' a.v", "1:1 4'b0|1:6 ' a.v|"},
        {"hashes behind words", kVerilatorList, "  # a\nb #c", "2:1 b|2:3 #c|"},
        {"slang", kSlangList, "a#b\n'c d'\"e f\".v g//h /* i */ j\\ k",
         "1:1 a|2:1 c de f.v|2:14 g//h|2:27 j k|"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(WordsOf(row.Text, row.Dialect.Syntax), row.Words) << row.Label;
}
