#include "flows/buildedit.h"
#include "flows/imports/importedbuild.h"
#include "services/names/isfilename.h"
#include "tests/flows/imports/importedtext.h"
#include "tests/support/growth.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>

namespace {

/// A file of a format: what stands before and behind its entries, of which each has its number in
/// the place of '#'.
struct TGrowingFile {
    const char* Format;
    struct TPart {
        std::string Before;
        std::string Entry;
        std::string Separator = "\n";
    };
    std::vector<TPart> Parts;
    std::string End = "\n";
};

/// With `size` entries of the part that grows, and one of each other.
std::string TextOf(const TGrowingFile& file, std::size_t growing, int size) {
    std::string text;
    for (std::size_t part = 0; part < file.Parts.size(); ++part) {
        text += file.Parts[part].Before;
        for (int number = 0; number < (part == growing ? size : 1); ++number) {
            if (number > 0) text += file.Parts[part].Separator;
            for (const char c : file.Parts[part].Entry)
                if (c == '#')
                    text += std::to_string(number);
                else
                    text += c;
        }
    }
    return text + file.End;
}

TGrowingFile ListOf(const char* format, const std::vector<std::string>& lines) {
    TGrowingFile file{format, {}};
    for (const std::string& line : lines) file.Parts.push_back({"\n", line});
    return file;
}

TGrowingFile EdamJson() {
    return {"edam-json",
            {{R"({"name": "n", "files": [)",
              R"({"name": "d/s#.v", "file_type": "verilogSource", "logical_name": "l#"})", ","},
             {",", R"({"name": "i#/h.vh", "file_type": "verilogSource", "is_include_file": true})",
              ","},
             {R"(], "parameters": {)",
              R"("D#": {"datatype": "int", "default": #, "paramtype": "vlogdefine"})", ","},
             {",", R"("P#": {"datatype": "int", "default": #, "paramtype": "plusarg"})", ","},
             {R"(}, "tool_options": {"icarus": {"iverilog_options": [)",
              R"("-Pa.b#=1", "-Wi#", "-Wall")", ","},
             {R"(]}, "verilator": {"verilator_options": [)", R"("--v#", "-Wall", "-Wi#")", ","},
             {",", R"("-y", "y#", "+libext+.e#")", ","},
             {R"(]}, "ghdl": {"analyze_options": [)", R"("-fa#")", ","},
             {R"(]}}, "toplevel": [)", R"("t#")", ","}},
            "]}\n"};
}

const std::vector<TGrowingFile>& GrowingFiles() {
    static const std::vector<TGrowingFile> files = {
        {"bender",
         {{R"([{"files": [)", R"("d/s#.v")", ","},
          {R"(], "include_dirs": [)", R"("i#")", ","},
          {R"(], "defines": {)", R"("D#": "#")", ","}},
         "}}]\n"},
        {"blueprint", {{"", "VHDL\tl#\td/s#.vhd"}}},
        {"compile-commands",
         {{"[",
           R"({"directory": "/w", "file": "s#.cpp", "arguments": ["c++", "-Ii#", "-O2", "s#.cpp"]})",
           ","}},
         "]\n"},
        {"depfile", {{"x: ", "d/s#.v i#/h.vh \\"}}},
        EdamJson(),
        {"edam-yaml", {{"files:\n", "- {name: d/s#.v, file_type: verilogSource}"}}},
        ListOf("filelist", {"+incdir+i#", "+define+D#=#", "d/s#.v", "-y y#", "-v v#.v", "-work l#",
                            "--x#", "--top-module t#"}),
        {"ghdl-order", {{"", "l# d/s#.vhd"}}},
        {"hdl-prj",
         {{R"({"files": [)", R"({"file": "d/s#.vhd", "library": "l#"})", ","},
          {R"(], "options": {"ghdl_analysis": [)", R"("-fx#")", ","}},
         "]}}\n"},
        {"hdlmake",
         {{"files = [", "'d/s#.vhd'", ","}, {"]\ninclude_dirs = [", "'i#'", ","}},
         "]\n"},
        ListOf("icarus", {"+incdir+i#", "+define+D#=#", "d/s#.v", "-y y#", "-v v#.v", "+x#"}),
        {"icarus-deps", {{"", "M d/s#.v\nI i#/h.vh"}}},
        {"libmap", {{"", "library l# d/s#.v;"}}},
        {"osvvm", {{"", "library l#\nanalyze d/s#.vhd\nsimulate t#"}}},
        ListOf("slang",
               {"+incdir+i#", "+define+D#=#", "d/s#.v", "-y y#", "-v v#.v", "--x#", "--top t#"}),
        ListOf("vcs", {"+incdir+i#", "+define+D#=#", "d/s#.v", "-y y#", "-v v#.v", "-work l#",
                       "-x#", "-top t#"}),
        ListOf("verible", {"+incdir+i#", "+define+D#=#", "d/s#.v"}),
        ListOf("verilator", {"+incdir+i#", "+define+D#=#", "d/s#.v", "-y y#", "-v v#.v", "--x#"}),
        {"vhdl-ls", {{"[libraries]\n", "l#.files = ['d/s#.vhd']"}}},
        {"vunit-csv", {{"", "l#,d/s#.vhd"}}},
        {"vunit-json",
         {{R"({"export_format_version": {"major": 1}, "files": [)",
           R"({"file_name": "d/s#.vhd", "library_name": "l#"})", ","}},
         "]}\n"},
    };
    return files;
}

/// Calls `measure` with a name for the file that grows, and what imports it in a size.
template <class TMeasure>
void MeasureParts(const TGrowingFile& file, int size, TMeasure measure) {
    for (std::size_t part = 0; part < file.Parts.size(); ++part) {
        const ImportFolder folder;
        const auto nameOf = [](int each) { return "in/" + std::to_string(each); };
        for (const int each : {size, 4 * size})
            folder.Write(nameOf(each), TextOf(file, part, each));
        measure(std::string(file.Format) + " " + file.Parts[part].Entry,
                [&](int each) { return folder.Import(file.Format, {nameOf(each)}); });
    }
}

}  // namespace

TEST(ImportGrowth, IsInProportionToEachPartOfAFile) {
    constexpr int kSize = 400;
    std::vector<std::string> formats;
    for (const TGrowingFile& file : GrowingFiles()) {
        formats.emplace_back(file.Format);
        MeasureParts(file, kSize, [](const std::string& label, const auto& import) {
            const TImported imported = import(kSize);
            EXPECT_FALSE(imported.Sources.empty()) << label;
            EXPECT_TRUE(std::none_of(imported.Diagnostics.begin(), imported.Diagnostics.end(),
                                     IsImportError))
                << label;
            EXPECT_LT(GrowthOf(import, kSize), kLargestLinearGrowth) << label;
        });
    }
    std::vector<std::string> known;
    for (const TImportFormat& format : GetImportFormats()) known.emplace_back(format.Name);
    EXPECT_EQ(formats, known);
}

TEST(ImportGrowth, OfABuildIsInProportionToWhatComesIn) {
    constexpr int kSize = 200;
    MeasureParts(EdamJson(), kSize, [](const std::string& label, const auto& import) {
        const auto make = [&](int size) {
            const ImportFolder folder;
            const RecordingMessageBox box;
            const TImported imported = import(size);
            TBuildEdit edit(ISFileName::NewISFileName(folder.Path("b.xml").c_str()));
            EXPECT_EQ(edit.Make(LanguageOfImported(imported), false), "");
            AddImported(imported, &edit);
            EXPECT_EQ(edit.FindEdits(), "");
        };
        EXPECT_LT(GrowthOf(make, kSize), kLargestLinearGrowth) << label;
    });
}
