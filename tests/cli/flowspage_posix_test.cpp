#include "tests/cli/sensorsexample.h"
#include "tests/cli/shell.h"
#include <gtest/gtest.h>

namespace {

/// What a page of the documentation has people type, and what it says that they see.
struct TRecipe {
    std::string Heading;
    std::string Script;
    std::string Output;
};

std::vector<TRecipe> ReadRecipes(const std::string& path) {
    std::ifstream stream(path);
    std::vector<TRecipe> recipes;
    std::string heading;
    bool isInside = false;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with("### ")) heading = line.substr(4);
        if (line == "```sh") recipes.push_back({heading, "", ""});
        if (line.starts_with("```"))
            isInside = line == "```sh";
        else if (isInside && line.starts_with("#> "))
            recipes.back().Output += line.substr(3) + "\n";
        else if (isInside)
            recipes.back().Script += line + "\n";
    }
    return recipes;
}

bool HasTools(const std::string& script) {
    for (const char* const tool : {"ghdl", "iverilog", "verilator", "make"})
        if (script.find("\n" + std::string(tool) + " ") != std::string::npos && !IsInstalled(tool))
            return false;
    return true;
}

/// In place of Bender, which no system packages: prints what Bender does of a manifest whose
/// sources are one list.
constexpr const char* kBender = R"(#!/bin/sh
test "$*" = 'sources -f' || exit 1
printf '[\n  {\n    "package": "sensors",\n    "independent": false,\n    "include_dirs": [\n'
printf '      "%s"\n    ],\n    "defines": {},\n    "files": [\n' "$PWD/verilog/include"
sed -n "s|^  - \(.*\)|      \"$PWD/\1\"|p" Bender.yml | sed '$!s/$/,/'
printf '    ],\n    "dependencies": [],\n    "version": null\n  }\n]\n'
)";

}  // namespace

TEST(FlowsPage, HasRecipesThatDoWhatItSays) {
    const std::filesystem::path program(HDLBUILD_PROGRAM);
    const std::vector<TRecipe> recipes = ReadRecipes(HDLBUILDFILE_SOURCE_DIR "/docs/flows.md");
    EXPECT_GE(recipes.size(), 9u);
    for (const TRecipe& recipe : recipes) {
        SCOPED_TRACE(recipe.Heading);
        EXPECT_LE(std::count(recipe.Script.begin(), recipe.Script.end(), '\n'), 5);
        if (!HasTools(recipe.Script)) continue;
        const SensorsExample example;
        std::filesystem::create_directory("standins");
        std::ofstream("standins/bender") << kBender;
        std::filesystem::permissions("standins/bender", std::filesystem::perms::owner_all);
        std::ofstream("recipe") << "set -e\nPATH=" << program.parent_path().string()
                                << ":$PATH:$PWD/standins\n"
                                << recipe.Script;
        // What is told of losses goes to standard error.
        EXPECT_EQ(Shell("sh ./recipe 2>errors || { cat errors; false; }"),
                  std::make_pair(0, recipe.Output));
    }
}
