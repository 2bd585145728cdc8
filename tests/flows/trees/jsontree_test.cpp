#include "tests/flows/trees/readtree.h"
#include <gtest/gtest.h>

namespace {

std::string Json(const std::string& text) {
    return ReadText(ReadJsonTree, text);
}

}  // namespace

TEST(JsonTree, HasEveryKindOfValueWithItsPlace) {
    EXPECT_EQ(Json("{\"a\": [1, -2.5e3,\n  true, null, \"x\\\"\xC3\xA4\", \"\"],\r\n \"b\": {}}"),
              "1:1 map\n"
              "  1:7 a (1:2) list\n"
              "    1:8 integer 1\n"
              "    1:11 real -2.5e3\n"
              "    2:3 boolean true\n"
              "    2:9 null\n"
              "    2:15 text x\"\xC3\xA4\n"
              "    2:24 text\n"
              "  3:7 b (3:2) map\n");
    EXPECT_EQ(Json("\xEF\xBB\xBF 7"), "1:2 integer 7\n");
}

TEST(JsonTree, TellsWhatIsWrongAndWhere) {
    const struct {
        const char* Text;
        const char* Fault;
    } rows[] = {
        {"",
         "1:1: syntax error while parsing value - unexpected end of input; expected '[', "
         "'{', or a literal"},
        {"{\"a\": 1,\n \"b\": [1,\n 2,, 3]}",
         "3:4: syntax error while parsing value - unexpected ','; expected '[', '{', or a "
         "literal"},
        {"[1] 2",
         "1:5: syntax error while parsing value - unexpected number literal; expected end of "
         "input"},
        {"{\"a\": 1, \"b\": {\"a\": 2}, \"a\": 3}", "1:25: the key \"a\" is there a second time"},
        {"[9223372036854775807, 9223372036854775808]",
         "1:23: the number 9223372036854775808 is out of range"},
        {"[-9223372036854775809]", "1:2: the number -9223372036854775809 is out of range"},
        {"[99999999999999999999]", "1:2: the number 99999999999999999999 is out of range"},
        {"[1e999]", "1:6: number overflow parsing '1e999'"},
        {"[\"a\\u0000b\"]", "1:2: a text with the character U+0000"},
        {"{\"\\u0000\": 1}", "1:2: a text with the character U+0000"},
        {"[\"\xFF\"]",
         "1:3: syntax error while parsing value - invalid string: ill-formed UTF-8 byte; last "
         "read: '\"\xFF'"},
    };
    for (const auto& row : rows) EXPECT_EQ(Json(row.Text), row.Fault) << row.Text;
}

TEST(JsonTree, IsNoDeeperThanItMayBe) {
    const std::string deep(kDeepestTree, '[');
    std::string lists;
    for (std::size_t depth = 0; depth < kDeepestTree; ++depth)
        lists += std::string(2 * depth, ' ') + "1:" + std::to_string(depth + 1) + " list\n";
    EXPECT_EQ(Json(deep + "1" + std::string(kDeepestTree, ']')),
              lists + std::string(2 * kDeepestTree, ' ') + "1:65 integer 1\n");
    EXPECT_EQ(Json(deep + "[]" + std::string(kDeepestTree, ']')),
              "1:65: more than 64 values lie in each other");
    EXPECT_EQ(Json(std::string(1'000'000, '[')), "1:65: more than 64 values lie in each other");
}
