#include "flows/formats/edamparts.h"
#include "flows/formats/shelltext.h"
#include "flows/scan/sourcetext.h"
#include "flows/trees/yamltext.h"
#include <algorithm>
#include <charconv>
#include <optional>
#include <unordered_map>
#include <utility>

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

TJson ParameterOf(const TScanDefine& define, const char* kind) {
    if (define.Value.empty()) return {{"datatype", "bool"}, {"default", true}, {"paramtype", kind}};
    const std::optional<long long> number = PlainNumber(define.Value);
    return {{"datatype", number ? "int" : "str"},
            {"default", number ? TJson(*number) : TJson(define.Value)},
            {"paramtype", kind}};
}

/// A word of a simulation, "+NAME" or "+NAME=VALUE", that is the same behind a shell; none for
/// another one.
std::optional<TScanDefine> PlusArgumentOf(const std::string& word) {
    constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_";
    const std::size_t sign = std::min(word.find('='), word.size());
    const bool isPlain = word.size() > 1 && word[0] == '+' && HasAny(word.substr(1, 1), kLetters) &&
                         word.find_first_not_of(std::string(kLetters) + "0123456789", 1) >= sign &&
                         sign + 1 != word.size() && ShellWord(word) == word;
    if (!isPlain) return {};
    return TScanDefine{word.substr(1, sign - 1), word.substr(std::min(sign + 1, word.size()))};
}

}  // namespace

std::string TEdamParts::FileTypeOf(const TPlanSource& source) {
    const std::string& standard = Writer.SettingsOf(source.Language).Standard;
    switch (source.Language) {
        case LANGUAGE_VHDL:
            for (const TStandardType& type : kVhdlTypes)
                if (standard == type.Standard) return type.FileType;
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

// A parameter has one name and one meaning: of defines the last one of a name holds, run options
// are told where the name is taken.
TJson TEdamParts::MakeParameters() {
    std::vector<TJson::TMember> parameters;
    std::unordered_map<std::string, std::size_t> numbers;
    for (const TScanDefine& define : Writer.SettingsOf(LANGUAGE_VERILOG).Defines) {
        TextOfName(TextOf(define));
        const auto [number, isNew] = numbers.try_emplace(define.Name, parameters.size());
        if (isNew) parameters.emplace_back(define.Name, TJson());
        parameters[number->second].second = ParameterOf(define, "vlogdefine");
    }
    for (const std::string& word : Writer.SettingsOf(LANGUAGE_VERILOG).Options[STEP_RUN]) {
        const std::optional<TScanDefine> argument = PlusArgumentOf(word);
        if (argument && numbers.try_emplace(argument->Name, parameters.size()).second)
            parameters.emplace_back(argument->Name, ParameterOf(*argument, "plusarg"));
        else
            Writer.LoseOption(STEP_RUN, word);
    }
    TJson tree;
    for (auto& [name, parameter] : parameters) tree.AddMember(name, std::move(parameter));
    return tree;
}

std::string TEdamParts::MakeTopLevel() {
    std::string names;
    for (const TBuildTop& top : Writer.GetPlan().Tops) {
        if (Writer.GetTop() && Writer.GetTop() != &top) continue;
        const std::string entity = PlainNameOf(top);
        if (HasAny(entity, " .")) Writer.Refuse(entity, "a blank or point ends the name");
        if (!top.Architecture.empty()) Writer.Lose("the architecture " + top.Architecture);
        const bool isInLibrary = top.Language == LANGUAGE_VHDL && top.Library != "work";
        names += names.empty() ? "" : " ";
        names += TextOfName(isInLibrary ? top.Library + "." + entity : entity);
    }
    return names;
}

void TEdamParts::LoseSettings() {
    for (const TPlanSettings& settings : Writer.GetPlan().Settings) {
        if (settings.Language == LANGUAGE_VERILOG || settings.Language == LANGUAGE_VHDL) continue;
        if (!settings.LibraryDirectories.empty()) Writer.Lose("library directories");
        Writer.LoseOptions(settings.Language, {});
    }
}

std::string TEdamParts::TextOfName(const std::string& name) {
    if (!IsUtf8Text(name))
        Writer.Refuse(name, "it is no UTF-8");
    else if (!IsYamlText(name))
        Writer.Refuse(name, "a code point in it is no character");
    return name;
}
