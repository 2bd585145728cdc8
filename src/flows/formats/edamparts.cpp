#include "flows/formats/edamparts.h"
#include "flows/scan/sourcetext.h"
#include "flows/trees/yamltext.h"
#include <algorithm>
#include <charconv>
#include <optional>

namespace {

struct TStandardType {
    const char* Standard;
    const char* FileType;
};

constexpr TStandardType kVhdlTypes[] = {{"", "vhdlSource"},
                                        {"1987", "vhdlSource-87"},
                                        {"1993", "vhdlSource-93"},
                                        {"2008", "vhdlSource-2008"},
                                        {"2019", "vhdlSource-2019"}};

/// The number that the text is the plain form of, so that it is not another text when it comes
/// back.
std::optional<long long> PlainNumber(const std::string& text) {
    long long number = 0;
    const char* const end = text.data() + text.size();
    if (std::from_chars(text.data(), end, number).ptr != end) return {};
    return std::to_string(number) == text ? std::optional(number) : std::nullopt;
}

TJson ParameterOf(const TScanDefine& define) {
    if (define.Value.empty())
        return {{"datatype", "bool"}, {"default", true}, {"paramtype", "vlogdefine"}};
    const std::optional<long long> number = PlainNumber(define.Value);
    return {{"datatype", number ? "int" : "str"},
            {"default", number ? TJson(*number) : TJson(define.Value)},
            {"paramtype", "vlogdefine"}};
}

}  // namespace

std::string TEdamParts::FileTypeOf(const TPlanSource& source) {
    const std::string& standard = Writer.SettingsOf(source.Language).Standard;
    switch (source.Language) {
        case LANGUAGE_VHDL:
            for (const TStandardType& type : kVhdlTypes)
                if (standard == type.Standard) return type.FileType;
            Writer.Lose("the standard " + standard);
            return kVhdlTypes[0].FileType;
        case LANGUAGE_VERILOG:
            return IsSystemVerilog(source, Writer.GetPlan()) ? "systemVerilogSource"
                                                             : "verilogSource";
        case LANGUAGE_CPLUSPLUS:
            return source.Path.ends_with(".c") ? "cSource" : "cppSource";
        case LANGUAGE_SYSTEMC:
            return "systemCSource";
        default:
            Writer.LoseLanguage(source.Language);
            return {};
    }
}

void TEdamParts::AddAttributes(const TPlanSource& source, TJson* file) {
    (*file)["file_type"] = FileTypeOf(source);
    // No name means the library that a tool works in.
    if (source.Library != "work") (*file)["logical_name"] = TextOfName(source.Library);
}

TJson TEdamParts::MakeParameters() {
    TJson parameters;
    for (const TScanDefine& define : Writer.SettingsOf(LANGUAGE_VERILOG).Defines) {
        TextOfName(TextOf(define));
        parameters[define.Name] = ParameterOf(define);
    }
    return parameters;
}

std::string TEdamParts::MakeTopLevel() {
    std::string names;
    for (const TBuildTop& top : Writer.GetPlan().Tops) {
        if (Writer.GetTop() && Writer.GetTop() != &top) continue;
        if (HasAny(top.Entity, " .")) Writer.Refuse(top.Entity, "a blank or point ends the name");
        if (!top.Architecture.empty()) Writer.Lose("the architecture " + top.Architecture);
        const bool isInLibrary = top.Language == LANGUAGE_VHDL && top.Library != "work";
        names += names.empty() ? "" : " ";
        names += TextOfName(isInLibrary ? top.Library + "." + top.Entity : top.Entity);
    }
    return names;
}

TJson TEdamParts::MakeToolOptions() {
    const TBuildPlan& plan = Writer.GetPlan();
    TJson icarus;
    for (const TPlanSource& source : plan.Sources)
        if (icarus.IsNull() && source.Language == LANGUAGE_VERILOG && IsSystemVerilog(source, plan))
            icarus.Add("-g2012");
    const TPlanSettings& settings = Writer.SettingsOf(LANGUAGE_VERILOG);
    if (settings.Delay == DELAY_TYPE_MINIMUM) icarus.Add("-Tmin");
    if (settings.Delay == DELAY_TYPE_MAXIMUM) icarus.Add("-Tmax");
    TJson options;
    if (!icarus.IsNull()) options["icarus"]["iverilog_options"] = std::move(icarus);
    return options;
}

void TEdamParts::LoseSettings() {
    for (const TPlanSettings& settings : Writer.GetPlan().Settings) {
        if (!settings.LibraryDirectories.empty()) Writer.Lose("library directories");
        Writer.LoseOptions(settings.Language, {});
    }
    Writer.LoseLibraryFiles();
}

std::string TEdamParts::TextOfName(const std::string& name) {
    if (!IsUtf8Text(name))
        Writer.Refuse(name, "it is no UTF-8");
    else if (!IsYamlText(name))
        Writer.Refuse(name, "a code point in it is no character");
    return name;
}
