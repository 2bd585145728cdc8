#include "flows/run/recipes.h"
#include "flows/run/runrecipe.h"
#include <cctype>

namespace {

using TWords = TRunRecipe::TWords;

/// What GHDL is called with.
class TGhdlRecipe {
public:
    explicit TGhdlRecipe(TRunRecipe* recipe) : Recipe(*recipe) {
        const std::string& standard = Recipe.GetVhdlStandard();
        Years = standard.substr(standard.size() - 2);
    }

    void AddSteps() {
        Recipe.RefuseQuotes();
        AnalysisOptions = Recipe.OptionsOf(STEP_ANALYSE, kWordsOfGhdl);
        ElaborationOptions = Recipe.OptionsOf(STEP_ELABORATE, kWordsOfGhdl);
        RunOptions = Recipe.OptionsOf(STEP_RUN, kWordsOfGhdl);
        Recipe.LoseWhatIsOfVerilog();
        Recipe.AddAnalyses([this](const TPlanSource& source) { return AnalysisOf(source); });
        if (Recipe.GetWishes().OnlyCompile) return;
        for (const TBuildTop* const top : Recipe.ListTops()) AddSimulation(*top);
    }

private:
    // All libraries are in one folder: they find each other there.
    TWords Call(const char* verb, const std::string& library) const {
        TWords words = Recipe.Call("ghdl");
        const std::string folder = Recipe.PathOf("libraries");
        words.insert(words.end(), {verb, "--std=" + Years, "--workdir=" + folder, "-P" + folder,
                                   "--work=" + library});
        return words;
    }

    // GHDL rewrites the file of a library in place.
    std::string LibraryFile(std::string library) const {
        for (char& c : library) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        const bool isMiddle = Years == "00" || Years == "02";
        return Recipe.PathOf("libraries/" + library + "-obj" + (isMiddle ? "93" : Years) + ".cf");
    }

    TStepRecord AnalysisOf(const TPlanSource& source) const {
        TStepRecord record;
        TWords words = Call("-a", source.Library);
        Append(AnalysisOptions, &words);
        words.push_back(source.Path);
        record.Commands = {std::move(words)};
        record.Folder = Recipe.PathOf("libraries");
        record.GuardedFiles = {LibraryFile(source.Library)};
        record.Products = record.GuardedFiles;
        return record;
    }

    void AddSimulation(const TBuildTop& top) {
        TStepRecord record;
        const std::string waves = Recipe.WavesOf(top, "ghw");
        TWords words = Call("--elab-run", top.Library);
        Append(ElaborationOptions, &words);
        words.push_back(top.Entity);
        if (!top.Architecture.empty()) words.push_back(top.Architecture);
        Append(RunOptions, &words);
        for (const TScanDefine& generic : Recipe.GetWishes().Generics)
            words.push_back("-g" + generic.Name + "=" + generic.Value);
        if (!waves.empty()) words.push_back("--wave=" + waves);
        Append(Recipe.GetWishes().Arguments, &words);
        record.Commands = {std::move(words)};
        Recipe.AddLibrarySimulation(top, std::move(record), waves);
    }

    TRunRecipe& Recipe;
    std::string Years;
    TWords AnalysisOptions, ElaborationOptions, RunOptions;
};

}  // namespace

void AddGhdlSteps(TRunRecipe* recipe) {
    TGhdlRecipe(recipe).AddSteps();
}
