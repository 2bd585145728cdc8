#include "tests/cli/toolrun.h"
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

// The programs themselves, under a terminal.

namespace {

/// A pair of descriptors: what is written to Write is read from Read.
struct TChannel {
    int Read = -1;
    int Write = -1;
};

TChannel MakePipe() {
    int ends[2] = {-1, -1};
    EXPECT_EQ(pipe(ends), 0);
    return {ends[0], ends[1]};
}

/// A terminal of 60 columns.
TChannel MakeTerminal() {
    const int controller = posix_openpt(O_RDWR | O_NOCTTY);
    EXPECT_GE(controller, 0);
    EXPECT_EQ(grantpt(controller) | unlockpt(controller), 0);
    const int terminal = open(ptsname(controller), O_RDWR | O_NOCTTY);
    EXPECT_GE(terminal, 0);
    struct winsize size = {};
    size.ws_col = 60;
    EXPECT_EQ(ioctl(terminal, TIOCSWINSZ, &size), 0);
    return {controller, terminal};
}

using TTexts = std::vector<std::string>;

/// What `program` writes to the channel, which is its standard error; its results are thrown away.
/// `environment` is set in front of it.
std::string ErrorsOf(const char* program, TTexts arguments, const TChannel& channel,
                     TTexts environment = {"TERM=xterm"}) {
    arguments.insert(arguments.begin(), program);
    std::vector<char*> words;
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        unsetenv("TERM");
        for (std::string& variable : environment) putenv(variable.data());
        dup2(channel.Write, STDERR_FILENO);
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        execv(program, words.data());
        _exit(127);
    }
    close(channel.Write);
    std::string bytes;
    char block[4096];
    // A terminal that nobody has open any more fails.
    for (ssize_t count; (count = read(channel.Read, block, sizeof block)) > 0;)
        bytes.append(block, static_cast<std::size_t>(count));
    close(channel.Read);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    return bytes;
}

/// The lines that were drawn in one place, the last one first: what the user sees when it is over.
std::string LastLine(const std::string& bytes) {
    std::string line;
    std::size_t column = 0;
    for (const char byte : bytes) {
        if (byte == '\r') {
            column = 0;
            continue;
        }
        if (line.size() == column) line += ' ';
        line[column++] = byte;
    }
    return line.substr(0, line.find_last_not_of(' ') + 1);
}

class ProgressOfTheProgram : public testing::Test {
protected:
    ProgressOfTheProgram() {
        std::string group = "<SourceFileGroup Language=\"VHDL\">\n";
        for (int i = 0; i < 40; ++i) {
            Folder.Write("s" + std::to_string(i) + ".vhd", "");
            group += SourceText("s" + std::to_string(i) + ".vhd");
        }
        Folder.Write("b.xml", BuildText(group + "</SourceFileGroup>\n"));
    }
    WorkingFolder Folder;
    // The program of the tests does not wait for a second.
    const char* const Eager = HDLBUILD_EAGER_PROGRAM;
    const TTexts Check = {"check", "b.xml"};
};

}  // namespace

TEST_F(ProgressOfTheProgram, IsDrawnAndErasedOnATerminal) {
    for (const TTexts& environment : {TTexts{"TERM=xterm"}, TTexts{"TERM=vt100", "NO_COLOR=1"}}) {
        const std::string bytes = ErrorsOf(Eager, Check, MakeTerminal(), environment);
        const std::string first = "\rreading b.xml: 0 % (0 of 40 sources)";
        EXPECT_EQ(bytes.substr(0, first.size()), first);
        EXPECT_EQ(LastLine(first), first.substr(1));
        EXPECT_EQ(LastLine(bytes), "");
        EXPECT_EQ(bytes.back(), '\r');
        EXPECT_EQ(bytes.find('\033'), std::string::npos);
    }
}

TEST_F(ProgressOfTheProgram, FitsIntoTheTerminal) {
    const std::string name = "a-name-of-which-the-beginning-has-no-place.xml";
    Folder.Write(name, Folder.Read("b.xml"));
    const std::string bytes = ErrorsOf(Eager, {"check", name}, MakeTerminal());
    const std::string first = "\rreading ...eginning-has-no-place.xml: 0 % (0 of 40 sources)";
    EXPECT_EQ(first.size(), 60u);
    EXPECT_EQ(bytes.substr(0, first.size()), first);
}

TEST_F(ProgressOfTheProgram, IsNotDrawnElsewhere) {
    EXPECT_EQ(ErrorsOf(Eager, Check, MakePipe()), "");
    EXPECT_EQ(ErrorsOf(Eager, Check, MakeTerminal(), {"TERM=dumb"}), "");
    EXPECT_EQ(ErrorsOf(Eager, Check, MakeTerminal(), {"TERM="}), "");
    EXPECT_EQ(ErrorsOf(Eager, Check, MakeTerminal(), {}), "");
    EXPECT_EQ(ErrorsOf(Eager, {"check", "b.xml", "--quiet"}, MakeTerminal()), "");
}

TEST_F(ProgressOfTheProgram, IsNotDrawnByTheToolForShortWork) {
    EXPECT_EQ(ErrorsOf(HDLBUILD_PROGRAM, Check, MakeTerminal()), "");
    EXPECT_EQ(ErrorsOf(HDLBUILD_PROGRAM, Check, MakePipe()), "");
}
