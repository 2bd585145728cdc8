#include "services/hdl/hdllanguage.h"
#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace {

struct LanguageRow {
    THdlLanguage language;
    int number;
    const char* text;
    const char* display;
};

constexpr LanguageRow kRows[] = {
    {LANGUAGE_VERILOG, 0, "Verilog", "Verilog"},
    {LANGUAGE_VHDL, 1, "VHDL", "VHDL"},
    {LANGUAGE_BLUESPECVERILOG, 2, "Bluespec", "Bluespec Verilog"},
    {LANGUAGE_SYSTEMC, 3, "SystemC", "SystemC"},
    {LANGUAGE_CPLUSPLUS, 4, "C++", "C++"},
    {LANGUAGE_RESERVED5, 5, "Language5", "Language 5"},
    {LANGUAGE_SPECMAN, 6, "Specman", "Specman"},
    {LANGUAGE_TESTBUILDER, 7, "TestBuilder", "Test Builder"},
    {LANGUAGE_RESERVED8, 8, "Language8", "Language 8"},
    {LANGUAGE_NONE, 9, "None", "None"},
};

}  // namespace

TEST(HdlLanguage, HasItsNumberAndTextsAndReadsBack) {
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(static_cast<int>(row.language), row.number);
        EXPECT_STREQ(GetStringFromHdlLanguage(row.language), row.text);
        EXPECT_STREQ(GetDisplayStringFromHdlLanguage(row.language), row.display);
        EXPECT_EQ(GetHdlLanguageFromString(row.text), row.language);
    }
}

TEST(HdlLanguage, GivesTheTextsOfNoneOutsideItsRange) {
    for (const int number : {-1, 10, 1000000, -2147483647}) {
        EXPECT_STREQ(GetStringFromHdlLanguage(static_cast<THdlLanguage>(number)), "None");
        EXPECT_STREQ(GetDisplayStringFromHdlLanguage(static_cast<THdlLanguage>(number)), "None");
    }
}

TEST(HdlLanguage, ReadsTextsOfOtherSpellings) {
    struct Row {
        const char* text;
        THdlLanguage language;
    };
    const Row rows[] = {
        {" verilog\n", LANGUAGE_VERILOG},
        {"vhdl", LANGUAGE_VHDL},
        {"VERILOG", LANGUAGE_VERILOG},
        {"BluespecVerilog", LANGUAGE_BLUESPECVERILOG},
        {"bluespecverilog", LANGUAGE_BLUESPECVERILOG},
        {"c++", LANGUAGE_CPLUSPLUS},
        {"TESTBUILDER", LANGUAGE_TESTBUILDER},
        {"Bluespec Verilog", LANGUAGE_NONE},
        {"Fortran", LANGUAGE_NONE},
        {"1", LANGUAGE_NONE},
        {"", LANGUAGE_NONE},
        {"  ", LANGUAGE_NONE},
        {nullptr, LANGUAGE_NONE},
    };
    for (const auto& row : rows)
        EXPECT_EQ(GetHdlLanguageFromString(row.text), row.language)
            << (row.text ? row.text : "null");
}

TEST(HdlLanguage, TextsCanEndSectionNames) {
    for (const auto& row : kRows) {
        const std::string_view text = row.text;
        EXPECT_EQ(text.find_first_of("=]\r\n"), std::string_view::npos) << text;
        for (const auto& other : kRows)
            EXPECT_EQ(std::string_view(other.text).ends_with(text), &row == &other)
                << other.text << " ends in " << text;
    }
}
