#include "flows/run/recipes.h"
#include "flows/run/runrecipe.h"

namespace {

using TWords = TRunRecipe::TWords;

/// What NVC is called with.
class TNvcRecipe {
public:
    explicit TNvcRecipe(TRunRecipe* recipe) : Recipe(*recipe) {}

    void AddSteps() {
        AnalysisOptions = Recipe.OptionsOf(STEP_ANALYSE, kWordsOfNvc);
        ElaborationOptions = Recipe.OptionsOf(STEP_ELABORATE, kWordsOfNvc);
        RunOptions = Recipe.OptionsOf(STEP_RUN, kWordsOfNvc);
        Recipe.LoseWhatIsOfVerilog();
        Recipe.AddAnalyses([this](const TPlanSource& source) { return AnalysisOf(source); });
        if (Recipe.GetWishes().OnlyCompile) return;
        for (const TBuildTop* const top : Recipe.ListTops()) AddSimulation(*top);
    }

private:
    // Each library is a folder of its name: they find each other beside their own.
    TWords Call(const std::string& library) const {
        TWords words = Recipe.Call("nvc");
        const std::string folder = Recipe.PathOf("libraries");
        Append({"--std=" + Recipe.GetVhdlStandard(), "-L", folder,
                "--work=" + library + ":" + folder + "/" + library},
               &words);
        return words;
    }

    TStepRecord AnalysisOf(const TPlanSource& source) const {
        TStepRecord record;
        TWords words = Call(source.Library);
        words.push_back("-a");
        Append(AnalysisOptions, &words);
        words.push_back(source.Path);
        record.Commands = {std::move(words)};
        record.Folder = Recipe.PathOf("libraries");
        return record;
    }

    // An elaborated design that is not saved leaves the library alone: simulations may run beside
    // each other.
    void AddSimulation(const TBuildTop& top) {
        TStepRecord record;
        const std::string unit =
            top.Architecture.empty() ? top.Entity : top.Entity + "-" + top.Architecture;
        TWords words = Call(top.Library);
        Append({"-e", "--jit", "--no-save"}, &words);
        for (const TScanDefine& generic : Recipe.GetWishes().Generics)
            words.push_back("-g" + generic.Name + "=" + generic.Value);
        Append(ElaborationOptions, &words);
        Append({unit, "-r"}, &words);
        Append(RunOptions, &words);
        const std::string waves = Recipe.WavesOf(top, "fst");
        if (!waves.empty()) words.push_back("--wave=" + waves);
        Append(Recipe.GetWishes().Arguments, &words);
        words.push_back(unit);
        record.Commands = {std::move(words)};
        Recipe.AddLibrarySimulation(top, std::move(record), waves);
    }

    TRunRecipe& Recipe;
    TWords AnalysisOptions, ElaborationOptions, RunOptions;
};

}  // namespace

void AddNvcSteps(TRunRecipe* recipe) {
    TNvcRecipe(recipe).AddSteps();
}
