#include "tests/support/settingtexts.h"
#include "settings/settingtable.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <regex>

namespace {

/// The value of a setting: that of `values`, or the default.
template <class TRow>
std::string ValueOf(const TRow& row, const TSettingValues& values) {
    const auto found = values.find(row.Name);
    return found == values.end() ? row.Default : found->second;
}

template <class TRow>
void ExpectKnown(const std::vector<TRow>& rows, const TSettingValues& values) {
    for (const auto& value : values)
        EXPECT_TRUE(std::any_of(rows.begin(), rows.end(),
                                [&value](const TRow& row) { return value.first == row.Name; }))
            << value.first << " is no setting";
}

const std::vector<TGeneralSettingText>& General(const TSettingValues& values) {
    ExpectKnown(GeneralSettingTexts(), values);
    return GeneralSettingTexts();
}

const std::vector<TLanguageSettingText>& Language(const TSettingValues& values) {
    ExpectKnown(LanguageSettingTexts(), values);
    return LanguageSettingTexts();
}

template <class TRow>
std::vector<TRow> InIniOrder(std::vector<TRow> rows) {
    std::sort(rows.begin(), rows.end(),
              [](const TRow& a, const TRow& b) { return a.IniPlace < b.IniPlace; });
    return rows;
}

std::vector<std::string> EntriesIn(const std::string& value) {
    std::vector<std::string> entries;
    for (std::size_t begin = 0; begin < value.size();) {
        const std::size_t end = std::min(value.find(", ", begin), value.size());
        entries.push_back(value.substr(begin, end - begin));
        begin = end + 2;
    }
    return entries;
}

std::string ElementText(const TLanguageSettingText& row, const std::string& value) {
    if (row.Form != FORM_DELAY) return value;
    return value == "min" ? "0" : value == "typical" ? "1" : "2";
}

/// A language's elements: `leaf(name, text, depth)` gives one with a text, `start` and `end` those
/// of a list.
template <class TLeaf, class TStart, class TEnd>
std::string Rendered(const TSettingValues& values, TLeaf leaf, TStart start, TEnd end) {
    std::string text;
    for (const TLanguageSettingText& row : Language(values)) {
        const std::string value = ValueOf(row, values);
        if (value.empty() && (row.Form == FORM_LIST || !row.IsWrittenEmpty)) continue;
        if (row.Form != FORM_LIST) {
            text += leaf(row.Name, ElementText(row, value), 0);
            continue;
        }
        text += start(row.Name);
        for (const std::string& entry : EntriesIn(value)) text += leaf(row.Entry, entry, 1);
        text += end(row.Name);
    }
    return text;
}

std::string IniList(const std::string& key, const std::vector<std::string>& entries) {
    if (entries.empty()) return "";
    std::string text = key + " Count=" + std::to_string(entries.size()) + "\n";
    for (std::size_t i = 0; i < entries.size(); ++i)
        text += key + std::to_string(i) + "=" + entries[i] + "\n";
    return text;
}

std::string JsonValue(TSettingForm form, const std::string& value) {
    if (form == FORM_BARE) return value;
    if (form != FORM_LIST) return "\"" + value + "\"";
    std::string text;
    for (const std::string& entry : EntriesIn(value))
        text += (text.empty() ? "\n" : ",\n") + std::string(8, ' ') + "\"" + entry + "\"";
    return text.empty() ? "[]" : "[" + text + "\n      ]";
}

template <class TRow>
std::string JsonObject(const std::string& name, std::size_t depth, const std::vector<TRow>& rows,
                       const TSettingValues& values) {
    const std::string indent(depth, ' ');
    std::string text;
    for (const TRow& row : rows)
        text += (text.empty() ? "\n" : ",\n") + indent + "  \"" + row.Name +
                "\": " + JsonValue(row.Form, ValueOf(row, values));
    return indent + "\"" + name + "\": {" + text + "\n" + indent + "}";
}

template <class TRow>
std::string Shown(const std::vector<TRow>& rows, const TSettingValues& values) {
    std::string text;
    for (const TRow& row : rows) text += ShownLine(row.Name, ValueOf(row, values));
    return text;
}

/// The settings of the library that `rows` lacks.
template <class TSettings, class TRow>
std::vector<std::string> UnknownIn(const TSettings& settings, const std::vector<TRow>& rows) {
    std::vector<std::string> names;
    for (const auto& setting : settings)
        if (std::none_of(rows.begin(), rows.end(), [&setting](const TRow& row) {
                return std::string(row.Name) == setting.Name;
            }))
            names.emplace_back(setting.Name);
    return names;
}

/// A setting in any format but JSON, with the line end before it where it has lines of its own.
std::regex EveryFormOf(const std::string& name) {
    const std::string attribute = " " + name + "=(\"[^\"]*\"|[^ \n]*)";
    const std::string element = "\n *<" + name + ">[^\n]*</" + name + ">";
    const std::string pushed = "\nSTART " + name + "(\nTEXT [^\n]*)?\nEND " + name;
    const std::string key = "\n[^\n=]*\\b" + name + "=[^\n]*";
    const std::string shown = "\n  " + name + "( [^\n]*)?(?=\n)";
    return std::regex(attribute + "|" + element + "|" + pushed + "|" + key + "|" + shown);
}

std::string GeneralKeys(const TSettingValues& values, bool fixed) {
    std::string text;
    for (const TGeneralSettingText& row : InIniOrder(General(values)))
        if (fixed || !row.FixedInDiagrams)
            text += std::string(row.Name) + "=" + ValueOf(row, values) + "\n";
    return text;
}

}  // namespace

