#include "flows/run/recipes.h"
#include "flows/run/runrecipe.h"
#include "flows/run/verilogwords.h"

namespace {

using TWords = TRunRecipe::TWords;

/// What Verilator is called with, and the program that it makes.
class TVerilatorRecipe {
public:
    explicit TVerilatorRecipe(TRunRecipe* recipe) : Recipe(*recipe) {}

    void AddSteps() {
        for (const TPlanStep step : {STEP_ANALYSE, STEP_ELABORATE})
            Append(Recipe.OptionsOf(step, kWordsOfVerilator), &CompileOptions);
        RunOptions = Recipe.OptionsOf(STEP_RUN, kWordsWithPlus);
        if (Recipe.GetSettings().Delay != DELAY_TYPE_TYPICAL) Recipe.Lose("the choice of delays");
        if (Recipe.GetWishes().FailOn == LEVEL_FAILURE)
            Recipe.Lose("errors that do not end a simulation");
        if (IsOld()) Recipe.Lose("delays before version 5");
        const std::string& folder = Recipe.GetWishes().Folder;
        if (!Recipe.GetWishes().OnlyCompile && folder.find(' ') != std::string::npos)
            Recipe.Refuse(folder, "make takes no blanks; choose another folder with --output");
        for (const TBuildTop* const top : Recipe.ListTops()) AddTop(*top);
    }

private:
    // Since version 5 it makes a program by itself and obeys delays.
    bool IsOld() const {
        const auto version = Recipe.GetWishes().Versions.find("verilator");
        return version != Recipe.GetWishes().Versions.end() && version->second > 0 &&
               version->second < 5;
    }
    bool HasWaves() const { return Recipe.GetWishes().Waves && !Recipe.GetWishes().OnlyCompile; }

    // What make leaves half done is not built upon: the folder is made anew.
    void AddTop(const TBuildTop& top) {
        const bool checks = Recipe.GetWishes().OnlyCompile;  // and leaves the program alone
        const std::string folder =
            Recipe.PathOf((checks ? "lint/" : "objects/") + Recipe.NameOf(top));
        const std::string waves = Recipe.WavesOf(top, "vcd");
        TStepRecord compilation;
        compilation.Commands = {CompilationOf(top, waves)};
        compilation.FreshFolders = {folder};
        compilation.Folder = folder;
        if (checks) {
            Recipe.AddCompilation(top, "lint", std::move(compilation));
            return;
        }
        compilation.Products = {folder + "/simulation"};
        const std::size_t step = Recipe.AddCompilation(top, "compile", std::move(compilation));
        TWords words = Recipe.GetWishes().Launcher;
        words.push_back(folder + "/simulation");
        if (!Recipe.GetWishes().Seed.empty())
            words.push_back("+verilator+seed+" + Recipe.GetWishes().Seed);
        Append(RunOptions, &words);
        Append(Recipe.GetWishes().Arguments, &words);
        TStepRecord simulation;
        simulation.Commands = {std::move(words)};
        Recipe.AddCompiledSimulation(top, std::move(simulation), step, waves);
    }

    // Its warnings are about style as well: they do not end the run. Its makefiles take no blanks
    // in the name of their folder, which is the current one therefore.
    TWords CompilationOf(const TBuildTop& top, const std::string& waves) {
        TWords words = Recipe.Call("verilator");
        if (Recipe.GetWishes().OnlyCompile)
            words.emplace_back("--lint-only");
        else if (IsOld())
            Append({"--cc", "--exe", "--build", "--prefix", "Vsimulation", "-o", "simulation"},
                   &words);
        else
            Append({"--binary", "-o", "simulation"}, &words);
        if (!IsOld()) words.emplace_back("--timing");
        Append({"--no-MMD", "--Mdir", ".", "-Wno-fatal", "--top-module",
                HasWaves() ? "hdlbuild_waves" : PlainNameOf(top)},
               &words);
        if (HasSystemVerilog(Recipe.GetPlan())) words.emplace_back("-sv");
        if (HasWaves()) words.emplace_back("--trace");
        Append(CompileOptions, &words);
        AppendDefines(Recipe, &words);
        AppendDirectories(&words);
        if (!HasWaves())
            for (const TScanDefine& generic : Recipe.GetWishes().Generics)
                words.push_back("-G" + generic.Name + "=" + generic.Value);
        AppendLibraryFiles(Recipe, "-v", &words);
        AppendSources(Recipe, &words);
        if (HasWaves()) AddWaves(top, waves, &words);
        if (IsOld() && !Recipe.GetWishes().OnlyCompile) AddMain(top, &words);
        return words;
    }

    // Without delays nothing changes behind what the initial blocks have brought about: an
    // evaluation settles all of it.
    void AddMain(const TBuildTop& top, TWords* words) {
        const std::string file = Recipe.PathOf("mains/" + Recipe.NameOf(top) + ".cpp");
        Recipe.AddFile(file,
                       "#include \"Vsimulation.h\"\n"
                       "#include \"verilated.h\"\n\n"
                       "double sc_time_stamp() { return 0; }\n\n"
                       "int main(int argc, char** argv) {\n"
                       "  Verilated::commandArgs(argc, argv);\n"
                       "  Verilated::traceEverOn(" +
                           std::string(HasWaves() ? "true" : "false") +
                           ");\n"
                           "  Vsimulation top;\n"
                           "  top.eval();\n"
                           "  top.final();\n"
                           "}\n");
        words->push_back(file);
    }

    void AppendDirectories(TWords* words) const {
        const TPlanSettings& settings = Recipe.GetSettings();
        for (const std::string& directory : settings.IncludeDirectories)
            words->push_back("-I" + directory);
        for (const std::string& directory : settings.LibraryDirectories)
            Append({"-y", directory}, words);
        std::string extensions;
        for (const std::string& extension : settings.LibraryExtensions)
            extensions += "+" + extension;
        if (!extensions.empty()) words->push_back("+libext" + extensions);
    }

    // Verilator takes one top: it stands in another, which writes the waves.
    void AddWaves(const TBuildTop& top, const std::string& waves, TWords* words) {
        std::string parameters;
        for (const TScanDefine& generic : Recipe.GetWishes().Generics)
            parameters +=
                (parameters.empty() ? "" : ", ") + ("." + generic.Name) + "(" + generic.Value + ")";
        const std::string file = Recipe.PathOf("waves/" + Recipe.NameOf(top) + ".v");
        Recipe.AddFile(file, "module hdlbuild_waves;\n  " + top.Entity +
                                 (parameters.empty() ? " " : " #(" + parameters + ") ") +
                                 "top();\n  initial begin\n    $dumpfile(" + QuotedText(waves) +
                                 ");\n    $dumpvars(0, top);\n  end\nendmodule\n");
        words->push_back(file);
    }

    TRunRecipe& Recipe;
    TWords CompileOptions, RunOptions;
};

}  // namespace

void AddVerilatorSteps(TRunRecipe* recipe) {
    TVerilatorRecipe(recipe).AddSteps();
}
