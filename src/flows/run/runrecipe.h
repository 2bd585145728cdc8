#pragma once
#include "flows/plan/toolwords.h"
#include "flows/run/runtools.h"
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// The steps of one tool in the making.
class TRunRecipe {
public:
    using TWords = std::vector<std::string>;

    /// Keeps all of them.
    TRunRecipe(const TRunTool& tool, const TBuildPlan& plan, const TRunWishes& wishes,
               const TRunScan& scan, TRunPlan* run)
        : Tool(tool), Plan(plan), Wishes(wishes), Scan(scan), Run(run) {}

    const TBuildPlan& GetPlan() const { return Plan; }
    const TRunWishes& GetWishes() const { return Wishes; }
    /// Of the tool's language; empty ones when the plan has none.
    const TPlanSettings& GetSettings() const;
    /// What the options name, or else what is wished: "2008".
    const std::string& GetVhdlStandard() const;
    /// A file or folder of the tool, below the folder of the run.
    std::string PathOf(const std::string& name) const {
        return Wishes.Folder + Tool.Name + "/" + name;
    }
    /// Where the waves of a top are left; "" when none are wished.
    std::string WavesOf(const TBuildTop& top, const std::string& extension) const;
    /// The launcher and a program of the tool, by whose path it is called.
    TWords Call(const std::string& program) const;
    /// The wished tops that the tool simulates.
    std::vector<const TBuildTop*> ListTops() const;

    /// Adds a step that analyses each source, each behind the one before.
    void AddAnalyses(const std::function<TStepRecord(const TPlanSource&)>& recordOf);
    /// Adds a step that compiles all sources for a top. Returns its number.
    std::size_t AddCompilation(const TBuildTop& top, const char* verb, TStepRecord record);
    /// Adds the step that runs a top out of the libraries, again when a source that it is
    /// elaborated from was analysed, and behind all analyses.
    void AddLibrarySimulation(const TBuildTop& top, TStepRecord record, const std::string& waves);
    /// Adds the step that runs a top once the step `compilation` is done.
    void AddCompiledSimulation(const TBuildTop& top, TStepRecord record, std::size_t compilation,
                               const std::string& waves);
    /// A source that is written for the tool, and that the next compilation depends on.
    void AddFile(const std::string& path, const std::string& text);
    /// Of the options of a step those that the tool takes, with their operands; the others are
    /// told.
    TWords OptionsOf(TPlanStep step, const TToolWords& words);
    /// Tells once that the tool has no words for `what`.
    void Lose(const std::string& what);
    /// Tells that the tool cannot work with a name.
    void Refuse(const std::string& name, const char* reason);
    /// The same for sources with a double quote in their names, which the tool writes into its own
    /// files as it is.
    void RefuseQuotes();
    /// Tells of settings and wishes that nothing but Verilog has a use for.
    void LoseWhatIsOfVerilog();

    /// Names for files, of a source and of a top.
    std::string NameOf(const TPlanSource& source) const;
    std::string NameOf(const TBuildTop& top) const;

private:
    static constexpr std::size_t kNoStep = SIZE_MAX;

    std::string PathOfProgram(const std::string& program) const;
    std::string WorkFolderOf(const TBuildTop& top) const { return PathOf("work/" + NameOf(top)); }
    std::size_t AddStep(const std::string& name, const std::string& title, TStepRecord record);
    TRunStep& AddSimulation(const TBuildTop& top, TStepRecord record, const std::string& waves);
    std::vector<std::string> ListSources() const;

    const TRunTool& Tool;
    const TBuildPlan& Plan;
    const TRunWishes& Wishes;
    const TRunScan& Scan;
    TRunPlan* const Run;
    std::vector<std::size_t> Analyses;  // by source; kNoStep where there is none
    std::size_t LastAnalysis = kNoStep;
    std::shared_ptr<const std::vector<std::string>> Sources;  // of each compilation
    std::vector<std::string> Generated;                       // for the next one
    std::set<std::string> Lost;
};

/// Adds the words at the end of others.
void Append(const TRunRecipe::TWords& words, TRunRecipe::TWords* to);

/// A top as users see it: "work.tb(sim)".
std::string TitleOf(const TBuildTop& top);
/// "work.tb" of a source "tb.vhd" in library work.
std::string TitleOf(const TPlanSource& source);
