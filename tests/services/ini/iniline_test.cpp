#include "services/ini/iniline.h"
#include <gtest/gtest.h>

namespace {

/// Every line as "kind name|text|end", a line each.
std::string LinesOf(std::string_view text) {
    static constexpr const char* kKinds[] = {"section ", "key ", "other "};
    std::string lines;
    while (!text.empty()) {
        const TIniLine line = TakeIniLine(&text);
        lines += kKinds[static_cast<int>(line.Kind)];
        lines.append(line.Name).append("|").append(line.Text).append("|");
        for (const char c : line.End) lines += c == '\r' ? "CR" : "LF";
        lines += "\n";
    }
    return lines;
}

}  // namespace

TEST(IniLine, IsCutAtEveryKindOfLineEnd) {
    EXPECT_EQ(LinesOf("a=1\r\nb=2\rc=3\nd=4"),
              "key a|a=1|CRLF\nkey b|b=2|CR\nkey c|c=3|LF\nkey d|d=4|\n");
    EXPECT_EQ(LinesOf("\n\r\n"), "other ||LF\nother ||CRLF\n");
}

TEST(IniLine, IsASectionAKeyOrNeither) {
    const struct {
        const char* Line;
        const char* Expected;
    } rows[] = {
        {" [a b] ", "section a b"},
        {"[a]b]x", "section a]b"},
        {"[]", "section "},
        {"[a", "other "},
        {" k = v = w", "key k"},
        {"=v", "other "},
        {"k", "other "},
        {"; k=v", "other "},
        {"# k=v", "other "},
    };
    for (const auto& row : rows)
        EXPECT_EQ(LinesOf(row.Line), row.Expected + std::string("|") + row.Line + "|\n");
}

TEST(IniLine, KeepsTheEndsOfValuesInQuotes) {
    const struct {
        const char* Value;
        const char* Stored;
    } rows[] = {
        {"", ""},     {"a b", "a b"}, {" a", "\" a\""}, {"a\t", "\"a\t\""}, {"\"a\"", "\"\"a\"\""},
        {"\"", "\""}, {"a\"", "a\""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(StoredIniValue(row.Value), row.Stored);
        EXPECT_EQ(ValueFromIni(row.Stored), row.Value);
    }
}

TEST(IniLine, KeepsAPercentSignWithoutTwoDigitsInAName) {
    const struct {
        const char* Stored;
        const char* Name;
    } rows[] = {
        {"\"%1G\"", "%1G"}, {"\"%G1\"", "%G1"}, {"\"%1\"", "%1"},
        {"\"%\"", "%"},     {"\"%41%\"", "A%"}, {"\"%%41\"", "%A"},
    };
    for (const auto& row : rows) EXPECT_EQ(NameFromIni(row.Stored), row.Name) << row.Stored;
}

TEST(IniLine, LosesTheByteOrderMarkOnly) {
    EXPECT_EQ(WithoutByteOrderMark("\xEF\xBB\xBF[a]"), "[a]");
    EXPECT_EQ(WithoutByteOrderMark("\xEF\xBB"), "\xEF\xBB");
}
