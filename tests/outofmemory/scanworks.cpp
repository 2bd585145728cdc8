#include "buildfile/hdlbuildfile.h"
#include "flows/buildscan.h"
#include "flows/scanedit.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "tests/outofmemory/work.h"
#include <optional>

namespace {

const char* const kVhdl =
    "library ieee; use ieee.std_logic_1164.all;\n"
    "package a_package_of_some_length is\n"
    "  constant a_constant_of_the_package : integer := 3;\n"
    "  component a_component_of_the_package is port (p : in bit); end component;\n"
    "end package;\n"
    "package body a_package_of_some_length is end package body;\n";
const char* const kVhdlUser =
    "use work.a_package_of_some_length.all;\n"
    "entity a_user_of_the_package is end;\n"
    "architecture an_architecture_of_it of a_user_of_the_package is\n"
    "  for all : a_component_of_the_package use entity work.a_component_of_the_package;\n"
    "begin\n"
    "  an_instance : a_component_of_the_package port map (p => '1');\n"
    "  another_one : entity work.an_entity_elsewhere(an_architecture_elsewhere);\n"
    "end;\n"
    "configuration a_configuration of a_user_of_the_package is\n"
    "  for an_architecture_of_it end for;\n"
    "end;\n";
const char* const kVerilog =
    "`include \"an_included_file.vh\"\n"
    "`define A_MACRO_OF_THE_FILE(name, value) localparam name = value;\n"
    "package a_verilog_package; `A_MACRO_OF_THE_FILE(a_parameter, 4) endpackage\n"
    "interface an_interface_of_the_file; modport a_modport(input x); endinterface\n"
    "module a_module_of_the_file import a_verilog_package::*; (an_interface_of_the_file.a_modport "
    "i);\n"
    "`ifdef A_NAME_OF_THE_INCLUDED_FILE\n"
    "  a_module_elsewhere #(.parameter_of_it(a_parameter)) an_instance_of_it();\n"
    "`endif\n"
    "endmodule\n";

std::string NameOf(const IHdlSourceFile* source) {
    return source->GetFileName()->GetNameAndExt();
}

/// A build whose sources record what they do not need, and lack what they do.
class TScanWork : public IWork {
public:
    TScanWork() {
        const TemporaryFolder& folder = GetEmptyFolder();
        folder.Write("package.vhd", kVhdl);
        folder.Write("user.vhd", kVhdlUser);
        folder.Write("elsewhere.vhd",
                     "entity an_entity_elsewhere is end;\n"
                     "architecture an_architecture_elsewhere of an_entity_elsewhere is begin end;");
        folder.Write("module.sv", kVerilog);
        folder.Write("elsewhere.sv", "module a_module_elsewhere(); endmodule\n");
        folder.Write("an_included_file.vh", "`define A_NAME_OF_THE_INCLUDED_FILE\n");
        Build.SetBuildFileName(ISFileName::NewISFileName(
            folder
                .Write("b.xml",
                       "<HdlBuildFileList><HdlBuildFile DestinationLibrary='work'>"
                       "<SourceFileGroup Language='Verilog'><SourceFile>module.sv</SourceFile>"
                       "<SourceFile>elsewhere.sv</SourceFile></SourceFileGroup>"
                       "<SourceFileGroup Language='VHDL'><SourceFile>user.vhd<Dependency>gone.vhd"
                       "</Dependency></SourceFile><SourceFile>elsewhere.vhd</SourceFile>"
                       "<SourceFile>package.vhd</SourceFile></SourceFileGroup>"
                       "</HdlBuildFile></HdlBuildFileList>")
                .c_str()));
        Build.ReadFromFile();
    }

protected:
    THdlBuildFile Build;
};

class TScanOfBuild final : public TScanWork {
public:
    bool Do() override {
        Scan.reset();
        Scan.emplace(Build, TLinkOptions());
        return true;
    }
    std::string GetResult() override {
        std::string text;
        for (const TDependencyDifference& difference : Scan->GetDifferences()) {
            text += NameOf(Scan->GetSources()[difference.Source].Source);
            for (const TLinkedFile& linked : difference.Lacking)
                text += " +" + NameOf(Scan->GetSources()[linked.File].Source);
            for (const IHdlSourceFile* const dependency : difference.Unexplained)
                text += " -" + NameOf(dependency);
            text += "\n";
        }
        return text;
    }

private:
    std::optional<TBuildScan> Scan;
};

}  // namespace

std::vector<TWorkRow> MakeScanWorks() {
    return {WorkRow<TScanOfBuild>("scanning the sources of a build")};
}
