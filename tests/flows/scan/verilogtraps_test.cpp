#include "flows/scan/veriloglexer.h"
#include "tests/flows/scan/verilogrows.h"
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <string>

// What looks like something else to whoever does not read the language as it is.

namespace {

std::string ReadTrapsV() {
    std::ifstream stream(HDLBUILDFILE_SOURCE_DIR "/fuzz/corpus/verilog/traps.sv", std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string ReplacedV(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

constexpr const char* kFoundV =
    "  import first_pkg 14:8\n"
    "package \\pkg+1 16:9\n"
    "module traps 25:45\n"
    "  import second_pkg 26:12\n"
    "  maybe scope \\pkg+1 28:19\n"
    "  interface bus_if 32:5\n"
    "  maybe scope third_pkg 34:57\n"
    "  instance leaf_cell 39:5\n"
    "  instance \\esc(aped) 40:5\n"
    "  instance plain_cell 42:29\n"
    "  maybe class arg_class 47:22\n"
    "  maybe instance fork_cell 54:5\n"
    "  maybe instance fork_cell_2 56:5\n"
    "  maybe instance fork_cell_3 58:5\n"
    "  instance taken_cell 63:5\n"
    "  instance after_cell 73:58\n"
    "  instance last_cell 80:5\n"
    "primitive prim 83:11\n"
    "class c 91:7\n"
    "  maybe scope base_pkg 91:41\n"
    "  maybe class handle 91:84\n"
    "  interface vif_if 92:13\n"
    "module \\trap-2 96:18\n";

}  // namespace

TEST(VerilogTraps, CatchNothing) {
    EXPECT_EQ(ScanV(ReadTrapsV()), kFoundV);
}

TEST(VerilogTraps, CatchNothingWithOtherLineEndsAndMarks) {
    const std::string text = ReadTrapsV();
    EXPECT_EQ(ScanV(ReplacedV(text, "\n", "\r\n")), kFoundV);
    EXPECT_EQ(ScanV(ReplacedV(text, "\n", "\r")), kFoundV);
    EXPECT_EQ(ScanV("\xEF\xBB\xBF" + text), kFoundV);
    // Comments in Latin-1 and UTF-8, a NUL, and a text that ends as those of old editors.
    EXPECT_EQ(ScanV(text + " \xE4\x80\n\x1A"), kFoundV);
    EXPECT_EQ(ScanV(text + " \xC3\xA4\n" + std::string(3, '\0')), kFoundV);
}

TEST(VerilogTraps, CatchNothingWhenIncluded) {
    const std::string found = ScanV("`include \"traps.sv\"\n`include <traps.sv>\n", {},
                                    {{"src/traps.sv", ReadTrapsV()}, {"inc/traps.sv", "x"}});
    const std::string before =
        "include traps.sv is src/traps.sv 1:10\ninclude <traps.sv> is inc/traps.sv 2:10\n";
    ASSERT_EQ(found.substr(0, before.size()), before);
    EXPECT_EQ(ReplacedV(found.substr(before.size()), "#1:", ""), kFoundV);
}

// Units and needs of a text that is cut are those of the whole text, up to the cut: only the last
// names may be cut as well.
TEST(VerilogTraps, AreCutAtEveryByte) {
    const std::string text = ReadTrapsV();
    ASSERT_GT(text.size(), 2700u);
    std::size_t units = 0;
    for (std::size_t size = 0; size <= text.size(); ++size) {
        const TScannedFile file = ScanVerilog(std::string_view(text).substr(0, size), "", {});
        ASSERT_GE(file.Units.size(), units) << size;
        units = file.Units.size();
        for (std::size_t i = 0; i + 1 < units; ++i)
            ASSERT_NE(std::string(kFoundV).find(" " + file.Units[i].Name + " "), std::string::npos)
                << size;
    }
    EXPECT_EQ(units, 5u);
}

TEST(VerilogTraps, MayLackAnyByte) {
    const std::string text = ReadTrapsV();
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string damaged = text;
        damaged.erase(at, 1);
        ASSERT_GE(ScanVerilog(damaged, "", {}).Units.size(), 1u) << at;
    }
}

TEST(VerilogTraps, MayBeAnyBytes) {
    std::mt19937 random(1);
    const std::string marks = "'\"\\`*/(#;:=.){}[]?ab1 \n";
    for (int round = 0; round < 2000; ++round) {
        std::string text(1 + random() % 300, ' ');
        for (char& c : text)
            c = round % 2 == 0 ? static_cast<char>(random() & 0xFF)
                               : marks[random() % marks.size()];
        // Every token lies behind the one before, and none is empty.
        TVerilogLexer lexer(text);
        std::size_t end = 0;
        for (TVerilogToken token = lexer.Next(); !token.Is(TVerilogTokenKind::End);
             token = lexer.Next()) {
            ASSERT_GE(token.Offset, end) << text;
            ASSERT_FALSE(token.Text.empty()) << text;
            end = token.Offset + token.Text.size();
        }
        ASSERT_LE(end, text.size()) << text;
        ScanVerilog(text, "", {});
    }
}

// Each takes its time twice over when the text is twice as long, also where things nest.
TEST(VerilogTraps, NestDeeply) {
    const auto repeated = [](const std::string& part) {
        std::string text;
        while (text.size() < 100'000) text += part;
        return text;
    };
    for (const char* part : {"(",
                             "((((;",
                             "{[",
                             "module m;",
                             "module m; class c; ",
                             "begin : b ",
                             "fork ",
                             "end ",
                             "case (x) ",
                             "a b (",
                             "a #(",
                             "a::",
                             "a#(b)::",
                             "`ifdef A\n",
                             "`ifndef A\n`define A\n",
                             "`ifdef A\n`else\n",
                             "`ifdef A `define A\n`undef A\n",
                             "`define A\n",
                             "`define F(",
                             "`define F(a\\\n",
                             "`include \"",
                             "`include \"x\"\n",
                             "`include <",
                             "`A",
                             "(* ",
                             "\"",
                             "\"\"\"",
                             "\\",
                             "'",
                             "`protected\n",
                             "`pragma protect ",
                             "//pragma protect begin_protected\n",
                             "/*",
                             "virtual ",
                             "import a::*;",
                             "function f; ",
                             "endclass ",
                             "interface class ",
                             "extends a ",
                             "bind a b c (d);",
                             "typedef a b;",
                             "? : ",
                             "`begin_keywords \"1\" "}) {
        const std::string text = "module first; endmodule\n" + repeated(part);
        EXPECT_GE(ScanVerilog(text, "", {}).Units.size(), 1u) << part;
    }
}
