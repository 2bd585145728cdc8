#include "flows/nearestnames.h"
#include <gtest/gtest.h>

TEST(NearestNames, TakeTheFewestEdits) {
    const struct {
        const char* Label;
        std::string Name;
        std::vector<std::string> Known;
        std::vector<std::string> Nearest;
    } rows[] = {
        {"letter missing", "ordr", {"show", "order"}, {"order"}},
        {"letter added", "oorder", {"show", "order"}, {"order"}},
        {"another letter", "prder", {"show", "order"}, {"order"}},
        {"neighbours exchanged", "hsow", {"show", "slow"}, {"show"}},
        {"two neighbours exchanged", "chekc", {"order", "check"}, {"check"}},
        {"other case", "vHdL", {"VHDLX", "VHDL", "VHDLY"}, {"VHDL"}},
        {"all of the fewest, in their order", "lisp", {"list", "lost", "lips"}, {"list", "lips"}},
        {"its beginning", "comm", {"command-file", "order", "comma"}, {"command-file", "comma"}},
        {"the beginning of none", "file", {"command-file"}, {}},
        {"one letter", "s", {"show", "x", "list", "set"}, {"show", "set"}},
        {"one of two letters", "-x", {"-r", "x"}, {}},
        {"one of three letters", "sat", {"set"}, {"set"}},
        {"two of five letters", "lists", {"lasso", "list-x"}, {}},
        {"two of six letters", "remove", {"remake", "move"}, {"remake", "move"}},
        {"no name", "", {"a", "ab"}, {}},
        {"no known names", "a", {}, {}},
        {"letters beyond ASCII are bytes", "\xC3\xA4o", {"\xC3\x84o", "\x83\xA4uu"}, {"\xC3\x84o"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(NearestNames(row.Name, row.Known), row.Nearest) << row.Label;
}

// Counting its edits would take hours.
TEST(NearestNames, AreNoneForAMuchLongerName) {
    const std::string name(std::size_t{1} << 22, 'a');
    const std::vector<std::string> known(50, name.substr(0, name.size() / 2));
    EXPECT_TRUE(NearestNames(name, known).empty());
}
