#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include "flows/formats/shelltext.h"
#include "flows/formats/toolcalls.h"
#include "flows/plan/planoptions.h"
#include <algorithm>

namespace {

/// Why a list cannot hold a name; null when it can.
using TComplaint = const char* (*)(std::string_view name);

enum TListDelays { NO_DELAYS, DELAYS_ON_COMMAND_LINE, DELAYS_IN_LIST, DELAYS_OF_SLANG };

/// How a simulator reads lists of Verilog sources.
struct TListDialect {
    const char* Format;
    const char* Heading;      ///< a comment
    const char* CommandLine;  ///< what calls the simulator; null: none is told
    const char* TopOption;    ///< null: no word in the list
    const char* ExtensionOption;
    const char* SystemVerilogOption;  ///< null: no word in the list, or none is needed
    TListDelays Delays;
    std::string (*Quoted)(const std::string& name);
    TComplaint SourceComplaint;  ///< of the name of a source, alone in its line
    TComplaint WordComplaint;    ///< of a name or value within a word
    /// Whether a reader takes another language than SystemVerilog, and no word chooses.
    bool LosesStandard = false;
    bool RefusesQuotes = false;  ///< in names: see RefuseQuoted
};

bool HasControl(std::string_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; });
}

bool HasComment(std::string_view text) {
    return text.find("//") != std::string_view::npos || text.find("/*") != std::string_view::npos;
}

/// What reads as something else at the beginning of a line.
bool IsOption(std::string_view text) {
    return text.empty() || std::string_view("+-#").find(text.front()) != std::string_view::npos;
}

const char* CommonComplaint(std::string_view name) {
    if (HasControl(name) || HasAny(name, " \"'\\")) return "readers differ on blanks and quotes";
    if (HasAny(name, "$")) return "a dollar begins a variable";
    if (HasComment(name)) return "a comment begins in it";
    if (IsOption(name)) return "it reads as an option";
    return HasAny(name, "#") ? "some readers begin a comment at a hash" : nullptr;
}

const char* CommonWordComplaint(std::string_view name) {
    return HasAny(name, "+") ? "a plus ends the word" : CommonComplaint(name);
}

const char* IcarusComplaint(std::string_view name) {
    if (HasControl(name)) return "a line holds one name";
    if (name.ends_with(' ')) return "blanks at the end of a line are lost";
    if (name.find("${") != std::string_view::npos || name.find("$(") != std::string_view::npos)
        return "a dollar begins a variable";
    if (HasComment(name)) return "a comment begins in it";
    return IsOption(name) || name.front() == ' ' ? "it reads as something else" : nullptr;
}

const char* IcarusWordComplaint(std::string_view name) {
    return HasAny(name, " +") ? "a blank or plus ends the word" : IcarusComplaint(name);
}

const char* VerilatorComplaint(std::string_view name) {
    if (HasControl(name)) return "a line holds one name";
    if (HasAny(name, "$")) return "a dollar begins a variable";
    if (name.find("/*") != std::string_view::npos) return "a comment begins in it";
    return IsOption(name) ? "it reads as an option" : nullptr;
}

// Since 5.034 a plus separates directories, before it was a part of the name.
const char* VerilatorWordComplaint(std::string_view name) {
    return HasAny(name, "+") ? "a plus ends the word" : VerilatorComplaint(name);
}

std::string AsItIs(const std::string& name) {
    return name;
}

