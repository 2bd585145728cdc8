#include "cli/frame/languagenames.h"
#include <gtest/gtest.h>
#include <sstream>

TEST(LanguageNames, AreThoseThatUsersName) {
    EXPECT_EQ(LanguageHelp(), "Verilog, VHDL, Bluespec, SystemC, C++, Specman or TestBuilder");
    EXPECT_EQ(LanguageHelp("VHDL"),
              "Verilog, VHDL (default), Bluespec, SystemC, C++, Specman or TestBuilder");
    EXPECT_EQ(OfferedLanguages(),
              (std::vector<std::string>{"Verilog", "VHDL", "Bluespec", "SystemC", "C++", "Specman",
                                        "TestBuilder"}));
}

TEST(LanguageNames, AreReadInEitherCase) {
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(FindLanguage("vhdl", {out, err}), LANGUAGE_VHDL);
    EXPECT_EQ(err.str(), "");
    EXPECT_EQ(FindLanguage("None", {out, err}), LANGUAGE_NONE);
    EXPECT_EQ(err.str(),
              "hdlbuild: error: unknown language 'None'; known: Verilog, VHDL, Bluespec, SystemC, "
              "C++, Specman, TestBuilder\n");
    EXPECT_EQ(out.str(), "");
}
