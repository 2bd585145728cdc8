#include "settings/simulatordllnames.h"
#include <gtest/gtest.h>

TEST(SimulatorDllNames, JoinsPrefixKindBaseAndDebugMark) {
    EXPECT_EQ(GetSystemCDllName("name", SIM_NC_VERILOG, true), "nc_verilog_sc_named.dll");
    EXPECT_EQ(GetSystemCDllName("name", SIM_NC_VERILOG, false), "nc_verilog_sc_name.dll");
    EXPECT_EQ(GetTestBuilderDllName("name", SIM_MODELSIM_VHDL_64, false),
              "modelsim_vhdl_64name.dll");
    EXPECT_EQ(GetTestBuilderDllName("name", SIM_MODELSIM_VHDL_64, true),
              "modelsim_vhdl_64named.dll");
    EXPECT_EQ(GetSystemCDllName(nullptr, SIM_GCC, false), "gcc_sc_.dll");
    EXPECT_EQ(GetTestBuilderDllName("", SIM_GCC, true), "gcc_d.dll");
}

TEST(SimulatorDllNames, HasThePrefixOfEachSimulator) {
    const char* prefixes[] = {"NONE",
                              "kandor_zorvik",
                              "kandor_zorvik_32",
                              "kandor_zorvik_64",
                              "vhdl_zorvik",
                              "vhdl_zorvik_32",
                              "vhdl_zorvik_64",
                              "kandorcl_",
                              "activehdl_vhdl_",
                              "activehdl_verilog_",
                              "bluespec_verilog_",
                              "modelsim_verilog_",
                              "modelsim_verilog_64_",
                              "modelsim_verilog_",
                              "modelsim_vhdl_",
                              "modelsim_vhdl_64",
                              "modelsim_vhdl_",
                              "modelsim_vhdl_",
                              "nc_vhdl_",
                              "nc_vhdl_64_",
                              "nc_verilog_",
                              "nc_verilog_64_",
                              "vcs_",
                              "vcsi_",
                              "verilogxl_",
                              "scirocco_",
                              "ms_cl_",
                              "gcc_",
                              "NONE",
                              "NONE"};
    for (int i = 0; i < 30; ++i) {
        const auto simulator = static_cast<TSimulatorType>(i);
        EXPECT_EQ(GetTestBuilderDllName("b", simulator, false), prefixes[i] + std::string("b.dll"))
            << i;
        EXPECT_EQ(GetSystemCDllName("b", simulator, false), prefixes[i] + std::string("sc_b.dll"))
            << i;
    }
}

TEST(SimulatorDllNames, HasNoPrefixOutsideTheTable) {
    for (const int number : {30, 31, 1000, -1})
        EXPECT_EQ(GetTestBuilderDllName("b", static_cast<TSimulatorType>(number), false),
                  "NONEb.dll")
            << number;
}
