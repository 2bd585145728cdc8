#include "cli/settings/projectaccess.h"
#include "tests/cli/projecttext.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

/// Runs "settings p.hpj" with the arguments.
std::string Settings(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"settings", "p.hpj"});
    return ResultOf(arguments);
}

}  // namespace

// Without a current configuration, a file names the one that is called as itself.
TEST(ProjectAccess, ReportsTheCurrentConfigurationThatAReaderFinds) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    Settings({"copy", "Debug", "p"});
    EXPECT_EQ(Settings({"remove", "Release"}),
              "current configuration: \"Release\" -> \"p\"\n"
              "configurations: [\"Release\",\"Debug\",\"p\"] -> [\"Debug\",\"p\"]\n"
              "p.hpj: saved\n");
    EXPECT_EQ(Settings({"list"}), "  Debug\n* p\n");
}

TEST(ProjectAccess, TellsConfigurationsOfOneNameApart) {
    const WorkingFolder folder;
    folder.Write("p.hpj",
                 "<SimulationProject><ProjectSettings>"
                 "<ProjectSettingsConfiguration ConfigurationName=\"a\"/>"
                 "<ProjectSettingsConfiguration ConfigurationName=\"b\"/>"
                 "<ProjectSettingsConfiguration ConfigurationName=\"a\">"
                 "<GeneralConfiguration LogFileName=\"2.log\"/></ProjectSettingsConfiguration>"
                 "</ProjectSettings></SimulationProject>");
    EXPECT_EQ(Settings({"current", "b"}), "current configuration: none -> \"b\"\np.hpj: saved\n");
    EXPECT_EQ(Settings({"set", "a", "LogFileName", "1.log"}),
              "a (1 of 2): LogFileName: \"simulation.log\" -> \"1.log\"\np.hpj: saved\n");
    EXPECT_EQ(Settings({"remove", "a"}),
              "configurations: [\"a\",\"b\",\"a\"] -> [\"b\",\"a\"]\np.hpj: saved\n");
    EXPECT_EQ(Settings({"set", "a", "LogFileName", "3.log"}),
              "a: LogFileName: \"2.log\" -> \"3.log\"\np.hpj: saved\n");
}

TEST(ProjectAccess, ChangesNoSettingsThatChangedMeanwhile) {
    const struct {
        const char* Label;
        std::string Before, After;
    } rows[] = {
        {"settings changed", ProjectText(), "<SimulationProject/>"},
        {"file made", "", ProjectText()},
    };
    for (const auto& row : rows) {
        const WorkingFolder folder;
        if (!row.Before.empty()) folder.Write("p.hpj", row.Before);
        TSettingsArguments arguments;
        arguments.Project = "p.hpj";
        std::ostringstream out;
        std::ostringstream err;
        const TToolStreams streams{out, err};
        TProjectAccess project(arguments, streams);
        ASSERT_EQ(project.ReadToChange(true), kExitDone) << row.Label;
        project.GetSettings().AddConfiguration(new TProjectSimConfig(false));
        folder.Write("p.hpj", row.After);
        EXPECT_EQ(project.Save("copy"), kExitFile) << row.Label;
        EXPECT_EQ(out.str(), "") << row.Label;
        EXPECT_EQ(err.str(), "hdlbuild: error: p.hpj: the file has changed since it was read\n")
            << row.Label;
        EXPECT_EQ(folder.Read("p.hpj"), row.After) << row.Label;
    }
}

TEST(ProjectAccess, RefusesAFileThatItCannotReadWhole) {
    const WorkingFolder folder;
    const struct {
        const char* Label;
        std::string Document;
        std::string Expected;
    } rows[] = {
        {"malformed", "<SimulationProject>\n<a></b>",
         "3\nhdlbuild: error: p.hpj:2:6: mismatched tag: element \"a\" of line 2 is still open\n"},
        {"no project", "<HdlBuildFileList/>",
         "3\nhdlbuild: error: p.hpj: the file is no project file: its root is not "
         "SimulationProject\n"},
        {"two sections",
         "<SimulationProject><ProjectSettings/><ProjectSettings/></SimulationProject>",
         "1\nhdlbuild: error: p.hpj: the file holds the section ProjectSettings more than once\n"},
        {"broken section",
         "<SimulationProject><ProjectSettings><ProjectSettingsConfiguration>"
         "<LanguageSettings/></ProjectSettingsConfiguration></ProjectSettings></SimulationProject>",
         "1\nhdlbuild: error: p.hpj: the section ProjectSettings cannot be read\n"},
    };
    for (const auto& row : rows) {
        folder.Write("p.hpj", row.Document);
        for (const std::vector<std::string>& arguments : {std::vector<std::string>{"list"},
                                                          {"show"},
                                                          {"current", "a"},
                                                          {"copy", "a", "b"},
                                                          {"remove", "a"},
                                                          {"reset", "a"},
                                                          {"set", "a", "LogFileName", "b"}})
            EXPECT_EQ(Settings(arguments), row.Expected) << row.Label << ", " << arguments[0];
        EXPECT_EQ(folder.Read("p.hpj"), row.Document) << row.Label;
        EXPECT_EQ(folder.List(), "p.hpj\n") << row.Label;
    }
}
