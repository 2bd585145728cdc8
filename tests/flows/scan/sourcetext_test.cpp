#include "flows/scan/sourcetext.h"
#include <gtest/gtest.h>

TEST(SourceText, MeasuresACharacter) {
    const struct {
        std::string_view Text;
        std::size_t Length;
    } rows[] = {
        {"", 0},
        {"ab", 1},
        {"\xC3\xA4x", 2},
        {"\xE2\x82\xAC", 3},
        {"\xF0\x9D\x84\x9E", 4},
        {"\xC3", 0},              // cut
        {"\xE2\x82", 0},          // cut
        {"\xF0\x9D\x84", 0},      // cut
        {"\xC3x", 0},             // no tail
        {"\xA4", 0},              // no head
        {"\xC1\x81", 0},          // overlong
        {"\xE0\x9F\xBF", 0},      // overlong
        {"\xF0\x8F\xBF\xBF", 0},  // overlong
        {"\xED\xA0\x80", 0},      // a surrogate
        {"\xF4\x90\x80\x80", 0},  // beyond the last
    };
    for (const auto& row : rows) EXPECT_EQ(LengthOfUtf8Character(row.Text), row.Length) << row.Text;
}

TEST(SourceText, IsUtf8OrTakenForLatin1) {
    EXPECT_TRUE(IsUtf8Text("Z\xC3\xA4hler"));
    EXPECT_FALSE(IsUtf8Text("Z\xE4hler"));
    EXPECT_EQ(Latin1ToUtf8("Z\xE4hler\xFF"), "Z\xC3\xA4hler\xC3\xBF");
    EXPECT_EQ(LengthOfByteOrderMark("\xEF\xBB\xBFx"), 3u);
    EXPECT_EQ(LengthOfByteOrderMark("\xEF\xBB"), 0u);
}
