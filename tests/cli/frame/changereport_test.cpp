#include "cli/frame/changereport.h"
#include "cli/frame/jsonresults.h"
#include <gtest/gtest.h>
#include <sstream>

namespace {

/// What a run with a save of the given outcome gave: the exit status, how often it saved, and both
/// streams.
std::string Change(const TState& before, const TState& after, const TCommonArguments& arguments,
                   const std::string& outcome = "") {
    std::ostringstream out;
    std::ostringstream err;
    int saves = 0;
    const int status = SaveChange({MakeResult("f"), "p\n.hpj", before, after}, arguments,
                                  {out, err}, [&] { return ++saves, outcome; });
    return std::to_string(status) + " " + std::to_string(saves) + "\n" + out.str() + err.str();
}

TCommonArguments Arguments(bool isJson, bool isDryRun) {
    TCommonArguments arguments;
    arguments.Json = isJson;
    arguments.DryRun = isDryRun;
    return arguments;
}

const TState kBefore = {{"one", 1}, {"a\nb", "x\ny"}, {"left", 0}};
const TState kAfter = {{"one", 1}, {"a\nb", TJson()}, {"new", 0}};

}  // namespace

TEST(ChangeReport, PrintsWhatBothStatesHaveAndDiffers) {
    EXPECT_EQ(Change(kBefore, kAfter, Arguments(false, false)),
              "0 1\na\\nb: \"x\\ny\" -> none\np\\n.hpj: saved\n");
    EXPECT_EQ(Change(kBefore, kAfter, Arguments(false, true)),
              "0 0\na\\nb: \"x\\ny\" -> none\np\\n.hpj: not saved (dry run)\n");
    EXPECT_EQ(Change(kAfter, kAfter, Arguments(false, false)),
              "0 0\np\\n.hpj: nothing to change\n");
}

TEST(ChangeReport, PrintsTheDifferenceOfTheFileInADryRun) {
    const auto print = [](const TState& after, bool isJson, bool isDryRun) {
        std::ostringstream out;
        const TFileChange change{MakeResult("f"), "p", {{"a", 1}}, after, "-\t\x1B\r\n+b\n"};
        SaveChange(change, Arguments(isJson, isDryRun), {out, out}, [] { return ""; });
        return out.str();
    };
    EXPECT_EQ(print({{"a", 2}}, false, true),
              "a: 1 -> 2\np: not saved (dry run)\n-\t\\x1B\r\n+b\n");
    EXPECT_EQ(print({{"a", 2}}, false, false), "a: 1 -> 2\np: saved\n");
    EXPECT_EQ(print({{"a", 2}}, true, true),
              "{\n  \"format\": \"f\",\n  \"version\": 1,\n  \"changes\": [\n    {\n"
              "      \"what\": \"a\",\n      \"before\": 1,\n      \"after\": 2\n    }\n  ],\n"
              "  \"saved\": false,\n  \"diff\": \"-\\t\\u001b\\r\\n+b\\n\"\n}\n");
}

TEST(ChangeReport, PrintsOneJsonObject) {
    EXPECT_EQ(Change(kBefore, kAfter, Arguments(true, false)),
              "0 1\n{\n  \"format\": \"f\",\n  \"version\": 1,\n  \"changes\": [\n    {\n"
              "      \"what\": \"a\\nb\",\n      \"before\": \"x\\ny\",\n"
              "      \"after\": null\n    }\n  ],\n  \"saved\": true\n}\n");
}

TEST(ChangeReport, ReportsASaveThatFails) {
    EXPECT_EQ(Change(kBefore, kAfter, Arguments(true, false), "no space"),
              "3 1\nhdlbuild: error: p\\n.hpj: no space\n");
}
