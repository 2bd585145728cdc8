#include "tests/cli/sensorsexample.h"
#include "tests/cli/shell.h"
#include <gtest/gtest.h>

TEST(SensorsExample, IsMadeByItsCommands) {
    const SensorsExample example;
    const std::string shipped = example.Read("sensors.xml");
    std::filesystem::remove("sensors.xml");
    const auto [status, output] = Shell("HDLBUILD=" HDLBUILD_PROGRAM " sh ./make-build");
    EXPECT_EQ(status, 0) << output;
    EXPECT_EQ(example.Read("sensors.xml"), shipped);
}

TEST(SensorsExample, HasNoProblems) {
    const SensorsExample example;
    EXPECT_EQ(ResultOf({"check", "sensors.xml"}), "sensors.xml: no problems\n");
    EXPECT_EQ(ResultOf({"scan", "sensors.xml", "--check", "--exact", "--sort"}),
              "verilog/tb/collector_tb.sv:6:8: nobody instantiates module collector.collector_tb\n"
              "verilog/tb/fifo_tb.sv:5:8: nobody instantiates module collector.fifo_tb\n"
              "vhdl/sim/filter_tb.vhd:9:8: nobody instantiates entity sim.filter_tb\n"
              "vhdl/sim/node_tb.vhd:11:8: nobody instantiates entity sim.node_tb\n"
              "sensors.xml: the dependencies and the order are up to date\n");
}
