#include "services/hdl/simulatortype.h"

#include "services/base/fold.h"

namespace {

using TLanguages = std::vector<THdlLanguage>;

// Names are prefixes of INI keys: no '=', no brackets, no outer blanks, and never digits alone,
// which readers take for a simulator's number. The prefixes from SIM_MODELSIM_VERILOG_SE
// to SIM_MODELSIM_VHDL_PE are irregular on purpose: the DLLs are built under these names.
// clang-format off
std::vector<TSimulatorRecord>* MakeSimulatorTable() {
    const TLanguages none;
    const TLanguages verilog{LANGUAGE_VERILOG};
    const TLanguages vhdl{LANGUAGE_VHDL};
    const TLanguages bluespec{LANGUAGE_BLUESPECVERILOG};
    const TLanguages cplusplus{LANGUAGE_CPLUSPLUS, LANGUAGE_TESTBUILDER};
    const TLanguages specman{LANGUAGE_SPECMAN};
    return new std::vector<TSimulatorRecord>{
        {SIM_NONE, "None", "NONE", "None", none},
        {SIM_ZORVIK_VERILOG, "SimZorvik Verilog", "kandor_zorvik", "SimZorvik", verilog},
        {SIM_ZORVIK_VERILOG_32, "SimZorvik Verilog 32-bit", "kandor_zorvik_32", "SimZorvik", verilog},
        {SIM_ZORVIK_VERILOG_64, "SimZorvik Verilog 64-bit", "kandor_zorvik_64", "SimZorvik", verilog},
        {SIM_ZORVIK_VHDL, "SimZorvik VHDL", "vhdl_zorvik", "SimZorvik", vhdl},
        {SIM_ZORVIK_VHDL_32, "SimZorvik VHDL 32-bit", "vhdl_zorvik_32", "SimZorvik", vhdl},
        {SIM_ZORVIK_VHDL_64, "SimZorvik VHDL 64-bit", "vhdl_zorvik_64", "SimZorvik", vhdl},
        {SIM_ZORVIK_CL, "SimZorvik CL", "kandorcl_", "SimZorvik", verilog},
        {SIM_ACTIVEHDL_VHDL, "Active-HDL VHDL", "activehdl_vhdl_", "Aldec", vhdl},
        {SIM_ACTIVEHDL_VERILOG, "Active-HDL Verilog", "activehdl_verilog_", "Aldec", verilog},
        {SIM_BLUESPEC, "Bluespec", "bluespec_verilog_", "Bluespec", bluespec},
        {SIM_MODELSIM_VERILOG, "ModelSim Verilog", "modelsim_verilog_", "Mentor", verilog},
        {SIM_MODELSIM_VERILOG_64, "ModelSim Verilog 64-bit", "modelsim_verilog_64_", "Mentor", verilog},
        {SIM_MODELSIM_VERILOG_SE, "ModelSim Verilog SE", "modelsim_verilog_", "Mentor", verilog},
        {SIM_MODELSIM_VHDL, "ModelSim VHDL", "modelsim_vhdl_", "Mentor", vhdl},
        {SIM_MODELSIM_VHDL_64, "ModelSim VHDL 64-bit", "modelsim_vhdl_64", "Mentor", vhdl},
        {SIM_MODELSIM_VHDL_SE, "ModelSim VHDL SE", "modelsim_vhdl_", "Mentor", vhdl},
        {SIM_MODELSIM_VHDL_PE, "ModelSim VHDL PE", "modelsim_vhdl_", "Mentor", vhdl},
        {SIM_NC_VHDL, "NCSim VHDL", "nc_vhdl_", "Cadence", vhdl},
        {SIM_NC_VHDL_64, "NCSim VHDL 64-bit", "nc_vhdl_64_", "Cadence", vhdl},
        {SIM_NC_VERILOG, "NCSim Verilog", "nc_verilog_", "Cadence", verilog},
        {SIM_NC_VERILOG_64, "NCSim Verilog 64-bit", "nc_verilog_64_", "Cadence", verilog},
        {SIM_VCS, "VCS", "vcs_", "Synopsys", verilog},
        {SIM_VCSI, "VCSi", "vcsi_", "Synopsys", verilog},
        {SIM_VERILOGXL, "Verilog-XL", "verilogxl_", "Cadence", verilog},
        {SIM_SCIROCCO, "Scirocco", "scirocco_", "Synopsys", vhdl},
        {SIM_MICROSOFT_CPP, "Microsoft C++", "ms_cl_", "Microsoft", cplusplus},
        {SIM_GCC, "GCC", "gcc_", "GNU", cplusplus},
        {SIM_SPECMAN, "Specman", "NONE", "Cadence", specman},
        {SIM_VHDL_OTHER, "Other VHDL", "NONE", "Other", vhdl},
        {SIM_SIMULATOR30, "Simulator30", "NONE", "Other", none},
    };
}
// clang-format on

const TSimulatorRecord& RecordOf(TSimulatorType type) {
    const bool known = type >= SIM_NONE && type <= SIM_SIMULATOR30;
    return GetSimulatorTable()[static_cast<std::size_t>(known ? type : SIM_NONE)];
}

}  // namespace

const std::vector<TSimulatorRecord>& GetSimulatorTable() {
    static const auto* table = MakeSimulatorTable();
    return *table;
}

const char* GetSimulatorNameFromType(TSimulatorType type) {
    return RecordOf(type).Name;
}

TSimulatorType GetSimulatorTypeFromName(const char* name) {
    const auto word = TrimmedView(name ? name : "");
    for (const auto& record : GetSimulatorTable())
        if (word == record.Name) return record.Type;
    return SIM_NONE;
}

const char* GetSimulatorDllNamePrefix(TSimulatorType type) {
    return RecordOf(type).DllNamePrefix;
}
