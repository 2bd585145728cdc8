#include "cli/translator/translatoraccess.h"
#include "tests/cli/toolrun.h"
#include "tests/cli/translator/switchtext.h"
#include "translation/v2vtranslationoption.h"
#include <gtest/gtest.h>

namespace {

/// "translator b.xml v2vhdl enable -r", with time for others between its read and its save.
class SlowEnable {
public:
    SlowEnable() {
        Arguments.Build = "b.xml";
        Arguments.Translator = "v2vhdl";
        Arguments.Words = {"-r"};
    }
    int Read() { return Translator.Read(); }
    int Save() {
        Translator.FindOption()->SetEnabled(true);
        return Translator.Save("enable");
    }
    std::ostringstream Out;
    std::ostringstream Err;

private:
    TTranslatorArguments Arguments;
    TToolStreams Streams{Out, Err};
    TTranslatorAccess Translator{Arguments, Streams};
};

}  // namespace

TEST(TranslatorAccess, ChangesNoBuildWhoseSwitchesChangedMeanwhile) {
    const struct {
        const char* Label;
        std::string Before, After, Expected;
    } rows[] = {
        {"switches changed", Build(Options("")), Build(Options("      <v2v-s/>\n")),
         "hdlbuild: error: b.xml: the switches in the file have changed since they were read\n"},
        {"switches added", Build(""), Build(Options("")),
         "hdlbuild: error: b.xml: the switches in the file have changed since they were read\n"},
        {"malformed", Build(""), "<a>",
         "hdlbuild: error: b.xml:1:4: the document ends inside element \"a\"\n"},
    };
    for (const auto& row : rows) {
        const WorkingFolder folder;
        folder.Write("b.xml", row.Before);
        SlowEnable command;
        ASSERT_EQ(command.Read(), kExitDone) << row.Label;
        folder.Write("b.xml", row.After);
        EXPECT_EQ(command.Save(), kExitFile) << row.Label;
        EXPECT_EQ(command.Out.str(), "") << row.Label;
        EXPECT_EQ(command.Err.str(), row.Expected) << row.Label;
        EXPECT_EQ(folder.Read("b.xml"), row.After) << row.Label;
    }
}

TEST(TranslatorAccess, KeepsWhatOthersSavedElsewhereMeanwhile) {
    const WorkingFolder folder;
    folder.Write("b.xml", Build(""));
    SlowEnable command;
    ASSERT_EQ(command.Read(), kExitDone);
    folder.Write("b.xml", Build("    <Later/>\n"));
    EXPECT_EQ(command.Save(), kExitDone);
    EXPECT_EQ(folder.Read("b.xml"),
              Build("    <Later/>\n" + Options("      <v2v-r Enabled=\"true\"/>\n")));
}

TEST(TranslatorAccess, ChangesNoBuildThatItCannotRead) {
    const WorkingFolder folder;
    const struct {
        const char* Label;
        std::string Document;
        const char* Expected;
    } rows[] = {
        {"malformed", "<HdlBuildFileList>\n<a></b>",
         "3\nhdlbuild: error: b.xml:2:6: mismatched tag: element \"a\" of line 2 is still open\n"},
        {"the section twice", Build(Options("") + Options("")),
         "1\nhdlbuild: error: b.xml: the file holds the switches more than once\n"},
        {"the other's section too", Build(Options("") + "    <Vhdl2VerilogTranslationOptions/>\n"),
         "1\nhdlbuild: error: b.xml: a build keeps the switches of one translator, and this one "
         "holds those of both\n"},
        {"settings that cannot be read",
         Build("<ProjectLanguageConfigurationList><LanguageSettings Language=\"VHDL\">"
               "<IncludeDirectories/></LanguageSettings></ProjectLanguageConfigurationList>"),
         "1\nhdlbuild: error: Build File: Error reading the Project Settings.\n"},
        {"no build", "<HdlBuildFileList/>", "3\nhdlbuild: error: b.xml: the file holds no build\n"},
    };
    for (const auto& row : rows) {
        folder.Write("b.xml", row.Document);
        EXPECT_EQ(ResultOf({"translator", "b.xml", "v2vhdl", "enable", "-r"}), row.Expected)
            << row.Label;
        EXPECT_EQ(folder.Read("b.xml"), row.Document) << row.Label;
        EXPECT_EQ(folder.List(), "b.xml\n") << row.Label;
    }
}
