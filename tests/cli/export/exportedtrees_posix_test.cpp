#include "tests/cli/shell.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

/// Names that some reader may take for something else, and how a build holds them.
const struct {
    const char* Name;
    const char* InBuild;
} kNames[] = {
    {"a b.v", "a b.v"},
    {"it's.v", "it's.v"},
    {"q\".v", "q&quot;.v"},
    {"$HOME.v", "$HOME.v"},
    {"#h.v", "#h.v"},
    {"-o.v", "-o.v"},
    {"*s.v", "*s.v"},
    {"&n.v", "&amp;n.v"},
    {"!t.v", "!t.v"},
    {"x: y.v", "x: y.v"},
    {"C:d.v", "C:d.v"},
    {"{j}.v", "{j}.v"},
    {"[k].v", "[k].v"},
    {"%41.v", "%41.v"},
    {"\xC3\xA4\xE2\x82\xAC.v", "\xC3\xA4\xE2\x82\xAC.v"},
    {"\xF0\x9F\x98\x80.v", "\xF0\x9F\x98\x80.v"},
    {"new\nline.v", "new&#10;line.v"},
    {"tab\t.v", "tab&#9;.v"},
    {"yes", "yes"},
    {"1.5", "1.5"},
    {"~", "~"},
};

std::string BuildOfNames(const std::string& language) {
    std::string sources;
    for (const auto& row : kNames) sources += SourceText(row.InBuild);
    return BuildText("<SourceFileGroup Language=\"" + language + "\">\n" + sources +
                     "</SourceFileGroup>\n");
}

/// What a program of Python prints, which reads `document` with its own readers.
std::string Read(const std::string& expression) {
    return Shell(
               "/usr/bin/python3 -c 'import json, yaml\n"
               "def document(name): return open(name, encoding=\"utf-8\").read()\n"
               "print(\"\\0\".join(" +
               expression + "), end=\"\")'")
        .second;
}

std::string Expected() {
    std::string names;
    for (const auto& row : kNames) {
        if (!names.empty()) names += '\0';
        names += row.Name;
    }
    return names;
}

}  // namespace

TEST(ExportedTrees, HoldAnyNameOfASource) {
    if (Shell("/usr/bin/python3 -c 'import yaml'").first != 0)
        GTEST_SKIP() << "python3-yaml is not installed";
    const struct {
        const char* Format;
        const char* Language;
        const char* Names;  ///< in Python
    } rows[] = {
        {"edam-json", "Verilog", "f[\"name\"] for f in json.loads(document(\"out\"))[\"files\"]"},
        {"edam-yaml", "Verilog",
         "f[\"name\"] for f in yaml.safe_load(document(\"out\"))[\"files\"]"},
        {"fusesoc", "Verilog",
         "list(f)[0] for f in "
         "yaml.safe_load(document(\"out\"))[\"filesets\"][\"sources\"][\"files\"]"},
        {"hdl-prj", "VHDL", "f[\"file\"] for f in json.loads(document(\"out\"))[\"files\"]"},
        {"compile-commands", "C++", "f[\"file\"] for f in json.loads(document(\"out\"))"},
        {"compile-commands", "C++",
         "f[\"arguments\"][-1].removeprefix(\"./\") for f in json.loads(document(\"out\"))"},
    };
    for (const auto& row : rows) {
        const WorkingFolder folder;
        for (const auto& name : kNames) folder.Write(name.Name, "");
        folder.Write("b.xml", BuildOfNames(row.Language));
        const TToolRun result = RunHdlbuild({"export", "b.xml", "--to", row.Format, "-o", "out"});
        EXPECT_EQ(result.Status, 0) << row.Format << result.Err;
        EXPECT_EQ(Read(row.Names), Expected()) << row.Format;
    }
}
