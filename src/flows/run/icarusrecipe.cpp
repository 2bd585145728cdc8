#include "flows/plan/planoptions.h"
#include "flows/run/recipes.h"
#include "flows/run/runrecipe.h"
#include "flows/run/verilogwords.h"

namespace {

using TWords = TRunRecipe::TWords;

/// What Icarus Verilog is called with.
class TIcarusRecipe {
public:
    explicit TIcarusRecipe(TRunRecipe* recipe) : Recipe(*recipe) {}

    void AddSteps() {
        Recipe.RefuseQuotes();
        for (const TPlanStep step : {STEP_ANALYSE, STEP_ELABORATE})
            Append(Recipe.OptionsOf(step, kWordsOfIcarus), &CompileOptions);
        RunOptions = Recipe.OptionsOf(STEP_RUN, kWordsWithPlus);
        if (!Recipe.GetWishes().Seed.empty()) Recipe.Lose("a seed");
        for (const TBuildTop* const top : Recipe.ListTops()) AddTop(*top);
    }

private:
    void AddTop(const TBuildTop& top) {
        const std::string image = Recipe.PathOf("images/" + Recipe.NameOf(top) + ".vvp");
        const std::string waves = Recipe.WavesOf(top, "vcd");
        TStepRecord compilation;
        compilation.Commands = {CompilationOf(top, image + ".part", waves)};
        compilation.Folder = Recipe.PathOf("images");
        compilation.Moves = {{image + ".part", image}};
        compilation.Products = {image};
        const std::size_t step = Recipe.AddCompilation(top, "compile", std::move(compilation));
        if (Recipe.GetWishes().OnlyCompile) return;
        TWords words = Recipe.Call("vvp");
        Append({"-n", image}, &words);
        Append(RunOptions, &words);
        Append(Recipe.GetWishes().Arguments, &words);
        TStepRecord simulation;
        simulation.Commands = {std::move(words)};
        Recipe.AddCompiledSimulation(top, std::move(simulation), step, waves);
    }

    TWords CompilationOf(const TBuildTop& top, const std::string& image, const std::string& waves) {
        TWords words = Recipe.Call("iverilog");
        Append({"-o", image, "-s", PlainNameOf(top), DelayOption()}, &words);
        if (const char* const word = FindIcarusWord(Recipe.GetPlan())) words.emplace_back(word);
        Append(CompileOptions, &words);
        AppendDefines(Recipe, &words);
        AppendDirectories(&words);
        for (const TScanDefine& generic : Recipe.GetWishes().Generics)
            words.push_back("-P" + PlainNameOf(top) + "." + generic.Name + "=" + generic.Value);
        AppendLibraryFiles(Recipe, "-l", &words);
        AppendSources(Recipe, &words);
        if (!waves.empty()) AddWaves(top, waves, &words);
        return words;
    }

    std::string DelayOption() const {
        const TSimProjectDelayType delay = Recipe.GetSettings().Delay;
        if (delay == DELAY_TYPE_MINIMUM) return "-Tmin";
        return delay == DELAY_TYPE_MAXIMUM ? "-Tmax" : "-Ttyp";
    }

    void AppendDirectories(TWords* words) const {
        const TPlanSettings& settings = Recipe.GetSettings();
        for (const std::string& directory : settings.IncludeDirectories)
            words->push_back("-I" + directory);
        for (const std::string& directory : settings.LibraryDirectories)
            words->push_back("-y" + directory);
        for (const std::string& extension : settings.LibraryExtensions)
            words->push_back("-Y" + extension);
    }

    // A second top writes them: the sources need not know.
    void AddWaves(const TBuildTop& top, const std::string& waves, TWords* words) {
        const std::string file = Recipe.PathOf("images/" + Recipe.NameOf(top) + "-waves.v");
        Recipe.AddFile(file, "module hdlbuild_waves;\n  initial begin\n    $dumpfile(" +
                                 QuotedText(waves) + ");\n    $dumpvars(0, " + top.Entity +
                                 ");\n  end\nendmodule\n");
        Append({"-s", "hdlbuild_waves", file}, words);
    }

    TRunRecipe& Recipe;
    TWords CompileOptions, RunOptions;
};

}  // namespace

void AddIcarusSteps(TRunRecipe* recipe) {
    TIcarusRecipe(recipe).AddSteps();
}
