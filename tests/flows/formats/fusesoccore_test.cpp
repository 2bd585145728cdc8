#include "tests/flows/formats/exportedplan.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <gtest/gtest.h>

TEST(FusesocCore, HasOneFileSetAndOneTarget) {
    EXPECT_EQ(Exported("fusesoc", MakeSamplePlan()),
              "fusesoc has no words for the include directory inc, where no header is found\n"
              "fusesoc has no words for the architecture sim\n"
              "fusesoc has no words for library directories\n"
              "fusesoc has no words for the mark of library files\n"
              "CAPI=2:\n"
              "name: \"::soc\"\n"
              "filesets:\n"
              "  sources:\n"
              "    files:\n"
              "      - rtl/adc.v:\n"
              "          file_type: verilogSource\n"
              "          logical_name: main\n"
              "      - lib/cells.v:\n"
              "          file_type: verilogSource\n"
              "          logical_name: main\n"
              "      - rtl/adc_pkg.vhd:\n"
              "          file_type: vhdlSource-2008\n"
              "          logical_name: sensor\n"
              "      - \"/q/tb.vhd\":\n"
              "          file_type: vhdlSource-2008\n"
              "parameters:\n"
              "  TAPS:\n"
              "    datatype: int\n"
              "    default: 16\n"
              "    paramtype: vlogdefine\n"
              "  FAST:\n"
              "    datatype: bool\n"
              "    default: true\n"
              "    paramtype: vlogdefine\n"
              "  go:\n"
              "    datatype: bool\n"
              "    default: true\n"
              "    paramtype: plusarg\n"
              "targets:\n"
              "  default:\n"
              "    filesets:\n"
              "      - sources\n"
              "    toplevel: \"adc tb\"\n"
              "    parameters:\n"
              "      - TAPS\n"
              "      - FAST\n"
              "      - go\n"
              "    tools:\n"
              "      verilator:\n"
              "        mode: binary\n"
              "      ghdl:\n"
              "        analyze_options:\n"
              "          - \"-frelaxed\"\n");
}

TEST(FusesocCore, RefusesNamesThatFusesocReadsAsSomethingElse) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VHDL, "/p/a?.vhd");
    plan.Name = "a:b";
    const TExported exported = FindExportFormat("fusesoc")->Write({plan, "/p/", nullptr});
    std::string losses;
    for (const TDiagnostic& loss : exported.Losses) losses += GetDiagnosticText(loss) + "\n";
    EXPECT_EQ(losses,
              "fusesoc cannot hold the name \"a:b\": a colon or question mark ends the name\n"
              "fusesoc cannot hold the name \"a?.vhd\": it reads as a condition\n");
}

TEST(FusesocCore, ListsTheHeadersOfIncludeDirectories) {
    const TemporaryFolder folder;
    folder.Write("inc/sub/b.svh", "");
    folder.Write("inc/a.vh", "");
    folder.Write("inc/listed.v", "");
    std::string root = folder.Path();
    std::replace(root.begin(), root.end(), '\\', '/');
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, root + "/a.sv");
    plan.Name = "soc";
    plan.Settings.emplace_back().Language = LANGUAGE_VERILOG;
    plan.Settings.front().IncludeDirectories = {root + "/inc"};
    plan.Settings.front().Delay = DELAY_TYPE_MAXIMUM;
    plan.Sources.push_back({root + "/inc/listed.v", LANGUAGE_VERILOG, "main", false, {}});
    const std::string core = Exported("fusesoc", plan, nullptr, root + "/");
    folder.Write("inc/b.inc", "");
    EXPECT_EQ(Exported("fusesoc", plan, nullptr, root + "/"),
              "fusesoc has no words for files of the include directory inc without the extension "
              "of a header, such as inc/b.inc\n" +
                  core);
    folder.Write("inc/also.v", "");
    EXPECT_EQ(Exported("fusesoc", plan, nullptr, root + "/"),
              "fusesoc has no words for files of the include directory inc without the extension "
              "of a header, such as inc/also.v\n" +
                  core);
    EXPECT_EQ(core,
              "CAPI=2:\n"
              "name: \"::soc\"\n"
              "filesets:\n"
              "  sources:\n"
              "    files:\n"
              "      - inc/a.vh:\n"
              "          file_type: verilogSource\n"
              "          is_include_file: true\n"
              "          include_path: inc\n"
              "      - inc/sub/b.svh:\n"
              "          file_type: verilogSource\n"
              "          is_include_file: true\n"
              "          include_path: inc\n"
              "      - a.sv:\n"
              "          file_type: systemVerilogSource\n"
              "          logical_name: main\n"
              "      - inc/listed.v:\n"
              "          file_type: verilogSource\n"
              "          logical_name: main\n"
              "targets:\n"
              "  default:\n"
              "    filesets:\n"
              "      - sources\n"
              "    tools:\n"
              "      icarus:\n"
              "        iverilog_options:\n"
              "          - \"-g2012\"\n"
              "          - \"-Tmax\"\n"
              "      verilator:\n"
              "        mode: binary\n");
}
