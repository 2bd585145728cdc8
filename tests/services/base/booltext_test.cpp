#include "services/base/booltext.h"
#include <gtest/gtest.h>

TEST(BoolText, WritesTrueAndFalse) {
    EXPECT_STREQ(ConvertBooleanToStringBool(true), "true");
    EXPECT_STREQ(ConvertBooleanToStringBool(false), "false");
}

TEST(BoolText, ReadsTheFourTrueWordsAndTakesAllElseAsFalse) {
    struct Row {
        const char* text;
        bool value;
    };
    const Row rows[] = {
        {"true", true},   {"TRUE", true},       {"True", true},    {"yes", true},
        {"YES", true},    {"on", true},         {"On", true},      {"1", true},
        {" true", true},  {"\ttrue\r\n", true}, {"false", false},  {"no", false},
        {"off", false},   {"0", false},         {"", false},       {"   ", false},
        {nullptr, false}, {"2", false},         {"11", false},     {"t", false},
        {"truer", false}, {"tru e", false},     {"yes no", false}, {"-1", false},
        {"wahr", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ConvertStringBoolToBoolean(row.text), row.value)
            << (row.text ? row.text : "null");
}
