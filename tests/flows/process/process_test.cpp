#include "flows/process/process.h"
#include <gtest/gtest.h>

namespace {

/// Runs a line of the system's shell.
TProcessResult RunLine(const std::string& line, const std::string& input = "") {
#ifdef _WIN32
    return RunProcess({"cmd", "/c", line}, input);
#else
    return RunProcess({"sh", "-c", line}, input);
#endif
}

/// Without what line ends differ in.
std::string Plain(std::string text) {
    std::erase(text, '\r');
    std::erase(text, ' ');
    return text;
}

}  // namespace

TEST(Process, GivesWhatTheProgramPrintsAndItsStatus) {
    const TProcessResult result = RunLine("echo out&& echo err>&2&& exit 3");
    EXPECT_TRUE(result.IsStarted);
    EXPECT_EQ(result.Status, 3);
    EXPECT_EQ(Plain(result.Out), "out\n");
    EXPECT_EQ(Plain(result.Err), "err\n");
}

TEST(Process, IsNotStartedWithoutAProgram) {
    const TProcessResult result = RunProcess({"hdlbuild-no-such-program"}, "");
    EXPECT_FALSE(result.IsStarted);
    EXPECT_EQ(result.Out + result.Err, "");
}

#ifndef _WIN32
TEST(Process, HandsOverInputAndWordsAsTheyAre) {
    std::string input;
    for (int line = 0; line < 100000; ++line) input += std::to_string(line) + "\n";
    EXPECT_EQ(RunLine("cat", input).Out, input);
    EXPECT_EQ(RunProcess({"printf", "%s|", "a b", "\"q\\", "", "$HOME"}, "").Out,
              "a b|\"q\\||$HOME|");
}

TEST(Process, TellsOfAProgramThatWasKilled) {
    EXPECT_EQ(RunLine("kill -9 $$").Status, -1);
}
#endif
