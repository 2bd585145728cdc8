#include "settings/languageoptionconversion.h"
#include <gtest/gtest.h>
#include <ostream>

// For failures; found by the test framework.
static void PrintTo(const TLanguageOptionTexts& texts, std::ostream* stream) {
    *stream << "[" << texts.Build << "][" << texts.Linker << "][" << texts.Runtime << "]";
}

namespace {

// Texts as the configuration stores them when they are converted: a writer has merged linker into
// build options for mode 2 and added its own words by then.
struct TConversionCase {
    const char* Label;
    struct {
        int Simulator;
        THdlLanguage Language;
        int Mode;
        bool CrossStages;
    } Run;
    TLanguageOptionTexts Stored;
    TLanguageOptionTexts Converted;
};

const TConversionCase kConversionCases[] = {
    {"own Verilog simulator: blanks reduced",
     {1, LANGUAGE_VERILOG, 3, true},
     {"+define+A  +incdir+inc+", "", "+go"},
     {"+define+A +incdir+inc+", "", "+go"}},
    {"own Verilog simulator: line debugging understood",
     {1, LANGUAGE_VERILOG, 3, true},
     {"+define+_DEBUG", " --simz_options +linedebug", ""},
     {"+define+_DEBUG", "--simz_options +linedebug", ""}},
    {"own VHDL simulator, 64 bits",
     {6, LANGUAGE_VHDL, 3, true},
     {"+define+_DEBUG", " --simz_options +linedebug --qdx_usegcc", ""},
     {"+define+_DEBUG", "--simz_options +linedebug --qdx_usegcc", ""}},
    {"own Verilog simulator, elaborating only",
     {3, LANGUAGE_VERILOG, 3, false},
     {"+define+A", "-l e.log", "-s"},
     {"+define+A", "-l e.log", "-s"}},
    {"family 3: lists and a delay option typed for the linker",
     {11, LANGUAGE_VERILOG, 2, true},
     {"+define+A=1+B -y lib +libext+.v+.vo+ +notimingchecks", "+notimingchecks",
      "-l run.log +go=1"},
     {"+define+A=1+B -y lib +libext+.v+.vo", "+notimingchecks", "-l run.log +go=1"}},
    {"family 3: line debugging alone",
     {12, LANGUAGE_VERILOG, 2, true},
     {"  --simz_options +linedebug", " --simz_options +linedebug", ""},
     {"", "", ""}},
    {"family 3: unknown words on their sides",
     {11, LANGUAGE_VERILOG, 2, true},
     {"+define+A +maxdelays -lint -t ns", "-t ns", ""},
     {"+define+A -lint", "+maxdelays -t ns", ""}},
    {"family 4: lists, files and the shell",
     {20, LANGUAGE_VERILOG, 3, true},
     {"+define+A=1+B +incdir+a+b+ -f files.f", "+notimingchecks", "-l sim.log -s +go"},
     {"-define A=1 -define B -incdir a -incdir b -file files.f", "-notimingchecks",
      "-logfile sim.log -tcl +go"}},
    {"family 4: line debugging alone",
     {20, LANGUAGE_VERILOG, 3, true},
     {"", " --simz_options +linedebug", ""},
     {"-linedebug", "", ""}},
    {"family 4: elaborating only, no option changes its step",
     {21, LANGUAGE_VERILOG, 3, false},
     {"+define+A", "+maxdelays --simz_options +linedebug", ""},
     {"-define A", "-maxdelays", ""}},
    {"family 4: quotes and options typed in the wrong text",
     {20, LANGUAGE_VERILOG, 3, true},
     {"+typdelays +define+M=\"a b\"+N -y lib", "", "+nospecify +go"},
     {"-define M=\"a b\" -define N -y lib", "-typdelays -nospecify", "+go"}},
    {"family 4: VHDL",
     {20, LANGUAGE_VHDL, 3, true},
     {"-93 +define+_DEBUG -work l1", " --simz_options +linedebug", ""},
     {"-v93 -work l1 -linedebug", "", ""}},
    {"family 3: VHDL",
     {13, LANGUAGE_VHDL, 2, true},
     {"-93 +define+_DEBUG ", "", "-i run.do"},
     {"-93", "", "-do run.do"}},
    {"family 4: forced words",
     {20, LANGUAGE_VERILOG, 3, true},
     {"+delay_mode_path",
      "--ncsim_options \"-access +rwc\" --modelsim_options \"-t ps\" +notimingchecks", ""},
     {"", "-delay_mode path -notimingchecks -access +rwc", ""}},
    {"family 3: options without a counterpart",
     {11, LANGUAGE_VERILOG, 2, true},
     {"+define+A --qdx_usegcc -t ns --simz_options +linedebug",
      "--qdx_usegcc -t ns --simz_options +linedebug", "-s -k key.txt +notimingchecks"},
     {"+define+A", "-t ns +notimingchecks", ""}},
    {"not supported: the VHDL simulator of family 3",
     {14, LANGUAGE_VHDL, 2, true},
     {"-93 -t ns", "-t ns", "-do r.do"},
     {"-93 -t ns", "-t ns", "-do r.do"}},
    {"not supported: all in one step",
     {7, LANGUAGE_VERILOG, 1, true},
     {"+define+A  -y lib", " -l  e.log", "+go "},
     {"+define+A  -y lib", " -l  e.log", "+go "}},
    {"not supported: another language",
     {20, LANGUAGE_CPLUSPLUS, 3, true},
     {"+define+A", "+maxdelays", "-s"},
     {"+define+A", "+maxdelays", "-s"}},

    {"mode 2 without crossing: build and linker options still share",
     {11, LANGUAGE_VERILOG, 2, false},
     {"+maxdelays -lint -u", "-u", "+typdelays -i f"},
     {"-lint -u", "+maxdelays", "-do f"}},
    {"mode 1: one step takes all of the build text",
     {20, LANGUAGE_VERILOG, 1, true},
     {"-s +maxdelays +define+A -lint --ncsim_options -x", "-linker", "+run"},
     {"-define A -lint -maxdelays -tcl -x", "", ""}},
    {"an unknown mode is mode 3",
     {20, LANGUAGE_VERILOG, 0, false},
     {"-u", "-lint", "+go"},
     {"-upcase", "-lint", "+go"}},
    {"a flag once in each text, a value as often as typed",
     {20, LANGUAGE_VERILOG, 3, true},
     {"-u +define+A=1 +maxdelays -lint", "-u +maxdelays -lint", "+define+A=1 -u"},
     {"-upcase -define A=1 -lint -define A=1", "-maxdelays -lint", ""}},
    {"forced words of all steps come last",
     {20, LANGUAGE_VERILOG, 3, true},
     {"--ncsim_options -b -lint", "--ncsim_options -l +maxdelays", "--ncsim_options -r +go"},
     {"-lint -b", "-maxdelays -l", "+go -r"}},
    {"linker options of blanks are no copies",
     {11, LANGUAGE_VERILOG, 2, true},
     {"-lint    ", "   ", ""},
     {"-lint", "", ""}},
    {"no linker options, after a quote that is not closed",
     {11, LANGUAGE_VERILOG, 2, true},
     {"-y \"a ", "", ""},
     {"-y \"a", "", ""}},
    {"the linker options once, whatever the build options end in",
     {11, LANGUAGE_VERILOG, 2, true},
     {"+define+A -novopt -novopt", "-novopt", ""},
     {"+define+A -novopt", "-novopt", ""}},
    {"an operand that is a linker option too",
     {11, LANGUAGE_VERILOG, 2, true},
     {"-y lib lib", "lib", ""},
     {"-y lib", "lib", ""}},
    {"build options that do not end in the linker options",
     {11, LANGUAGE_VERILOG, 2, true},
     {"-a.v", "a.v", ""},
     {"-a.v", "a.v", ""}},
    {"family 3: unknown plus words stay in their texts",
     {11, LANGUAGE_VERILOG, 2, true},
     {"+build", "+link", "+run"},
     {"+build", "+link", "+run"}},
    {"family 4: unknown plus words stay in their texts",
     {20, LANGUAGE_VERILOG, 3, true},
     {"+build", "+link", "+run"},
     {"+build", "+link", "+run"}},
    {"a quote that is not closed",
     {20, LANGUAGE_VERILOG, 3, true},
     {"-y \"my lib -u", "\"", "+go"},
     {"-y \"my lib -u", "\"", "+go"}},
};

TLanguageOptionTexts Convert(const TConversionCase& row) {
    return ConvertLanguageOptions(row.Run.Language, static_cast<TSimulatorType>(row.Run.Simulator),
                                  row.Run.Mode, row.Run.CrossStages, row.Stored);
}

}  // namespace

