#include "tests/flows/trees/readtree.h"
#include <gtest/gtest.h>

namespace {

std::string Toml(const std::string& text) {
    return ReadText(ReadTomlTree, text);
}

/// `text`, repeated.
std::string Times(std::size_t count, const std::string& text) {
    std::string repeated;
    for (std::size_t at = 0; at < count; ++at) repeated += text;
    return repeated;
}

}  // namespace

TEST(TomlTree, HasValuesWithTheirPlacesInTheOrderOfTheFile) {
    EXPECT_EQ(Toml("standard = \"2008\"\n[libraries]\n"
                   "b.files = [\"\xC3\xA4\", 'C:\\x', 0x1F, 1.5, true]\na = {}\n"),
              "1:1 map\n"
              "  1:12 standard (1:1) text 2008\n"
              "  2:1 libraries (2:2) map\n"
              "    3:1 b (3:1) map\n"
              "      3:11 files (3:3) list\n"
              "        3:12 text \xC3\xA4\n"
              "        3:18 text C:\\x\n"
              "        3:26 integer 31\n"
              "        3:32 real 1.500000\n"
              "        3:37 boolean true\n"
              "    4:5 a (4:1) map\n");
}

TEST(TomlTree, TellsWhatIsWrongAndWhere) {
    const struct {
        const char* Text;
        const char* Fault;
    } rows[] = {
        {"a = 1\na = 2\n",
         "2:5: Error while parsing key-value pair: cannot redefine existing integer 'a'"},
        {"a = 99999999999999999999\n",
         "1:25: Error while parsing decimal integer: '99999999999999999999' is not representable "
         "in 64 bits"},
        // Some of them the library has no answer for.
        {"s = \"\"\"\nx\n\"\"\"\nb\xCF\x89 = 1\n",
         "4:2: a character that is not ASCII, outside of texts and comments"},
        {"\"\xC3\xA4\" = \xC2\xA0 1\n",
         "1:8: a character that is not ASCII, outside of texts and comments"},
        {"a = \"x\\u0000y\"\n", "1:5: a text with the character U+0000"},
        {"a = 2020-01-01\n", "1:5: dates and times have no meaning here"},
        {"\"\xC3\xA4\" = [1,,2]\n",
         "1:11: Error while parsing array: expected value or closing ']', saw comma"},
        {"a = \"\xFF\"\n", "1:5: Encountered invalid utf-8 sequence"},
        {"[>\n",
         "1:2: Error while parsing key: expected bare key starting character or string delimiter, "
         "saw '>'"},
        {"a = \"x\n",
         "1:7: Error while parsing string: unescaped control characters other than TAB (U+0009) "
         "are explicitly prohibited"},
    };
    for (const auto& row : rows) EXPECT_EQ(Toml(row.Text), row.Fault) << row.Text;
}

TEST(TomlTree, IsNoDeeperThanItMayBe) {
    EXPECT_EQ(Toml("# x\na = 1\nb" + Times(100'000, ".b") + " = 1"),
              "3:1: a key of more than 64 parts");
    EXPECT_EQ(Toml("a = \"" + Times(100, "a.") + "\" # " + Times(100, "a.") + "\nb" +
                   Times(65, ". \"=\" ") + " = 1"),
              "2:1: a key of more than 64 parts");
    EXPECT_EQ(Toml("a = " + Times(1000, "[")),
              "1:69: Error while parsing value: exceeded maximum nested value depth of 64 "
              "(TOML_MAX_NESTED_VALUES)");
    const std::string inner = "{a" + Times(63, ".a") + " = ";
    EXPECT_EQ(Toml("a = " + Times(60, inner) + "1" + Times(60, "}")),
              "1:130: more than 64 values lie in each other");
}

// As many printers write: all in one line.
TEST(TomlTree, TellsPlacesWithinLongLines) {
    const std::string wide = Times(1000, "\"\xC3\xA4\", ");
    EXPECT_EQ(Toml("a = [" + wide + "x]\n"),
              "1:6006: Error while parsing value: could not determine value type");
    EXPECT_EQ(Toml("a = [1]\nb = [" + wide + "{c = 1, d.e = 2, c = 3}]\n"),
              "2:6027: Error while parsing key-value pair: cannot redefine existing integer 'c'");
    EXPECT_EQ(Toml("b = [" + Times(300, "2020-01-01,") + "]\n"),
              "1:6: dates and times have no meaning here");
    EXPECT_EQ(Toml("\"" + Times(300, "\xC3\xA4") + "\".c = 2020-01-01 # \xC3\xA4\n"),
              "1:608: dates and times have no meaning here");
}
