#include "services/xml/xmllist.h"
#include "tests/cli/toolrun.h"
#include "tests/cli/translator/switchtext.h"
#include "tests/support/elementtext.h"
#include "tests/support/replaced.h"
#include <gtest/gtest.h>

namespace {

/// Runs "translator b.xml" with the arguments.
std::string Translator(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"translator", "b.xml"});
    return ResultOf(arguments);
}

}  // namespace

TEST(TranslatorEdit, LeavesTheElementsOfAllOtherSwitchesAsTheyAre) {
    const WorkingFolder folder;
    const std::string others =
        "      <v2v-p Enabled=\"true\">\n"
        "        <AdditionalOptions>sub/a.v</AdditionalOptions>\n"
        "      </v2v-p>\n"
        "      <v2v-new Enabled=\"true\" A=\"1\">text<v2v-r/>\n"
        "      </v2v-new>\n"
        "      <v2v-e Enabled=\"false\" B=\"2\"/>\n"
        "      <v2v-ncc Enabled=\"false\"/>\n"
        "      <Foreign/>\n";
    const std::string rip =
        "      <v2v-rip Enabled=\"false\">\n"
        "        <AdditionalOptions>a</AdditionalOptions>\n"
        "      </v2v-rip>\n";
    folder.Write("b.xml", Build(Options(rip + others)));
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-r"}), "-r: \"off\" -> \"on\"\nb.xml: saved\n");
    const std::string enabled = "      <v2v-r Enabled=\"true\"/>\n";
    EXPECT_EQ(folder.Read("b.xml"), Build(Options(rip + others + enabled)));
    EXPECT_EQ(Translator({"v2vhdl", "disable", "-ncc"}), "b.xml: nothing to change\n");
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-rip", "b"}),
              "-rip: \"off\" -> [\"b\"]\nb.xml: saved\n");
    const std::string changed =
        "      <v2v-rip Enabled=\"true\">\n"
        "        <AdditionalOptions>b</AdditionalOptions>\n"
        "      </v2v-rip>\n";
    EXPECT_EQ(folder.Read("b.xml"), Build(Options(changed + others + enabled)));
    EXPECT_EQ(Translator({"v2vhdl", "disable", "-rip"}),
              "-rip: [\"b\"] -> \"off\"\nb.xml: saved\n");
    EXPECT_EQ(Translator({"v2vhdl", "disable", "-r"}), "-r: \"on\" -> \"off\"\nb.xml: saved\n");
    EXPECT_EQ(folder.Read("b.xml"), Build(Options(others)));
}

TEST(TranslatorEdit, EnablesASwitchWithTheArgumentsThatItsElementHas) {
    const WorkingFolder folder;
    const auto packages = [](const std::string& enabled) {
        return Build(Options("      <v2v-p Enabled=\"" + enabled +
                             "\">\n"
                             "        <AdditionalOptions>sub/a.v</AdditionalOptions>\n"
                             "        <AdditionalOptions>../b.v</AdditionalOptions>\n"
                             "      </v2v-p>\n"));
    };
    folder.Write("b.xml", packages("false"));
    EXPECT_EQ(RunHdlbuild({"translator", "b.xml", "v2vhdl", "enable", "-p"}).Status, kExitDone);
    EXPECT_EQ(folder.Read("b.xml"), packages("true"));
}

TEST(TranslatorEdit, ReplacesEveryElementOfASwitch) {
    const WorkingFolder folder;
    const auto rip = [](const std::string& argument) {
        return "      <v2v-rip Enabled=\"true\">\n"
               "        <AdditionalOptions>" +
               argument +
               "</AdditionalOptions>\n"
               "      </v2v-rip>\n";
    };
    const std::string twice = Options(rip("a") + "      <v2v-r/>\n") + Options(rip("b"));
    folder.Write("b.xml", Build(twice));
    Translator({"v2vhdl", "disable", "-rip"});
    EXPECT_EQ(folder.Read("b.xml"), Build(Options("      <v2v-r/>\n") + Options("")));
}