TEST(LanguageOptionConversion, GivesTheThreeTextsOfTheSimulatorsSteps) {
    for (const TConversionCase& row : kConversionCases)
        EXPECT_EQ(Convert(row), row.Converted) << row.Label;
}

TEST(LanguageOptionConversion, IsSupportedForTheVerilogEntriesOfBothHdls) {
    std::string supported;
    for (int language = -1; language <= 10; ++language)
        for (int simulator = -1; simulator <= 31; ++simulator)
            if (IsOptionConversionSupported(static_cast<THdlLanguage>(language),
                                            static_cast<TSimulatorType>(simulator)))
                supported += std::to_string(language) + "/" + std::to_string(simulator) + " ";
    EXPECT_EQ(supported,
              "0/1 0/2 0/3 0/4 0/5 0/6 0/11 0/12 0/13 0/20 0/21 "
              "1/1 1/2 1/3 1/4 1/5 1/6 1/11 1/12 1/13 1/20 1/21 ");
}

TEST(LanguageOptionConversion, KnowsFamilyAndModeOfEverySimulator) {
    std::string answers;
    for (int simulator = -1; simulator <= 31; ++simulator) {
        const auto type = static_cast<TSimulatorType>(simulator);
        answers += std::to_string(simulator) + ":" +
                   std::to_string(GetOptionSimulatorFamily(type)) + "/" +
                   std::to_string(GetOptionConversionMode(type)) + " ";
    }
    EXPECT_EQ(answers,
              "-1:0/3 0:0/3 1:1/3 2:1/3 3:2/3 4:1/3 5:1/3 6:2/3 7:7/1 8:8/2 9:8/2 10:0/3 "
              "11:3/2 12:3/2 13:3/2 14:3/2 15:3/2 16:3/2 17:3/2 18:4/3 19:4/3 20:4/3 21:4/3 "
              "22:0/1 23:0/1 24:0/1 25:0/3 26:0/3 27:0/3 28:0/3 29:0/3 30:0/3 31:0/3 ");
}
