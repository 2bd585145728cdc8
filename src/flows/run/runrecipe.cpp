#include "flows/run/runrecipe.h"
#include "flows/run/farms.h"
#include "flows/run/runfiles.h"
#include <array>
#include <utility>

namespace {

/// A text of one line, without what a terminal obeys.
std::string ShownText(std::string_view text) {
    std::string shown;
    for (const char c : text)
        if (const auto byte = static_cast<unsigned char>(c); byte >= ' ' && byte != 0x7F)
            shown += c;
        else if (c == '\n')
            shown += "\\n";
        else
            shown.append("\\x")
                .append(1, "01234567"[byte >> 4])
                .append(1, "0123456789ABCDEF"[byte & 15]);
    return shown;
}

}  // namespace

void Append(const TRunRecipe::TWords& words, TRunRecipe::TWords* to) {
    to->insert(to->end(), words.begin(), words.end());
}

std::string TitleOf(const TBuildTop& top) {
    return top.Library + "." + top.Entity +
           (top.Architecture.empty() ? "" : "(" + top.Architecture + ")");
}

std::string TitleOf(const TPlanSource& source) {
    const std::string name = source.Path.substr(source.Path.rfind('/') + 1);
    return source.Library + "." + name.substr(0, name.rfind('.'));
}

const TPlanSettings& TRunRecipe::GetSettings() const {
    static const TPlanSettings none;
    const TPlanSettings* const settings = Plan.FindSettings(Tool.Language);
    return settings ? *settings : none;
}

const std::string& TRunRecipe::GetVhdlStandard() const {
    const std::string& chosen = GetSettings().Standard;
    return chosen.empty() ? Wishes.VhdlStandard : chosen;
}

TRunRecipe::TWords TRunRecipe::Call(const std::string& program) const {
    TWords words = Wishes.Launcher;
    words.push_back(PathOfProgram(program));
    return words;
}

std::string TRunRecipe::PathOfProgram(const std::string& program) const {
    const auto path = Wishes.Programs.find(program);
    return path == Wishes.Programs.end() ? program : path->second;
}

std::string TRunRecipe::WavesOf(const TBuildTop& top, const std::string& extension) const {
    return Wishes.Waves ? WorkFolderOf(top) + "/waves." + extension : std::string();
}

std::vector<const TBuildTop*> TRunRecipe::ListTops() const {
    std::vector<const TBuildTop*> tops;
    for (const TBuildTop* const top : Wishes.Tops)
        if (top->Language == Tool.Language) tops.push_back(top);
    return tops;
}

std::string TRunRecipe::NameOf(const TPlanSource& source) const {
    return UniqueFileName(TitleOf(source), source.Library + "\n" + source.Path);
}

std::string TRunRecipe::NameOf(const TBuildTop& top) const {
    return UniqueFileName(TitleOf(top), TitleOf(top));
}

std::size_t TRunRecipe::AddStep(const std::string& name, const std::string& title,
                                TStepRecord record) {
    TRunStep& step = Run->Steps.emplace_back();
    step.Name = std::string(Tool.Name) + "/" + name;
    record.Title = ShownText(title);
    record.Log = Wishes.Folder + "logs/" + step.Name + ".log";
    record.Stamp = Wishes.Folder + "done/" + step.Name;
    step.Record = std::move(record);
    for (const TRunProgram& program : Tool.Programs)
        step.Programs.push_back(PathOfProgram(program.Name));
    return Run->Steps.size() - 1;
}

// The analyses of a tool write into libraries that the next ones read.
void TRunRecipe::AddAnalyses(const std::function<TStepRecord(const TPlanSource&)>& recordOf) {
    Analyses.assign(Plan.Sources.size(), kNoStep);
    for (std::size_t number = 0; number < Plan.Sources.size(); ++number) {
        const TPlanSource& source = Plan.Sources[number];
        if (source.Language != Tool.Language) continue;
        Analyses[number] =
            AddStep("analyse-" + NameOf(source), "analyse " + TitleOf(source), recordOf(source));
        TRunStep& step = Run->Steps.back();
        step.Sources = {source.Path};
        for (const std::size_t need : Scan.Needs[number])
            if (Analyses[need] != kNoStep) step.Needs.push_back(Analyses[need]);
        if (LastAnalysis != kNoStep) step.After = {LastAnalysis};
        LastAnalysis = Analyses[number];
    }
}

