#include "services/hdl/sourcefileextensions.h"

#include "services/base/fold.h"

namespace {

struct TExtension {
    const char* Text;
    THdlLanguage Language;
};

// SystemVerilog counts as Verilog, the only language with a command line.
constexpr TExtension kExtensions[] = {
    {"v", LANGUAGE_VERILOG},    {"vo", LANGUAGE_VERILOG},          {"vh", LANGUAGE_VERILOG},
    {"sv", LANGUAGE_VERILOG},   {"svh", LANGUAGE_VERILOG},         {"vhd", LANGUAGE_VHDL},
    {"vhdl", LANGUAGE_VHDL},    {"bsv", LANGUAGE_BLUESPECVERILOG}, {"cpp", LANGUAGE_CPLUSPLUS},
    {"cc", LANGUAGE_CPLUSPLUS}, {"cxx", LANGUAGE_CPLUSPLUS},       {"c", LANGUAGE_CPLUSPLUS},
    {"h", LANGUAGE_CPLUSPLUS},  {"hpp", LANGUAGE_CPLUSPLUS},       {"sc", LANGUAGE_SYSTEMC},
    {"e", LANGUAGE_SPECMAN},    {"tb", LANGUAGE_TESTBUILDER},
};

}  // namespace

TSourceFileExtensions* TSourceFileExtensions::GetInstance() {
    static auto* extensions = new TSourceFileExtensions;
    return extensions;
}

THdlLanguage TSourceFileExtensions::GetSourceFileLanguageFromExtension(
    const char* extension) const {
    std::string_view text = extension ? extension : "";
    if (text.starts_with('.')) text.remove_prefix(1);
    for (const auto& row : kExtensions)
        if (EqualIgnoringCase(text, row.Text)) return row.Language;
    return LANGUAGE_NONE;
}
