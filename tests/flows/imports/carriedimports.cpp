#include "tests/flows/imports/carriedimports.h"
#include "tests/flows/imports/importedtext.h"
#include <map>

namespace {

/// What becomes of something that a file says.
constexpr const char* kCarried = "yes";
constexpr const char* kTold = "told";
constexpr const char* kIgnored = "no";
constexpr const char* kUnsaid = "–";  // the format has no words for it

using TTexts = std::vector<std::string>;

TTexts TextsOf(const std::vector<TImportedText>& entries) {
    TTexts texts;
    for (const TImportedText& entry : entries) texts.push_back(entry.Text);
    return texts;
}

template <class TGet>
TTexts OfSources(const TImported& imported, const TGet& get) {
    TTexts texts;
    for (const TImportedSource& source : imported.Sources) texts.push_back(get(source));
    return texts;
}

/// The same of all languages, one behind the other.
template <class TGet>
TTexts OfSettings(const TImported& imported, const TGet& get) {
    TTexts texts;
    for (const auto& [language, settings] : imported.Settings)
        for (std::string& text : get(settings)) texts.push_back(std::move(text));
    return texts;
}

template <THdlLanguage kLanguage>
TTexts SourcesIn(const TImported& imported) {
    TTexts texts;
    for (const TImportedSource& source : imported.Sources)
        if (source.Language == kLanguage) texts.push_back(source.Path);
    return texts;
}

TTexts LibrariesOf(const TImported& imported) {
    return OfSources(imported, [](const TImportedSource& source) { return source.Library; });
}

TTexts OrderOf(const TImported& imported) {
    return OfSources(imported, [](const TImportedSource& source) { return source.Path; });
}

TTexts LibraryFilesOf(const TImported& imported) {
    return OfSources(imported, [](const TImportedSource& source) {
        return std::string(source.IsLibraryFile ? source.Path : "");
    });
}

TTexts IncludesOf(const TImported& imported) {
    return OfSettings(imported,
                      [](const auto& settings) { return TextsOf(settings.IncludeDirectories); });
}

TTexts LibraryFoldersOf(const TImported& imported) {
    return OfSettings(imported,
                      [](const auto& settings) { return TextsOf(settings.LibraryDirectories); });
}

TTexts DefinesOf(const TImported& imported) {
    return OfSettings(imported, [](const TImportedSettings& settings) {
        TTexts texts;
        for (const TImportedDefine& define : settings.Defines)
            texts.push_back(define.Define.Name + "=" + define.Define.Value);
        return texts;
    });
}

TTexts StandardsOf(const TImported& imported) {
    return OfSettings(imported, [](const TImportedSettings& settings) {
        return settings.Standard ? TTexts{settings.Standard->Text} : TTexts();
    });
}

TTexts DelaysOf(const TImported& imported) {
    return OfSettings(imported, [](const TImportedSettings& settings) {
        return settings.Delay ? TTexts{GetDelayTypeFromEnum(*settings.Delay)} : TTexts();
    });
}

TTexts OptionsOf(const TImported& imported) {
    return OfSettings(imported, [](const TImportedSettings& settings) {
        TTexts texts;
        for (const auto& step : settings.Options)
            for (const TImportedOption& option : step) texts.push_back(option.Text);
        return texts;
    });
}

TTexts TopsOf(const TImported& imported) {
    TTexts texts;
    for (const TImportedTop& top : imported.Tops) texts.push_back(top.Top.Entity);
    return texts;
}

enum TFeatureOfImport : int {
    NOTHING,
    IN_VHDL,
    IN_VERILOG,
    IN_CPLUSPLUS,
    LIBRARIES,
    ORDER,
    INCLUDES,
    LIBRARY_FOLDERS,
    LIBRARY_FILES,
    DEFINES,
    STANDARD,
    DELAYS,
    OPTIONS,
    TOPS,
    NESTED
};

struct TFeatureRow {
    TFeatureOfImport Feature;
    const char* Heading;
    TTexts (*Get)(const TImported& imported);
};

constexpr TFeatureRow kFeatures[] = {
    {IN_VHDL, "VHDL", SourcesIn<LANGUAGE_VHDL>},
    {IN_VERILOG, "Verilog", SourcesIn<LANGUAGE_VERILOG>},
    {IN_CPLUSPLUS, "C++", SourcesIn<LANGUAGE_CPLUSPLUS>},
    {LIBRARIES, "libraries", LibrariesOf},
    {ORDER, "order", OrderOf},
    {INCLUDES, "include directories", IncludesOf},
    {LIBRARY_FOLDERS, "library directories", LibraryFoldersOf},
    {LIBRARY_FILES, "library files", LibraryFilesOf},
    {DEFINES, "defines", DefinesOf},
    {STANDARD, "standard", StandardsOf},
    {DELAYS, "delays", DelaysOf},
    {OPTIONS, "options", OptionsOf},
    {TOPS, "tops", TopsOf},
    {NESTED, "files of its kind", OrderOf},
};

/// A file that says something more than the one of its formats that says nothing of note. Of two
/// rows for one feature the labels tell.
struct TSample {
    TTexts Formats;
    TFeatureOfImport Feature;
    std::string Text;
    std::string Label = "";
};

const TTexts kEdam = {"edam-json", "edam-yaml"};
const TTexts kLists = {"filelist", "icarus", "slang", "vcs", "verible", "verilator"};
const TTexts kLargeLists = {"filelist", "vcs"};

// JSON is YAML as well.
std::string Edam(const std::string& rest, const std::string& attributes = "") {
    return "{\"files\": [{\"name\": \"a.v\", \"file_type\": \"verilogSource\"}, "
           "{\"name\": \"b.v\", \"file_type\": \"verilogSource\"" +
           attributes + "}]" + rest + "}";
}

std::string EdamFile(const std::string& attributes) {
    return Edam(", \"version\": \"0.2.1\"").insert(11, "{" + attributes + "}, ");
}

std::string EdamOptions(const std::string& tool, const std::string& key, const std::string& word) {
    return Edam(", \"tool_options\": {\"" + tool + "\": {\"" + key + "\": [\"" + word + "\"]}}");
}

std::string Bender(const std::string& files, const std::string& rest = "") {
    return "[{\"files\": [" + files + "]" + rest + "}]";
}

std::string Commands(const std::string& words) {
    return "[{\"directory\": \".\", \"file\": \"a.cpp\", \"arguments\": [\"c++\", " + words +
           "\"a.cpp\"]}]";
}

std::string HdlPrj(const std::string& files, const std::string& words = "") {
    return "{\"files\": [" + files + "], \"options\": {\"ghdl_analysis\": [" + words + "]}}";
}

std::string VunitJson(const std::string& first, const std::string& second,
                      const std::string& library = "l") {
    return "{\"export_format_version\": {\"major\": 1}, \"files\": [{\"file_name\": \"" + first +
           "\", \"library_name\": \"l\"}, {\"file_name\": \"" + second +
           "\", \"library_name\": \"" + library + "\"}]}";
}

const std::vector<TSample>& Samples() {
    static const std::string ab = "a.v\nb.v\n";
    static const std::string prj = "{\"file\": \"a.vhd\"}";
    static const std::vector<TSample> samples = {
        {{"bender"}, NOTHING, Bender("\"a.v\", \"b.v\"")},
        {{"bender"}, IN_VHDL, Bender("\"a.v\", \"b.v\", \"c.vhd\"")},
        {{"bender"}, IN_VERILOG, Bender("\"a.v\", \"b.v\", \"c.sv\"")},
        {{"bender"}, IN_CPLUSPLUS, Bender("\"a.v\", \"b.v\", \"c.cpp\"")},
        {{"bender"}, ORDER, Bender("\"b.v\", \"a.v\"")},
        {{"bender"}, INCLUDES, Bender("\"a.v\", \"b.v\"", ", \"include_dirs\": [\"inc\"]")},
        {{"bender"}, DEFINES, Bender("\"a.v\", \"b.v\"", ", \"defines\": {\"A\": \"1\"}")},

        {{"blueprint"}, NOTHING, "VHDL\tl\ta.vhd\nVHDL\tl\tb.vhd\n"},
        {{"blueprint"}, IN_VHDL, "VHDL\tl\ta.vhd\nVHDL\tl\tb.vhd\nVHDL\tl\tc.vhd\n"},
        {{"blueprint"}, IN_VERILOG, "VHDL\tl\ta.vhd\nVHDL\tl\tb.vhd\nVLOG\tl\tc.v\n"},
        {{"blueprint"}, IN_CPLUSPLUS, "VHDL\tl\ta.vhd\nVHDL\tl\tb.vhd\nCPP\tl\tc.cpp\n"},
        {{"blueprint"}, LIBRARIES, "VHDL\tl\ta.vhd\nVHDL\tm\tb.vhd\n"},
        {{"blueprint"}, ORDER, "VHDL\tl\tb.vhd\nVHDL\tl\ta.vhd\n"},

        {{"compile-commands"}, NOTHING, Commands("")},
        {{"compile-commands"},
         IN_CPLUSPLUS,
         "[{\"directory\": \".\", \"file\": \"b.cpp\", \"arguments\": [\"c++\", \"b.cpp\"]}]"},
        {{"compile-commands"}, INCLUDES, Commands("\"-Iinc\", ")},
        {{"compile-commands"}, DEFINES, Commands("\"-DA\", ")},
        {{"compile-commands"}, STANDARD, Commands("\"-std=c++17\", ")},
        {{"compile-commands"}, OPTIONS, Commands("\"-O2\", ")},

        {{"depfile"}, NOTHING, "x: a.v b.v\n"},
        {{"depfile"}, IN_VHDL, "x: a.v b.v c.vhd\n"},
        {{"depfile"}, IN_VERILOG, "x: a.v b.v c.sv\n"},
        {{"depfile"}, IN_CPLUSPLUS, "x: a.v b.v c.cpp\n"},
        {{"depfile"}, INCLUDES, "x: a.v b.v inc/c.vh\n"},

        {kEdam, NOTHING, Edam("")},
        {kEdam, IN_VHDL, EdamFile("\"name\": \"c.vhd\", \"file_type\": \"vhdlSource\"")},
        {kEdam, IN_VERILOG, EdamFile("\"name\": \"c.v\", \"file_type\": \"verilogSource\"")},
        {kEdam, IN_CPLUSPLUS, EdamFile("\"name\": \"c.cpp\", \"file_type\": \"cppSource\"")},
        {kEdam, LIBRARIES, Edam("", ", \"logical_name\": \"l\"")},
        {kEdam, ORDER,
         "{\"files\": [{\"name\": \"b.v\", \"file_type\": \"verilogSource\"}, "
         "{\"name\": \"a.v\", \"file_type\": \"verilogSource\"}]}"},
        {kEdam, INCLUDES,
         EdamFile("\"name\": \"inc/c.vh\", \"file_type\": \"verilogSource\", "
                  "\"is_include_file\": true")},
        {kEdam, LIBRARY_FOLDERS, EdamOptions("icarus", "iverilog_options", "-y lib"), "Icarus"},
        {kEdam, LIBRARY_FOLDERS, EdamOptions("verilator", "verilator_options", "-y lib"),
         "Verilator"},
        {kEdam, LIBRARY_FILES, EdamOptions("icarus", "iverilog_options", "-l c.v"), "Icarus"},
        {kEdam, LIBRARY_FILES, EdamOptions("verilator", "verilator_options", "-v c.v"),
         "Verilator"},
        {kEdam, DEFINES,
         Edam(", \"parameters\": {\"A\": {\"datatype\": \"int\", \"default\": 1, "
              "\"paramtype\": \"vlogdefine\"}}")},
        {kEdam, STANDARD, EdamFile("\"name\": \"c.vhd\", \"file_type\": \"vhdlSource-2008\""),
         "VHDL"},
        {kEdam, STANDARD, EdamOptions("ghdl", "analyze_options", "--std=08"), "GHDL"},
        {kEdam, STANDARD, EdamOptions("icarus", "iverilog_options", "-g2012"), "Verilog"},
        {kEdam, DELAYS, EdamOptions("icarus", "iverilog_options", "-Tmax")},
        {kEdam, OPTIONS, EdamOptions("ghdl", "analyze_options", "-frelaxed"), "GHDL analysis"},
        {kEdam, OPTIONS, EdamOptions("ghdl", "run_options", "--stop-time=1us"), "GHDL run"},
        {kEdam, OPTIONS, EdamOptions("icarus", "iverilog_options", "-Wall"), "Icarus analysis"},
        {kEdam, OPTIONS, EdamOptions("icarus", "vvp_options", "-n"), "Icarus run"},
        {kEdam, OPTIONS, EdamOptions("verilator", "verilator_options", "--trace"),
         "Verilator analysis"},
        {kEdam, OPTIONS, EdamOptions("verilator", "run_options", "+seed=1"), "Verilator run"},
        {kEdam, OPTIONS, EdamOptions("modelsim", "vlog_options", "-x"), "others"},
        {kEdam, TOPS, Edam(", \"toplevel\": \"tb\"")},

        {{"ghdl-order"}, NOTHING, "l a.vhd\nl b.vhd\n"},
        {{"ghdl-order"}, IN_VHDL, "l a.vhd\nl b.vhd\nl c.vhd\n"},
        {{"ghdl-order"}, LIBRARIES, "l a.vhd\nm b.vhd\n"},
        {{"ghdl-order"}, ORDER, "l b.vhd\nl a.vhd\n"},

        {{"hdl-prj"}, NOTHING, HdlPrj(prj + ", {\"file\": \"b.vhd\"}")},
        {{"hdl-prj"}, IN_VHDL, HdlPrj(prj + ", {\"file\": \"b.vhd\"}, {\"file\": \"c.vhd\"}")},
        {{"hdl-prj"},
         IN_VERILOG,
         HdlPrj(prj + ", {\"file\": \"b.vhd\"}, {\"file\": \"c.v\", \"language\": \"verilog\"}")},
        {{"hdl-prj"},
         IN_CPLUSPLUS,
         HdlPrj(prj + ", {\"file\": \"b.vhd\"}, {\"file\": \"c.cpp\", \"language\": \"c\"}")},
        {{"hdl-prj"}, LIBRARIES, HdlPrj(prj + ", {\"file\": \"b.vhd\", \"library\": \"l\"}")},
        {{"hdl-prj"}, ORDER, HdlPrj("{\"file\": \"b.vhd\"}, " + prj)},
        {{"hdl-prj"}, STANDARD, HdlPrj(prj, "\"--std=08\"")},
        {{"hdl-prj"}, OPTIONS, HdlPrj(prj, "\"-frelaxed\"")},

        {{"hdlmake"}, NOTHING, "files = ['a.v', 'b.v']\n"},
        {{"hdlmake"}, IN_VHDL, "files = ['a.v', 'b.v', 'c.vhd']\n"},
        {{"hdlmake"}, IN_VERILOG, "files = ['a.v', 'b.v', 'c.sv']\n"},
        {{"hdlmake"}, IN_CPLUSPLUS, "files = ['a.v', 'b.v', 'c.cpp']\n"},
        {{"hdlmake"}, LIBRARIES, "library = 'l'\nfiles = ['a.v', 'b.v']\n"},
        {{"hdlmake"}, INCLUDES, "include_dirs = ['inc']\nfiles = ['a.v', 'b.v']\n"},
        {{"hdlmake"}, OPTIONS, "vcom_opt = '-x'\nfiles = ['a.v', 'b.v']\n", "VHDL analysis"},
        {{"hdlmake"}, OPTIONS, "vlog_opt = '-x'\nfiles = ['a.v', 'b.v']\n", "Verilog analysis"},
        {{"hdlmake"}, OPTIONS, "vsim_opt = '-x'\nfiles = ['a.v', 'b.v']\n", "run"},
        {{"hdlmake"}, TOPS, "sim_top = 'tb'\nfiles = ['a.v', 'b.v']\n"},
        {{"hdlmake"}, NESTED, "modules = {'local': ['sub']}\nfiles = ['a.v', 'b.v']\n", "local"},
        {{"hdlmake"}, NESTED, "modules = {'git': ['x.git']}\nfiles = ['a.v', 'b.v']\n", "git"},

        {{"icarus-deps"}, NOTHING, "M a.v\nM b.v\n"},
        {{"icarus-deps"}, IN_VERILOG, "M a.v\nM b.v\nM c.v\n"},
        {{"icarus-deps"}, ORDER, "M b.v\nM a.v\n"},
        {{"icarus-deps"}, INCLUDES, "M a.v\nM b.v\nI inc/c.vh\n"},

        {{"libmap"}, NOTHING, "library l a.v, b.v;\n"},
        {{"libmap"}, IN_VHDL, "library l a.v, b.v, c.vhd;\n"},
        {{"libmap"}, IN_VERILOG, "library l a.v, b.v, c.sv;\n"},
        {{"libmap"}, IN_CPLUSPLUS, "library l a.v, b.v, c.cpp;\n"},
        {{"libmap"}, LIBRARIES, "library l a.v; library m b.v;\n"},
        {{"libmap"}, INCLUDES, "library l a.v, b.v -incdir inc;\n"},
        {{"libmap"}, NESTED, "library l a.v, b.v; include other.map;\n"},

        {{"osvvm"}, NOTHING, "library l\nanalyze a.vhd\nanalyze b.vhd\n"},
        {{"osvvm"}, IN_VHDL, "library l\nanalyze a.vhd\nanalyze b.vhd\nanalyze c.vhd\n"},
        {{"osvvm"}, IN_VERILOG, "library l\nanalyze a.vhd\nanalyze b.vhd\nanalyze c.v\n"},
        {{"osvvm"}, IN_CPLUSPLUS, "library l\nanalyze a.vhd\nanalyze b.vhd\nanalyze c.cpp\n"},
        {{"osvvm"}, LIBRARIES, "library l\nanalyze a.vhd\nlibrary m\nanalyze b.vhd\n"},
        {{"osvvm"}, ORDER, "library l\nanalyze b.vhd\nanalyze a.vhd\n"},
        {{"osvvm"}, STANDARD, "SetVHDLVersion 2008\nlibrary l\nanalyze a.vhd\nanalyze b.vhd\n"},
        {{"osvvm"},
         OPTIONS,
         "SetExtendedAnalyzeOptions {-x}\nlibrary l\nanalyze a.vhd\nanalyze b.vhd\n"},
        {{"osvvm"}, TOPS, "library l\nanalyze a.vhd\nanalyze b.vhd\nsimulate tb\n"},
        {{"osvvm"}, NESTED, "library l\nanalyze a.vhd\nanalyze b.vhd\ninclude other.pro\n"},

        {kLists, NOTHING, ab},
        {kLists, IN_VERILOG, ab + "c.v\n"},
        {kLists, ORDER, "b.v\na.v\n"},
        {kLists, INCLUDES, ab + "+incdir+inc\n"},
        {kLists, DEFINES, ab + "+define+A=1\n"},
        {{"filelist", "vcs", "verilator"}, IN_CPLUSPLUS, ab + "c.cpp\n"},
        {kLargeLists, IN_VHDL, ab + "c.vhd\n"},
        {kLargeLists, LIBRARIES, "-work l\n" + ab},
        {{"slang"}, LIBRARIES, ab + "-v l=c.v\n"},
        {{"filelist", "icarus", "slang", "vcs", "verilator"}, LIBRARY_FOLDERS, ab + "-y lib\n"},
        {{"filelist", "icarus", "slang", "vcs", "verilator"}, LIBRARY_FILES, ab + "-v c.v\n"},
        {{"filelist", "vcs", "verilator"}, STANDARD, ab + "-sv\n"},
        {{"icarus"}, STANDARD, ab + "// iverilog -g2012\n"},
        {{"slang"}, STANDARD, ab + "--std=1800-2017\n"},
        {kLargeLists, DELAYS, ab + "+maxdelays\n"},
        {{"icarus"}, DELAYS, ab + "// iverilog -Tmax\n"},
        {{"slang"}, DELAYS, ab + "--timing max\n"},
        {kLists, OPTIONS, ab + "--word\n"},
        {{"filelist", "verilator"}, TOPS, ab + "--top-module tb\n"},
        {{"icarus"}, TOPS, ab + "// iverilog -s tb\n"},
        {{"slang"}, TOPS, ab + "--top tb\n"},
        {{"vcs"}, TOPS, ab + "-top tb\n"},
        {{"filelist", "icarus", "slang", "vcs", "verilator"}, NESTED, ab + "-f other.f\n"},

        {{"vhdl-ls"}, NOTHING, "[libraries]\nl.files = ['a.vhd', 'b.vhd']\n"},
        {{"vhdl-ls"}, IN_VHDL, "[libraries]\nl.files = ['a.vhd', 'b.vhd', 'c.vhd']\n"},
        {{"vhdl-ls"}, LIBRARIES, "[libraries]\nl.files = ['a.vhd']\nm.files = ['b.vhd']\n"},
        {{"vhdl-ls"}, STANDARD, "standard = '2008'\n[libraries]\nl.files = ['a.vhd', 'b.vhd']\n"},

        {{"vunit-csv"}, NOTHING, "l,a.vhd\nl,b.vhd\n"},
        {{"vunit-csv"}, IN_VHDL, "l,a.vhd\nl,b.vhd\nl,c.vhd\n"},
        {{"vunit-csv"}, IN_VERILOG, "l,a.vhd\nl,b.vhd\nl,c.v\n"},
        {{"vunit-csv"}, IN_CPLUSPLUS, "l,a.vhd\nl,b.vhd\nl,c.cpp\n"},
        {{"vunit-csv"}, LIBRARIES, "l,a.vhd\nm,b.vhd\n"},

        {{"vunit-json"}, NOTHING, VunitJson("a.vhd", "b.vhd")},
        {{"vunit-json"}, IN_VHDL, VunitJson("a.vhd", "c.vhd")},
        {{"vunit-json"}, IN_VERILOG, VunitJson("a.vhd", "c.v")},
        {{"vunit-json"}, IN_CPLUSPLUS, VunitJson("a.vhd", "c.cpp")},
        {{"vunit-json"}, LIBRARIES, VunitJson("a.vhd", "b.vhd", "m")},
        {{"vunit-json"}, ORDER, VunitJson("b.vhd", "a.vhd")},
    };
    return samples;
}

/// The samples of a format, by feature.
std::map<TFeatureOfImport, std::vector<const TSample*>> SamplesOf(const std::string& format) {
    std::map<TFeatureOfImport, std::vector<const TSample*>> samples;
    for (const TSample& sample : Samples())
        if (std::find(sample.Formats.begin(), sample.Formats.end(), format) != sample.Formats.end())
            samples[sample.Feature].push_back(&sample);
    return samples;
}

TImported ImportOfText(const TImportFormat& format, const std::string& text,
                       const ImportFolder& folder) {
    folder.Write("in/list", text);
    TImported imported = folder.Import(format.Name, {"in/list"});
    std::erase_if(imported.Diagnostics, [](const TDiagnostic& diagnostic) {
        return diagnostic.Code == DIAGNOSTIC_IMPORTED_FILE_MISSING;
    });
    return imported;
}

const char* FateOf(const TFeatureRow& feature, const TImported& before, const TImported& after) {
    if (feature.Get(after) != feature.Get(before)) return kCarried;
    const auto count = [](const TImported& imported) {
        return std::count_if(imported.Diagnostics.begin(), imported.Diagnostics.end(),
                             [](const TDiagnostic& diagnostic) {
                                 return diagnostic.Code == DIAGNOSTIC_NOT_IMPORTED ||
                                        diagnostic.Code == DIAGNOSTIC_IMPORTED_OPTION;
                             });
    };
    return count(after) > count(before) ? kTold : kIgnored;
}

/// "yes", or "VHDL yes, else told" where the samples differ.
std::string CellOf(const TFeatureRow& feature, const TImportFormat& format,
                   const std::vector<const TSample*>& samples, const TImported& before,
                   const ImportFolder& folder) {
    if (feature.Feature == ORDER && samples.empty() == (format.Order == ORDER_COUNTS))
        return "another order than the table of formats says";
    std::string carried;
    std::string rest;
    for (const TSample* const sample : samples) {
        const std::string fate =
            FateOf(feature, before, ImportOfText(format, sample->Text, folder));
        if (fate == kCarried)
            carried.append(carried.empty() ? "" : ", ").append(sample->Label);
        else if (fate == kIgnored)
            return "passed over in silence: " + sample->Text;
        else
            rest = fate;
    }
    if (samples.empty()) return kUnsaid;
    if (rest.empty()) return kCarried;
    const bool isAny = carried.find_first_not_of(", ") != std::string::npos;
    return isAny ? carried + " yes, else " + rest : rest;
}

}  // namespace

std::string MakeTableOfCarriedImports() {
    const ImportFolder folder;
    folder.Write("in/other.f", "c.v\n");
    folder.Write("in/other.map", "library l c.v;\n");
    folder.Write("in/other.pro", "analyze c.vhd\n");
    folder.Write("in/sub/Manifest.py", "files = ['c.v']\n");
    std::string table = "| Format |";
    std::string line = "|---|";
    for (const TFeatureRow& feature : kFeatures) {
        table.append(" ").append(feature.Heading).append(" |");
        line += "---|";
    }
    table += "\n" + line + "\n";
    for (const TImportFormat& format : GetImportFormats()) {
        auto samples = SamplesOf(format.Name);
        table.append("| `").append(format.Name).append("` |");
        if (samples[NOTHING].size() != 1) return table + " no sample";
        const TImported before = ImportOfText(format, samples[NOTHING].front()->Text, folder);
        for (const TFeatureRow& feature : kFeatures)
            table += " " + CellOf(feature, format, samples[feature.Feature], before, folder) + " |";
        table += "\n";
    }
    return table;
}
