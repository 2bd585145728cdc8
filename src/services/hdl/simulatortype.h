#pragma once
#include "services/hdl/hdllanguage.h"
#include <vector>

/// The simulators known to the environment. Files store the texts of GetSimulatorNameFromType.
enum TSimulatorType : int {
    SIM_NONE = 0,
    SIM_ZORVIK_VERILOG = 1,
    SIM_ZORVIK_VERILOG_32 = 2,
    SIM_ZORVIK_VERILOG_64 = 3,
    SIM_ZORVIK_VHDL = 4,
    SIM_ZORVIK_VHDL_32 = 5,
    SIM_ZORVIK_VHDL_64 = 6,
    SIM_ZORVIK_CL = 7,
    SIM_ACTIVEHDL_VHDL = 8,
    SIM_ACTIVEHDL_VERILOG = 9,
    SIM_BLUESPEC = 10,
    SIM_MODELSIM_VERILOG = 11,
    SIM_MODELSIM_VERILOG_64 = 12,
    SIM_MODELSIM_VERILOG_SE = 13,
    SIM_MODELSIM_VHDL = 14,
    SIM_MODELSIM_VHDL_64 = 15,
    SIM_MODELSIM_VHDL_SE = 16,
    SIM_MODELSIM_VHDL_PE = 17,
    SIM_NC_VHDL = 18,
    SIM_NC_VHDL_64 = 19,
    SIM_NC_VERILOG = 20,
    SIM_NC_VERILOG_64 = 21,
    SIM_VCS = 22,
    SIM_VCSI = 23,
    SIM_VERILOGXL = 24,
    SIM_SCIROCCO = 25,
    SIM_MICROSOFT_CPP = 26,
    SIM_GCC = 27,
    SIM_SPECMAN = 28,
    SIM_VHDL_OTHER = 29,
    SIM_SIMULATOR30 = 30
};

/// Whether `type` is one of the environment's own Verilog and VHDL simulators.
constexpr bool IsOwnHdlSimulator(TSimulatorType type) {
    return type >= SIM_ZORVIK_VERILOG && type <= SIM_ZORVIK_VHDL_64;
}

/// One row of the table of simulators. The texts are static and never null.
struct TSimulatorRecord {
    TSimulatorType Type;
    const char* Name;           ///< stored in files, unique
    const char* DllNamePrefix;  ///< begins the names of simulator-specific DLLs; "NONE" without one
    const char* VendorFamily;   ///< who makes it
    std::vector<THdlLanguage> Languages;  ///< what it simulates, in the order of its tool records
};

/// All simulators, 0 to 30, in the order of their numbers. Static.
HDLBUILDFILE_API const std::vector<TSimulatorRecord>& GetSimulatorTable();

/// The name stored in files; "None" outside 0 to 30. Static, never null.
HDLBUILDFILE_API const char* GetSimulatorNameFromType(TSimulatorType type);
/// The inverse, exact but for surrounding blanks; SIM_NONE for unknown, empty and null texts.
HDLBUILDFILE_API TSimulatorType GetSimulatorTypeFromName(const char* name);
/// The DLL-name prefix; "NONE" for anything outside 0 to 29. Static, never null.
HDLBUILDFILE_API const char* GetSimulatorDllNamePrefix(TSimulatorType type);
