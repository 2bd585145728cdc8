#include "flows/optiontexts.h"
#include <gtest/gtest.h>

namespace {

std::string Bracketed(const std::vector<std::string>& texts) {
    std::string bracketed;
    for (const std::string& text : texts) bracketed += "[" + text + "]";
    return bracketed;
}

}  // namespace

TEST(OptionTexts, HaveWordsBetweenBlanks) {
    const struct {
        const char* Text;
        const char* Words;
    } rows[] = {
        {"", ""},
        {" \t\r\n", ""},
        {"a", "[a]"},
        {" a  b\tc\r\nd ", "[a][b][c][d]"},
        {"\"a b\" c", "[a b][c]"},
        {"x\"a b\"y", "[xa by]"},
        {"\"\" a", "[][a]"},
        {"a \"b c", "[a][b c]"},
        {"a\\ b", "[a\\][b]"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Bracketed(WordsOfOptions(row.Text)), row.Words) << row.Text;
}

TEST(OptionTexts, HaveListsOfValues) {
    EXPECT_EQ(Bracketed(ValuesOfList("")), "");
    EXPECT_EQ(Bracketed(ValuesOfList("+")), "");
    EXPECT_EQ(Bracketed(ValuesOfList("a")), "[a]");
    EXPECT_EQ(Bracketed(ValuesOfList("+a++b=1+")), "[a][b=1]");
}
