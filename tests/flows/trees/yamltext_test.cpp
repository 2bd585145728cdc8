#include "flows/trees/yamltext.h"
#include <gtest/gtest.h>

TEST(YamlText, PrintsEveryKindOfValueInBlocks) {
    const TJson value = {{"none", TJson()},
                         {"yes", true},
                         {"number", -7},
                         {"text", "a \"b\""},
                         {"texts", std::vector<std::string>{"x", "y"}},
                         {"nothing", TJson::Array()},
                         {"empty", TJson::Object()},
                         {"map", TJson({{"A", "1"}})}};
    EXPECT_EQ(YamlText(value),
              "none: ~\n"
              "\"yes\": true\n"
              "number: -7\n"
              "text: \"a \\\"b\\\"\"\n"
              "texts:\n"
              "  - x\n"
              "  - \"y\"\n"
              "nothing:\n"
              "  []\n"
              "empty:\n"
              "  {}\n"
              "map:\n"
              "  A: \"1\"");
}

TEST(YamlText, QuotesWhatReadsAsSomethingElse) {
    const struct {
        const char* Text;
        const char* Printed;
    } rows[] = {
        {"a/b-c_d.vhd", "a/b-c_d.vhd"},
        {"", "\"\""},
        {"12", "\"12\""},
        {"1e3", "\"1e3\""},
        {"Null", "\"Null\""},
        {"OFF", "\"OFF\""},
        {"~", "\"~\""},
        {"a: b", "\"a: b\""},
        {"a #b", "\"a #b\""},
        {"- a", "\"- a\""},
        {"*a", "\"*a\""},
        {"C:\\a", "\"C:\\\\a\""},
        {"a\nb\tc", "\"a\\nb\\tc\""},
        {"\xC3\xA4", "\"\xC3\xA4\""},
        {"\x7F", "\"\\x7f\""},
    };
    for (const auto& row : rows) EXPECT_EQ(YamlText(TJson(row.Text)), row.Printed);
}

TEST(YamlText, KnowsCodePointsThatAreNoCharacters) {
    const struct {
        const char* Text;
        bool IsHeld;
    } rows[] = {
        {"a\n\x7F", true},          {"\xC3\xA4", true},           {"\xEF\xBF\xBD", true},
        {"\xF0\x9F\x98\x80", true}, {"\xE2\xBF\xBE", true},       {"\xEF\xBF\xBE", false},
        {"\xEF\xB7\x90", false},    {"a\xF0\x9F\xBF\xBF", false},
    };
    for (const auto& row : rows) EXPECT_EQ(IsYamlText(row.Text), row.IsHeld) << row.Text;
}
