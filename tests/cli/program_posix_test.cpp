#include "tests/cli/projecttext.h"
#include "tests/cli/toolrun.h"
#include "tests/cli/userinifile.h"
#include "tests/support/processes.h"
#include "tests/support/settingtexts.h"
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

// The program itself, in processes of its own.

namespace {

/// Starts the program with the arguments as soon as nobody has the pipe open for writing any more.
/// What it prints is thrown away.
pid_t StartProgram(std::vector<std::string> arguments, const int (&pipeEnds)[2]) {
    return StartProcess([&] {
        arguments.insert(arguments.begin(), HDLBUILD_PROGRAM);
        std::vector<char*> words;
        for (std::string& argument : arguments) words.push_back(argument.data());
        words.push_back(nullptr);
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        close(pipeEnds[1]);
        char byte = 0;
        return read(pipeEnds[0], &byte, 1) == 0 && execv(HDLBUILD_PROGRAM, words.data()) == 0;
    });
}

}  // namespace

TEST(SettingsProgram, LetsEveryChangeOfManyAtOnceTakeEffect) {
    const WorkingFolder folder;
    folder.Write("p.hpj", ProjectText());
    const std::vector<std::string> set = {"settings", "p.hpj", "set", "Release"};
    const auto change = [&set](const TGeneralSettingText& row) {
        std::vector<std::string> arguments = set;
        arguments.insert(arguments.end(), {row.Name, row.Changed});
        return arguments;
    };
    ASSERT_GE(GeneralSettingTexts().size(), 16u);
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    std::vector<pid_t> processes;
    for (const TGeneralSettingText& row : GeneralSettingTexts())
        processes.push_back(StartProgram(change(row), ends));
    close(ends[0]);
    close(ends[1]);
    for (const pid_t process : processes) EXPECT_TRUE(Succeeds(process));
    EXPECT_EQ(folder.List(), "p.hpj\n");
    for (const TGeneralSettingText& row : GeneralSettingTexts())
        EXPECT_EQ(ResultOf(change(row)), "p.hpj: nothing to change\n") << row.Name;
    // One after the other they give the same file.
    const std::string together = folder.Read("p.hpj");
    folder.Write("p.hpj", ProjectText());
    for (const TGeneralSettingText& row : GeneralSettingTexts()) ResultOf(change(row));
    EXPECT_EQ(together, folder.Read("p.hpj"));
}

TEST(SettingsProgram, NamesAProjectThatCannotBeWrittenOnce) {
    const WorkingFolder folder;
    const UserIniFile ini("");
    folder.Write("file", "");
    const struct {
        const char* Project;
        const char* Reason;
    } rows[] = {{"none/p.hpj", "No such file or directory"}, {"file/p.hpj", "Not a directory"}};
    for (const auto& row : rows) {
        const std::string project = row.Project;
        EXPECT_EQ(ResultOf({"settings", project, "copy", "SimZorvik_Release", "a"}),
                  "3\nhdlbuild: error: " + project + ": " + row.Reason + "\n");
    }
    EXPECT_EQ(folder.List(), "file\n");
}