TEST(TranslatorEdit, ChangesTheBytesOfTheSwitchOnly) {
    const WorkingFolder folder;
    const auto document = [](const std::string& switches, const std::string& end) {
        std::string text =
            "\xEF\xBB\xBF<?xml version='1.0'?>\n"
            "<!-- ours -->\n"
            "<HdlBuildFile  TopLevelLanguage='vhdl'\n"
            "    SnapshotName = \"s\" HdlLanguage='vhdl'>\n"
            "\n"
            "\t<Verilog2VhdlTranslationOptions><!-- by hand -->\n" +
            switches +
            "\t</Verilog2VhdlTranslationOptions>\n"
            "<SourceFileGroup Language='vhdl'/>   \n"
            "</HdlBuildFile><?end?>";
        return ReplacedEverywhere(text, "\n", end);
    };
    const std::string before = "\t\t<v2v-s   B='2' Enabled='false' /> <!-- off -->\n";
    for (const char* const end : {"\n", "\r\n"}) {
        folder.Write("b.xml", document(before, end));
        Translator({"v2vhdl", "enable", "-s"});
        EXPECT_EQ(folder.Read("b.xml"),
                  document("\t\t<v2v-s   B='2' Enabled='true' /> <!-- off -->\n", end));
        Translator({"v2vhdl", "disable", "-s"});
        Translator({"v2vhdl", "enable", "-synth"});
        EXPECT_EQ(folder.Read("b.xml"),
                  document("\t\t <!-- off -->\n\t\t<v2v-synth Enabled=\"true\"/>\n", end));
    }
}

TEST(TranslatorEdit, ShowsTheDifferenceInADryRun) {
    const WorkingFolder folder;
    const std::string before = Build(Options("      <v2v-s Enabled=\"true\"/>\n"));
    folder.Write("b.xml", before);
    const std::string diff =
        "-synth: \"off\" -> \"on\"\n"
        "b.xml: not saved (dry run)\n"
        "--- b.xml\n"
        "+++ b.xml\n"
        "@@ -4,6 +4,7 @@\n"
        "     <Foreign A=\"1\">text</Foreign>\n"
        "     <Verilog2VhdlTranslationOptions>\n"
        "       <v2v-s Enabled=\"true\"/>\n"
        "+      <v2v-synth Enabled=\"true\"/>\n"
        "     </Verilog2VhdlTranslationOptions>\n"
        "   </HdlBuildFile>\n"
        " </HdlBuildFileList>\n";
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-synth", "--dry-run"}), diff);
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-s", "--dry-run"}), "b.xml: nothing to change\n");
    EXPECT_EQ(folder.Read("b.xml"), before);
    EXPECT_EQ(folder.List(), "b.xml\n");
}

TEST(TranslatorEdit, KeepsABuildThatIsNestedAsDeepAsOneMayBe) {
    const WorkingFolder folder;
    std::string starts, ends;
    for (int i = 0; i < 511; ++i) {
        starts += "<n>";
        ends += "</n>";
    }
    const std::string begin = "<HdlBuildFileList><HdlBuildFile>" + starts + "text" + ends;
    folder.Write("b.xml", begin + "</HdlBuildFile></HdlBuildFileList>");
    EXPECT_EQ(Translator({"v2vhdl", "enable", "-r"}), "-r: \"off\" -> \"on\"\nb.xml: saved\n");
    TXMLList saved;
    TXMLList expected;
    saved.SetHoldsRoot(true);
    expected.SetHoldsRoot(true);
    ASSERT_TRUE(saved.ReadFromText(folder.Read("b.xml"), nullptr));
    ASSERT_TRUE(expected.ReadFromText(begin + "<Verilog2VhdlTranslationOptions>"
                                              "<v2v-r Enabled=\"true\"/>"
                                              "</Verilog2VhdlTranslationOptions>"
                                              "</HdlBuildFile></HdlBuildFileList>",
                                      nullptr));
    EXPECT_EQ(ElementsOf(saved), ElementsOf(expected));
}
