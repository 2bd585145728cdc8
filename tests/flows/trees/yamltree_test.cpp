#include "flows/trees/yamltext.h"
#include "tests/flows/trees/readtree.h"
#include <gtest/gtest.h>

namespace {

std::string Yaml(const std::string& text) {
    return ReadText(ReadYamlTree, text);
}

}  // namespace

TEST(YamlTree, HasEveryKindOfValueWithItsPlace) {
    EXPECT_EQ(Yaml("a: [1, 0x1F, -1.5, yes, \"no\", ~, 1.2.3, '']\nb:\n  - c: !!str 7\n    d:\n"
                   "  - |\n    e\n    f\n"),
              "1:1 map\n"
              "  1:4 a (1:1) list\n"
              "    1:5 integer 1\n"
              "    1:8 integer 0x1F\n"
              "    1:14 real -1.5\n"
              "    1:20 boolean yes\n"
              "    1:25 text no\n"
              "    1:31 null\n"
              "    1:34 text 1.2.3\n"
              "    1:41 text\n"
              "  3:3 b (2:1) list\n"
              "    3:5 map\n"
              "      3:8 c (3:5) text 7\n"
              "      5:3 d (4:5) null\n"
              "    5:5 text e\nf\n\n");
    EXPECT_EQ(Yaml(""), "1:1 null\n");
    EXPECT_EQ(Yaml("CAPI=2:\nname: x\n"),
              "1:1 map\n  2:1 CAPI=2 (1:1) null\n  2:7 name (2:1) text x\n");
}

TEST(YamlTree, CopiesWhatAnAliasStandsFor) {
    EXPECT_EQ(Yaml("a: &x {b: 1}\nc: *x\nd: [*x]\n"),
              "1:1 map\n"
              "  1:4 a (1:1) map\n"
              "    1:11 b (1:8) integer 1\n"
              "  2:4 c (2:1) map\n"
              "    1:11 b (1:8) integer 1\n"
              "  3:4 d (3:1) list\n"
              "    3:5 map\n"
              "      1:11 b (1:8) integer 1\n");
}

TEST(YamlTree, TellsWhatIsWrongAndWhere) {
    const struct {
        const char* Text;
        const char* Fault;
    } rows[] = {
        {"a: 1\nb: 2\na: 3\n", "3:1: the key \"a\" is there a second time"},
        {"a: [1\nb: 2\n", "2:2: end of sequence flow not found"},
        {"\t- x", "1:2: illegal block entry"},
        {"a: &a [*a]\n", "1:8: an alias stands within what it stands for"},
        {"a: *b\n", "1:4: the referenced anchor is not defined"},
        {"a: !!python/object x\n",
         "1:4: the tag tag:yaml.org,2002:python/object has no meaning here"},
        {"<<: {a: 1}\n", "1:1: maps are not merged here"},
        {"? [a]\n: b\n", "1:3: a key is no single value"},
        {"a: &b 1\n*b : 2\n", "2:1: an alias is no key"},
        {"~: b\n", "1:1: a value has no key"},
        {"a: !!set [b]\n", "1:4: the tag tag:yaml.org,2002:set has no meaning here"},
        {"a: 99999999999999999999\n", "1:4: the number 99999999999999999999 is out of range"},
        {"a: 1e999\n", "1:4: the number 1e999 is out of range"},
        {"a: 1\n---\nb: 2\n", "2:1: a second document"},
        {"a: \"x\\0y\"\n", "1:4: a text with the character U+0000"},
    };
    for (const auto& row : rows) EXPECT_EQ(Yaml(row.Text), row.Fault) << row.Text;
}

