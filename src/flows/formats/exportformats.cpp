#include "flows/formats/exportformats.h"
#include "flows/formats/formatwriters.h"
#include <algorithm>

const std::vector<TExportFormat>& GetExportFormats() {
    static const std::vector<TExportFormat> formats = {
        {"blueprint", "Tab-separated list of all sources with language and library",
         "libraries, order", WriteBlueprint},
        {"filelist", "Command file in the subset that all readers of such lists share",
         "include and library directories, library files, defines", WriteFileList},
        {"ghdl", "Shell script that analyses, elaborates and runs with GHDL",
         "libraries, order, standard, tops, options", WriteGhdlScript},
        {"icarus", "Command file for Icarus Verilog",
         "include and library directories, library files, defines", WriteIcarusList},
        {"verilator", "Command file for Verilator",
         "include and library directories, library files, defines, top", WriteVerilatorList},
        {"vhdl-ls", "vhdl_ls.toml of the VHDL language server", "libraries, standard", WriteVhdlLs},
        {"vunit", "run.py for VUnit", "libraries, standard, include directories, defines, options",
         WriteVunitScript},
        {"vunit-csv", "List of sources that VUnit reads", "libraries", WriteVunitTable},
    };
    return formats;
}

const TExportFormat* FindExportFormat(std::string_view name) {
    const auto& formats = GetExportFormats();
    const auto found = std::find_if(formats.begin(), formats.end(),
                                    [name](const auto& format) { return name == format.Name; });
    return found == formats.end() ? nullptr : &*found;
}
