#include "cli/frame/texts.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

TEST(Texts, EscapeControlCharacters) {
    const struct {
        const char* Label;
        std::string Text;
        std::string Escaped;
    } rows[] = {
        {"nothing", "", ""},
        {"plain", "a b.vhd", "a b.vhd"},
        {"line ends", "a\nb\r\n", "a\\nb\\r\\n"},
        {"tabulator", "\ta", "\\ta"},
        {"zero", std::string("a\0b", 3), "a\\x00b"},
        {"terminal sequence", "\x1b[2J", "\\x1B[2J"},
        {"last of the low ones", "\x1f ", "\\x1F "},
        {"delete", "~\x7f", "~\\x7F"},
        {"first of the upper ones", "\xC2\x80", "\\u0080"},
        {"last of the upper ones", "\xC2\x9F", "\\u009F"},
        {"behind the upper ones", "\xC2\xA0", "\xC2\xA0"},
        {"letters with accents", "\xC3\x84\xC3\xA9", "\xC3\x84\xC3\xA9"},
        {"a byte of its own", "\x85", "\x85"},
        {"a lead byte at the end", "\xC2", "\xC2"},
        {"backslash", "a\\n", "a\\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(Escaped(row.Text), row.Escaped) << row.Label;
    EXPECT_EQ(Escaped("a\tb\n", "\t"), "a\tb\\n");
}

TEST(Texts, PrintLinesOfTextWordsAndFields) {
    std::ostringstream out;
    PrintLine(out, "a\tb\nc");
    PrintWords(out, "a\tb\nc");
    PrintFields(out, {"a\tb", "", "c\n"});
    PrintFields(out, {});
    PrintWithNul(out, "a\tb\n");
    EXPECT_EQ(out.str(),
              "a\\tb\\nc\n"
              "a\tb\\nc\n"
              "a\\tb\t\tc\\n\n"
              "\na\tb\n" +
                  std::string(1, '\0'));
}

TEST(Texts, JoinNamesAndChoices) {
    EXPECT_EQ(JoinNames({}), "");
    EXPECT_EQ(JoinNames({"a"}), "a");
    EXPECT_EQ(JoinNames({"", "b", "c"}), ", b, c");
    EXPECT_EQ(JoinChoices({}), "");
    EXPECT_EQ(JoinChoices({"a"}), "a");
    EXPECT_EQ(JoinChoices({"a", "b"}), "a or b");
    EXPECT_EQ(JoinChoices({"a", "b", "c"}), "a, b or c");
}

TEST(Texts, GivePathsRelativeToTheCurrentDirectory) {
    const WorkingFolder folder;
    TPathForm paths;
    EXPECT_EQ(PathText(folder.Path("a/b.v").c_str(), paths), "a/b.v");
    paths.Absolute = true;
    EXPECT_EQ(PathText(folder.Path("a/b.v").c_str(), paths), folder.Path("a/b.v"));
    EXPECT_EQ(PathText(static_cast<const ISFileName*>(nullptr), paths), "");
}

TEST(Texts, PrintTablesPaddedToWhatIsPrinted) {
    std::ostringstream out;
    PrintTable({{"NAME", "PATH", "LAST"}, {"a\nb\t", "", "c\n"}, {"", "/x/y", ""}}, out);
    EXPECT_EQ(out.str(),
              "NAME    PATH  LAST\n"
              "a\\nb\\t  -     c\\n\n"
              "-       /x/y  -\n");
}

TEST(Texts, PrintNamesAndMarkTheCurrentOne) {
    std::ostringstream out;
    PrintNames({"a", "b\nc"}, "b\nc", out);
    EXPECT_EQ(out.str(), "  a\n* b\\nc\n");
}
