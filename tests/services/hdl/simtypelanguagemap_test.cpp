#include "services/hdl/simtypelanguagemap.h"
#include <gtest/gtest.h>
#include <string>

namespace {

/// The numbers of the simulators of a language, in order.
std::vector<int> SimulatorsOf(THdlLanguage language) {
    std::vector<int> numbers;
    for (int number = -1; number <= 31; ++number)
        for (const auto listed : TSimTypeLanguageMap::instance()->GetHdlLanguageList(
                 static_cast<TSimulatorType>(number)))
            if (listed == language) numbers.push_back(number);
    return numbers;
}

struct LanguageRow {
    THdlLanguage language;
    TSimulatorType defaultSimulator;
    std::vector<int> simulators;
};

const LanguageRow kRows[] = {
    {LANGUAGE_VERILOG, SIM_ZORVIK_VERILOG, {1, 2, 3, 7, 9, 11, 12, 13, 20, 21, 22, 23, 24}},
    {LANGUAGE_VHDL, SIM_ZORVIK_VHDL, {4, 5, 6, 8, 14, 15, 16, 17, 18, 19, 25, 29}},
    {LANGUAGE_BLUESPECVERILOG, SIM_BLUESPEC, {10}},
    {LANGUAGE_SYSTEMC, SIM_NONE, {}},
    {LANGUAGE_CPLUSPLUS, SIM_MICROSOFT_CPP, {26, 27}},
    {LANGUAGE_RESERVED5, SIM_NONE, {}},
    {LANGUAGE_SPECMAN, SIM_SPECMAN, {28}},
    {LANGUAGE_TESTBUILDER, SIM_MICROSOFT_CPP, {26, 27}},
    {LANGUAGE_RESERVED8, SIM_NONE, {}},
    {LANGUAGE_NONE, SIM_NONE, {}},
    {static_cast<THdlLanguage>(-1), SIM_NONE, {}},
};

}  // namespace

TEST(SimTypeLanguageMap, KnowsTheSimulatorsAndTheDefaultOfEachLanguage) {
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.language);
        EXPECT_EQ(SimulatorsOf(row.language), row.simulators);
        EXPECT_EQ(TSimTypeLanguageMap::instance()->GetDefaultSimulator(row.language),
                  row.defaultSimulator);
    }
}

TEST(SimTypeLanguageMap, KeepsASupportedSimulatorAndReplacesAnyOther) {
    for (const auto& row : kRows)
        for (int number = -1; number <= 31; ++number) {
            const bool supported = std::find(row.simulators.begin(), row.simulators.end(),
                                             number) != row.simulators.end();
            EXPECT_EQ(TSimTypeLanguageMap::instance()->GetDefaultOrSupportedSimulator(
                          row.language, static_cast<TSimulatorType>(number)),
                      supported ? number : static_cast<int>(row.defaultSimulator))
                << row.language << " " << number;
        }
}

TEST(SimTypeLanguageMap, ListsTheLanguagesOfACompilerInOrder) {
    const std::vector<THdlLanguage> expected{LANGUAGE_CPLUSPLUS, LANGUAGE_TESTBUILDER};
    EXPECT_EQ(TSimTypeLanguageMap::instance()->GetHdlLanguageList(SIM_GCC), expected);
    EXPECT_EQ(TSimTypeLanguageMap::instance()->GetHdlLanguageList(SIM_MICROSOFT_CPP), expected);
}
