// The option defaults of TProjectSimLanguageConfig.
#include "services/hdl/simtypelanguagemap.h"
#include "services/logging/binarylog.h"
#include "settings/projectsettingsconfigurationsdata.h"
#include <algorithm>

namespace {

using namespace ProjectSettingsConfigurationsData;

struct TDefaultOptions {
    const char* Build = "";
    const char* Linker = "";
};

// The environment's VHDL simulators take the define in the Verilog spelling as well.
constexpr TDefaultOptions kOwnDebug = {"+define+_DEBUG", ""};
// The linker texts begin with a blank, so that they can be appended.
constexpr TDefaultOptions kCppRelease = {"/MD /W3 /GR /GX /D NDEBUG /c",
                                         " /dll /machine:I386 /PDB:NONE kernel32.lib"};
constexpr TDefaultOptions kCppDebug = {"/Zi /MDd /W3 /GR /GX /Od /GZ /D _DEBUG /c",
                                       " /dll /debug /machine:I386 /PDB:NONE kernel32.lib"};
constexpr TDefaultOptions kSpecman = {"${SPECMAN_CFLAGS}", "${SPECMAN_LOFLAGS}"};

constexpr TSimulatorType kOtherVhdl[] = {
    SIM_ACTIVEHDL_VHDL, SIM_MODELSIM_VHDL, SIM_MODELSIM_VHDL_SE, SIM_MODELSIM_VHDL_PE,
    SIM_NC_VHDL,        SIM_SCIROCCO,      SIM_VHDL_OTHER};

bool IsOwnSimulatorOf(THdlLanguage language, TSimulatorType tool) {
    return IsOwnHdlSimulator(tool) &&
           TSimTypeLanguageMap::instance()->GetDefaultOrSupportedSimulator(language, tool) == tool;
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
    const bool isOwn = IsOwnSimulatorOf(LANGUAGE_VHDL, tool);
    const bool isOther =
        std::find(std::begin(kOtherVhdl), std::end(kOtherVhdl), tool) != std::end(kOtherVhdl);
    if (!isOwn && !isOther) ReportInvalidSimulator(tool);
    return isOwn && debug ? kOwnDebug : TDefaultOptions();
}

TDefaultOptions DefaultOptions(THdlLanguage language, TSimulatorType tool, bool debug) {
    switch (language) {
        case LANGUAGE_VERILOG:
            return debug && IsOwnSimulatorOf(language, tool) ? kOwnDebug : TDefaultOptions();
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
    SetBuildOptions(options.Build);
    LinkerOptions = options.Linker;
    RuntimeOptions = "";
    LogDiagnostic("[Default] <-- TProjectSimLanguageConfig::ResetDefaultSettingsOptions(..)");
}
