#include "services/hdl/sourcefileextensions.h"
#include <gtest/gtest.h>
#include <string>

TEST(SourceFileExtensions, TellTheLanguage) {
    struct Row {
        const char* extensions;  // separated by blanks
        THdlLanguage language;
    };
    const Row rows[] = {
        {".v .vo .vh .sv .svh .V .SV v svh", LANGUAGE_VERILOG},
        {".vhd .vhdl .VHD vhdl Vhd", LANGUAGE_VHDL},
        {".bsv bsv .BSV", LANGUAGE_BLUESPECVERILOG},
        {".cpp .cc .cxx .c .h .hpp .C .H cpp", LANGUAGE_CPLUSPLUS},
        {".sc sc", LANGUAGE_SYSTEMC},
        {".e E", LANGUAGE_SPECMAN},
        {".tb TB", LANGUAGE_TESTBUILDER},
        {". .txt .vhdx ..v .v. v.v .xpr vv hdl", LANGUAGE_NONE},
    };
    for (const auto& row : rows) {
        std::istringstream extensions(row.extensions);
        for (std::string extension; extensions >> extension;)
            EXPECT_EQ(TSourceFileExtensions::GetInstance()->GetSourceFileLanguageFromExtension(
                          extension.c_str()),
                      row.language)
                << extension;
    }
}

TEST(SourceFileExtensions, TellNoLanguageWithoutAnExtension) {
    auto* extensions = TSourceFileExtensions::GetInstance();
    EXPECT_EQ(extensions->GetSourceFileLanguageFromExtension(""), LANGUAGE_NONE);
    EXPECT_EQ(extensions->GetSourceFileLanguageFromExtension(nullptr), LANGUAGE_NONE);
    EXPECT_EQ(extensions->GetSourceFileLanguageFromExtension(" .v"), LANGUAGE_NONE);
}
