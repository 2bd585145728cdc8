#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

namespace {

TBuildPlan MakeSoftware() {
    TBuildPlan plan = MakePlanOf(LANGUAGE_CPLUSPLUS, "/p/src/a b.cpp");
    plan.Sources.push_back({"/p/top.sc", LANGUAGE_SYSTEMC, "work", false, {}});
    plan.Settings.resize(2);
    plan.Settings[0].Language = LANGUAGE_CPLUSPLUS;
    plan.Settings[0].IncludeDirectories = {"/p/inc"};
    plan.Settings[0].Options[STEP_ANALYSE] = {"-std=c++20", "-DX=\"1\""};
    plan.Settings[0].Options[STEP_ELABORATE] = {"-lm"};
    plan.Settings[1].Language = LANGUAGE_SYSTEMC;
    return plan;
}

}  // namespace

TEST(CompileCommands, CompileEachSourceInTheFolderOfTheFile) {
    EXPECT_EQ(Exported("compile-commands", MakeSoftware()),
              "compile-commands has no words for the elaboration option -lm\n"
              "[\n"
              "  {\n"
              "    \"directory\": \"/p\",\n"
              "    \"arguments\": [\n"
              "      \"c++\",\n"
              "      \"-Iinc\",\n"
              "      \"-std=c++20\",\n"
              "      \"-DX=\\\"1\\\"\",\n"
              "      \"-c\",\n"
              "      \"src/a b.cpp\"\n"
              "    ],\n"
              "    \"file\": \"src/a b.cpp\"\n"
              "  },\n"
              "  {\n"
              "    \"directory\": \"/p\",\n"
              "    \"arguments\": [\n"
              "      \"c++\",\n"
              "      \"-x\",\n"
              "      \"c++\",\n"
              "      \"-c\",\n"
              "      \"top.sc\"\n"
              "    ],\n"
              "    \"file\": \"top.sc\"\n"
              "  }\n"
              "]\n");
}

TEST(CompileCommands, NameTheBuildsFolderWithWholePaths) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_CPLUSPLUS, "/q/a.cpp");
    EXPECT_EQ(Exported("compile-commands", plan, nullptr, ""),
              "[\n"
              "  {\n"
              "    \"directory\": \"/p\",\n"
              "    \"arguments\": [\n"
              "      \"c++\",\n"
              "      \"-c\",\n"
              "      \"/q/a.cpp\"\n"
              "    ],\n"
              "    \"file\": \"/q/a.cpp\"\n"
              "  }\n"
              "]\n");
}

TEST(CompileCommands, AreEmptyForOtherLanguages) {
    EXPECT_EQ(Exported("compile-commands", MakePlanOf(LANGUAGE_VHDL, "/p/a.vhd")),
              "compile-commands has no words for sources in VHDL\n"
              "[]\n");
}
