#include "flows/process/childprocess.h"
#include "tests/support/temporaryfolder.h"
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

TChildRequest ShellLine(const std::string& line) {
    TChildRequest request;
    request.Words = {"sh", "-c", line};
    return request;
}

/// The end and the lines of a shell's line.
std::string ResultOf(TChildRequest request) {
    std::string text;
    request.TakeLine = [&text](std::string_view line) { text.append(line).append("|"); };
    const TChildResult result = RunChild(request);
    constexpr const char* kEnds[] = {"not started", "exited", "killed", "timed out", "interrupted"};
    return std::string(kEnds[result.End]) + " " + std::to_string(result.Status) + " " + text;
}

/// Whether a process that is no child of ours goes, within ten seconds.
bool Goes(pid_t process) {
    for (int round = 0; round < 1000; ++round) {
        if (kill(process, 0) != 0) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

}  // namespace

TEST(ChildProcess, TellsItsLinesAndItsEnd) {
    EXPECT_EQ(ResultOf(ShellLine("echo a; echo b >&2; printf c; exit 3")), "exited 3 a|b|c|");
    EXPECT_EQ(ResultOf(ShellLine("kill -9 $$")), "killed 9 ");
    TChildRequest none;
    none.Words = {"hdlbuild-no-such-program"};
    EXPECT_EQ(ResultOf(none), "not started 0 ");
}

TEST(ChildProcess, WorksInItsFolderWithItsVariables) {
    const TemporaryFolder folder;
    TChildRequest request = ShellLine("pwd -P; echo $COLOUR; cat");
    request.Folder = folder.Path();
    request.Environment = {"COLOUR=red green"};
    EXPECT_EQ(ResultOf(request),
              "exited 0 " + std::filesystem::canonical(folder.Path()).string() + "|red green|");
}

TEST(ChildProcess, AppendsItsOutputToAFile) {
    const TemporaryFolder folder;
    TChildRequest request = ShellLine("echo a; echo b >&2");
    request.OutputFile = folder.Path("log");
    EXPECT_EQ(ResultOf(request), "exited 0 ");
    EXPECT_EQ(ResultOf(request), "exited 0 ");
    EXPECT_EQ(folder.Read("log"), "a\nb\na\nb\n");
}

TEST(ChildProcess, EndsItsWholeGroupWhenTheTimeIsOver) {
    const TemporaryFolder folder;
    // The second one does not listen to what ends others.
    TChildRequest request = ShellLine(
        "(trap '' TERM; echo $$ >started; sleep 100 & echo $! >>started; "
        "wait; sleep 100)");
    request.Folder = folder.Path();
    request.Timeout = std::chrono::milliseconds(300);
    request.Grace = std::chrono::milliseconds(200);
    EXPECT_EQ(ResultOf(request).substr(0, 9), "timed out");
    std::istringstream started(folder.Read("started"));
    int count = 0;
    for (pid_t process = 0; started >> process; ++count) EXPECT_TRUE(Goes(process));
    EXPECT_EQ(count, 2);
}

TEST(ChildProcess, LeavesNothingBehind) {
    const TemporaryFolder folder;
    TChildRequest request = ShellLine("sleep 100 & echo $! >started");
    request.Folder = folder.Path();
    EXPECT_EQ(ResultOf(request), "exited 0 ");
    EXPECT_TRUE(Goes(std::stoi(folder.Read("started"))));
}

TEST(ChildProcess, EndsWhenThisProcessIsAskedTo) {
    const TemporaryFolder folder;
    const pid_t user = fork();
    if (user == 0) {
        TChildRequest request = ShellLine("echo $$ >started; sleep 100");
        request.Folder = folder.Path();
        _exit(RunChild(request).End == CHILD_INTERRUPTED ? 7 : 1);
    }
    for (int round = 0; round < 1000 && !folder.Exists("started"); ++round)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    kill(user, SIGINT);
    int status = 0;
    ASSERT_EQ(waitpid(user, &status, 0), user);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7) << status;
    EXPECT_TRUE(Goes(std::stoi(folder.Read("started"))));
}
