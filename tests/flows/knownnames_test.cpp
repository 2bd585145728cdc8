#include "flows/knownnames.h"
#include <gtest/gtest.h>

TEST(KnownNames, AnUnknownNameIsToldWithTheNearestAndAll) {
    EXPECT_EQ(UnknownName("language", "VHD", {"Verilog", "VHDL"}),
              "unknown language 'VHD'; nearest: VHDL; known: Verilog, VHDL");
    EXPECT_EQ(UnknownName("tool", "vc", {"VCS", "GCC", "VCSi", "VC2"}),
              "unknown tool 'vc'; nearest: VCS, VCSi or VC2; known: VCS, GCC, VCSi, VC2");
    EXPECT_EQ(UnknownName("language", "Ada", {"Verilog", "VHDL"}),
              "unknown language 'Ada'; known: Verilog, VHDL");
    EXPECT_EQ(WithKnownNames("no tool of this language", "GC", {"GCC"}),
              "no tool of this language; nearest: GCC; known: GCC");
}
