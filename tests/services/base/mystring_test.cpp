#include "services/base/mystring.h"
#include <gtest/gtest.h>
#include <memory>

namespace {

std::vector<std::string> WordsOf(const TMyString& text, char separator) {
    TMyString* words = nullptr;
    const int count = text.WordSplit(&words, separator);
    const std::unique_ptr<TMyString[]> owner(words);
    std::vector<std::string> result;
    for (int i = 0; i < count; ++i) result.push_back(words[i].Str());
    return result;
}

}  // namespace

TEST(MyString, IsMadeFromTextsAndTellsThem) {
    EXPECT_EQ(TMyString().Str(), "");
    EXPECT_EQ(TMyString(static_cast<const char*>(nullptr)).Str(), "");
    EXPECT_EQ(TMyString(std::string("a\0b", 3)).Length(), 3u);
    EXPECT_EQ(TMyString(std::string_view("abc").substr(1)).Str(), "bc");
    EXPECT_TRUE(TMyString("").IsEmpty());
    EXPECT_FALSE(TMyString(" ").IsEmpty());
    const TMyString text("fifo");
    const char* pointer = text;
    EXPECT_STREQ(pointer, "fifo");
    EXPECT_EQ(pointer, text.c_str());
}

TEST(MyString, Concatenates) {
    TMyString text("a");
    text += "b";
    text += TMyString("c");
    text += static_cast<const char*>(nullptr);
    EXPECT_EQ(text.Str(), "abc");
    text += text;
    text += text.c_str();
    EXPECT_EQ(text.Str(), "abcabcabcabc");
    EXPECT_EQ((TMyString("a") + TMyString("b") + "c").Str(), "abc");
    EXPECT_EQ(("a" + TMyString("b")).Str(), "ab");
}

TEST(MyString, ComparesTextsExactly) {
    EXPECT_TRUE(TMyString("a") == TMyString("a"));
    EXPECT_FALSE(TMyString("a") == TMyString("A"));
    EXPECT_TRUE(TMyString("a") == "a");
    EXPECT_TRUE(TMyString("") == static_cast<const char*>(nullptr));
    EXPECT_TRUE(TMyString("a") != "b");
    EXPECT_TRUE(TMyString("a") < TMyString("b"));
    EXPECT_FALSE(TMyString("b") < TMyString("a"));
}

TEST(MyString, TrimsWhiteSpaceOrOneCharacterAtBothEnds) {
    struct Row {
        const char* label;
        const char* text;
        char c;
        const char* trimmed;
    };
    const Row rows[] = {
        {"white space", " \t\n\v\f\ra b\r\f\v\n\t ", 0, "a b"},
        {"all white space", " \t ", 0, ""},
        {"empty", "", 0, ""},
        {"bytes beyond ASCII stay", "\xA0\xE4 ", 0, "\xA0\xE4"},
        {"one character", "//a/b//", '/', "a/b"},
        {"all that character", "///", '/', ""},
        {"white space stays beside a character", " /a/ ", '/', " /a/ "},
        {"empty with a character", "", '/', ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        for (const int ends : {0, 1, 2}) {
            TMyString text(row.text);
            text.Trim(ends, row.c);
            EXPECT_EQ(text.Str(), row.trimmed);
        }
    }
}

TEST(MyString, LowersAsciiLettersOnly) {
    TMyString text("ABCxyzXYZ@[`{09\xC3\x84");
    text.toLower();
    EXPECT_EQ(text.Str(), "abcxyzxyz@[`{09\xC3\x84");
}

TEST(MyString, FindsTexts) {
    const TMyString text("one two one");
    EXPECT_EQ(text.Index("one"), 0);
    EXPECT_EQ(text.Index("two"), 4);
    EXPECT_EQ(text.Index("TWO"), -1);
    EXPECT_EQ(text.Index(""), 0);
    EXPECT_EQ(text.Index(nullptr), 0);
    EXPECT_EQ(TMyString().Index("a"), -1);
    EXPECT_EQ(TMyString().Index(""), 0);
}

TEST(MyString, FindsCharactersFromAPositionOn) {
    struct Row {
        char c;
        int position;
        int place;
    };
    const Row rows[] = {{'-', 0, 1},  {'-', 1, 1},  {'-', 2, 3},     {'-', 3, 3}, {'-', 4, -1},
                        {'x', 0, -1}, {'-', -5, 1}, {'-', 1000, -1}, {'a', 0, 0}, {'c', 4, 4}};
    for (const auto& row : rows)
        EXPECT_EQ(TMyString("a-b-c").FindCharAfterPos(row.c, row.position), row.place)
            << row.c << " from " << row.position;
}

TEST(MyString, SubStrClips) {
    const TMyString text("v2v-switch");
    EXPECT_EQ(text.SubStr(4, 6).Str(), "switch");
    EXPECT_EQ(text.SubStr(4, 1000).Str(), "switch");
    EXPECT_EQ(text.SubStr(0, 3).Str(), "v2v");
    EXPECT_EQ(text.SubStr(10, 1).Str(), "");
    EXPECT_EQ(text.SubStr(11, 1).Str(), "");
    EXPECT_EQ(text.SubStr(static_cast<unsigned>(-1), 5).Str(), "");
    EXPECT_EQ(text.SubStr(2, 0).Str(), "");
}

TEST(MyString, WordSplitDropsEmptyWords) {
    using TWords = std::vector<std::string>;
    EXPECT_EQ(WordsOf("a b c", ' '), (TWords{"a", "b", "c"}));
    EXPECT_EQ(WordsOf("  a   b ", ' '), (TWords{"a", "b"}));
    EXPECT_EQ(WordsOf("a", ' '), (TWords{"a"}));
    EXPECT_EQ(WordsOf("a;b c;;", ';'), (TWords{"a", "b c"}));
    EXPECT_EQ(WordsOf("", ' '), (TWords{}));
    EXPECT_EQ(WordsOf("   ", ' '), (TWords{}));
}

TEST(MyString, WordSplitGivesNullWithoutWords) {
    TMyString other;
    TMyString* words = &other;
    EXPECT_EQ(TMyString("  ").WordSplit(&words, ' '), 0);
    EXPECT_EQ(words, nullptr);
    EXPECT_EQ(TMyString("a b").WordSplit(nullptr, ' '), 2);
}
