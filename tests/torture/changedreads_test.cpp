#include "tests/cli/projecttext.h"
#include "tests/cli/servers/simulatorsfile.h"
#include "tests/support/temporaryfolder.h"
#include "tests/torture/tally.h"
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>

// Another program writes a file while it is read.

namespace {

std::string Build(const std::string& library, int sources) {
    std::string text =
        "<HdlBuildFileList>\n<HdlBuildFile TopLevelLanguage=\"VHDL\" DestinationLibrary=\"" +
        library + "\">\n<SourceFileGroup Language=\"VHDL\">\n";
    for (int source = 0; source < sources; ++source)
        text += "<SourceFile>s" + std::to_string(source) + ".vhd</SourceFile>\n";
    return text + "</SourceFileGroup>\n</HdlBuildFile>\n</HdlBuildFileList>\n";
}

std::string Lines(const std::string& word, int count) {
    std::string text;
    for (int line = 0; line < count; ++line) text += word + std::to_string(line) + ".vhd\n";
    return text;
}

std::string Entity(const std::string& name, int comments) {
    std::string text;
    for (int comment = 0; comment < comments; ++comment) text += "-- 0123456789 0123456789\n";
    return text + "entity " + name + " is end;\n";
}

/// A command that reads a file, and three texts that may stand in it instead.
struct TCase {
    const char* Label;
    const char* Arguments;
    const char* File;
    std::string Text;
    std::string Shorter;
    std::string Equal;  // in size
    std::string Longer;
    /// The status, and what is told of a file that changes again and again.
    const char* Failure = "3\nhdlbuild: error: f: the file changes while it is read\n";
};

const TCase kCases[] = {
    {"show", "show f", "f", Build("work", 6), Build("work", 1), Build("bork", 6), Build("work", 9)},
    {"order", "order f", "f", Build("work", 6), Build("work", 1), Build("bork", 6),
     Build("work", 9)},
    {"edit", "set f SnapshotName new --dry-run", "f", Build("work", 6), Build("work", 1),
     Build("bork", 6), Build("work", 9)},
    {"scan", "scan f.vhd -o n.xml --dry-run", "f.vhd", Entity("one", 6), Entity("e", 0),
     Entity("two", 6), Entity("three", 9),
     "1\nhdlbuild: error: f.vhd: not scanned: the file changes while it is read\n"},
    {"import", "import filelist f -o n.xml --dry-run", "f", Lines("a", 20), Lines("b", 1),
     Lines("c", 20), Lines("d", 30),
     "3\nhdlbuild: error: f: the file changes while it is read [HB709]\n"},
    {"project", "settings f show Release", "f", ProjectText(),
     "<SimulationProject></SimulationProject>", ProjectText(), ProjectText() + "\n"},
    {"simulators", "servers list --file f", "f", FileText(""),
     "<HdlBuildFileList></HdlBuildFileList>", FileText(""), FileText("") + "\n"},
};

class ChangedReads : public testing::Test {
protected:
    void Restore(const TCase& read) const {
        for (const auto& entry : std::filesystem::directory_iterator(Folder.Path()))
            std::filesystem::remove_all(entry);
        // So that a change shows, however coarse the clock of the file system is.
        const std::filesystem::path path = Folder.Write(read.File, read.Text);
        std::filesystem::last_write_time(
            path, std::filesystem::last_write_time(path) - std::chrono::hours(1));
    }
    /// The status and the errors.
    std::string Run(const TCase& read, const std::string& prefix = {}) const {
        const std::string command = "cd '" + Folder.Path() + "' && HOME='" + Other.Path() + "' " +
                                    prefix + " '" HDLBUILD_PROGRAM "' " + read.Arguments + " >'" +
                                    Other.Path("out") + "' 2>'" + Other.Path("err") + "'";
        const int status = std::system(command.c_str());
        return std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status)) +
               "\n" + Other.Read("err");
    }
    std::string RunWithChanges(const TCase& read, const std::string& text, int times) const {
        Restore(read);
        return Run(read, "env LD_PRELOAD='" TORTURE_CHANGER "' TORTURE_CHANGED='" +
                             Folder.Path(read.File) + "' TORTURE_WITH='" +
                             Other.Write("with", text) +
                             "' TORTURE_TIMES=" + std::to_string(times));
    }

    const TemporaryFolder Folder;
    const TemporaryFolder Other;
};

}  // namespace

TEST_F(ChangedReads, AreOfOneTextOrFail) {
    if (kHasAddressSanitizer) GTEST_SKIP() << "the sanitizer reads through calls of its own";
    TTally tally("read: the file changes meanwhile");
    for (const TCase& read : kCases)
        for (const std::string& text : {read.Shorter, read.Equal, read.Longer}) {
            Restore(read);
            Folder.Write(read.File, text);
            const std::string told = Run(read);
            const std::string printed = Other.Read("out");
            EXPECT_TRUE(
                tally.Count(RunWithChanges(read, text, 1) == told && Other.Read("out") == printed))
                << read.Label << " with " << text.size() << " bytes:\n"
                << Other.Read("out") << Other.Read("err") << "and not\n"
                << printed << told;
            const std::string never = RunWithChanges(read, text, 1'000);
            EXPECT_TRUE(tally.Count(never == read.Failure)) << read.Label << ": " << never;
        }
}
