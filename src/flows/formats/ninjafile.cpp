#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include "flows/formats/shelltext.h"
#include "flows/run/ninjatext.h"
#include "flows/run/runtools.h"
#include <algorithm>

namespace {

/// Writes the file: the steps of a run, called by the shell.
class TNinjaFile {
public:
    explicit TNinjaFile(const TExportRequest& request) : Writer(request, "ninja") {}

    TExported Write() {
        Writer.LoseOtherLanguages({LANGUAGE_VHDL, LANGUAGE_VERILOG});
        MakePlanOfFile();
        MakeSteps();
        Writer.AddLine("ninja_required_version = 1.3");
        Writer.AddLine("rule step");
        Writer.AddLine("  command = $call");
        Writer.AddLine("  description = $title");
        for (const TRunStep& step : Steps.Steps) AddStep(step);
        TExported exported = Writer.Take();
        exported.Losses.insert(exported.Losses.end(), Steps.Losses.begin(), Steps.Losses.end());
        return exported;
    }

private:
    void MakePlanOfFile();
    void MakeSteps();
    void AddStep(const TRunStep& step);
    std::string CallOf(const TStepRecord& record) const;
    void Check(const std::string& name);

    TExportWriter Writer;
    TBuildPlan Plan;  // with paths as the file names them
    TRunPlan Steps;
};

void TNinjaFile::MakePlanOfFile() {
    Plan = Writer.GetPlan();
    for (TPlanSource& source : Plan.Sources) {
        source.Path = Writer.PathOf(source.Path);
        Check(source.Path);
    }
    for (TPlanSettings& settings : Plan.Settings)
        for (auto* const directories : {&settings.IncludeDirectories, &settings.LibraryDirectories})
            for (std::string& directory : *directories) directory = Writer.PathOf(directory);
}

void TNinjaFile::MakeSteps() {
    TRunWishes wishes;
    wishes.Folder = "ninja/";
    for (std::size_t number = 0; number < Plan.Tops.size(); ++number)
        if (!Writer.GetTop() || Writer.GetTop() == &Writer.GetPlan().Tops[number])
            wishes.Tops.push_back(&Plan.Tops[number]);
    for (const char* const tool : {"ghdl", "icarus"}) {
        const THdlLanguage language = FindRunTool(tool)->Language;
        const bool hasSources =
            std::any_of(Plan.Sources.begin(), Plan.Sources.end(),
                        [language](const auto& source) { return source.Language == language; });
        if (hasSources) AddRun(*FindRunTool(tool), Plan, wishes, {}, &Steps);
    }
    Writer.LoseLibraries({LANGUAGE_VERILOG});
    const auto isVerilog = [](const auto& thing) { return thing.Language == LANGUAGE_VERILOG; };
    if (std::any_of(Plan.Sources.begin(), Plan.Sources.end(), isVerilog) &&
        std::none_of(wishes.Tops.begin(), wishes.Tops.end(),
                     [&isVerilog](const TBuildTop* top) { return isVerilog(*top); }))
        Writer.Lose("Verilog without a top-level component");
}

void TNinjaFile::Check(const std::string& name) {
    if (HasAny(name, "\n\r")) Writer.Refuse(name, "a line holds it");
}

// The shell makes the folders that a step writes into, and the stamp when all went well.
std::string TNinjaFile::CallOf(const TStepRecord& record) const {
    std::string call = "mkdir -p";
    call += ShellWord(record.Stamp.substr(0, record.Stamp.rfind('/'))).insert(0, " ");
    if (record.Result.empty()) call += ShellWords({record.Folder});
    for (const std::vector<std::string>& command : record.Commands)
        call += " &&" + ShellWords(command);
    for (const auto& [from, to] : record.Moves) call += " && mv" + ShellWords({from, to});
    return call + " && touch" + ShellWords({record.Stamp});
}

void TNinjaFile::AddStep(const TRunStep& step) {
    std::string line = "build " + NinjaPath(step.Record.Stamp) + ": step";
    for (const std::string& source : step.Sources) line += " " + NinjaPath(source);
    if (!step.Needs.empty()) line += " |";
    for (const std::size_t need : step.Needs)
        line += " " + NinjaPath(Steps.Steps[need].Record.Stamp);
    if (!step.After.empty()) line += " ||";
    for (const std::size_t former : step.After)
        line += " " + NinjaPath(Steps.Steps[former].Record.Stamp);
    Writer.AddLine(line);
    Writer.AddLine("  call = " + NinjaText(CallOf(step.Record)));
    Writer.AddLine("  title = " + NinjaText(step.Record.Title));
}

}  // namespace

TExported WriteNinjaFile(const TExportRequest& request) {
    return TNinjaFile(request).Write();
}
