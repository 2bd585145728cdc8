#include "flows/formats/edamtools.h"
#include "flows/formats/shelltext.h"
#include "flows/plan/planoptions.h"
#include "flows/plan/toolwords.h"
#include "flows/scan/sourcetext.h"
#include "flows/trees/yamltext.h"
#include <algorithm>

namespace {

/// What the types of VHDL files do not name, GHDL's options do.
constexpr const char* kYearsWithoutType[] = {"2000", "2002"};

// Single quotes group for a shell alone, but Verilator may read the words in a list.
std::string QuotedWord(const std::string& word) {
    return ShellWord(word) == word ? word : '"' + word + '"';
}

/// Whether the word is the same behind a makefile and a shell, in double quotes where it needs
/// them.
bool IsEdamWord(const std::string& word) {
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
    };
    return !HasAny(word, "$#'\"`\\") && std::none_of(word.begin(), word.end(), isControl) &&
           IsUtf8Text(word) && IsYamlText(word);
}

bool AreEdamWords(const std::vector<std::string>& words) {
    return std::all_of(words.begin(), words.end(), IsEdamWord);
}

void AppendQuoted(const std::vector<std::string>& words, std::vector<std::string>* to) {
    for (const std::string& word : words) to->push_back(QuotedWord(word));
}

}  // namespace

TJson TEdamTools::Make() {
    AddLanguage();
    AddFolders();
    AddVerilogOptions(STEP_ANALYSE);
    AddVerilogOptions(STEP_ELABORATE);
    if (!Icarus.empty()) Tools["icarus"]["iverilog_options"] = Icarus;
    if (IsSimulatedAlone()) Tools["verilator"]["mode"] = "binary";
    if (!Verilator.empty()) Tools["verilator"]["verilator_options"] = Verilator;
    AddVhdl();
    return std::move(Tools);
}

// Verilator reads all as SystemVerilog, and has one delay.
void TEdamTools::AddLanguage() {
    const TPlanSettings& settings = Writer.SettingsOf(LANGUAGE_VERILOG);
    if (const char* const word = FindIcarusWord(Writer.GetPlan())) Icarus.emplace_back(word);
    if (settings.Delay == DELAY_TYPE_MINIMUM) Icarus.emplace_back("-Tmin");
    if (settings.Delay == DELAY_TYPE_MAXIMUM) Icarus.emplace_back("-Tmax");
}

void TEdamTools::AddFolders() {
    const TPlanSettings& settings = Writer.SettingsOf(LANGUAGE_VERILOG);
    if (Folders == EDAM_FOLDERS_MOVE) {
        if (!settings.LibraryDirectories.empty()) Writer.Lose("library directories");
        return;
    }
    for (const std::string& directory : settings.LibraryDirectories) {
        const std::string name = Checked(Writer.PathOf(directory), false);
        for (TWords* const words : {&Icarus, &Verilator}) {
            words->emplace_back("-y");
            words->push_back(name);
        }
    }
    for (const std::string& extension : settings.LibraryExtensions) {
        const std::string name = Checked(extension, true);
        Icarus.emplace_back("-Y");
        Icarus.push_back(name);
        Verilator.push_back(QuotedWord("+libext+" + extension));
    }
    AddLibraryFiles();
}

// A tool takes them behind all files, into the library that it works in.
void TEdamTools::AddLibraryFiles() {
    for (const TPlanSource& source : Writer.GetPlan().Sources) {
        if (!IsVerilogLibraryFile(source)) continue;
        if (source.Library != "work") Writer.Lose("libraries of library files");
        const std::string name = Checked(Writer.PathOf(source.Path), false);
        Icarus.insert(Icarus.end(), {"-l", name});
        Verilator.insert(Verilator.end(), {"-v", name});
    }
}

std::string TEdamTools::Checked(const std::string& name, bool isInList) {
    if (!IsEdamWord(name))
        Writer.Refuse(name, "a makefile or shell takes it for something else");
    else if (isInList && HasAny(name, "+"))
        Writer.Refuse(name, "a plus ends the word");
    return QuotedWord(name);
}

// Both compile in one step.
void TEdamTools::AddVerilogOptions(TPlanStep step) {
    for (const TWords& words : WithOperands(Writer.SettingsOf(LANGUAGE_VERILOG).Options[step])) {
        const bool isIcarus = IsTaken(words.front(), kWordsOfIcarus);
        const bool isVerilator = IsTaken(words.front(), kWordsOfVerilator);
        if ((!isIcarus && !isVerilator) || !AreEdamWords(words)) {
            Writer.LoseOption(step, TextOfOption(words));
            continue;
        }
        if (isIcarus) AppendQuoted(words, &Icarus);
        if (isVerilator) AppendQuoted(words, &Verilator);
    }
}

// With C++ beside it, the program is made of that, as is the default.
bool TEdamTools::IsSimulatedAlone() const {
    return Writer.HasSources(LANGUAGE_VERILOG) && !Writer.HasSources(LANGUAGE_CPLUSPLUS) &&
           !Writer.HasSources(LANGUAGE_SYSTEMC);
}

void TEdamTools::AddVhdl() {
    const TPlanSettings& settings = Writer.SettingsOf(LANGUAGE_VHDL);
    if (!settings.LibraryDirectories.empty()) Writer.Lose("library directories");
    TWords analysis;
    for (const std::string year : kYearsWithoutType)
        if (settings.Standard == year) analysis.push_back("--std=" + year.substr(2));
    AppendQuoted(WordsForGhdl(STEP_ANALYSE), &analysis);
    for (const TWords& words : WithOperands(settings.Options[STEP_ELABORATE]))
        Writer.LoseOption(STEP_ELABORATE, TextOfOption(words));
    TWords run;
    AppendQuoted(WordsForGhdl(STEP_RUN), &run);
    if (!analysis.empty()) Tools["ghdl"]["analyze_options"] = analysis;
    if (!run.empty()) Tools["ghdl"]["run_options"] = run;
}

TEdamTools::TWords TEdamTools::WordsForGhdl(TPlanStep step) {
    TWords kept;
    for (std::string& word : Writer.OptionsFor(kWordsOfGhdl, LANGUAGE_VHDL, step)) {
        if (IsEdamWord(word))
            kept.push_back(std::move(word));
        else
            Writer.LoseOption(step, word);
    }
    return kept;
}
