#include "flows/scan/verilogkeywords.h"
#include <gtest/gtest.h>

TEST(VerilogKeywords, AreFoundByTheirText) {
    const struct {
        const char* Word;
        TVerilogKeyword InVerilog;
        TVerilogKeyword InSystemVerilog;
    } rows[] = {
        {"module", TVerilogKeyword::Module, TVerilogKeyword::Module},
        {"endmodule", TVerilogKeyword::Endmodule, TVerilogKeyword::Endmodule},
        {"macromodule", TVerilogKeyword::Macromodule, TVerilogKeyword::Macromodule},
        {"if", TVerilogKeyword::If, TVerilogKeyword::If},
        {"wire", TVerilogKeyword::Other, TVerilogKeyword::Other},
        {"rtranif1", TVerilogKeyword::Other, TVerilogKeyword::Other},
        {"class", TVerilogKeyword::None, TVerilogKeyword::Class},
        {"always_ff", TVerilogKeyword::None, TVerilogKeyword::AlwaysFf},
        {"interface", TVerilogKeyword::None, TVerilogKeyword::Interface},
        {"logic", TVerilogKeyword::None, TVerilogKeyword::Other},
        {"interconnect", TVerilogKeyword::None, TVerilogKeyword::Other},
        {"pulsestyle_ondetect", TVerilogKeyword::Other, TVerilogKeyword::Other},
        {"do", TVerilogKeyword::None, TVerilogKeyword::Do},
        {"Module", TVerilogKeyword::None, TVerilogKeyword::None},
        {"modules", TVerilogKeyword::None, TVerilogKeyword::None},
        {"", TVerilogKeyword::None, TVerilogKeyword::None},
        {"m", TVerilogKeyword::None, TVerilogKeyword::None},
        {"pulsestyle_ondetects", TVerilogKeyword::None, TVerilogKeyword::None},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FindVerilogKeyword(row.Word, false), row.InVerilog) << row.Word;
        EXPECT_EQ(FindVerilogKeyword(row.Word, true), row.InSystemVerilog) << row.Word;
    }
}
