#include "tests/torture/formatsamples.h"

const std::vector<TFormatSample>& GetImportSamples() {
    static const std::vector<TFormatSample> samples = {
        {"bender", "bender.json",
         "[{\"package\": \"p\", \"independent\": true, \"target\": \"*\", \"include_dirs\": "
         "[\"inc\"], \"export_incdirs\": {}, \"defines\": {\"A\": \"1\", \"B\": null}, \"files\": "
         "[\"rtl/a.sv\", \"rtl/b.vhd\"]}]\n"},
        {"blueprint", "blueprint.tsv", "VHDL\twork\trtl/a.vhd\nVLOG\tlib\trtl/b.v\n"},
        {"compile-commands", "compile_commands.json",
         "[{\"directory\": \"sim\", \"command\": \"c++ -Iinc -DA=1 -c a.cpp\", \"file\": "
         "\"a.cpp\"}, {\"directory\": \".\", \"arguments\": [\"c++\", \"-c\", \"b.cpp\"], "
         "\"file\": \"b.cpp\"}]\n"},
        {"depfile", "build.d", "build.xml: rtl/a.vhd rtl/my\\ b.vhd \\\n  rtl/c$$d.v\n"},
        {"edam-json", "design.eda.json",
         "{\"name\": \"d\", \"toplevel\": \"tb\", \"files\": [{\"name\": \"rtl/a.vhd\", "
         "\"file_type\": \"vhdlSource-2008\", \"logical_name\": \"lib\"}, {\"name\": \"inc/w.vh\", "
         "\"file_type\": \"verilogSource\", \"is_include_file\": true}], \"parameters\": {\"A\": "
         "{\"datatype\": \"int\", \"default\": 1, \"paramtype\": \"vlogdefine\"}}}\n"},
        {"edam-yaml", "design.eda.yml",
         "name: d\ntoplevel: tb\nfiles:\n- {name: rtl/a.vhd, file_type: vhdlSource-2008}\n- name: "
         "\"rtl/\\u00e4.v\"\n  file_type: verilogSource\n  include_path: &p inc\n  tags: [*p]\n"
         "parameters:\n  A:\n    default: 1\n    paramtype: vlogdefine\n"},
        {"filelist", "list.f",
         "// sources\n+incdir+inc+../inc2\n+define+A=1+B\n-y lib +libext+.v+.sv\n\"rtl/my a.v\" "
         "/* two */ rtl/b.sv\n-v cells.v # end\n-f none.f\n$NONE/c.v ${NONE}/d.v\n"},
        {"ghdl-order", "order.txt", "rtl/a.vhd\nrtl/b.vhd\n"},
        {"hdl-prj", "hdl-prj.json",
         "{\"options\": {\"ghdl_analysis\": [\"--std=08\", \"-frelaxed\"]}, \"files\": [{\"file\": "
         "\"rtl/a.vhd\", \"language\": \"vhdl\"}, {\"file\": \"rtl/b.v\", \"language\": "
         "\"verilog\"}]}\n"},
        {"hdlmake", "Manifest.py",
         "action = \"simulation\"\nsim_tool = 'ghdl'\ntop_module = \"tb\"\nlibrary = \"lib\"\n"
         "files = [\"rtl/a.vhd\",\n  'rtl/b.vhd', # two\n]\nmodules = {\"local\": [\"sub\"]}\n"},
        {"icarus", "icarus.cf",
         "+incdir+inc\n+define+A=1\n-y lib\n+libext+.v\nrtl/a.v\n-v cells.v\n+timescale+1ns/1ps\n"},
        {"icarus-deps", "deps.txt", "M rtl/a.v\nI inc/w.vh\nL lib/cell.v\n"},
        {"libmap", "lib.map",
         "library rtl \"rtl/*.v\", gate/g?.v -incdir inc;\ninclude more.map;\n// end\nconfig c; "
         "design rtl.top; default liblist rtl; endconfig\n"},
        {"osvvm", "build.pro",
         "library lib\nanalyze rtl/a.vhd\nanalyze {rtl/my b.vhd}\nbuild "
         "sub/sub.pro\nSetVHDLVersion "
         "2008\nsimulate tb [generic N 1]\n"},
        {"slang", "slang.f",
         "-I inc\n-D A=1\n--top tb\n-y lib -Y .sv\nrtl/a.sv\n--libmap lib.map\n-v cells.v\n"},
        {"vcs", "vcs.f",
         "-sverilog +incdir+inc +define+A=1\n-top tb\n+libext+.v -y lib\nrtl/a.v\n-P pli.tab\n"},
        {"verible", "verible.filelist", "+incdir+inc\nrtl/a.sv\n# end\nrtl/b.sv\n"},
        {"verilator", "verilator.f",
         "-Iinc\n-DA=1\n--top-module tb\n-y lib\n+libext+.v\nrtl/a.v\n-Wno-fatal -CFLAGS \"-O2 "
         "-DX\"\n"},
        {"vhdl-ls", "vhdl_ls.toml",
         "standard = \"2008\"\n[libraries]\nlib.files = [\"rtl/*.vhd\", 'rtl/b.vhd',]\nlib.exclude "
         "= "
         "[\"rtl/x*.vhd\"]\n[libraries.work]\nfiles = [\"tb/tb.vhd\"]\nis_third_party = false\n"},
        {"vunit-csv", "vunit.csv", "lib,rtl/a.vhd\nlib,\"rtl/my \"\"b\"\".vhd\"\n"},
        {"vunit-json", "vunit.json",
         "{\"export_format_version\": {\"major\": 1, \"minor\": 0, \"patch\": 0}, \"files\": "
         "[{\"file_name\": \"/w/rtl/a.vhd\", \"library_name\": \"lib\"}], \"tests\": []}\n"},
    };
    return samples;
}

