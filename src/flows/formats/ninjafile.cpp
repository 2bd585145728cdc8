#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include "flows/formats/shelltext.h"
#include "flows/formats/toolcalls.h"
#include "flows/run/ninjatext.h"
#include "flows/run/runfiles.h"
#include "flows/run/runrecipe.h"
#include <algorithm>

namespace {

constexpr const char* kGhdlDone = "ninja/ghdl.ok";
constexpr const char* kVerilogRead = "ninja/verilog.ok";

/// Writes the file.
class TNinjaFile {
public:
    explicit TNinjaFile(const TExportRequest& request) : Writer(request, "ninja") {}

    TExported Write() {
        Writer.LoseOtherLanguages({LANGUAGE_VHDL, LANGUAGE_VERILOG});
        Writer.LoseLibraries({LANGUAGE_VERILOG});
        AddRules();
        if (Writer.HasSources(LANGUAGE_VHDL)) AddVhdl();
        if (Writer.HasSources(LANGUAGE_VERILOG)) AddVerilog();
        TExported exported = Writer.Take();
        DefineNinjaBar(&exported.Text);
        return exported;
    }

private:
    const TPlanSettings& Vhdl() const { return Writer.SettingsOf(LANGUAGE_VHDL); }
    const TPlanSettings& Verilog() const { return Writer.SettingsOf(LANGUAGE_VERILOG); }
    std::vector<std::string> GhdlOptions(TPlanStep step) {
        return Writer.OptionsFor(kWordsOfGhdl, LANGUAGE_VHDL, step);
    }
    void AddRules();
    void AddVhdl();
    void AddAnalyses();
    void AddAnalysis(const TPlanSource& source, const std::string& behind);
    void AddVerilog();
    void AddVerilogRead();
    void AddCompilation(const std::string& image, const TBuildTop* top);
    void AddRun(const TBuildTop& top, const std::string& need, const std::string& call);
    std::vector<std::string> GhdlWords(const char* verb, const std::string& library) const;
    std::string StampOf(const TPlanSource& source) const;
    /// Words for the shell, each with a blank before it.
    std::string Words(const std::vector<std::string>& words);
    std::string Path(const std::string& name);

