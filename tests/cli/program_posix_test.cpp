#include "tests/cli/projecttext.h"
#include "tests/cli/servers/simulatorsfile.h"
#include "tests/cli/toolrun.h"
#include "tests/cli/userinifile.h"
#include "tests/support/processes.h"
#include "tests/support/settingtexts.h"
#include <fcntl.h>
#include <gtest/gtest.h>
#include <set>
#include <unistd.h>

// The program itself, in processes of its own.

namespace {

using TTexts = std::vector<std::string>;

/// Starts the program with the arguments as soon as nobody has the pipe open for writing any more.
/// What it prints is thrown away.
pid_t StartProgram(TTexts arguments, const int (&pipeEnds)[2]) {
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

void RunAtOnce(const std::vector<TTexts>& runs) {
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    std::vector<pid_t> processes;
    for (const TTexts& arguments : runs) processes.push_back(StartProgram(arguments, ends));
    close(ends[0]);
    close(ends[1]);
    for (const pid_t process : processes) EXPECT_TRUE(Succeeds(process));
}

/// One run of `command` for each of the words, which take the place of "?".
std::vector<TTexts> RunsFor(const std::vector<TTexts>& words, const TTexts& command) {
    std::vector<TTexts> runs;
    for (const TTexts& each : words) {
        TTexts run;
        for (const std::string& word : command)
            if (word == "?")
                run.insert(run.end(), each.begin(), each.end());
            else
                run.push_back(word);
        runs.push_back(run);
    }
    return runs;
}

std::vector<TTexts> SettingsWithValues() {
    std::vector<TTexts> words;
    for (const TGeneralSettingText& row : GeneralSettingTexts())
        words.push_back({row.Name, row.Changed});
    return words;
}

/// Of simulators.
std::vector<TTexts> Numbers(int last) {
    std::vector<TTexts> words;
    for (int number = 1; number <= last; ++number) words.push_back({std::to_string(number)});
    return words;
}

std::multiset<std::string> LinesOf(const std::string& text) {
    std::multiset<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.insert(line);
    return lines;
}

}  // namespace

TEST(Program, LetsEveryChangeOfManyAtOnceTakeEffect) {
    const struct {
        const char* File;
        std::string Text;
        std::vector<TTexts> Runs;
    } rows[] = {
        {"p.hpj", ProjectText(),
         RunsFor(SettingsWithValues(), {"settings", "p.hpj", "set", "Release", "?"})},
        {"a.cfg", FileText(""),
         RunsFor(Numbers(8), {"servers", "add", "far", "?", "--file", "a.cfg", "--pli", "p"})},
        {"b.xml", BuildText(""),
         RunsFor({{"-r"}, {"-s"}, {"-np"}, {"-87"}, {"-ne"}, {"-synth"}, {"-mrv"}, {"-nz"}},
                 {"translator", "b.xml", "v2vhdl", "enable", "?"})},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.File);
        const WorkingFolder folder;
        folder.Write(row.File, row.Text);
        RunAtOnce(row.Runs);
        EXPECT_EQ(folder.List(), std::string(row.File) + "\n");
        for (const TTexts& run : row.Runs)
            EXPECT_EQ(ResultOf(run), std::string(row.File) + ": nothing to change\n");
        // One after the other they give the same file, but for the order of new elements.
        const auto together = LinesOf(folder.Read(row.File));
        folder.Write(row.File, row.Text);
        for (const TTexts& run : row.Runs) ResultOf(run);
        EXPECT_EQ(together, LinesOf(folder.Read(row.File)));
    }
}

TEST(Program, NamesAProjectThatCannotBeWrittenOnce) {
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
