#include "cli/translator/translatoraccess.h"
#include "tests/cli/toolrun.h"
#include "tests/cli/translator/switchtext.h"
#include "translation/v2vtranslationoption.h"
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>

namespace {

/// "translator b.xml v2vhdl enable -r", with time for others between its read and its save.
class SlowEnable {
public:
    int Read() { return Translator.ReadToChange(); }
    int Save() {
        Translator.FindOption()->SetEnabled(true);
        return Translator.Save("enable");
    }
    std::ostringstream Out;
    std::ostringstream Err;

private:
    static TTranslatorArguments MakeArguments() {
        TTranslatorArguments arguments;
        arguments.Build = "b.xml";
        arguments.Translator = "v2vhdl";
        arguments.Words = {"-r"};
        return arguments;
    }

    const TTranslatorArguments Arguments = MakeArguments();
    TToolStreams Streams{Out, Err};
    TTranslatorAccess Translator{Arguments, Streams};
};

}  // namespace

TEST(TranslatorAccess, ReplacesOnlyTheFileThatItRead) {
    const struct {
        const char* Label;
        std::string Before;
        std::optional<std::string> After;
    } rows[] = {
        {"switches changed", Build(Options("")), Build(Options("      <v2v-s/>\n"))},
        {"a comment added", Build(Options("")), Build(Options("") + "<!-- new -->")},
        {"malformed", Build(""), "<a>"},
        {"gone", Build(""), std::nullopt},
    };
    for (const auto& row : rows) {
        const WorkingFolder folder;
        folder.Write("b.xml", row.Before);
        SlowEnable command;
        ASSERT_EQ(command.Read(), kExitDone) << row.Label;
        if (row.After)
            folder.Write("b.xml", *row.After);
        else
            std::filesystem::remove("b.xml");
        EXPECT_EQ(command.Save(), kExitFile) << row.Label;
        EXPECT_EQ(command.Out.str(), "") << row.Label;
        EXPECT_EQ(command.Err.str(),
                  "hdlbuild: error: b.xml: the file has changed since it was read\n")
            << row.Label;
        EXPECT_EQ(folder.Read("b.xml"), row.After.value_or("<missing>")) << row.Label;
    }
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
        {"the other's section too", Build(Options("") + "    <Vhdl2VerilogTranslationOptions/>\n"),
         "1\nhdlbuild: error: b.xml: a build keeps the switches of one translator, and this one "
         "holds those of both\n"},
        {"settings that cannot be read",
         Build("<ProjectLanguageConfigurationList><LanguageSettings Language=\"VHDL\">"
               "<IncludeDirectories/></LanguageSettings></ProjectLanguageConfigurationList>"),
         "1\nhdlbuild: error: Build File: Error reading the Project Settings.\n"},
        {"no build", "<HdlBuildFileList/>",
         "1\nhdlbuild: error: no HdlBuildFile element: the document describes no build\n"},
    };
    for (const auto& row : rows) {
        folder.Write("b.xml", row.Document);
        EXPECT_EQ(ResultOf({"translator", "b.xml", "v2vhdl", "enable", "-r"}), row.Expected)
            << row.Label;
        EXPECT_EQ(folder.Read("b.xml"), row.Document) << row.Label;
        EXPECT_EQ(folder.List(), "b.xml\n") << row.Label;
    }
}