// clang-format off
const std::vector<TGeneralSettingText>& GeneralSettingTexts() {
    static const std::vector<TGeneralSettingText> rows = {
        // name, form, default, changed, missing in an element, missing in INI files, place there, fixed in diagrams
        {"LogFileName", FORM_TEXT, "simulation.log", "my log.txt", nullptr, nullptr, 12},
        {"AddTopLevelSignals", FORM_BARE, "true", "false", "true", "true", 1, "false"},
        {"ShowWatchSignals", FORM_BARE, "true", "false", "true", "true", 2, "true"},
        {"DumpWatchSignals", FORM_BARE, "false", "true", "true", "false", 3},
        {"BreakAtTimeZeroAfterCompile", FORM_BARE, "false", "true", "true", "false", 4, "false"},
        {"ClearLogFileBeforeCompile", FORM_BARE, "true", "false", "true", "true", 5},
        {"AutoParseProject", FORM_BARE, "false", "true", "true", "false", 6, "false"},
        {"GenerateTestBenchOnBuildProject", FORM_BARE, "true", "false", "true", "true", 7},
        {"DisablePeriodicWaveformUpdate", FORM_BARE, "false", "true", "false", "false", 8},
        {"CompileVerilogFiles", FORM_BARE, "false", "true", "false", "false", 9},
        {"CompileVHDLFiles", FORM_BARE, "false", "true", "false", "false", 10},
        {"CompileCppFiles", FORM_BARE, "false", "true", "false", "false", 11},
        {"MakeConstantsWatchable", FORM_BARE, "true", "false", "true", "true", 13},
        {"MakeArrayElementsWatchable", FORM_BARE, "false", "true", "false", "false", 14},
        {"WatchableArrayElementSize", FORM_BARE, "0", "64", "0", "0", 15},
        {"EnableSimulatorDebugging", FORM_BARE, "true", "false", "true", "true", 16},
    };
    return rows;
}

const std::vector<TLanguageSettingText>& LanguageSettingTexts() {
    static const std::vector<TLanguageSettingText> rows = {
        // name, form, default, INI key, language that has it, place there, entry, written when empty
        {"SimTool", FORM_TEXT, "None", "SimTool"},
        {"IncludeDirectories", FORM_LIST, "", "IncludeDirectory", "Verilog", 1, "Directory"},
        {"LibraryDirectories", FORM_LIST, "", "LibraryDirectory", "Verilog", 2, "Directory"},
        {"LibraryExtensions", FORM_LIST, "", "LibraryExtension", "Verilog", 3, "Extension"},
        {"UseVhdl93Defaults", FORM_BARE, "true", "UseVhdl93Defaults", "Verilog", 4},
        {"DelayType", FORM_DELAY, "typical", "DelayType", "Verilog", 5},
        {"PliDriven", FORM_BARE, "false", "PliDriven", "Verilog", 6},
        {"ActiveSnapshotName", FORM_TEXT, "", "ActiveSnapshotName", nullptr, 7},
        {"DestinationLibraryName", FORM_TEXT, "work", "DestinationLibraryName", nullptr, 8},
        {"AdditionalExtensions", FORM_TEXT, "", "AdditionalExtensions", nullptr, 11},
        {"BuildOptions", FORM_TEXT, "", "BuildOptions", nullptr, 12},
        {"LinkerOptions", FORM_TEXT, "", "LinkerOptions", nullptr, 13},
        {"RuntimeOptions", FORM_TEXT, "", "RuntimeOptions", nullptr, 14},
        {"OutputFileName", FORM_TEXT, "", "OutputFileName", "TestBuilder", 10, nullptr, false},
        {"RunOutputFileExecutable", FORM_BARE, "false", "RunOutputFileExecutable", "TestBuilder", 9},
        {"ForceTopLevel", FORM_BARE, "false"},
    };
    return rows;
}
// clang-format on