std::string BuildSample(int sources) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE HdlBuildFileList SYSTEM "
        "\"hdl-buildfile.dtd\">\n<!-- kept -->\n<HdlBuildFileList>\n  <HdlBuildFile "
        "TopLevelLanguage=\"VHDL\" DestinationLibrary=\"work\">\n    <TopLevelComponents>\n"
        "      <ComponentList Language=\"VHDL\"><Component Library=\"work\" "
        "Architecture=\"sim\">tb</Component></ComponentList>\n    </TopLevelComponents>\n"
        "    <ProjectLanguageConfigurationList>\n      <LanguageSettings Language=\"Verilog\">\n"
        "        <IncludeDirectories><Directory>inc &amp; more</Directory></IncludeDirectories>\n"
        "        <LibraryDirectories><Directory>lib</Directory></LibraryDirectories>\n"
        "        <LibraryExtensions><Extension>.v</Extension></LibraryExtensions>\n"
        "        <BuildOptions>+define+A=&quot;1&quot; -sv</BuildOptions>\n"
        "      </LanguageSettings>\n    </ProjectLanguageConfigurationList>\n"
        "    <SourceFileGroup Language=\"VHDL\">\n";
    for (int number = 0; number < sources; ++number) {
        const std::string digits = std::to_string(number);
        text += "      <SourceFile PrecompiledLibrary=\"l" + digits + "\">rtl/f" + digits + ".vhd";
        if (number > 0)
            text += "<Dependency>rtl/f" + std::to_string(number / 2) + ".vhd</Dependency>";
        text += "</SourceFile>\n";
    }
    return text +
           "      <SourceFile><![CDATA[rtl/&<.vhd]]></SourceFile>\n"
           "      <SourceFile>rtl/\xC3\xA4&#xE9;.vhd</SourceFile>\n"
           "    </SourceFileGroup>\n    <SourceFileGroup Language=\"Verilog\">\n"
           "      <SourceFile Library=\"true\">cells.v</SourceFile>\n"
           "    </SourceFileGroup>\n  </HdlBuildFile>\n</HdlBuildFileList>\n";
}

std::string ProjectSample() {
    return "<!DOCTYPE SimulationProject SYSTEM \"project.dtd\">\n<SimulationProject>\n"
           "  <Foreign Id=\"1\">a &amp; b<e><![CDATA[x]]></e></Foreign>\n"
           "  <ProjectSettings CurrentConfiguration=\"b\">\n"
           "    <ProjectSettingsConfiguration ConfigurationName=\"a\"/>\n"
           "    <ProjectSettingsConfiguration ConfigurationName=\"b\"/>\n"
           "  </ProjectSettings>\n</SimulationProject>\n";
}

std::string IniSample() {
    return "; kept\n[One]\nA=1\nB= two words \n\n[Two]\nC=\"quoted \"\n# kept\nD=\n";
}

std::string SimulatorsSample() {
    return "<!DOCTYPE HdlBuildFileList SYSTEM \"serverconfigurationfile.dtd\">\n"
           "<HdlBuildFileList>\n  <ExternalSimulatorSettings>\n"
           "    <Tool Name=\"GCC\" Path=\"C:\\a &amp; b\\gcc.exe\" "
           "PliLibPath=\"&lt;pli&gt;\">C++</Tool>\n"
           "    <Tool Name=\"VCS\" Path=\"/opt/vcs\" PliLibPath=\"\">Verilog</Tool>\n"
           "  </ExternalSimulatorSettings>\n</HdlBuildFileList>\n";
}
