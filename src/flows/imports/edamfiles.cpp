#include "flows/imports/edamoptions.h"
#include "flows/imports/formatreaders.h"
#include "flows/imports/treeimport.h"
#include "flows/plan/planoptions.h"
#include <algorithm>
#include <charconv>
#include <optional>
#include <set>

namespace {

/// What stands before the dash of a type.
struct TEdamType {
    std::string_view Name;
    THdlLanguage Language;
};

constexpr TEdamType kEdamTypes[] = {
    {"verilogSource", LANGUAGE_VERILOG}, {"systemVerilogSource", LANGUAGE_VERILOG},
    {"vhdlSource", LANGUAGE_VHDL},       {"cSource", LANGUAGE_CPLUSPLUS},
    {"cppSource", LANGUAGE_CPLUSPLUS},   {"systemCSource", LANGUAGE_SYSTEMC}};

/// What stands behind the dash of VHDL.
struct TEdamYear {
    std::string_view Name;
    const char* Year;
};

constexpr TEdamYear kEdamYears[] = {
    {"87", "1987"}, {"93", "1993"}, {"2002", "2002"}, {"2008", "2008"}, {"2019", "2019"}};

bool IsTrue(const TTree* value) {
    constexpr std::string_view kTrue[] = {"true", "True", "TRUE", "yes", "Yes",
                                          "YES",  "on",   "On",   "ON",  "1"};
    return value && std::find(std::begin(kTrue), std::end(kTrue), value->Text) != std::end(kTrue);
}

/// The text of a number, in decimal: Verilog has other words for hexadecimal, octal and binary
/// numbers than YAML 1.1, which Edalize reads. None for one that neither knows.
std::optional<std::string> DecimalOf(const TTree& value) {
    std::string digits = value.Text;
    const bool isNegative = digits.starts_with('-');
    if (isNegative || digits.starts_with('+')) digits.erase(0, 1);
    const std::size_t prefix =
        digits.size() > 1 && digits[0] == '0' && std::string_view("xXbBoO").find(digits[1]) < 6 ? 2
                                                                                                : 0;
    const bool isOctal = prefix == 0 && value.Kind == TREE_INTEGER && digits.starts_with('0') &&
                         digits.find_first_of("89") == std::string::npos;
    if (prefix == 0 && !isOctal) return value.Text;
    const int base = isOctal ? 8 : digits[1] == 'x' ? 16 : digits[1] == 'b' ? 2 : 0;
    digits.erase(0, prefix);
    std::erase(digits, '_');
    unsigned long long number = 0;
    const char* const end = digits.data() + digits.size();
    if (base == 0 || digits.empty()) return {};
    const auto read = std::from_chars(digits.data(), end, number, base);
    if (read.ptr != end || read.ec != std::errc()) return {};
    return (isNegative && number > 0 ? "-" : "") + std::to_string(number);
}

std::optional<std::string> TextOfValue(const TTree& value, const TTree& parameter) {
    const TTree* const type = parameter.Find("datatype");
    return type && type->Text == "int" ? DecimalOf(value) : value.Text;
}

/// Reads the tree, whatever it was written in.
class TEdamReader {
public:
    explicit TEdamReader(TTreeImport* tree) : Tree(*tree), Options(tree) {}

    void Read();

private:
    void ReadTop(const TTree& value);
    void ReadFile(const TTree& file);
    bool ReadType(const TTree& file, const std::string& name, TImportedSource* source);
    void ReadStandard(const TTree& file, const std::string& standard, TImportedSource* source);
    void ReadSystemVerilog(const TTree& file, const std::string& name);
    void ReadParameter(const TTree& parameter);

