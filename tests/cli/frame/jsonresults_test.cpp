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
