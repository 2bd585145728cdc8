#include "flows/imports/importformats.h"
#include "flows/imports/formatreaders.h"
#include "flows/imports/importcheck.h"
#include "flows/imports/importreader.h"
#include "services/names/utilfilename.h"
#include <algorithm>

const std::vector<TImportFormat>& GetImportFormats() {
    static const std::vector<TImportFormat> formats = {
        {"bender", "What `bender sources -f` prints", "order, include directories, defines",
         ORDER_COUNTS, ReadBender},
        {"blueprint", "Tab-separated list of Orbit", "libraries, order", ORDER_COUNTS,
         ReadBlueprint},
        {"compile-commands", "compile_commands.json of sources in C++ and SystemC",
         "include directories, options", ORDER_DOES_NOT_COUNT, ReadCompileCommands},
        {"depfile", "Rules of make that name files, as Verilator writes with -MMD",
         "folders of included files", ORDER_DOES_NOT_COUNT, ReadDepfile},
        {"edam-json", "EDAM of Edalize, as JSON",
         "libraries, order, standard, include and library directories, library files, defines, "
         "delays, tops, options",
         ORDER_COUNTS, ReadEdamJson},
        {"edam-yaml", "EDAM of Edalize and FuseSoC, as YAML",
         "libraries, order, standard, include and library directories, library files, defines, "
         "delays, tops, options",
         ORDER_COUNTS, ReadEdamYaml},
        {"filelist", "Command file of Verilog sources in the words of any simulator",
         "libraries, include and library directories, library files, defines, delays, top, options",
         ORDER_COUNTS, ReadFileList},
        {"ghdl-order", "What `ghdl --elab-order` prints, with or without --libraries",
         "libraries, order", ORDER_COUNTS, ReadGhdlOrder},
        {"hdl-prj", "hdl-prj.json of the language server of GHDL",
         "libraries, order, standard, options", ORDER_COUNTS, ReadHdlPrj},
        {"hdlmake", "Manifest.py of hdlmake, as far as it is literal",
         "libraries, include directories, tops, options", ORDER_DOES_NOT_COUNT,
         ReadHdlmakeManifest},
        {"icarus", "Command file of Icarus Verilog",
         "include and library directories, library files, defines; of exports top, delays",
         ORDER_COUNTS, ReadIcarusList},
        {"icarus-deps", "What Icarus Verilog writes with -M", "folders of included files",
         ORDER_COUNTS, ReadIcarusDependencies},
        {"libmap", "Library map of SystemVerilog", "libraries, include directories",
         ORDER_DOES_NOT_COUNT, ReadLibraryMap},
        {"osvvm", "Script (.pro) for OSVVM, as far as it is literal",
         "libraries, order, standard, tops", ORDER_COUNTS, ReadOsvvmScript},
        {"slang", "Command file of slang",
         "include and library directories, library files, defines, delays, top", ORDER_COUNTS,
         ReadSlangList},
        {"vcs", "Command file of the large Verilog simulators",
         "libraries, include and library directories, library files, defines, delays, top, options",
         ORDER_COUNTS, ReadVcsList},
        {"verible", "verible.filelist of the language server of Verible",
         "include directories, defines", ORDER_COUNTS, ReadVeribleList},
        {"verilator", "Command file of Verilator",
         "include and library directories, library files, defines, top, options", ORDER_COUNTS,
         ReadVerilatorList},
        {"vhdl-ls", "vhdl_ls.toml of the VHDL language server", "libraries, standard, patterns",
         ORDER_DOES_NOT_COUNT, ReadVhdlLs},
        {"vunit-csv", "List of sources that VUnit reads", "libraries", ORDER_DOES_NOT_COUNT,
         ReadVunitTable},
        {"vunit-json", "What VUnit's run.py writes with --export-json", "libraries, order",
         ORDER_COUNTS, ReadVunitJson},
    };
    return formats;
}

const TImportFormat* FindImportFormat(std::string_view name) {
    const auto& formats = GetImportFormats();
    const auto found = std::find_if(formats.begin(), formats.end(),
                                    [name](const auto& format) { return name == format.Name; });
    return found == formats.end() ? nullptr : &*found;
}

TImported Import(const TImportFormat& format, const TImportRequest& request) {
    TImported imported;
    TImportReader reader(request, &imported);
    for (const std::string& name : request.Files) {
        TImportFile file;
        const std::string path = TUtilFileName(name.c_str()).CanonicalWithoutFinalSlash();
        if (!reader.Enter(path, request.Folder, "", {}, &file)) continue;
        format.Read(reader, file);
        reader.Leave();
    }
    CheckImported(format.Order, request, &imported);
    return imported;
}