    TTreeImport& Tree;
    TEdamOptions Options;
    std::set<THdlLanguage> Languages;  // of the sources
    bool HasSystemVerilog = false;
};

// The name and the version are those of the file, not of what is built.
void TEdamReader::Read() {
    const TTree& root = Tree.GetRoot();
    Tree.LoseOthers(root, {"version", "name", "toplevel", "files", "parameters", "tool_options"},
                    {"cores", "dependencies"});
    if (const TTree* const top = root.Find("toplevel")) {
        if (top->IsList())
            for (const TTree& name : top->Values) ReadTop(name);
        else if (top->Kind != TREE_NULL)
            ReadTop(*top);
    }
    Options.Read();
    for (const TTree& file : Tree.ListIn(root, "files"))
        if (Tree.IsMap(file)) ReadFile(file);
    Options.AddLibraryFiles();
    Options.SetVerilogYear(HasSystemVerilog);
    Options.CheckMode(
        Languages.contains(LANGUAGE_VERILOG),
        Languages.contains(LANGUAGE_CPLUSPLUS) || Languages.contains(LANGUAGE_SYSTEMC));
    for (const TTree& parameter : Tree.MapIn(root, "parameters"))
        if (Tree.IsMap(parameter)) ReadParameter(parameter);
}

// Names between blanks; a point behind a library.
void TEdamReader::ReadTop(const TTree& value) {
    if (!Tree.IsSingle(value)) return;
    std::string_view names = value.Text;
    while (!names.empty()) {
        const std::size_t length = std::min(names.find(' '), names.size());
        const std::string name(names.substr(0, length));
        const std::size_t point = name.find('.');
        TBuildTop top{LANGUAGE_NONE, "", name, ""};
        if (point != std::string::npos)
            top = {LANGUAGE_VHDL, name.substr(0, point), name.substr(point + 1), ""};
        if (!name.empty()) Tree.GetReader().AddTop(top, Tree.PlaceOf(value));
        names.remove_prefix(std::min(length + 1, names.size()));
    }
}

void TEdamReader::ReadFile(const TTree& file) {
    const std::string name = Tree.TextIn(file, "name");
    if (name.empty()) return Tree.Fail("a file without a name", file);
    Tree.LoseOthers(file, {"name", "file_type", "logical_name", "is_include_file", "include_path"},
                    {"core"});
    TImportedSource source;
    source.Path = Tree.PathOf(name);
    source.Library = Tree.TextIn(file, "logical_name");
    source.Place = Tree.PlaceOf(file);
    if (!ReadType(file, name, &source)) return;
    if (!IsTrue(Tree.ValueIn(file, "is_include_file"))) {
        Languages.insert(source.Language);
        return Tree.GetReader().AddSource(std::move(source));
    }
    std::string folder = Tree.TextIn(file, "include_path");
    if (folder.empty()) folder = TImportReader::FolderOf(source.Path);
    Tree.AddIncludeDirectory(source.Language, folder, file);
}

bool TEdamReader::ReadType(const TTree& file, const std::string& name, TImportedSource* source) {
    const std::string type = Tree.TextIn(file, "file_type");
    const std::size_t dash = std::min(type.find('-'), type.size());
    for (const TEdamType& known : kEdamTypes) {
        if (known.Name != type.substr(0, dash)) continue;
        source->Language = known.Language;
        if (known.Name == "systemVerilogSource" && !IsTrue(file.Find("is_include_file")))
            ReadSystemVerilog(file, name);
        if (dash < type.size()) ReadStandard(file, type.substr(dash + 1), source);
        return true;
    }
    Tree.Lose("the file " + name + (type.empty() ? " without a type" : " of the type " + type),
              file);
    return false;
}

void TEdamReader::ReadSystemVerilog(const TTree& file, const std::string& name) {
    HasSystemVerilog = true;
    if (name.ends_with(".sv") || name.ends_with(".svh")) return;
    const std::string& year = Options.GetVerilogYear();
    if (year.empty() || year == kSystemVerilogYear)
        Tree.GetReader().SetStandard(LANGUAGE_VERILOG, kSystemVerilogYear, Tree.PlaceOf(file));
}

// An option of GHDL counts more than the types.
void TEdamReader::ReadStandard(const TTree& file, const std::string& standard,
                               TImportedSource* source) {
    const std::string& chosen = Options.GetVhdlYear();
    for (const TEdamYear& known : kEdamYears) {
        if (source->Language != LANGUAGE_VHDL || known.Name != standard) continue;
        if (chosen == known.Year) return;
        if (chosen.empty())
            return Tree.GetReader().SetStandard(LANGUAGE_VHDL, known.Year, Tree.PlaceOf(file));
    }
    Tree.LoseOnce("the standard " + standard, file);
}

void TEdamReader::ReadParameter(const TTree& parameter) {
    Tree.LoseOthers(parameter, {"datatype", "default", "paramtype", "description"});
    const std::string kind = Tree.TextIn(parameter, "paramtype");
    const TTree* const value = parameter.Find("default");
    const bool isBoolean = Tree.TextIn(parameter, "datatype") == "bool";
    const bool isPlusArgument = kind == "plusarg";
    if (kind != "vlogdefine" && !isPlusArgument)
        return Tree.Lose("the parameter " + parameter.Key +
                             (kind.empty() ? " without a type" : " that is a " + kind),
                         parameter);
    if (!value || !value->IsSingle() || (isBoolean && !IsTrue(value)))
        return Tree.Lose(
            (isPlusArgument ? "the argument " : "the define ") + parameter.Key + " that is not set",
            parameter);
    const std::optional<std::string> number = TextOfValue(*value, parameter);
    if (!number) return Tree.Lose("the number " + value->Text, *value);
    const std::string text = isBoolean ? parameter.Key : parameter.Key + "=" + *number;
    if (!isPlusArgument) return Tree.GetReader().AddDefine(text, Tree.KeyPlaceOf(parameter));
    Tree.GetReader().KeepRunOption(LANGUAGE_VERILOG, "+" + text, Tree.KeyPlaceOf(parameter));
}

void ReadEdam(TImportReader& reader, const TImportFile& file, TTreeImport::TReadTree read) {
    TTreeImport tree(reader, file);
    if (tree.Read(read, TREE_MAP)) TEdamReader(&tree).Read();
}

}  // namespace

void ReadEdamJson(TImportReader& reader, const TImportFile& file) {
    ReadEdam(reader, file, ReadJsonTree);
}

void ReadEdamYaml(TImportReader& reader, const TImportFile& file) {
    ReadEdam(reader, file, ReadYamlTree);
}
