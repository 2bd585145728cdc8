#include "flows/formats/exportformats.h"
#include "flows/formats/formatwriters.h"
#include <algorithm>

const std::vector<TExportFormat>& GetExportFormats() {
    static const std::vector<TExportFormat> formats = {
        {"blueprint", "Tab-separated list of all sources with language and library",
         "libraries, order", WriteBlueprint},
        {"compile-commands", "compile_commands.json of the sources in C++ and SystemC",
         "include directories, defines, options", WriteCompileCommands},
        {"depfile", "Rule of make and ninja that names all sources", "nothing else", WriteDepfile},
        {"edam-json", "EDAM for Edalize, as JSON",
         "libraries, order, standard, include and library directories, library files, defines, "
         "delays, tops, options",
         WriteEdamJson},
        {"edam-yaml", "EDAM for Edalize, as YAML",
         "libraries, order, standard, include and library directories, library files, defines, "
         "delays, tops, options",
         WriteEdamYaml},
        {"filelist", "Command file in the subset that all readers of such lists share",
         "include and library directories, library files, defines", WriteFileList},
        {"fusesoc", "Core file (.core) for FuseSoC",
         "libraries, order, standard, defines, delays, tops, options", WriteFusesocCore},
        {"ghdl", "Shell script that analyses, elaborates and runs with GHDL",
         "libraries, order, standard, tops, options", WriteGhdlScript},
        {"hdl-prj", "hdl-prj.json of the language server of GHDL",
         "libraries, standard, analysis options", WriteHdlPrj},
        {"icarus", "Command file for Icarus Verilog",
         "include and library directories, library files, defines", WriteIcarusList},
        {"libmap", "Library map of SystemVerilog", "libraries, include directories",
         WriteLibraryMap},
        {"make", "Makefile for GHDL and Icarus Verilog",
         "libraries, order, standard, include and library directories, library files, defines, "
         "delays, tops, options",
         WriteMakefile},
        {"ninja", "File for ninja that calls GHDL and Icarus Verilog",
         "libraries, order, needs, standard, include and library directories, library files, "
         "defines, delays, tops, options",
         WriteNinjaFile},
        {"osvvm", "Script (.pro) for OSVVM", "libraries, order, standard, tops", WriteOsvvmScript},
        {"slang", "Command file for slang",
         "include and library directories, library files, defines, delays, top", WriteSlangList},
        {"svls", ".svls.toml of the SystemVerilog language server svls", "include directories only",
         WriteSvls},
        {"vcs", "Command file for the large Verilog simulators",
         "include and library directories, library files, defines, delays, top", WriteVcsList},
        {"verible", "verible.filelist of the language server of Verible",
         "include directories, defines with a value", WriteVeribleList},
        {"verilator", "Command file for Verilator",
         "include and library directories, library files, defines, top", WriteVerilatorList},
        {"vhdl-ls", "vhdl_ls.toml of the VHDL language server", "libraries, standard", WriteVhdlLs},
        {"vsim", "Tcl script for simulators with vlib, vcom, vlog and vsim",
         "libraries, order, standard, include and library directories, library files, defines, "
         "delays, tops, options",
         WriteVsimScript},
        {"vunit", "run.py for VUnit", "libraries, standard, include directories, defines",
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
