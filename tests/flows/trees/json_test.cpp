#include "flows/trees/json.h"
#include <gtest/gtest.h>

TEST(Json, PrintsEveryKindOfValueIndented) {
    const TJson value = {{"none", TJson()},
                         {"yes", true},
                         {"number", -7},
                         {"size", std::size_t{8}},
                         {"text", "a \"b\""},
                         {"texts", std::vector<std::string>{"x", "y"}},
                         {"nothing", TJson::Array()},
                         {"empty", TJson::Object()},
                         {"map", std::map<std::string, std::string>{{"A", "1"}}}};
    EXPECT_EQ(value.Dump(1),
              "{\n"
              " \"none\": null,\n"
              " \"yes\": true,\n"
              " \"number\": -7,\n"
              " \"size\": 8,\n"
              " \"text\": \"a \\\"b\\\"\",\n"
              " \"texts\": [\n"
              "  \"x\",\n"
              "  \"y\"\n"
              " ],\n"
              " \"nothing\": [],\n"
              " \"empty\": {},\n"
              " \"map\": {\n"
              "  \"A\": \"1\"\n"
              " }\n"
              "}");
}

TEST(Json, AddsMembersAndEntriesToNull) {
    TJson value;
    value["b"] = 1;
    value["a"].Add("x");
    value["a"].Add(TJson());
    value["b"] = 2;
    EXPECT_EQ(value.Dump(), "{\"b\":2,\"a\":[\"x\",null]}");
    const TJson& constant = value;
    EXPECT_TRUE(constant["c"].IsNull());
    EXPECT_EQ(value.Dump(), "{\"b\":2,\"a\":[\"x\",null]}");
}

TEST(Json, ComparesValuesWithTheirKinds) {
    EXPECT_EQ(TJson("1"), TJson("1"));
    EXPECT_FALSE(TJson("1") == TJson(1));
    EXPECT_FALSE(TJson(true) == TJson(1));
    EXPECT_FALSE(TJson() == TJson::Array());
    EXPECT_EQ(TJson({{"a", 1}}), TJson({{"a", 1}}));
    EXPECT_FALSE(TJson({{"a", 1}}) == TJson({{"a", 2}}));
}

TEST(Json, GivesTheTextOfAValue) {
    TJson list = TJson::Array();
    EXPECT_EQ(list.Text(), "");
    list.Add("a b");
    list.Add(2);
    EXPECT_EQ(list.Text(), "a b, 2");
    EXPECT_EQ(TJson("a \"b\"").Text(), "a \"b\"");
    EXPECT_EQ(TJson(false).Text(), "false");
    EXPECT_EQ(TJson().Text(), "null");
}

TEST(Json, TakesMembersThatDifferWithoutLooking) {
    TJson tree;
    tree.AddMember("a", 1);
    tree.AddMember("b", "x");
    EXPECT_EQ(tree.Dump(), "{\"a\":1,\"b\":\"x\"}");
}
