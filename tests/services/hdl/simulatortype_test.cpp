#include "services/hdl/simulatortype.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

/// A row of the table in one line: "number name | prefix | family | languages".
std::string TextOf(const TSimulatorRecord& record) {
    std::string text = std::to_string(record.Type) + " " + record.Name + " | " +
                       record.DllNamePrefix + " | " + record.VendorFamily + " |";
    for (const auto language : record.Languages)
        text += std::string(" ") + GetStringFromHdlLanguage(language);
    return text + "\n";
}

constexpr const char* kTable =
    "0 None | NONE | None |\n"
    "1 SimZorvik Verilog | kandor_zorvik | SimZorvik | Verilog\n"
    "2 SimZorvik Verilog 32-bit | kandor_zorvik_32 | SimZorvik | Verilog\n"
    "3 SimZorvik Verilog 64-bit | kandor_zorvik_64 | SimZorvik | Verilog\n"
    "4 SimZorvik VHDL | vhdl_zorvik | SimZorvik | VHDL\n"
    "5 SimZorvik VHDL 32-bit | vhdl_zorvik_32 | SimZorvik | VHDL\n"
    "6 SimZorvik VHDL 64-bit | vhdl_zorvik_64 | SimZorvik | VHDL\n"
    "7 SimZorvik CL | kandorcl_ | SimZorvik | Verilog\n"
    "8 Active-HDL VHDL | activehdl_vhdl_ | Aldec | VHDL\n"
    "9 Active-HDL Verilog | activehdl_verilog_ | Aldec | Verilog\n"
    "10 Bluespec | bluespec_verilog_ | Bluespec | Bluespec\n"
    "11 ModelSim Verilog | modelsim_verilog_ | Mentor | Verilog\n"
    "12 ModelSim Verilog 64-bit | modelsim_verilog_64_ | Mentor | Verilog\n"
    "13 ModelSim Verilog SE | modelsim_verilog_ | Mentor | Verilog\n"
    "14 ModelSim VHDL | modelsim_vhdl_ | Mentor | VHDL\n"
    "15 ModelSim VHDL 64-bit | modelsim_vhdl_64 | Mentor | VHDL\n"
    "16 ModelSim VHDL SE | modelsim_vhdl_ | Mentor | VHDL\n"
    "17 ModelSim VHDL PE | modelsim_vhdl_ | Mentor | VHDL\n"
    "18 NCSim VHDL | nc_vhdl_ | Cadence | VHDL\n"
    "19 NCSim VHDL 64-bit | nc_vhdl_64_ | Cadence | VHDL\n"
    "20 NCSim Verilog | nc_verilog_ | Cadence | Verilog\n"
    "21 NCSim Verilog 64-bit | nc_verilog_64_ | Cadence | Verilog\n"
    "22 VCS | vcs_ | Synopsys | Verilog\n"
    "23 VCSi | vcsi_ | Synopsys | Verilog\n"
    "24 Verilog-XL | verilogxl_ | Cadence | Verilog\n"
    "25 Scirocco | scirocco_ | Synopsys | VHDL\n"
    "26 Microsoft C++ | ms_cl_ | Microsoft | C++ TestBuilder\n"
    "27 GCC | gcc_ | GNU | C++ TestBuilder\n"
    "28 Specman | NONE | Cadence | Specman\n"
    "29 Other VHDL | NONE | Other | VHDL\n"
    "30 Simulator30 | NONE | Other |\n";

}  // namespace

TEST(SimulatorType, TableHoldsEverySimulator) {
    std::string table;
    for (const auto& record : GetSimulatorTable()) table += TextOf(record);
    EXPECT_EQ(table, kTable);
}

TEST(SimulatorType, NamesReadBackAndAreUnique) {
    std::set<std::string> names;
    for (int number = 0; number <= 30; ++number) {
        const auto type = static_cast<TSimulatorType>(number);
        const std::string name = GetSimulatorNameFromType(type);
        EXPECT_EQ(name, GetSimulatorTable()[static_cast<std::size_t>(number)].Name);
        EXPECT_EQ(GetSimulatorTypeFromName(name.c_str()), type) << name;
        EXPECT_TRUE(names.insert(name).second) << name;
    }
}

TEST(SimulatorType, NamesCanBeginIniKeys) {
    for (const auto& record : GetSimulatorTable()) {
        const std::string_view name = record.Name;
        EXPECT_EQ(name.find_first_of("=[];#\"\r\n"), std::string_view::npos) << name;
        EXPECT_TRUE(name.front() != ' ' && name.back() != ' ') << name;
        EXPECT_FALSE(std::all_of(name.begin(), name.end(), [](char c) {
            return c >= '0' && c <= '9';
        })) << name;
    }
}

TEST(SimulatorType, ReadsNamesExactlyButForOuterBlanks) {
    struct Row {
        const char* name;
        TSimulatorType type;
    };
    const Row rows[] = {
        {" GCC\n", SIM_GCC},
        {"gcc", SIM_NONE},
        {"ModelSim  Verilog", SIM_NONE},
        {"Verilog", SIM_NONE},
        {"27", SIM_NONE},
        {"None", SIM_NONE},
        {"Simulator30", SIM_SIMULATOR30},
        {"Simulator31", SIM_NONE},
        {"", SIM_NONE},
        {nullptr, SIM_NONE},
    };
    for (const auto& row : rows)
        EXPECT_EQ(GetSimulatorTypeFromName(row.name), row.type) << (row.name ? row.name : "null");
}

TEST(SimulatorType, GivesDllPrefixesByNumber) {
    EXPECT_STREQ(GetSimulatorDllNamePrefix(SIM_MODELSIM_VHDL_64), "modelsim_vhdl_64");
    EXPECT_STREQ(GetSimulatorDllNamePrefix(SIM_NC_VERILOG), "nc_verilog_");
}

TEST(SimulatorType, IsNoneOutsideItsRange) {
    for (const int number : {-1, 31, 1000000, -2147483647}) {
        EXPECT_STREQ(GetSimulatorNameFromType(static_cast<TSimulatorType>(number)), "None");
        EXPECT_STREQ(GetSimulatorDllNamePrefix(static_cast<TSimulatorType>(number)), "NONE");
    }
}

TEST(SimulatorType, HasTheEnvironmentsOwnForVerilogAndVhdlFrom1To6) {
    std::string own;
    for (int number = -1; number <= 31; ++number)
        if (IsOwnHdlSimulator(static_cast<TSimulatorType>(number)))
            own += std::to_string(number) + " ";
    EXPECT_EQ(own, "1 2 3 4 5 6 ");
}
