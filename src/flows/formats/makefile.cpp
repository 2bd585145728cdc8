#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include "flows/formats/maketext.h"
#include "flows/formats/shelltext.h"
#include "flows/formats/toolcalls.h"
#include <algorithm>

namespace {

/// A text of a recipe: make reads dollars before the shell does.
std::string RecipeText(const std::string& text) {
    std::string doubled;
    for (const char c : text) {
        if (c == '$') doubled += '$';
        doubled += c;
    }
    return doubled;
}

/// A text of a variable for recipes, where a hash would begin a comment.
std::string VariableText(const std::string& text) {
    std::string escaped;
    std::size_t backslashes = 0;
    for (const char c : RecipeText(text)) {
        if (c == '#') escaped.append(backslashes + 1, '\\');
        backslashes = c == '\\' ? backslashes + 1 : 0;
        escaped += c;
    }
    return escaped;
}

/// A name for what is made of `name`: it differs when that does, and make takes it as it is.
std::string StampName(const std::string& name) {
    constexpr char kHex[] = "0123456789abcdef";
    constexpr std::string_view kPlain =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_";
    std::string stamp;
    for (std::size_t at = 0; at < name.size(); ++at) {
        const char c = name[at];
        const bool isInside = at > 0 && (c == '.' || c == '/') && name[at - 1] != '/';
        if (isInside || kPlain.find(c) != std::string_view::npos) {
            stamp += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        stamp.append("+").append(1, kHex[byte / 16]).append(1, kHex[byte % 16]);
    }
    return stamp;
}

std::string NameOf(const TBuildTop& top) {
    const std::string name = top.Library + "." + top.Entity;
    return top.Architecture.empty() ? name : name + "." + top.Architecture;
}

/// Writes the rules.
class TMakefile {
public:
    explicit TMakefile(const TExportRequest& request) : Writer(request, "make") {}

    TExported Write();

private:
    const TPlanSettings& Vhdl() const { return Writer.SettingsOf(LANGUAGE_VHDL); }
    const TPlanSettings& Verilog() const { return Writer.SettingsOf(LANGUAGE_VERILOG); }
    std::vector<std::string> GhdlOptions(TPlanStep step) {
        return Writer.OptionsFor(kWordsOfGhdl, LANGUAGE_VHDL, step);
    }
    void AddHead();
    void AddAnalyses();
    void AddAnalysis(const TPlanSource& source, const std::vector<std::string>& needs);
    void AddTops(THdlLanguage language, void (TMakefile::*add)(const TBuildTop& top));
    void AddVhdlRun(const TBuildTop& top);
    void AddVerilogRun(const TBuildTop& top);
    void AddCompilation(const std::string& output, const std::string& top);
    void AddVerilog();
    void AddRun(const TBuildTop& top, const std::string& prerequisite, const std::string& recipe);
    void AddTargets();
    /// For the prerequisites of a rule.
    std::string PrerequisiteOf(const TPlanSource& source);
    std::string StampOf(const TPlanSource& source) const;
    /// Words of the build in a recipe, each with a blank before it.
    std::string Words(const std::vector<std::string>& words);
    void Check(const std::vector<std::string>& words);

    TExportWriter Writer;
    std::string Analysed;  ///< stamps and outputs, each after a blank
    std::string Runs;      ///< targets, each after a blank
    std::string Former;    ///< the last stamp
    bool HasVerilog = false;
};

TExported TMakefile::Write() {
    AddHead();
    AddAnalyses();
    AddTops(LANGUAGE_VHDL, &TMakefile::AddVhdlRun);
    AddTops(LANGUAGE_VERILOG, &TMakefile::AddVerilogRun);
    AddTargets();
    Writer.LoseOtherLanguages({LANGUAGE_VHDL, LANGUAGE_VERILOG});
    Writer.LoseLibraries({LANGUAGE_VERILOG});
    return Writer.Take();
}

// What is made depends on the options that stand here. A name with blanks cannot be depended on.
void TMakefile::AddHead() {
    Writer.AddLine(
        "# Analyses VHDL with GHDL, compiles Verilog with Icarus Verilog, runs the tops.");
    Writer.AddLine("GHDL = ghdl");
    Writer.AddLine("IVERILOG = iverilog");
    Writer.AddLine("VVP = vvp");
    Writer.AddLine("GHDL_OPTIONS = --std=" + GhdlStandard(Vhdl()) + " --workdir=ghdl -Pghdl");
    Writer.AddLine("MAKE_RULES := $(wildcard $(lastword $(MAKEFILE_LIST)))");
    Writer.AddLine("all: run");
}

// A source that is needed stands before: else the two are on a cycle, which make cannot obey.
void TMakefile::AddAnalyses() {
    const std::vector<TPlanSource>& sources = Writer.GetPlan().Sources;
    for (std::size_t number = 0; number < sources.size(); ++number) {
        if (sources[number].Language != LANGUAGE_VHDL) continue;
        std::vector<std::string> needs;
        for (const std::size_t needed : sources[number].Needs)
            if (needed < number && sources[needed].Language == LANGUAGE_VHDL)
                needs.push_back(StampOf(sources[needed]));
        AddAnalysis(sources[number], needs);
    }
}

// One analysis at a time writes the libraries: each waits for the former, but is not done again
// when that is.
void TMakefile::AddAnalysis(const TPlanSource& source, const std::vector<std::string>& needs) {
    RefuseQuoted(Writer.WordOf(source.Path), &Writer);
    const std::string stamp = StampOf(source);
    std::string rule = stamp + ": " + PrerequisiteOf(source) + " $(MAKE_RULES)";
    for (const std::string& need : needs) rule.append(" ").append(need);
    if (!Former.empty()) rule += " | " + Former;
    Writer.AddLine(rule);
    Writer.AddLine("\t@mkdir -p $(@D)");
    Writer.AddLine("\t$(GHDL) -a $(GHDL_OPTIONS)" +
                   Words(JoinedWords({{"--work=" + source.Library}, GhdlOptions(STEP_ANALYSE)})) +
                   RecipeText(ShellWords({Writer.WordOf(source.Path)})));
    Writer.AddLine("\t@touch $@");
    Analysed += " " + stamp;
    Former = stamp;
}

void TMakefile::AddTops(THdlLanguage language, void (TMakefile::*add)(const TBuildTop& top)) {
    for (const TBuildTop* const top : Writer.ListTops(language)) (this->*add)(*top);
}

void TMakefile::AddVhdlRun(const TBuildTop& top) {
    AddRun(top, "analyse",
           "$(GHDL) --elab-run $(GHDL_OPTIONS)" + Words(JoinedWords({{"--work=" + top.Library},
                                                                     GhdlOptions(STEP_ELABORATE),
                                                                     GhdlUnitOf(top),
                                                                     GhdlOptions(STEP_RUN)})));
}

void TMakefile::AddVerilogRun(const TBuildTop& top) {
    const std::string output = "icarus/" + StampName(NameOf(top)) + ".vvp";
    AddCompilation(output, PlainNameOf(top));
    AddRun(top, output, "$(VVP) -n " + output + Words(Verilog().Options[STEP_RUN]));
}

// Icarus Verilog lists what it reads, included files among it, one a line.
void TMakefile::AddCompilation(const std::string& output, const std::string& top) {
    if (!HasVerilog) AddVerilog();
    HasVerilog = true;
    Writer.AddLine(output + ": $(MAKE_RULES) $(VERILOG)");
    Writer.AddLine("\t@mkdir -p $(@D)");
    Writer.AddLine("\t$(IVERILOG) -Mall=$@.list -o $@" + (top.empty() ? "" : Words({"-s", top})) +
                   " $(VERILOG_WORDS)");
    Writer.AddLine(
        "\t@sed -e '/[:;%=|*?~\\\\]/d' -e 's/[$$]/$$$$/g' -e 's/[ #]/\\\\&/g' "
        "-e 'h;s|^|$@: |;p;g;s|$$|:|' $@.list > $@.d");
    Analysed += " " + output;
}

void TMakefile::AddVerilog() {
    std::string names = "VERILOG =";
    for (const TPlanSource& source : Writer.GetPlan().Sources)
        if (source.Language == LANGUAGE_VERILOG) names += " " + PrerequisiteOf(source);
    Writer.AddLine(names);
    const std::vector<std::string> options = IcarusOptions(&Writer);
    Check(options);
    Writer.AddLine("VERILOG_WORDS =" +
                   VariableText(ShellWords(options) + ShellWords(IcarusSources(&Writer))));
}

void TMakefile::AddRun(const TBuildTop& top, const std::string& prerequisite,
                       const std::string& recipe) {
    const std::string target = "run-" + StampName(NameOf(top));
    Writer.AddLine(target + ": " + prerequisite);
    Writer.AddLine("\t" + recipe);
    Runs += " " + target;
}

// Without a top, Icarus Verilog takes the modules that nothing instantiates.
void TMakefile::AddTargets() {
    const std::vector<TPlanSource>& sources = Writer.GetPlan().Sources;
    const bool isVerilog =
        std::any_of(sources.begin(), sources.end(), [](const TPlanSource& source) {
            return source.Language == LANGUAGE_VERILOG && !source.IsLibraryFile;
        });
    if (isVerilog && !HasVerilog) AddCompilation("icarus/all.vvp", "");
    Writer.AddLine("analyse:" + Analysed);
    Writer.AddLine("run: analyse" + Runs);
    Writer.AddLine("clean:");
    Writer.AddLine("\trm -rf ghdl icarus");
    Writer.AddLine(".PHONY: all analyse run clean" + Runs);
    Writer.AddLine(".DELETE_ON_ERROR:");
    Writer.AddLine("-include $(wildcard icarus/*.d)");
}

std::string TMakefile::PrerequisiteOf(const TPlanSource& source) {
    const std::string name = Writer.WordOf(source.Path);
    if (const char* const complaint = MakeComplaint(name)) Writer.Refuse(name, complaint);
    return MakeName(name);
}

std::string TMakefile::StampOf(const TPlanSource& source) const {
    return "ghdl/" + StampName(source.Library + "/" + Writer.WordOf(source.Path)) + ".ok";
}

std::string TMakefile::Words(const std::vector<std::string>& words) {
    Check(words);
    return RecipeText(ShellWords(words));
}

void TMakefile::Check(const std::vector<std::string>& words) {
    for (const std::string& word : words)
        if (HasAny(word, "\n\r")) Writer.Refuse(word, "a line end ends the command");
}

}  // namespace

TExported WriteMakefile(const TExportRequest& request) {
    return TMakefile(request).Write();
}
