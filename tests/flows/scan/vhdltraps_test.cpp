#include "flows/scan/vhdllexer.h"
#include "flows/scan/vhdlscan.h"
#include "tests/flows/scan/scannedtext.h"
#include "tests/support/replaced.h"
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <string>

// What looks like something else to whoever does not read the language as it is.

namespace {

const TScanOptions kOptions = {{{"TOOL", "x"}}};

/// A seed of the fuzzer, too.
std::string ReadTraps() {
    std::ifstream stream(HDLBUILDFILE_SOURCE_DIR "/fuzz/corpus/vhdl/traps.vhd", std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

constexpr const char* kFound =
    "entity traps 6:8 library lib\n"
    "  use lib.first 3:40\n"
    "package chars 11:9\n"
    "  selected work.ops 20:20\n"
    "  selected work.\\ops\\ 22:54\n"
    "architecture rtl of traps 45:14\n"
    "  use work.taken 39:5\n"
    "  primary work.traps 45:21\n"
    "  entity lib.bound(rtl) 49:31\n"
    "  component comp 57:14\n"
    "  entity lib.direct(struct) 59:21\n"
    "configuration last of traps 69:15\n"
    "  primary work.traps 69:23\n"
    "  architecture work.traps(rtl) 69:36\n";

}  // namespace

TEST(VhdlTraps, CatchNothing) {
    EXPECT_EQ(TextOf(ScanVhdl(ReadTraps(), kOptions)), kFound);
}

TEST(VhdlTraps, CatchNothingWithOtherLineEndsAndMarks) {
    const std::string text = ReadTraps();
    EXPECT_EQ(TextOf(ScanVhdl(ReplacedEverywhere(text, "\n", "\r\n"), kOptions)), kFound);
    EXPECT_EQ(TextOf(ScanVhdl(ReplacedEverywhere(text, "\n", "\r"), kOptions)), kFound);
    EXPECT_EQ(TextOf(ScanVhdl("\xEF\xBB\xBF" + text, kOptions)), kFound);
    // Comments in Latin-1 and UTF-8, a NUL, and a text that ends as those of old editors.
    EXPECT_EQ(TextOf(ScanVhdl(text + "-- \xE4\x80\n\x1A", kOptions)), kFound);
    EXPECT_EQ(TextOf(ScanVhdl(text + "-- \xC3\xA4" + std::string(3, '\0'), kOptions)), kFound);
}

// Units and needs of a text that is cut are those of the whole text, up to the cut: only the last
// names may be cut as well.
TEST(VhdlTraps, AreCutAtEveryByte) {
    const std::string text = ReadTraps();
    ASSERT_GT(text.size(), 2800u);
    std::size_t units = 0;
    for (std::size_t size = 0; size <= text.size(); ++size) {
        const TScannedFile file = ScanVhdl(std::string_view(text).substr(0, size), kOptions);
        ASSERT_GE(file.Units.size(), units) << size;
        units = file.Units.size();
        for (std::size_t i = 0; i + 1 < units; ++i)
            ASSERT_NE(std::string(kFound).find(" " + file.Units[i].Name + " "), std::string::npos)
                << size;
    }
    EXPECT_EQ(units, 4u);
}

TEST(VhdlTraps, MayLackAnyByte) {
    const std::string text = ReadTraps();
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string damaged = text;
        damaged.erase(at, 1);
        ASSERT_GE(ScanVhdl(damaged, kOptions).Units.size(), 1u) << at;
    }
}

TEST(VhdlTraps, MayBeAnyBytes) {
    std::mt19937 random(1);
    const std::string marks = "'\"\\`%-/*#;:=>()ab1 \n";
    for (int round = 0; round < 2000; ++round) {
        std::string text(1 + random() % 300, ' ');
        for (char& c : text)
            c = round % 2 == 0 ? static_cast<char>(random() & 0xFF)
                               : marks[random() % marks.size()];
        // Every token lies behind the one before, and none is empty.
        TVhdlLexer lexer(text, kOptions);
        std::size_t end = 0;
        for (TVhdlToken token = lexer.Next(); !token.Is(TVhdlTokenKind::End);
             token = lexer.Next()) {
            ASSERT_GE(token.Offset, end) << text;
            ASSERT_GT(token.Length, 0u) << text;
            end = token.Offset + token.Length;
        }
        ASSERT_LE(end, text.size()) << text;
        ScanVhdl(text, kOptions);
    }
}

// Each takes its time twice over when the text is twice as long, also where things nest.
TEST(VhdlTraps, NestDeeply) {
    const auto repeated = [](const std::string& part) {
        std::string text;
        while (text.size() < 100'000) text += part;
        return text;
    };
    for (const char* part : {"(",
                             "((((;",
                             "package p is ",
                             "if x then ",
                             "end;",
                             "end x;",
                             "for x : y ",
                             "`if a then\n",
                             "`if ((((",
                             "begin if a then g: for i in b generate ",
                             "'",
                             "\"",
                             "\\",
                             "%",
                             "`",
                             "/*",
                             "use a.b.c; ",
                             "library l; entity e is ",
                             "a : ",
                             "entity e is ",
                             "function f is ",
                             "`protect begin_protected\n `"}) {
        const std::string text = "architecture a of e is\n" + repeated(part);
        EXPECT_GE(ScanVhdl(text, kOptions).Units.size(), 1u) << part;
    }
}
