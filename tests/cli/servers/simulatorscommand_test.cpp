#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

TEST(SimulatorsCommand, PrintsTheTableOfSimulators) {
    const TToolRun run = RunHdlbuild({"simulators"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Err, "");
    EXPECT_EQ(
        run.Out,
        "NUMBER  NAME                      DLL PREFIX            LANGUAGES         DEFAULT OF\n"
        "0       None                      NONE                  -                 -\n"
        "1       SimZorvik Verilog         kandor_zorvik         Verilog           Verilog\n"
        "2       SimZorvik Verilog 32-bit  kandor_zorvik_32      Verilog           -\n"
        "3       SimZorvik Verilog 64-bit  kandor_zorvik_64      Verilog           -\n"
        "4       SimZorvik VHDL            vhdl_zorvik           VHDL              VHDL\n"
        "5       SimZorvik VHDL 32-bit     vhdl_zorvik_32        VHDL              -\n"
        "6       SimZorvik VHDL 64-bit     vhdl_zorvik_64        VHDL              -\n"
        "7       SimZorvik CL              kandorcl_             Verilog           -\n"
        "8       Active-HDL VHDL           activehdl_vhdl_       VHDL              -\n"
        "9       Active-HDL Verilog        activehdl_verilog_    Verilog           -\n"
        "10      Bluespec                  bluespec_verilog_     Bluespec          Bluespec\n"
        "11      ModelSim Verilog          modelsim_verilog_     Verilog           -\n"
        "12      ModelSim Verilog 64-bit   modelsim_verilog_64_  Verilog           -\n"
        "13      ModelSim Verilog SE       modelsim_verilog_     Verilog           -\n"
        "14      ModelSim VHDL             modelsim_vhdl_        VHDL              -\n"
        "15      ModelSim VHDL 64-bit      modelsim_vhdl_64      VHDL              -\n"
        "16      ModelSim VHDL SE          modelsim_vhdl_        VHDL              -\n"
        "17      ModelSim VHDL PE          modelsim_vhdl_        VHDL              -\n"
        "18      NCSim VHDL                nc_vhdl_              VHDL              -\n"
        "19      NCSim VHDL 64-bit         nc_vhdl_64_           VHDL              -\n"
        "20      NCSim Verilog             nc_verilog_           Verilog           -\n"
        "21      NCSim Verilog 64-bit      nc_verilog_64_        Verilog           -\n"
        "22      VCS                       vcs_                  Verilog           -\n"
        "23      VCSi                      vcsi_                 Verilog           -\n"
        "24      Verilog-XL                verilogxl_            Verilog           -\n"
        "25      Scirocco                  scirocco_             VHDL              -\n"
        "26      Microsoft C++             ms_cl_                C++, TestBuilder  C++, "
        "TestBuilder\n"
        "27      GCC                       gcc_                  C++, TestBuilder  -\n"
        "28      Specman                   NONE                  Specman           Specman\n"
        "29      Other VHDL                NONE                  VHDL              -\n"
        "30      Simulator30               NONE                  -                 -\n");
}

TEST(SimulatorsCommand, PrintsOneJsonObject) {
    const std::string json = RunHdlbuild({"simulators", "--json"}).Out;
    EXPECT_EQ(json.substr(0, json.find("    {\n      \"number\": 2,")),
              "{\n"
              "  \"format\": \"hdlbuild-simulators\",\n"
              "  \"version\": 1,\n"
              "  \"simulators\": [\n"
              "    {\n"
              "      \"number\": 0,\n"
              "      \"name\": \"None\",\n"
              "      \"dllPrefix\": \"NONE\",\n"
              "      \"languages\": [],\n"
              "      \"defaultOf\": []\n"
              "    },\n"
              "    {\n"
              "      \"number\": 1,\n"
              "      \"name\": \"SimZorvik Verilog\",\n"
              "      \"dllPrefix\": \"kandor_zorvik\",\n"
              "      \"languages\": [\n"
              "        \"Verilog\"\n"
              "      ],\n"
              "      \"defaultOf\": [\n"
              "        \"Verilog\"\n"
              "      ]\n"
              "    },\n");
}