TSettingValues GeneralValues(const char* TGeneralSettingText::*column) {
    TSettingValues values;
    for (const TGeneralSettingText& row : GeneralSettingTexts())
        if (row.*column) values[row.Name] = row.*column;
    return values;
}

std::string WithoutUnknown(std::string text) {
    for (const std::string& name : UnknownIn(GetGeneralSettings(), GeneralSettingTexts()))
        text = std::regex_replace(text, EveryFormOf(name), "");
    for (const std::string& name : UnknownIn(GetLanguageSettings(), LanguageSettingTexts()))
        text = std::regex_replace(text, EveryFormOf(name), "");
    return text;
}

std::string SettingNames() {
    std::string names;
    for (const TGeneralSettingText& row : GeneralSettingTexts())
        names += (names.empty() ? "" : ", ") + std::string(row.Name);
    for (const TLanguageSettingText& row : LanguageSettingTexts())
        names += ", " + std::string(row.Name);
    return names;
}

std::string GeneralStart(const TSettingValues& values) {
    std::string text = "START GeneralConfiguration";
    for (const TGeneralSettingText& row : General(values))
        text += " " + std::string(row.Name) + "=" + ValueOf(row, values);
    return text + "\n";
}

std::string GeneralElements(const TSettingValues& values) {
    return GeneralStart(values) + "END GeneralConfiguration\n";
}

std::string LanguageContent(const TSettingValues& values) {
    const auto start = [](const std::string& name) { return "START " + name + "\n"; };
    const auto end = [](const std::string& name) { return "END " + name + "\n"; };
    const auto leaf = [&](const std::string& name, const std::string& text, std::size_t) {
        return start(name) + "TEXT " + text + "\n" + end(name);
    };
    return Rendered(values, leaf, start, end);
}

std::string LanguageElements(const std::string& language, const TSettingValues& values) {
    return "START LanguageSettings Language=" + language + "\n" + LanguageContent(values) +
           "END LanguageSettings\n";
}

std::string GeneralXml(const TSettingValues& values) {
    std::string text = "<GeneralConfiguration";
    for (const TGeneralSettingText& row : General(values))
        text += " " + std::string(row.Name) + "=\"" + ValueOf(row, values) + "\"";
    return text + "/>";
}

std::string LanguageXml(const std::string& language, const TSettingValues& values) {
    const std::string indent(8, ' ');
    const auto start = [&](const std::string& name) { return indent + "<" + name + ">\n"; };
    const auto end = [&](const std::string& name) { return indent + "</" + name + ">\n"; };
    const auto leaf = [&](const std::string& name, const std::string& text, std::size_t depth) {
        return indent + std::string(depth * 2, ' ') + "<" + name + ">" +
               (text.empty() ? "<![CDATA[]]>" : text) + "</" + name + ">\n";
    };
    return "      <LanguageSettings Language=\"" + language + "\">\n" +
           Rendered(values, leaf, start, end) + "      </LanguageSettings>\n";
}

std::string GeneralIni(const TSettingValues& values) {
    return GeneralKeys(values, true);
}

std::string GeneralIniOfDiagrams(const TSettingValues& values) {
    return GeneralKeys(values, false);
}

std::string LanguageIni(const std::string& language, const std::string& prefix,
                        const TSettingValues& values) {
    std::string text;
    for (const TLanguageSettingText& row : InIniOrder(Language(values))) {
        if (!row.IniKey || (row.IniLanguage && language != row.IniLanguage)) continue;
        const std::string key = (text.empty() ? "" : prefix) + row.IniKey;
        const std::string value = ValueOf(row, values);
        text += row.Form == FORM_LIST ? IniList(key, EntriesIn(value)) : key + "=" + value + "\n";
    }
    return text;
}

std::string ShownLine(const std::string& name, const std::string& value) {
    return "  " + name + (value.empty() ? "" : std::string(34 - name.size(), ' ') + value) + "\n";
}

std::string ShownGeneral(const TSettingValues& values) {
    return Shown(General(values), values);
}

std::string ShownLanguage(const std::string& language, const TSettingValues& values) {
    return language + "\n" + Shown(Language(values), values);
}

std::string GeneralJson(const TSettingValues& values) {
    return JsonObject("general", 2, General(values), values);
}

std::string LanguageJson(const std::string& language, const TSettingValues& values) {
    return JsonObject(language, 4, Language(values), values);
}
