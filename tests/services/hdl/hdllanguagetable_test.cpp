#include "services/hdl/hdllanguagetable.h"
#include <gtest/gtest.h>
#include <string>

namespace {

std::string Joined(const std::vector<const char*>& texts) {
    std::string joined;
    for (const char* text : texts) joined += std::string(joined.empty() ? "" : " ") + text;
    return joined;
}

/// A row of the table in one line: "number name | display name | other names | extensions | default
/// simulator | flags".
std::string TextOf(const THdlLanguageRecord& record) {
    return std::to_string(record.Language) + " " + record.Name + " | " + record.DisplayName +
           " | " + Joined(record.OtherNames) + " | " + Joined(record.FileExtensions) + " | " +
           std::to_string(record.DefaultSimulator) + " |" +
           (record.HasStoredSettings ? " stored" : "") +
           (record.IsValidForSettings ? " valid" : "") + (record.IsOffered ? " offered" : "") +
           "\n";
}

constexpr const char* kTable =
    "0 Verilog | Verilog |  | .v .vo .vh .sv .svh | 1 | stored valid offered\n"
    "1 VHDL | VHDL |  | .vhd .vhdl | 4 | stored valid offered\n"
    "2 Bluespec | Bluespec Verilog | BluespecVerilog | .bsv | 10 | stored valid offered\n"
    "3 SystemC | SystemC |  | .sc | 0 | valid offered\n"
    "4 C++ | C++ |  | .cpp .cc .cxx .c .h .hpp | 26 | stored valid offered\n"
    "5 Language5 | Language 5 |  |  | 0 |\n"
    "6 Specman | Specman |  | .e | 28 | offered\n"
    "7 TestBuilder | Test Builder |  | .tb | 26 | stored valid offered\n"
    "8 Language8 | Language 8 |  |  | 0 |\n"
    "9 None | None |  |  | 0 |\n";

}  // namespace

TEST(HdlLanguageTable, HoldsEveryLanguage) {
    std::string table;
    for (const THdlLanguageRecord& record : GetHdlLanguageTable()) table += TextOf(record);
    EXPECT_EQ(table, kTable);
}

TEST(HdlLanguageTable, GivesTheRecordOfNoLanguageOutsideItsRange) {
    for (int number = 0; number <= 9; ++number)
        EXPECT_EQ(GetHdlLanguageRecord(static_cast<THdlLanguage>(number)).Language, number);
    for (const int number : {-1, 10, 1000000, -2147483647})
        EXPECT_EQ(GetHdlLanguageRecord(static_cast<THdlLanguage>(number)).Language, LANGUAGE_NONE)
            << number;
}

TEST(HdlLanguageTable, ListsTheStoredLanguagesInTheirOrder) {
    EXPECT_EQ(GetStoredLanguages(),
              (std::vector<THdlLanguage>{LANGUAGE_VERILOG, LANGUAGE_VHDL, LANGUAGE_BLUESPECVERILOG,
                                         LANGUAGE_CPLUSPLUS, LANGUAGE_TESTBUILDER}));
}