std::string BackslashQuoted(const std::string& name) {
    // slang begins a comment at a hash within a word.
    if (!HasAny(name, " \"'\\#")) return name;
    std::string quoted = "\"";
    for (const char c : name) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

const char* DelayOption(TSimProjectDelayType delay) {
    if (delay == DELAY_TYPE_MINIMUM) return "+mindelays";
    return delay == DELAY_TYPE_MAXIMUM ? "+maxdelays" : "+typdelays";
}

/// Writes the list of one dialect.
class TListWriter {
public:
    TListWriter(const TExportRequest& request, const TListDialect& dialect)
        : Writer(request, dialect.Format), Dialect(dialect) {}

    TExported Write() {
        Writer.AddLine(std::string("// ") + Dialect.Heading);
        AddCommandLine();
        AddLanguage();
        AddSettings();
        for (const TPlanSource& source : Writer.GetPlan().Sources)
            if (source.Language == LANGUAGE_VERILOG) AddSource(source);
        AddTop();
        Writer.LoseLibraries({LANGUAGE_VERILOG});
        Writer.LoseOtherLanguages({LANGUAGE_VERILOG});
        Writer.LoseOptions(LANGUAGE_VERILOG, {});
        return Writer.Take();
    }

private:
    const TPlanSettings& Settings() const { return Writer.SettingsOf(LANGUAGE_VERILOG); }
    void AddCommandLine();
    void AddLanguage();
    void AddSettings();
    void AddSource(const TPlanSource& source);
    void AddTop();
    std::string TopName(const TBuildTop& top);
    void AddWord(const std::string& option, const std::string& value);
    void AddPath(const char* option, const std::string& path);

    TExportWriter Writer;
    const TListDialect& Dialect;
};

// What no line of the list can say, so that people who read it know.
void TListWriter::AddCommandLine() {
    if (!Dialect.CommandLine) return;
    std::string line = std::string("// ") + Dialect.CommandLine;
    const TBuildTop* const top = Writer.GetTop();
    // Readers of the line need not know the quotes of a shell.
    const std::string name =
        top && top->Language == LANGUAGE_VERILOG ? PlainNameOf(*top) : std::string();
    if (ShellWord(name) != name && !name.empty())
        Writer.Lose("the top-level component " + name);
    else if (!name.empty())
        line += " -s " + name;
    if (Settings().Delay == DELAY_TYPE_MINIMUM) line += " -Tmin";
    if (Settings().Delay == DELAY_TYPE_MAXIMUM) line += " -Tmax";
    if (const char* const word = FindIcarusWord(Writer.GetPlan())) line.append(" ").append(word);
    Writer.AddLine(line);
}

void TListWriter::AddLanguage() {
    const TSimProjectDelayType delay = Settings().Delay;
    if (Dialect.SystemVerilogOption && HasSystemVerilog(Writer.GetPlan()))
        Writer.AddLine(Dialect.SystemVerilogOption);
    if (Dialect.LosesStandard) Writer.LoseVerilogStandard();
    if (Dialect.Delays == NO_DELAYS) Writer.LoseDelays();
    if (Dialect.Delays == DELAYS_IN_LIST) Writer.AddLine(DelayOption(delay));
    if (Dialect.Delays == DELAYS_OF_SLANG && delay != DELAY_TYPE_TYPICAL)
        Writer.AddLine(delay == DELAY_TYPE_MINIMUM ? "--timing min" : "--timing max");
}

void TListWriter::AddSettings() {
    const TPlanSettings& settings = Settings();
    for (const std::string& directory : settings.IncludeDirectories) {
        if (Dialect.RefusesQuotes) RefuseQuoted(Writer.PathOf(directory), &Writer);
        AddWord("+incdir+", Writer.PathOf(directory));
    }
    for (const TScanDefine& define : settings.Defines) AddWord("+define+", TextOf(define));
    for (const std::string& directory : settings.LibraryDirectories) AddPath("-y ", directory);
    for (const std::string& extension : settings.LibraryExtensions)
        AddWord(Dialect.ExtensionOption, extension);
}

void TListWriter::AddWord(const std::string& option, const std::string& value) {
    if (const char* const complaint = Dialect.WordComplaint(value))
        return Writer.Refuse(value, complaint);
    Writer.AddLine(option.ends_with(' ') ? option + Dialect.Quoted(value)
                                         : Dialect.Quoted(option + value));
}

void TListWriter::AddPath(const char* option, const std::string& path) {
    const std::string name = Writer.PathOf(path);
    const bool isAlone = *option == '\0';
    if (const char* const complaint =
            isAlone ? Dialect.SourceComplaint(name) : Dialect.WordComplaint(name))
        return Writer.Refuse(name, complaint);
    if (Dialect.RefusesQuotes && RefuseQuoted(name, &Writer)) return;
    Writer.AddLine(option + Dialect.Quoted(name));
}

void TListWriter::AddSource(const TPlanSource& source) {
    AddPath(source.IsLibraryFile ? "-v " : "", source.Path);
}

std::string TListWriter::TopName(const TBuildTop& top) {
    std::string name = PlainNameOf(top);
    if (const char* const complaint = Dialect.SourceComplaint(name)) Writer.Refuse(name, complaint);
    return name;
}

void TListWriter::AddTop() {
    const TBuildTop* const top = Writer.GetTop();
    if (!top || top->Language != LANGUAGE_VERILOG) return;
    if (!Dialect.TopOption && !Dialect.CommandLine) Writer.Lose("the top-level component");
    if (!Dialect.TopOption) return;
    Writer.AddLine(Dialect.TopOption + Dialect.Quoted(TopName(*top)));
}

const TListDialect kCommon{.Format = "filelist",
                           .Heading = "Verilog sources, one item a line",
                           .CommandLine = nullptr,
                           .TopOption = nullptr,
                           .ExtensionOption = "+libext+",
                           .SystemVerilogOption = nullptr,
                           .Delays = NO_DELAYS,
                           .Quoted = AsItIs,
                           .SourceComplaint = CommonComplaint,
                           .WordComplaint = CommonWordComplaint,
                           .LosesStandard = true};
const TListDialect kIcarus{.Format = "icarus",
                           .Heading = "Verilog sources for Icarus Verilog",
                           .CommandLine = "iverilog -c THIS_FILE",
                           .TopOption = nullptr,
                           .ExtensionOption = "+libext+",
                           .SystemVerilogOption = nullptr,
                           .Delays = DELAYS_ON_COMMAND_LINE,
                           .Quoted = AsItIs,
                           .SourceComplaint = IcarusComplaint,
                           .WordComplaint = IcarusWordComplaint,
                           .RefusesQuotes = true};
const TListDialect kSlang{.Format = "slang",
                          .Heading = "Verilog sources for slang",
                          .CommandLine = nullptr,
                          .TopOption = "--top ",
                          .ExtensionOption = "-Y ",
                          .SystemVerilogOption = nullptr,
                          .Delays = DELAYS_OF_SLANG,
                          .Quoted = BackslashQuoted,
                          .SourceComplaint = VerilatorComplaint,
                          .WordComplaint = VerilatorWordComplaint};
// The large simulators have no grammar in common but the shared subset and these words.
const TListDialect kVcs{.Format = "vcs",
                        .Heading = "Verilog sources for simulators with the words of VCS",
                        .CommandLine = nullptr,
                        .TopOption = "-top ",
                        .ExtensionOption = "+libext+",
                        .SystemVerilogOption = "-sverilog",
                        .Delays = DELAYS_IN_LIST,
                        .Quoted = AsItIs,
                        .SourceComplaint = CommonComplaint,
                        .WordComplaint = CommonWordComplaint};
const TListDialect kVerilator{.Format = "verilator",
                              .Heading = "Verilog sources for Verilator",
                              .CommandLine = nullptr,
                              .TopOption = "--top-module ",
                              .ExtensionOption = "+libext+",
                              .SystemVerilogOption = nullptr,
                              .Delays = NO_DELAYS,
                              .Quoted = BackslashQuoted,
                              .SourceComplaint = VerilatorComplaint,
                              .WordComplaint = VerilatorWordComplaint};

}  // namespace

TExported WriteFileList(const TExportRequest& request) {
    return TListWriter(request, kCommon).Write();
}

TExported WriteIcarusList(const TExportRequest& request) {
    return TListWriter(request, kIcarus).Write();
}

TExported WriteSlangList(const TExportRequest& request) {
    return TListWriter(request, kSlang).Write();
}

TExported WriteVcsList(const TExportRequest& request) {
    return TListWriter(request, kVcs).Write();
}

TExported WriteVerilatorList(const TExportRequest& request) {
    return TListWriter(request, kVerilator).Write();
}
