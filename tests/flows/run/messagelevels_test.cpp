#include "flows/run/messagelevels.h"
#include <gtest/gtest.h>

namespace {

std::string GravestOf(const char* tool, const std::string& output) {
    const TGravestMessage message = FindGravestMessage(tool, output);
    return std::string(GetLevelName(message.Level)) + "|" + message.Line;
}

}  // namespace

TEST(MessageLevels, AreNamed) {
    for (const TMessageLevel level : {LEVEL_NOTE, LEVEL_WARNING, LEVEL_ERROR, LEVEL_FAILURE})
        EXPECT_EQ(FindLevel(GetLevelName(level)), level);
    EXPECT_EQ(FindLevel(""), LEVEL_NONE);
    EXPECT_EQ(FindLevel("Error"), LEVEL_NONE);
}

TEST(MessageLevels, AreFoundInWhatSimulationsPrint) {
    const struct {
        const char* Tool;
        const char* Line;
        const char* Level;
    } rows[] = {
        {"ghdl", "tb.vhd:4:2:@0ms:(report note): hello", "note"},
        {"ghdl", "/a b/tb.vhd:6:2:@1ns:(report warning): w", "warning"},
        {"ghdl", "C:/a/tb.vhd:5:2:@0ms:(assertion error): bad", "error"},
        {"ghdl", "tb.vhd:5:2:@0ms:(assertion failure): worse", "failure"},
        {"ghdl", "tb.vhd:5:2:@0ms:(report note): (report error): not one", "note"},
        {"ghdl", "p:@q:(r): s/tb.vhd:5:2:@10us:(report error): a path like a head", "error"},
        {"ghdl", "p:@1ns:(report note): s/tb.vhd:5:2:@1ns:(report error): worse", "error"},
        {"ghdl", "written before tb.vhd:5:2:@0ms:(assertion error): bad", "error"},
        {"ghdl", "tb.vhd:5:2: (report error): no time", ""},
        {"ghdl", "tb.vhd:5:2:@ms:(report error): no number", ""},
        {"ghdl", "tb.vhd:5:2:@5:(report error): no unit", ""},
        {"ghdl", "error: printed by the design", ""},
        {"icarus", "INFO: t.v:2: inf", "note"},
        {"icarus", "WARNING: t.v:2: warn", "warning"},
        {"icarus", "ERROR: t.v:2: bad", "error"},
        {"icarus", "FATAL: /a b/t.v:2: dead", "failure"},
        {"icarus", "ERROR: printed by the design", ""},
        {"icarus", "written before ERROR: t.v:2: bad", "error"},
        {"icarus", "INFO: t.v:2: written before ERROR: t.v:3: bad", "error"},
        {"icarus", "ERROR: printed by INFO: t.v:2: inf", "error"},
        {"icarus", "t.v:2: ERROR: printed by the design", ""},
        {"verilator", "[0] -Info: t.v:2: Assertion failed in TOP.t: inf", "note"},
        {"verilator", "[0] %Warning: t.v:2: Assertion failed in TOP.t: warn", "warning"},
        {"verilator", "[120] %Error: t.v:2: Assertion failed in TOP.t: bad", "error"},
        {"verilator", "[120] %Fatal: t.v:2: Assertion failed in TOP.t: dead", "failure"},
        {"verilator", "abc [0] %Warning: t.v:1: Assertion failed in TOP.t: warn", "warning"},
        {"verilator", "a] b [1.5 ns] %Error: t.v:1: Assertion failed in TOP.t: bad", "error"},
        {"verilator", "%Error: printed by the design", ""},
        {"verilator", "0] %Error: printed by the design", ""},
        {"nvc", "** Note: 0ms+0: hello", "note"},
        {"nvc", "** Warning: 0ms+0: w", "warning"},
        {"nvc", "** Error: 5ns+0: bad", "error"},
        {"nvc", "** Failure: 5ns+0: worse", "failure"},
        {"nvc", "** Fatal: 5ns+0: worst", "failure"},
        {"nvc", "written before ** Error: 5ns+0: bad", "error"},
        {"nvc", "Error: printed by the design", ""},
    };
    for (const auto& row : rows) {
        const bool isMessage = *row.Level != '\0';
        EXPECT_EQ(GravestOf(row.Tool, std::string("x\n") + row.Line + "\r\ny"),
                  isMessage ? std::string(row.Level) + "|" + row.Line : "|")
            << row.Line;
    }
}

TEST(MessageLevels, AreThoseOfTheGravestMessage) {
    const std::string output =
        "t.vhd:1:1:@0ms:(report warning): a\nt.vhd:2:1:@0ms:(report error): b\n"
        "t.vhd:3:1:@0ms:(report error): c\nt.vhd:4:1:@0ms:(report note): d";
    EXPECT_EQ(GravestOf("ghdl", output), "error|t.vhd:2:1:@0ms:(report error): b");
    EXPECT_EQ(GravestOf("icarus", output), "|");
    EXPECT_EQ(GravestOf("none", output), "|");
    EXPECT_EQ(GravestOf("ghdl", ""), "|");
}
