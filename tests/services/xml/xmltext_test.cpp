#include "services/xml/xmltext.h"

#include <gtest/gtest.h>

#include <string>

TEST(XMLText, ConvertsOnlyTheBytesThatAreNotUtf8) {
    struct Row {
        const char* Label;
        std::string Text, Converted;
    };
    const Row rows[] = {
        {"ASCII", "abc", "abc"},
        {"UTF-8 of two to four bytes", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80",
         "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {"one byte among them", "\xC3\xA4\xE4\xC3\xA4", "\xC3\xA4\xC3\xA4\xC3\xA4"},
        {"cut sequence", "\xE2\x82", "\xC3\xA2\xE2\x80\x9A"},
        {"overlong", "\xC0\xAF", "\xC3\x80\xC2\xAF"},
        {"overlong of three", "\xE0\x80\xAF", "\xC3\xA0\xE2\x82\xAC\xC2\xAF"},
        {"surrogate", "\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},
        {"beyond the last", "\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC"},
        {"lone tail", "\x80", "\xE2\x82\xAC"},
        {"behind eight plain bytes", "abcdefgh\xE4", "abcdefgh\xC3\xA4"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ToUtf8(row.Text), row.Converted) << row.Label;
        EXPECT_EQ(IsUtf8(row.Text), row.Text == row.Converted) << row.Label;
        EXPECT_TRUE(IsUtf8(row.Converted)) << row.Label;
    }
}

TEST(XMLText, LooksAtEachOfEightBytes) {
    for (std::size_t i = 0; i < 8; ++i) {
        std::string foreign = "abcdefgh", converted = "abcdefgh", forbidden = "abcdefgh";
        foreign[i] = '\xE4';
        converted.replace(i, 1, "\xC3\xA4");
        forbidden[i] = '\x1F';
        EXPECT_FALSE(IsUtf8(foreign)) << i;
        EXPECT_EQ(ToUtf8(foreign), converted);
        EXPECT_EQ(FindForbiddenCharacter(forbidden), i);
    }
}

TEST(XMLText, FindsTheCharactersThatXMLCannotHold) {
    struct Row {
        std::string Text;
        std::size_t Place;
        const char* Description;
    };
    const Row rows[] = {
        {std::string("ab\0c", 4), 2, "U+0000"},
        {"abcdefghijklmnop\x1F", 16, "U+001F"},
        {"\x0B", 0, "U+000B"},
        {"abc\x1F with seven others", 3, "U+001F"},
        {"x\xEF\xBF\xBE", 1, "U+FFFE"},
        {"\xEF\xBF\xBE with others", 0, "U+FFFE"},
        {"abcdefgh\xEF\xBF\xBF", 8, "U+FFFF"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FindForbiddenCharacter(row.Text), row.Place) << row.Description;
        EXPECT_EQ(DescribeCharacter(row.Text, row.Place), row.Description);
    }
    for (const char* allowed :
         {"", "\t\n\r", "\x7F", "\xC2\x80", "\xEF\xBF\xBD", "\xF0\x9F\x98\x80"})
        EXPECT_EQ(FindForbiddenCharacter(allowed), std::string::npos) << allowed;
}

TEST(XMLText, DescribesCharactersOfEveryLength) {
    EXPECT_EQ(DescribeCharacter("\x7F", 0), "U+007F");
    EXPECT_EQ(DescribeCharacter("\xDF\xBF", 0), "U+07FF");
    EXPECT_EQ(DescribeCharacter("\xEF\xBF\xBD", 0), "U+FFFD");
    EXPECT_EQ(DescribeCharacter("\xF0\x9F\x98\x80", 0), "U+1F600");
}

TEST(XMLText, TellsPlainTextFromTextThatIsPrintedInAnotherWay) {
    for (const char* plain :
         {"", "a", "a path/to a 'file'.vhd", "~ =;!()[]{}#$%*+,-.:?@^_`|", "0123456"})
        EXPECT_TRUE(IsPlainXMLText(plain)) << plain;
    // Each such byte at each place of texts shorter and longer than a step.
    const std::string_view others("&<>\"\t\n\r\0\x01\x1F\x80\xC3\xFF", 13);
    for (std::size_t length = 1; length < 40; ++length)
        for (std::size_t place = 0; place < length; ++place)
            for (const char other : others) {
                std::string text(length, '~');
                text[place] = other;
                EXPECT_FALSE(IsPlainXMLText(text)) << length << " " << place << " " << int{other};
            }
    for (int c = 0x20; c < 0x80; ++c) {
        const bool isPlain =
            std::string_view("&<>\"").find(static_cast<char>(c)) == std::string::npos;
        EXPECT_EQ(IsPlainXMLText(std::string(20, static_cast<char>(c))), isPlain) << c;
    }
}
