#include "flows/formats/shelltext.h"
#include <gtest/gtest.h>

TEST(ShellText, QuotesWhatAShellReads) {
    const struct {
        const char* Text;
        const char* Word;
    } rows[] = {
        {"rtl/a_b-1.vhd", "rtl/a_b-1.vhd"},
        {"", "''"},
        {"a b", "'a b'"},
        {"it's", "'it'\\''s'"},
        {"$HOME", "'$HOME'"},
        {"a\nb", "'a\nb'"},
        {"~", "'~'"},
    };
    for (const auto& row : rows) EXPECT_EQ(ShellWord(row.Text), row.Word);
    EXPECT_EQ(ShellWords({"a", "b c"}), " a 'b c'");
}

TEST(ShellText, NamesTheStandardAsGhdlDoes) {
    TPlanSettings settings;
    EXPECT_EQ(GhdlStandard(settings), "08");
    settings.Standard = "1993";
    EXPECT_EQ(GhdlStandard(settings), "93");
}
