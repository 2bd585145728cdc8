#include "flows/formats/tomltext.h"
#include <gtest/gtest.h>

TEST(TomlText, EscapesWhatABasicStringCannotHold) {
    EXPECT_EQ(TomlText(""), "\"\"");
    EXPECT_EQ(TomlText("a b\xC3\xA4'"), "\"a b\xC3\xA4'\"");
    EXPECT_EQ(TomlText("\"\\\n\x1F\x7F"), "\"\\\"\\\\\\u000A\\u001F\\u007F\"");
}
