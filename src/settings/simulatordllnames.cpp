#include "settings/simulatordllnames.h"
#include "services/base/mystring.h"

namespace {

std::string DllName(TSimulatorType simulator, const char* kind, const char* base, bool debug) {
    return std::string(GetSimulatorDllNamePrefix(simulator)) + kind + TMyString(base).Str() +
           (debug ? "d" : "") + ".dll";
}

}  // namespace

std::string GetSystemCDllName(const char* base, TSimulatorType simulator, bool debug) {
    return DllName(simulator, "sc_", base, debug);
}

std::string GetTestBuilderDllName(const char* base, TSimulatorType simulator, bool debug) {
    return DllName(simulator, "", base, debug);
}
