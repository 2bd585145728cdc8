#include "services/options/optiontable.h"
#include <gtest/gtest.h>

using namespace options;

TEST(OptionTable, FindsTheRowThatAWordIsTypedAs) {
    const struct {
        const char* Label;
        const char* Word;
        const char* Next;
        THdlLanguage Language;
        const char* Option;  // null: unknown
    } rows[] = {
        {"flag", "+librescan", "", LANGUAGE_VERILOG, "+librescan"},
        {"flag with more", "+librescans", "", LANGUAGE_VERILOG, nullptr},
        {"operand", "-y", "lib", LANGUAGE_VERILOG, "-y"},
        {"list", "+define+A+B", "", LANGUAGE_VERILOG, "+define+"},
        {"list without values", "+define+", "", LANGUAGE_VERILOG, "+define+"},
        {"value", "+pulse_r/50", "", LANGUAGE_VERILOG, "+pulse_r/"},
        {"value without one", "+pulse_r/", "", LANGUAGE_VERILOG, nullptr},
        {"name", "--qdx_gui", "", LANGUAGE_VERILOG, "--qdx_"},
        {"name without one", "--qdx_", "", LANGUAGE_VERILOG, nullptr},
        {"alone at the end", "-t", "", LANGUAGE_VERILOG, "-t"},
        {"alone before an option", "-t", "-y", LANGUAGE_VERILOG, "-t"},
        {"not alone", "-t", "ns", LANGUAGE_VERILOG, nullptr},
        {"of VHDL", "-93", "", LANGUAGE_VHDL, "-93"},
        {"of VHDL, in Verilog", "-93", "", LANGUAGE_VERILOG, nullptr},
        {"other case", "-Y", "lib", LANGUAGE_VERILOG, nullptr},
        {"a file", "a.v", "", LANGUAGE_VERILOG, nullptr},
        {"empty", "", "", LANGUAGE_VERILOG, nullptr},
    };
    for (const auto& row : rows) {
        const TOptionRow* found = FindOptionRow(row.Word, row.Next, row.Language);
        EXPECT_STREQ(found ? found->Option : nullptr, row.Option) << row.Label;
    }
}

TEST(OptionTable, HasAMacroRowForVhdlAndOneForTheRest) {
    const TOptionRow* vhdl = FindOptionRow("+define+A", "", LANGUAGE_VHDL);
    const TOptionRow* verilog = FindOptionRow("+define+A", "", LANGUAGE_VERILOG);
    ASSERT_TRUE(vhdl && verilog);
    EXPECT_EQ(vhdl->Languages, ONLY_VHDL);
    EXPECT_EQ(verilog->Languages, NOT_VHDL);
}

TEST(OptionTable, TakesAFlagWhateverFollows) {
    for (const char* flag : {"+librescan", "+liborder",    "+mindelays",
                             "+typdelays", "+maxdelays",   "+notimingchecks",
                             "+nospecify", "+no_notifier", "+sdf_verbose",
                             "-u",         "-w",           "-s",
                             "-c",         "-a",           "-d",
                             "-x",         "+linedebug",   "-linedebug",
                             "-87",        "-93"})
        for (const char* next : {"", "-y", "top.v"}) {
            const TOptionRow* found = FindOptionRow(flag, next, LANGUAGE_VHDL);
            EXPECT_STREQ(found ? found->Option : nullptr, flag) << next;
        }
}