    TExportWriter Writer;
};

// The shell reads its commands from a file: a command line holds far less than a call of a program.
// A rule names what all tops have in common, so that it stands in the file once.
void TNinjaFile::AddRules() {
    Writer.AddLine("ninja_required_version = 1.3");
    const auto addRule = [this](const char* name, const std::string& call) {
        Writer.AddLine(std::string("rule ") + name);
        Writer.AddLine("  command = sh $out.sh");
        Writer.AddLine("  rspfile = $out.sh");
        Writer.AddLine("  rspfile_content = " + call);
        Writer.AddLine("  description = $title");
    };
    addRule("step", "$call && touch $out");
    addRule("compile", "iverilog -o $out.part$top$verilog_words && mv $out.part $out");
    Writer.AddLine("rule stamp");
    Writer.AddLine("  command = touch $out");
    Writer.AddLine("  description = $title");
}

void TNinjaFile::AddVhdl() {
    AddAnalyses();
    for (const TBuildTop* const top : Writer.ListTops(LANGUAGE_VHDL))
        AddRun(*top, kGhdlDone,
               "ghdl" + Words(JoinedWords({GhdlWords("--elab-run", top->Library),
                                           GhdlOptions(STEP_ELABORATE), GhdlUnitOf(*top),
                                           GhdlOptions(STEP_RUN)})));
}

// One analysis at a time writes the libraries: each waits for the former, but is not done again
// when that is. A source that is needed and stands behind closes a cycle.
void TNinjaFile::AddAnalyses() {
    const std::vector<TPlanSource>& sources = Writer.GetPlan().Sources;
    std::string all;
    std::string former;
    for (std::size_t number = 0; number < sources.size(); ++number) {
        if (sources[number].Language != LANGUAGE_VHDL) continue;
        std::string behind;
        for (const std::size_t needed : sources[number].Needs)
            if (needed < number && sources[needed].Language == LANGUAGE_VHDL)
                behind += (behind.empty() ? " | " : " ") + StampOf(sources[needed]);
        if (!former.empty()) behind += " || " + former;
        AddAnalysis(sources[number], behind);
        former = StampOf(sources[number]);
        all += " " + former;
    }
    Writer.AddLine(std::string("build ") + kGhdlDone + ": stamp" + all);
    Writer.AddLine("  title = all VHDL is analysed");
}

void TNinjaFile::AddAnalysis(const TPlanSource& source, const std::string& behind) {
    RefuseQuoted(Writer.WordOf(source.Path), &Writer);
    Writer.AddLine("build " + StampOf(source) + ": step " + Path(Writer.PathOf(source.Path)) +
                   behind);
    Writer.AddLine(
        "  call = ghdl" +
        Words(JoinedWords({GhdlWords("-a", source.Library), GhdlOptions(STEP_ANALYSE)})) +
        NinjaText(ShellWords({Writer.WordOf(source.Path)})));
    Writer.AddLine("  title = analyse " + NinjaText(TitleOf(source)));
}

// Without a top, Icarus Verilog takes the modules that nothing instantiates.
void TNinjaFile::AddVerilog() {
    AddVerilogRead();
    const std::vector<const TBuildTop*> tops = Writer.ListTops(LANGUAGE_VERILOG);
    const auto& sources = Writer.GetPlan().Sources;
    const bool isCompiled = std::any_of(sources.begin(), sources.end(), [](const auto& source) {
        return source.Language == LANGUAGE_VERILOG && !source.IsLibraryFile;
    });
    if (tops.empty() && isCompiled) AddCompilation("ninja/icarus/all.vvp", nullptr);
    for (const TBuildTop* const top : tops) {
        const std::string image =
            "ninja/icarus/" + UniqueFileName(TitleOf(*top), TitleOf(*top)) + ".vvp";
        AddCompilation(image, top);
        AddRun(*top, image, "vvp -n " + image + Words(Verilog().Options[STEP_RUN]));
    }
}

// What library directories hold may be taken, as well.
void TNinjaFile::AddVerilogRead() {
    std::string read;
    for (const TPlanSource& source : Writer.GetPlan().Sources)
        if (source.Language == LANGUAGE_VERILOG) read += " " + Path(Writer.PathOf(source.Path));
    for (const std::string& path : ListLibrarySources(Verilog()))
        read += " " + Path(Writer.PathOf(path));
    Writer.AddLine(std::string("build ") + kVerilogRead + ": stamp" + read);
    Writer.AddLine("  title = Verilog is there");
    const std::string options = Words(IcarusOptions(&Writer));
    Writer.AddLine("verilog_words = $" + options + NinjaText(ShellWords(IcarusSources(&Writer))));
}

void TNinjaFile::AddCompilation(const std::string& image, const TBuildTop* top) {
    Writer.AddLine("build " + image + ": compile | " + kVerilogRead);
    if (top) Writer.AddLine("  top = $" + Words({"-s", PlainNameOf(*top)}));
    Writer.AddLine("  title = compile " + (top ? NinjaText(TitleOf(*top)) : "Verilog"));
}

void TNinjaFile::AddRun(const TBuildTop& top, const std::string& need, const std::string& call) {
    const char* const language = GetStringFromHdlLanguage(top.Language);
    Writer.AddLine("build ninja/runs/" +
                   UniqueFileName(TitleOf(top), TitleOf(top) + "\n" + language) + ".ok: step | " +
                   need);
    Writer.AddLine("  call = " + call);
    Writer.AddLine("  title = simulate " + NinjaText(TitleOf(top)));
}

// The folder of the libraries is one: GHDL finds libraries of each other there. Ninja makes it for
// the stamps.
std::vector<std::string> TNinjaFile::GhdlWords(const char* verb, const std::string& library) const {
    return {verb, "--std=" + GhdlStandard(Vhdl()), "--workdir=ninja/ghdl", "-Pninja/ghdl",
            "--work=" + library};
}

std::string TNinjaFile::StampOf(const TPlanSource& source) const {
    return "ninja/ghdl/" +
           UniqueFileName(TitleOf(source), source.Library + "\n" + Writer.PathOf(source.Path)) +
           ".ok";
}

std::string TNinjaFile::Words(const std::vector<std::string>& words) {
    for (const std::string& word : words)
        if (HasAny(word, "\n\r")) Writer.Refuse(word, "a line end ends the command");
    return NinjaText(ShellWords(words));
}

std::string TNinjaFile::Path(const std::string& name) {
    if (HasAny(name, "\n\r")) Writer.Refuse(name, "a line holds it");
    return NinjaPath(name);
}

}  // namespace

TExported WriteNinjaFile(const TExportRequest& request) {
    return TNinjaFile(request).Write();
}
