#include "flows/graph/graphtext.h"
#include <gtest/gtest.h>

TEST(GraphText, ShowsNamesInEveryFormat) {
    const struct {
        const char* Label;
        std::string Name;
        const char* Shown;
        const char* Dot;
        const char* Json;
        const char* Html;
    } rows[] = {
        {"empty", "", "", "\"\"", "\"\"", ""},
        {"plain", "rtl/a.vhd", "rtl/a.vhd", "\"rtl/a.vhd\"", "\"rtl/a.vhd\"", "rtl/a.vhd"},
        {"quotes", "a\"b'c", "a\"b'c", R"("a\"b'c")", R"("a\"b'c")", "a&quot;b'c"},
        {"backslash", "a\\nb\\", "a\\nb\\", R"("a\\nb\\")", R"("a\\nb\\")", "a\\nb\\"},
        {"end of script", "</script><!--", "</script><!--", R"("</script><!--")",
         R"("\u003c/script>\u003c!--")", "&lt;/script>&lt;!--"},
        {"entity", "a&lt;b&", "a&lt;b&", R"("a&amp;lt;b&amp;")", R"("a&lt;b&")", "a&amp;lt;b&amp;"},
        {"UTF-8", "gr\xC3\xB6\xC3\x9F\xE2\x82\xAC\xF0\x9F\x98\x80", "größ€😀", "\"größ€😀\"",
         "\"größ€😀\"", "größ€😀"},
        {"controls", std::string("a\n\t\x1B\x7F") + '\0', "a␊␉␛␡␀", "\"a␊␉␛␡␀\"", "\"a␊␉␛␡␀\"",
         "a␊␉␛␡␀"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ShownText(row.Name), row.Shown) << row.Label;
        EXPECT_EQ(DotText(row.Name), row.Dot) << row.Label;
        EXPECT_EQ(JsonText(row.Name), row.Json) << row.Label;
        EXPECT_EQ(HtmlText(row.Name), row.Html) << row.Label;
    }
}

TEST(GraphText, ReplacesWhatIsNoUtf8) {
    const struct {
        const char* Label;
        const char* Name;
        const char* Shown;
    } rows[] = {
        {"Latin-1", "gr\xF6\xDF", "gr\uFFFD\uFFFD"},
        {"upper control", "a\xC2\x85z", "a\uFFFD\uFFFDz"},
        {"too long", "\xC0\xAF", "\uFFFD\uFFFD"},
        {"surrogate", "\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
        {"beyond Unicode", "\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"cut", "a\xE2\x82", "a\uFFFD\uFFFD"},
        {"cut by another", "\xE2\x82(", "\uFFFD\uFFFD("},
        {"no XML character", "\xEF\xBF\xBF", "\uFFFD\uFFFD\uFFFD"},
        {"first and last", "\xC2\xA0 \xF4\x8F\xBF\xBF", "\xC2\xA0 \xF4\x8F\xBF\xBF"},
    };
    for (const auto& row : rows) EXPECT_EQ(ShownText(row.Name), row.Shown) << row.Label;
}

// Graphviz takes 16384 bytes at most between two quotes.
TEST(GraphText, PartsLongStringsOfGraphvizBetweenCharacters) {
    const std::string dots(2047, '.');
    EXPECT_EQ(DotText(dots + "ab"), "\"" + dots + "a\" + \"b\"");
    EXPECT_EQ(DotText(dots + "\xC3\xBC"), "\"" + dots + "\" + \"\xC3\xBC\"");
    EXPECT_EQ(DotText(dots + "a"), "\"" + dots + "a\"");
}
