#include "flows/scan/vhdlkeywords.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <string>

TEST(VhdlKeywords, AreEachFoundInAnyCase) {
    int count = 0;
    for (int number = 1; number <= static_cast<int>(TVhdlKeyword::Xor); ++number) {
        const auto keyword = static_cast<TVhdlKeyword>(number);
        std::string name(GetVhdlKeywordName(keyword));
        EXPECT_EQ(FindVhdlKeyword(name), keyword) << name;
        std::transform(name.begin(), name.end(), name.begin(),
                       [](char c) { return static_cast<char>(c - 'a' + 'A'); });
        EXPECT_EQ(FindVhdlKeyword(name), keyword) << name;
        EXPECT_EQ(FindVhdlKeyword(name + "x"), TVhdlKeyword::None) << name;
        ++count;
    }
    EXPECT_EQ(count, 97);
}

TEST(VhdlKeywords, AreNoneOfThese) {
    for (const char* word : {"", "a", "i", "iss", "context", "protected", "default", "property",
                             "force", "x123456789012345", "configurations"})
        EXPECT_EQ(FindVhdlKeyword(word), TVhdlKeyword::None) << word;
}

TEST(VhdlKeywords, HaveTheirNames) {
    EXPECT_EQ(FindVhdlKeyword("entity"), TVhdlKeyword::Entity);
    EXPECT_EQ(FindVhdlKeyword("configuration"), TVhdlKeyword::Configuration);
    EXPECT_EQ(FindVhdlKeyword("is"), TVhdlKeyword::Is);
    EXPECT_EQ(FindVhdlKeyword("xor"), TVhdlKeyword::Xor);
    EXPECT_EQ(GetVhdlKeywordName(TVhdlKeyword::None), "");
}
