// The option defaults of TProjectSimLanguageConfig.
#include "services/logging/binarylog.h"
#include "settings/projectsettingsconfigurationsdata.h"
#include <algorithm>

namespace {

using namespace ProjectSettingsConfigurationsData;

struct TDefaultOptions {
    const char* Build = "";
    const char* Linker = "";
};

// The maker's VHDL simulator takes the define in the Verilog spelling as well.
constexpr TDefaultOptions kOwnDebug = {"+define+_DEBUG", ""};
// The linker texts begin with a blank, so that they can be appended.
constexpr TDefaultOptions kCppRelease = {"/MD /W3 /GR /GX /D NDEBUG /c",
                                         " /dll /machine:I386 /PDB:NONE kernel32.lib"};
constexpr TDefaultOptions kCppDebug = {"/Zi /MDd /W3 /GR /GX /Od /GZ /D _DEBUG /c",
                                       " /dll /debug /machine:I386 /PDB:NONE kernel32.lib"};
constexpr TDefaultOptions kSpecman = {"${SPECMAN_CFLAGS}", "${SPECMAN_LOFLAGS}"};

constexpr TSimulatorType kOwnVerilog[] = {SIM_ZORVIK_VERILOG, SIM_ZORVIK_VERILOG_32,
                                          SIM_ZORVIK_VERILOG_64};
constexpr TSimulatorType kOwnVhdl[] = {SIM_ZORVIK_VHDL, SIM_ZORVIK_VHDL_32, SIM_ZORVIK_VHDL_64};
constexpr TSimulatorType kOtherVhdl[] = {
    SIM_ACTIVEHDL_VHDL, SIM_MODELSIM_VHDL, SIM_MODELSIM_VHDL_SE, SIM_MODELSIM_VHDL_PE,
    SIM_NC_VHDL,        SIM_SCIROCCO,      SIM_VHDL_OTHER};

template <std::size_t Size>
bool IsOneOf(TSimulatorType tool, const TSimulatorType (&tools)[Size]) {
    return std::find(tools, tools + Size, tool) != tools + Size;
}

void ReportInvalidSimulator(TSimulatorType tool) {
    static TCheckSite site("false && \"Invalid Simulator\"", kSource, kInvalidSimulator);
    site.Report();
    LogDiagnostic(TBinaryLogMessageTwoArgs(
        "[Default] Language (as int): %1%, simTool (as int): %2%",
        std::to_string(LANGUAGE_VHDL).c_str(), std::to_string(tool).c_str()));
    LogDiagnostic(TBinaryLogMessageTwoArgs(
        "[Default] Language (as string): %1%, simTool (as string): %2%",
        GetDisplayStringFromHdlLanguage(LANGUAGE_VHDL), GetSimulatorNameFromType(tool)));
}

TDefaultOptions VhdlOptions(TSimulatorType tool, bool debug) {
    const bool isOwn = IsOneOf(tool, kOwnVhdl);
    if (!isOwn && !IsOneOf(tool, kOtherVhdl)) ReportInvalidSimulator(tool);
    return isOwn && debug ? kOwnDebug : TDefaultOptions();
}

TDefaultOptions DefaultOptions(THdlLanguage language, TSimulatorType tool, bool debug) {
    switch (language) {
        case LANGUAGE_VERILOG:
            return debug && IsOneOf(tool, kOwnVerilog) ? kOwnDebug : TDefaultOptions();
        case LANGUAGE_VHDL:
            return VhdlOptions(tool, debug);
        case LANGUAGE_SYSTEMC:
        case LANGUAGE_CPLUSPLUS:
            return debug ? kCppDebug : kCppRelease;
        case LANGUAGE_SPECMAN:
            return kSpecman;
        default:
            return {};
    }
}

}  // namespace

void TProjectSimLanguageConfig::ResetDefaultSettingsOptions(THdlLanguage language, bool debug) {
    LogDiagnostic("[Default] --> TProjectSimLanguageConfig::ResetDefaultSettingsOptions()");
    const TDefaultOptions options = DefaultOptions(language, Tool, debug);
    BuildOptions = options.Build;
    LinkerOptions = options.Linker;
    RuntimeOptions = "";
    LogDiagnostic("[Default] <-- TProjectSimLanguageConfig::ResetDefaultSettingsOptions(..)");
}
