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

TEST(CompileCommands, TellWhatTheyHaveNoWordsFor) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_SYSTEMC, "/d\xFF/-z.cpp");
    plan.Folder = "/d\xFF/";
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_SYSTEMC;
    plan.Settings[0].LibraryDirectories = {"/d/lib"};
    plan.Settings[0].Options[STEP_ANALYSE] = {"-DA=\xFF"};
    const std::string text = Exported("compile-commands", plan, nullptr, "/d\xFF/");
    EXPECT_EQ(text.substr(0, text.find("[\n")),
              "compile-commands cannot hold the name \"-DA=\xFF\": it is no UTF-8\n"
              "compile-commands cannot hold the name \"/d\xFF\": it is no UTF-8\n"
              "compile-commands has no words for library directories\n");
}

TEST(CompileCommands, TakeNoNameForAnOption) {
    EXPECT_EQ(Exported("compile-commands", MakePlanOf(LANGUAGE_CPLUSPLUS, "/p/-z.cpp")),
              "[\n"
              "  {\n"
              "    \"directory\": \"/p\",\n"
              "    \"arguments\": [\n"
              "      \"c++\",\n"
              "      \"-c\",\n"
              "      \"./-z.cpp\"\n"
              "    ],\n"
              "    \"file\": \"-z.cpp\"\n"
              "  }\n"
              "]\n");
}

TEST(CompileCommands, KeepTheDelimiterOfARoot) {
    for (const std::string folder : {"/", "C:/"}) {
        TBuildPlan plan = MakePlanOf(LANGUAGE_CPLUSPLUS, folder + "a.cpp");
        plan.Folder = folder;
        const std::string text = Exported("compile-commands", plan, nullptr, folder);
        const std::size_t from = text.find("\"directory\"");
        EXPECT_EQ(text.substr(from, text.find('\n', from) - from),
                  "\"directory\": \"" + folder + "\",");
    }
}

TEST(CompileCommands, MayBeOfNoFolder) {
    TBuildPlan plan;
    plan.Sources = {{"/p/a.cpp", LANGUAGE_CPLUSPLUS, "main", false, {}}};
    EXPECT_EQ(Exported("compile-commands", plan, nullptr, ""),
              "[\n"
              "  {\n"
              "    \"directory\": \"\",\n"
              "    \"arguments\": [\n"
              "      \"c++\",\n"
              "      \"-c\",\n"
              "      \"/p/a.cpp\"\n"
              "    ],\n"
              "    \"file\": \"/p/a.cpp\"\n"
              "  }\n"
              "]\n");
}
