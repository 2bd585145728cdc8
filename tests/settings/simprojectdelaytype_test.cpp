#include "settings/simprojectdelaytype.h"
#include <gtest/gtest.h>

TEST(SimProjectDelayType, HasTheTextsOfTheIniFile) {
    EXPECT_STREQ(GetDelayTypeFromEnum(DELAY_TYPE_MINIMUM), "min");
    EXPECT_STREQ(GetDelayTypeFromEnum(DELAY_TYPE_TYPICAL), "typical");
    EXPECT_STREQ(GetDelayTypeFromEnum(DELAY_TYPE_MAXIMUM), "max");
    EXPECT_STREQ(GetDelayTypeFromEnum(static_cast<TSimProjectDelayType>(3)), "typical");
    EXPECT_STREQ(GetDelayTypeFromEnum(static_cast<TSimProjectDelayType>(-1)), "typical");
}

TEST(SimProjectDelayType, IsReadExactlyAndElseTypical) {
    EXPECT_EQ(ParseDelayType("min"), 0);
    EXPECT_EQ(ParseDelayType("typical"), 1);
    EXPECT_EQ(ParseDelayType("max"), 2);
    for (const char* text : {"Min", "MAX", " max", "maximum", "2", ""})
        EXPECT_EQ(ParseDelayType(text), 1) << text;
    EXPECT_EQ(ParseDelayType(nullptr), 1);
}
