#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(VunitScript, AddsTheSourcesToTheirLibraries) {
    EXPECT_EQ(
        Exported("vunit", MakeSamplePlan()),
        "vunit has no words for the library name work\n"
        "vunit has no words for the run option +go\n"
        "vunit has no words for the analysis option -frelaxed\n"
        "vunit has no words for library directories\n"
        "vunit has no words for the mark of library files\n"
        "from pathlib import Path\n"
        "\n"
        "from vunit import VUnit\n"
        "\n"
        "root = Path(__file__).resolve().parent\n"
        "project = VUnit.from_argv(vhdl_standard=\"2008\")\n"
        "project.add_vhdl_builtins()\n"
        "# GHDL and NVC compile the VHDL part alone.\n"
        "has_verilog = project.get_simulator_name() not in (\"ghdl\", \"nvc\")\n"
        "library_1 = project.add_library(\"main\")\n"
        "if has_verilog: library_1.add_source_file(root / \"rtl/adc.v\", include_dirs=[str(root / "
        "\"inc\")], defines={\"TAPS\": \"16\", \"FAST\": \"\"})\n"
        "if has_verilog: library_1.add_source_file(root / \"lib/cells.v\", include_dirs=[str(root "
        "/ "
        "\"inc\")], defines={\"TAPS\": \"16\", \"FAST\": \"\"})\n"
        "library_2 = project.add_library(\"sensor\")\n"
        "library_2.add_source_file(root / \"rtl/adc_pkg.vhd\")\n"
        "library_3 = project.add_library(\"work_lib\")\n"
        "library_3.add_source_file(root / \"/q/tb.vhd\")\n"
        "\n"
        "project.main()\n");
}

TEST(VunitScript, EscapesNames) {
    const std::string script =
        Exported("vunit", MakePlanOf(LANGUAGE_VHDL, "/p/\"\"\" + \\x\n\xC3\xA4.vhd"));
    EXPECT_EQ(script.substr(script.find("library_1.")),
              "library_1.add_source_file(root / \"\\\"\\\"\\\" + \\\\x\\x0a\xC3\xA4.vhd\")\n"
              "\n"
              "project.main()\n");
}

TEST(VunitScript, AsksNoSimulatorForOneLanguage) {
    const std::string script = Exported("vunit", MakePlanOf(LANGUAGE_VERILOG, "/p/a.v"));
    EXPECT_EQ(script.substr(script.find("project.add_vhdl_builtins()")),
              "project.add_vhdl_builtins()\n"
              "library_1 = project.add_library(\"main\")\n"
              "library_1.add_source_file(root / \"a.v\")\n"
              "\n"
              "project.main()\n");
}