TEST(YamlTree, IsNoLargerThanItMayBe) {
    std::string text = "a0: &a0 [x,x,x,x,x,x,x,x,x,x]\n";
    for (int level = 1; level < 12; ++level) {
        const std::string alias = "*a" + std::to_string(level - 1);
        text += "a" + std::to_string(level) + ": &a" + std::to_string(level) + " [" + alias;
        for (int copy = 1; copy < 10; ++copy) text += ", " + alias;
        text += "]\n";
    }
    EXPECT_EQ(text.size(), 693);
    EXPECT_EQ(Yaml(text), "5:5: more than 200043 values");
    EXPECT_EQ(Yaml(std::string(65, '[') + std::string(65, ']')),
              "1:65: more than 64 values lie in each other");
    // As deep as it may be, in a list of its own.
    EXPECT_EQ(Yaml("[&a " + std::string(63, '[') + std::string(63, ']') + ", [*a]]"),
              "1:134: more than 64 values lie in each other");
}

// Each anchor keeps what is in it, those of inner ones included.
TEST(YamlTree, KeepsNoMoreForAnchorsThanItMayHold) {
    std::string text = "a: &a [x,x,x,x,x,x,x,x,x,x]\nb: &b [";
    for (int copy = 0; copy < 1000; ++copy) text += "*a,";
    text += "]\nc: ";
    for (int level = 0; level < 60; ++level) text += "&c" + std::to_string(level) + " [";
    for (int copy = 0; copy < 10; ++copy) text += "*b,";
    text += std::string(60, ']') + "\n";
    EXPECT_EQ(text.size(), 3481);
    EXPECT_EQ(Yaml(text), "3:348: more than 200217 values");
}

// The parser tells of a list in a list when it has met the end of both.
TEST(YamlTree, IsNotHandedMoreThanTheParserMayKeep) {
    const auto repeated = [](int count, const char* text) {
        std::string all;
        for (int copy = 0; copy < count; ++copy) all += text;
        return all;
    };
    EXPECT_EQ(Yaml("\n[[" + repeated(250'000, "x,") + "]]"),
              "2:265624: more than 132812 values in brackets that lie in each other");
    EXPECT_EQ(Yaml("\n" + repeated(250'000, "[x,")),
              "2:205078: more than 136718 values in brackets that lie in each other");
    // One more than it may keep of a text of that size.
    EXPECT_EQ(Yaml("[[" + repeated(129'031, "x,") + "]]"),
              "1:258064: more than 129032 values in brackets that lie in each other");
    EXPECT_EQ(Yaml("[[" + repeated(129'030, "x,") + "]]").substr(0, 30),
              "1:1 list\n  1:2 list\n    1:3 te");
    // Texts may have more, and what was told of does not count.
    const std::string commas = "'" + repeated(100'000, ",") + "'";
    EXPECT_EQ(Yaml("a: " + commas + "\nb: " + commas + "\nc: []\n"),
              "1:1 map\n  1:4 a (1:1) text " + repeated(100'000, ",") + "\n  2:4 b (2:1) text " +
                  repeated(100'000, ",") + "\n  3:4 c (3:1) list\n");
    // A list by itself is told of at once, up to the value that is one too many.
    EXPECT_EQ(Yaml("a: [" + repeated(250'000, "x,") + "]"), "1:462501: more than 231250 values");
}

TEST(YamlTree, ReadsWhatIsPrinted) {
    for (const char* const text :
         {"",         "a b",  "12", "1e3",      "yes",      "null",
          "~",        "a: b", "#a", "- a",      "*a",       "&a",
          "C:\\a",    "\"",   "'",  "a\nb\t\r", "\xC3\xA4", "\xF0\x9F\x98\x80",
          "\x7F\x01", "<<",   "!x", "%a",       "@",        "`"}) {
        TTree tree;
        TTreeFault fault;
        ASSERT_TRUE(ReadYamlTree(YamlText({{text, text}}), &tree, &fault)) << text;
        ASSERT_EQ(tree.Values.size(), 1u) << text;
        EXPECT_EQ(tree.Values[0].Key, text);
        EXPECT_EQ(tree.Values[0].Text, text);
        EXPECT_EQ(tree.Values[0].Kind, TREE_TEXT) << text;
    }
}
