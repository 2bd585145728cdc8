#include "services/xml/unifieddiff.h"

#include <gtest/gtest.h>

namespace {

struct DiffRow {
    const char* Label;
    std::string Text;
    std::vector<TTextEdit> Edits;
    std::string Expected;  // behind the head lines
};

constexpr const char* kTwelve = "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n";

}  // namespace

TEST(UnifiedDiff, ShowsWholeLinesWithThreeLinesAround) {
    const std::vector<DiffRow> rows = {
        {"a line changes",
         kTwelve,
         {{8, 1, "five"}},
         "@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+five\n 6\n 7\n 8\n"},
        {"a line comes behind another",
         kTwelve,
         {{9, 0, "\nnew"}},
         "@@ -3,6 +3,7 @@\n 3\n 4\n 5\n+new\n 6\n 7\n 8\n"},
        {"a line comes at the beginning",
         kTwelve,
         {{0, 0, "new\n"}},
         "@@ -1,3 +1,4 @@\n+new\n 1\n 2\n 3\n"},
        {"a line goes", kTwelve, {{8, 2, ""}}, "@@ -2,7 +2,6 @@\n 2\n 3\n 4\n-5\n 6\n 7\n 8\n"},
        {"lines come at the end",
         kTwelve,
         {{27, 0, "13\n14"}},
         "@@ -10,3 +10,5 @@\n 10\n 11\n 12\n+13\n+14\n\\ No newline at end of file\n"},
        {"six lines between",
         kTwelve,
         {{2, 1, "x"}, {16, 1, "y"}},
         "@@ -1,12 +1,12 @@\n 1\n-2\n+x\n 3\n 4\n 5\n 6\n 7\n 8\n-9\n+y\n 10\n 11\n 12\n"},
        {"seven lines between",
         kTwelve,
         {{2, 2, ""}, {18, 2, "y\nz"}},
         "@@ -1,5 +1,4 @@\n 1\n-2\n 3\n 4\n 5\n@@ -7,6 +6,7 @@\n 7\n 8\n 9\n-10\n+y\n+z\n 11\n"
         " 12\n"},
        {"two edits of a line, and of the next",
         kTwelve,
         {{0, 0, "a"}, {1, 0, "b"}, {2, 1, "c"}},
         "@@ -1,5 +1,5 @@\n-1\n-2\n+a1b\n+c\n 3\n 4\n 5\n"},
        {"no line end",
         "a\nb",
         {{3, 0, "\nc"}},
         "@@ -1,2 +1,3 @@\n a\n-b\n\\ No newline at end of file\n+b\n+c\n"
         "\\ No newline at end of file\n"},
        {"from nothing", "", {{0, 0, "a\n"}}, "@@ -0,0 +1 @@\n+a\n"},
        {"to nothing", "a\n", {{0, 2, ""}}, "@@ -1 +0,0 @@\n-a\n"},
        {"CR LF", "a\r\nb\r\n", {{3, 1, "c"}}, "@@ -1,2 +1,2 @@\n a\r\n-b\r\n+c\r\n"},
    };
    for (const DiffRow& row : rows)
        EXPECT_EQ(MakeUnifiedDiff(row.Text, row.Edits, "f"), "--- f\n+++ f\n" + row.Expected)
            << row.Label;
}

TEST(UnifiedDiff, IsEmptyWithoutAChange) {
    EXPECT_EQ(MakeUnifiedDiff(kTwelve, {}, "f"), "");
    EXPECT_EQ(MakeUnifiedDiff(kTwelve, {{2, 1, "2"}}, "f"), "");
}
