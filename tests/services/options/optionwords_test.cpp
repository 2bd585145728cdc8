#include "services/options/optionwords.h"
#include <gtest/gtest.h>

using options::SplitAtPlus;
using options::SplitIntoWords;
using options::WithoutEnclosingQuotes;

namespace {

// Each part between bars.
std::string Barred(const std::vector<std::string>& parts) {
    std::string text = "|";
    for (const auto& part : parts) text += part + "|";
    return text;
}

}  // namespace

TEST(OptionWords, AreSeparatedByBlanksOutsideQuotes) {
    struct {
        const char* Label;
        const char* Text;
        const char* Words;
        bool EndsInQuotes;
    } const rows[] = {
        {"nothing", "", "|", false},
        {"blanks alone", " \t\r\n ", "|", false},
        {"one word", "-s", "|-s|", false},
        {"all kinds of blanks", " -s\t-u \r\n+go\n", "|-s|-u|+go|", false},
        {"a quoted blank", "-y \"my lib\" -s", "|-y|\"my lib\"|-s|", false},
        {"quotes inside a word", "+define+M=\"a b\"+N x", "|+define+M=\"a b\"+N|x|", false},
        {"a line end in quotes", "\"a\nb\" c", "|\"a\nb\"|c|", false},
        {"empty quotes", "\"\" a\"\"b", "|\"\"|a\"\"b|", false},
        {"a quote that is not closed", "-y \"my lib -s", "|-y|\"my lib -s|", true},
        {"a lone quote", "a \"", "|a|\"|", true},
        {"a backslash is no escape", "\"a\\\" b\" c", "|\"a\\\"|b\" c|", true},
        {"a backslash between words", "C:\\a\\ b", "|C:\\a\\|b|", false},
        {"references stay", "-y ${LIB} %X%", "|-y|${LIB}|%X%|", false},
        {"vertical tab and form feed are no blanks", "a\vb\fc", "|a\vb\fc|", false},
    };
    for (const auto& row : rows) {
        const options::TOptionWords split = SplitIntoWords(row.Text);
        EXPECT_EQ(Barred(split.Words), row.Words) << row.Label;
        EXPECT_EQ(split.EndsInQuotes, row.EndsInQuotes) << row.Label;
    }
}

TEST(OptionWords, OfAPlusListAreSeparatedByPlusOutsideQuotes) {
    EXPECT_EQ(Barred(SplitAtPlus("")), "|");
    EXPECT_EQ(Barred(SplitAtPlus("+++")), "|");
    EXPECT_EQ(Barred(SplitAtPlus("a++b+")), "|a|b|");
    EXPECT_EQ(Barred(SplitAtPlus("M=\"a+b\"+N")), "|M=\"a+b\"|N|");
    EXPECT_EQ(Barred(SplitAtPlus("M=\"a+b")), "|M=\"a+b|");
}

TEST(OptionWords, LoseQuotesThatEncloseThemWhole) {
    struct {
        const char* Word;
        const char* Inside;
    } const rows[] = {
        {"\"-t ps\"", "-t ps"}, {"\"\"", ""},         {"-t", "-t"},
        {"\"a\"b", "\"a\"b"},   {"a\"b\"", "a\"b\""}, {"\"a\"b\"c\"", "\"a\"b\"c\""},
        {"\"", "\""},           {"\"a", "\"a"},       {"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(WithoutEnclosingQuotes(row.Word), row.Inside) << row.Word;
}
