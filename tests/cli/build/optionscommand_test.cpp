#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

/// Settings of VHDL with a text for each step, of which two have a variable of the build.
class OptionTexts : public testing::Test {
protected:
    OptionTexts() {
        Folder.Write("b.xml", BuildText("<ProjectLanguageConfigurationList>"
                                        "<LanguageSettings Language=\"VHDL\">"
                                        "<BuildOptions>-c $(DEPTH)</BuildOptions>"
                                        "<LinkerOptions>-e</LinkerOptions>"
                                        "<RuntimeOptions>-r $(DEPTH)&#9;</RuntimeOptions>"
                                        "</LanguageSettings></ProjectLanguageConfigurationList>"));
    }
    static std::string Options(std::vector<std::string> options) {
        options.insert(options.begin(), {"options", "b.xml"});
        return ResultOf(options);
    }
    const WorkingFolder Folder;
};

}  // namespace

TEST_F(OptionTexts, PrintsTheTextOfEachStep) {
    EXPECT_EQ(ResultOf({"set", "b.xml", "variable.DEPTH", "8"}).substr(0, 8), "variable");
    EXPECT_EQ(Options({"--language", "vhdl"}), "compile: -c 8\nelaborate: -e\nrun: -r 8\t\n");
    EXPECT_EQ(Options({"--language", "VHDL", "--step", "compile"}), "-c 8\n");
    EXPECT_EQ(Options({"--language", "VHDL", "--step", "elaborate"}), "-e\n");
    EXPECT_EQ(Options({"--language", "VHDL", "--step", "run"}), "-r 8\t\n");
}

TEST_F(OptionTexts, PrintsOneJsonObject) {
    EXPECT_EQ(Options({"--language", "VHDL", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-options\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"language\": \"VHDL\",\n"
              "  \"options\": {\n"
              "    \"compile\": \"-c $(DEPTH)\",\n"
              "    \"elaborate\": \"-e\",\n"
              "    \"run\": \"-r $(DEPTH)\\t\"\n"
              "  }\n"
              "}\n");
}

TEST_F(OptionTexts, WarnsOfALanguageWithoutSettings) {
    EXPECT_EQ(Options({"--language", "SystemC", "--step", "run"}),
              "\nhdlbuild: warning: the build has no SystemC settings: the option text is empty\n");
}

TEST_F(OptionTexts, RefusesWhatDoesNotGoTogether) {
    EXPECT_EQ(Options({"--step", "run"}), "2\nhdlbuild: error: --step needs --language\n");
    EXPECT_EQ(Options({"--language", "VHDL", "--gof"}),
              "2\nhdlbuild: error: --gof excludes --language\n");
    EXPECT_EQ(Options({"--language", "VHDL", "--step", "compil"}),
              "2\nhdlbuild: error: unknown step 'compil'; nearest: compile; known: compile, "
              "elaborate, run\n");
    EXPECT_EQ(Options({"--language", "VHLD"}),
              "2\nhdlbuild: error: unknown language 'VHLD'; nearest: VHDL; known: Verilog, VHDL, "
              "Bluespec, SystemC, C++, Specman, TestBuilder\n");
}
