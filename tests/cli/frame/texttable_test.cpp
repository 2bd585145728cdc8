#include "cli/frame/texttable.h"
#include <gtest/gtest.h>
#include <sstream>

TEST(TextTable, PadsColumnsToWhatIsPrinted) {
    std::ostringstream out;
    PrintTable({{"NAME", "PATH", "LAST"}, {"a\nb\t", "", "c\n"}, {"", "/x/y", ""}}, out);
    EXPECT_EQ(out.str(),
              "NAME    PATH  LAST\n"
              "a\\nb\\t  -     c\\n\n"
              "-       /x/y  -\n");
}

TEST(TextTable, MarksTheCurrentName) {
    std::ostringstream out;
    PrintNames({"a", "b\nc"}, "b\nc", out);
    EXPECT_EQ(out.str(), "  a\n* b\\nc\n");
}
