#include "cli/frame/jsonresults.h"
#include <gtest/gtest.h>
#include <sstream>

TEST(JsonResults, PrintsForeignBytesAsReplacementCharacters) {
    std::ostringstream out;
    std::ostringstream err;
    PrintJson({{"path", "a\xff.v"}, {"next", "\"\\\n\x01"}}, {out, err});
    EXPECT_EQ(out.str(),
              "{\n"
              "  \"path\": \"a\xEF\xBF\xBD.v\",\n"
              "  \"next\": \"\\\"\\\\\\n\\u0001\"\n"
              "}\n");
}

// Valid JSON all the same.
TEST(JsonResults, PrintsNothingThatATerminalTakesForACommand) {
    std::ostringstream out;
    std::ostringstream err;
    PrintJson(
        {{"path", "a\x7F.v\xC2\x80\xC2\x9B[2J\xC2\x9F"}, {"next", "\xC2\xA0\xC3\x84\xE2\x82\xAC"}},
        {out, err});
    EXPECT_EQ(out.str(),
              "{\n"
              "  \"path\": \"a\\u007f.v\\u0080\\u009b[2J\\u009f\",\n"
              "  \"next\": \"\xC2\xA0\xC3\x84\xE2\x82\xAC\"\n"
              "}\n");
}
