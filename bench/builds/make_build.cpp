// Makes a build file and the sources that it lists.
#include "bench/builds/generatedbuild.h"
#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <map>

namespace {

struct TArguments {
    std::string Folder;
    bool NoSources = false;
    std::vector<std::string> Languages;
    TGeneratedBuildOptions Build;
};

/// "VHDL=4": the language and its weight, which is 1 when none is given.
TLanguageShare ParseShare(const std::string& text) {
    const auto equals = text.find('=');
    if (equals == std::string::npos) return {text, 1};
    return {text.substr(0, equals),
            static_cast<std::uint32_t>(std::strtoul(text.c_str() + equals + 1, nullptr, 10))};
}

std::string CheckShare(const std::string& text) {
    const TLanguageShare share = ParseShare(text);
    const auto languages = GetGeneratedLanguages();
    if (std::find(languages.begin(), languages.end(), share.Language) == languages.end())
        return "unknown language: " + share.Language;
    return share.Weight ? "" : "the weight of a language is a number above 0: " + text;
}

void AddOptions(CLI::App* app, TArguments* arguments) {
    std::map<std::string, TShape> shapes;
    for (const TShapeName& row : kShapeNames) shapes[row.Name] = row.Shape;
    TGeneratedBuildOptions& build = arguments->Build;
    app->add_option("--out", arguments->Folder, "folder for build.xml and the sources")->required();
    app->add_option("--files", build.Files, "number of sources")->check(CLI::Range(1, 1000000));
    app->add_option("--shape", build.Shape, "random, chain, diamond or layered")
        ->transform(CLI::CheckedTransformer(shapes));
    app->add_option("--deps", build.Dependencies, "dependencies of a source")
        ->check(CLI::Range(0, 1000));
    app->add_option("--seed", build.Seed, "another seed, another build of the same kind");
    app->add_option("--languages", arguments->Languages, "with weights, as VHDL=4,Verilog=1")
        ->delimiter(',')
        ->check(CheckShare);
    app->add_option("--missing", build.Missing, "so many sources are listed, but not made");
    app->add_flag("--no-sources", arguments->NoSources, "make the build file alone");
}

bool Write(const TArguments& arguments) {
    const TGeneratedBuild build(arguments.Build);
    const std::filesystem::path folder = arguments.Folder;
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!arguments.NoSources && !build.WriteSources(folder)) return false;
    // Last, so that a build file says that all its sources are there.
    std::ofstream document(folder / "build.xml", std::ios::binary);
    build.WriteDocument(document);
    const auto bytes = document.tellp();
    if (!document.flush()) return false;
    std::cout << "{\"files\": " << build.GetFileCount()
              << ", \"dependencies\": " << build.GetDependencyCount() << ", \"bytes\": " << bytes
              << "}\n";
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Makes a build file and the sources that it lists.");
    TArguments arguments;
    AddOptions(&app, &arguments);
    CLI11_PARSE(app, argc, argv);
    if (!arguments.Languages.empty()) arguments.Build.Languages.clear();
    for (const std::string& text : arguments.Languages)
        arguments.Build.Languages.push_back(ParseShare(text));
    if (Write(arguments)) return 0;
    std::cerr << "make_build: cannot write to " << arguments.Folder << "\n";
    return 1;
}
