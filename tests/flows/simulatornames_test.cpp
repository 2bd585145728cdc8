#include "flows/simulatornames.h"
#include <gtest/gtest.h>

TEST(SimulatorNames, FindASimulatorByNameOrNumber) {
    EXPECT_EQ(FindSimulator("VCS"), SIM_VCS);
    EXPECT_EQ(FindSimulator(std::to_string(SIM_VCS)), SIM_VCS);
    for (const char* text : {"", "vcs", "VCS ", "99", "-1", "1x"})
        EXPECT_EQ(FindSimulator(text), SIM_NONE) << text;
}

TEST(SimulatorNames, AreThoseOfALanguage) {
    using TNames = std::vector<std::string>;
    EXPECT_EQ(KnownSimulators(LANGUAGE_BLUESPECVERILOG), TNames{"Bluespec"});
    EXPECT_EQ(KnownSimulators(LANGUAGE_SPECMAN), TNames{"Specman"});
    EXPECT_EQ(KnownSimulators(LANGUAGE_RESERVED5), TNames{});
}
