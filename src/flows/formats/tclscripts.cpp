#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"

namespace {

// Everything but letters, digits and what paths are made of is escaped.
std::string TclWord(const std::string& text) {
    constexpr std::string_view kSpecial = " \t\"\\$[]{};#";
    constexpr std::string_view kEnds = "\n\r\v\f";
    if (text.empty()) return "{}";
    std::string word;
    for (const char c : text) {
        if (const std::size_t end = kEnds.find(c); end != std::string_view::npos) {
            word.append("\\").append(1, "nrvf"[end]);
            continue;
        }
        if (kSpecial.find(c) != std::string_view::npos) word += '\\';
        word += c;
    }
    return word;
}

std::string TclWords(const std::vector<std::string>& texts) {
    std::string words;
    for (const std::string& text : texts) words.append(" ").append(TclWord(text));
    return words;
}

bool IsOfTheField(THdlLanguage language) {
    return language == LANGUAGE_VHDL || language == LANGUAGE_VERILOG;
}

/// Writes the script for vsim.
class TVsimScript {
public:
    explicit TVsimScript(const TExportRequest& request) : Writer(request, "vsim") {}

    TExported Write();

private:
    void AddLibraries();
    void AddSource(const TPlanSource& source, bool goesOn, bool isFollowed);
    void AddTop(const TBuildTop& top);
    std::string VerilogOptions() const;
    const TPlanSettings& SettingsOf(THdlLanguage language) const {
        return Writer.SettingsOf(language);
    }

    TExportWriter Writer;
};

TExported TVsimScript::Write() {
    AddLibraries();
    std::vector<const TPlanSource*> sources;
    for (const TPlanSource& source : Writer.GetPlan().Sources)
        if (IsOfTheField(source.Language)) sources.push_back(&source);
    // What one Verilog source defines holds in those behind it: one call compiles them.
    const auto isOneCall = [&sources](std::size_t first, std::size_t second) {
        return second < sources.size() && sources[first]->Language == LANGUAGE_VERILOG &&
               sources[second]->Language == LANGUAGE_VERILOG &&
               sources[first]->Library == sources[second]->Library;
    };
    for (std::size_t at = 0; at < sources.size(); ++at)
        AddSource(*sources[at], at > 0 && isOneCall(at - 1, at), isOneCall(at, at + 1));
    for (const TBuildTop& top : Writer.GetPlan().Tops)
        if (!Writer.GetTop() || Writer.GetTop() == &top) AddTop(top);
    Writer.LoseOtherLanguages({LANGUAGE_VHDL, LANGUAGE_VERILOG});
    return Writer.Take();
}

void TVsimScript::AddLibraries() {
    std::set<std::string> made;
    for (const TPlanSource& source : Writer.GetPlan().Sources)
        if (IsOfTheField(source.Language) && made.insert(source.Library).second)
            Writer.AddLine("vlib " + TclWord(source.Library));
}

void TVsimScript::AddSource(const TPlanSource& source, bool goesOn, bool isFollowed) {
    std::string line = "    ";
    if (!goesOn && source.Language == LANGUAGE_VERILOG)
        line = "vlog -work " + TclWord(source.Library) + VerilogOptions() + " ";
    if (source.Language == LANGUAGE_VHDL) {
        const TPlanSettings& settings = SettingsOf(LANGUAGE_VHDL);
        const std::string& year = settings.Standard;
        line = "vcom -work " + TclWord(source.Library);
        if (!year.empty()) line += " -" + (year.starts_with("19") ? year.substr(2) : year);
        line += TclWords(settings.Options[STEP_ANALYSE]) + " ";
    }
    if (source.IsLibraryFile && source.Language == LANGUAGE_VERILOG) line += "-v ";
    line += TclWord(Writer.WordOf(source.Path));
    Writer.AddLine(isFollowed ? line + " \\" : line);
}

std::string TVsimScript::VerilogOptions() const {
    const TPlanSettings& settings = SettingsOf(LANGUAGE_VERILOG);
    std::string options;
    if (!settings.Standard.empty()) options += " -sv";
    for (const std::string& folder : settings.IncludeDirectories)
        options += " " + TclWord("+incdir+" + Writer.PathOf(folder));
    for (const TScanDefine& define : settings.Defines)
        options += " " + TclWord("+define+" + TextOf(define));
    for (const std::string& folder : settings.LibraryDirectories)
        options += " -y " + TclWord(Writer.PathOf(folder));
    for (const std::string& extension : settings.LibraryExtensions)
        options += " " + TclWord("+libext+" + extension);
    return options + TclWords(settings.Options[STEP_ANALYSE]);
}

void TVsimScript::AddTop(const TBuildTop& top) {
    const TPlanSettings& settings = SettingsOf(top.Language);
    std::string line = "vsim -c";
    if (top.Language == LANGUAGE_VERILOG && settings.Delay == DELAY_TYPE_MINIMUM)
        line += " +mindelays";
    if (top.Language == LANGUAGE_VERILOG && settings.Delay == DELAY_TYPE_MAXIMUM)
        line += " +maxdelays";
    line += TclWords(settings.Options[STEP_ELABORATE]) + TclWords(settings.Options[STEP_RUN]);
    line += " " + TclWord(top.Library + "." + top.Entity +
                          (top.Architecture.empty() ? "" : "(" + top.Architecture + ")"));
    Writer.AddLine(line);
    Writer.AddLine("run -all");
}

}  // namespace

TExported WriteVsimScript(const TExportRequest& request) {
    return TVsimScript(request).Write();
}

TExported WriteOsvvmScript(const TExportRequest& request) {
    TExportWriter writer(request, "osvvm");
    const std::string& standard = writer.SettingsOf(LANGUAGE_VHDL).Standard;
    if (!standard.empty()) writer.AddLine("SetVHDLVersion " + TclWord(standard));
    std::string library;
    const auto enter = [&](const std::string& wanted) {
        if (wanted != library) writer.AddLine("library " + TclWord(wanted));
        library = wanted;
    };
    for (const TPlanSource& source : request.Plan.Sources) {
        if (!IsOfTheField(source.Language)) continue;
        enter(source.Library);
        writer.AddLine("analyze " + TclWord(writer.WordOf(source.Path)));
    }
    for (const TBuildTop& top : request.Plan.Tops) {
        if (!IsOfTheField(top.Language) || (request.Top && request.Top != &top)) continue;
        enter(top.Library);
        writer.AddLine("simulate " + TclWord(top.Entity));
    }
    writer.LoseOtherLanguages({LANGUAGE_VHDL, LANGUAGE_VERILOG});
    writer.LoseDirectories(LANGUAGE_VERILOG);
    writer.LoseVerilogStandard();
    writer.LoseLibraryFiles();
    writer.LoseDelays();
    for (const TPlanSettings& settings : request.Plan.Settings)
        writer.LoseOptions(settings.Language, {});
    return writer.Take();
}