std::size_t TRunRecipe::AddCompilation(const TBuildTop& top, const char* verb, TStepRecord record) {
    const std::size_t number =
        AddStep(verb + ("-" + NameOf(top)), verb + (" " + TitleOf(top)), std::move(record));
    TRunStep& step = Run->Steps[number];
    step.Sources = std::exchange(Generated, {});
    if (!Sources) Sources = std::make_shared<const std::vector<std::string>>(ListSources());
    step.CommonSources = Sources;
    return number;
}

std::vector<std::string> TRunRecipe::ListSources() const {
    std::vector<std::string> sources;
    for (const TPlanSource& source : Plan.Sources)
        if (source.Language == Tool.Language) sources.push_back(source.Path);
    sources.insert(sources.end(), Scan.VerilogFiles.begin(), Scan.VerilogFiles.end());
    std::set<std::string> known;
    std::erase_if(sources,
                  [&known](const std::string& path) { return !known.insert(path).second; });
    return sources;
}

// A library is never read beside a step that writes into it: the last analysis waits for all.
void TRunRecipe::AddLibrarySimulation(const TBuildTop& top, TStepRecord record,
                                      const std::string& waves) {
    TRunStep& step = AddSimulation(top, std::move(record), waves);
    const auto number = static_cast<std::size_t>(&top - Plan.Tops.data());
    for (const std::size_t source : Scan.TopNeeds[number])
        if (Analyses[source] != kNoStep) step.Needs.push_back(Analyses[source]);
    if (LastAnalysis != kNoStep) step.After = {LastAnalysis};
}

void TRunRecipe::AddCompiledSimulation(const TBuildTop& top, TStepRecord record,
                                       std::size_t compilation, const std::string& waves) {
    AddSimulation(top, std::move(record), waves).Needs = {compilation};
}

TRunStep& TRunRecipe::AddSimulation(const TBuildTop& top, TStepRecord record,
                                    const std::string& waves) {
    record.TimeoutSeconds = Wishes.TimeoutSeconds;
    record.FailOn = Wishes.FailOn;
    record.Tool = Tool.Name;
    record.Folder = WorkFolderOf(top);
    record.Result = Wishes.Folder + "results/" + Tool.Name + "/" + NameOf(top);
    if (const TFarm* const farm = FindFarm(Wishes.Farm)) {
        record.Farm = farm->Name;
        record.Job = NameOf(top);
        for (const TRunProgram& program : farm->Programs)
            record.FarmPrograms.push_back(PathOfProgram(program.Name));
    }
    const std::size_t number =
        AddStep("simulate-" + NameOf(top), "simulate " + TitleOf(top), std::move(record));
    Run->Simulations.push_back({&top, Tool.Name, number, waves});
    return Run->Steps[number];
}

void TRunRecipe::AddFile(const std::string& path, const std::string& text) {
    Run->Files.emplace_back(path, text);
    Generated.push_back(path);
}

TRunRecipe::TWords TRunRecipe::OptionsOf(TPlanStep step, const TToolWords& words) {
    constexpr std::array<const char*, kPlanSteps> kNames = {"analysis", "elaboration", "run"};
    return ListTaken(GetSettings().Options[step], words, [&](const std::string& option) {
        Lose(std::string("the ") + kNames[step] + " option " + option);
    });
}

void TRunRecipe::Lose(const std::string& what) {
    if (Lost.insert(what).second)
        Run->Losses.push_back({DIAGNOSTIC_NOT_EXPORTED, {Tool.Name, what}});
}

void TRunRecipe::Refuse(const std::string& name, const char* reason) {
    Run->Losses.push_back({DIAGNOSTIC_UNWRITABLE_NAME, {Tool.Name, name, reason}});
}

void TRunRecipe::RefuseQuotes() {
    for (const TPlanSource& source : Plan.Sources)
        if (source.Language == Tool.Language && source.Path.find('"') != std::string::npos)
            Refuse(source.Path, "the tool cannot read its own file with a quote");
}

void TRunRecipe::LoseWhatIsOfVerilog() {
    const TPlanSettings& settings = GetSettings();
    if (!settings.IncludeDirectories.empty()) Lose("include directories");
    if (!settings.LibraryDirectories.empty()) Lose("library directories");
    if (!settings.LibraryExtensions.empty()) Lose("library extensions");
    if (!settings.Defines.empty()) Lose("defines");
    if (settings.Delay != DELAY_TYPE_TYPICAL) Lose("the choice of delays");
    if (!Wishes.Seed.empty()) Lose("a seed");
}
