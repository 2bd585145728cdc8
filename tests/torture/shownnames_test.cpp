#include "tests/support/temporaryfolder.h"
#include "tests/torture/tally.h"
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>

// Names that would change a terminal, in what each command prints.

namespace {

// As XML can hold them: a tabulator, ends of lines, DEL, and two of the second block.
constexpr const char* kListed = "a&#9;b&#10;c&#13;d&#x7f;&#x85;&#x9b;2J";
// As names of files can hold them.
constexpr const char* kOnDisk = "e\x1b]0;title\x07\x1b[2J\x08\r\t\x7f\xC2\x9B.vhd";

std::string HostileBuild() {
    const std::string name = kListed;
    return "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"VHDL\" HvlLanguage=\"VHDL\" "
           "HdlLanguage=\"VHDL\" DestinationLibrary=\"" +
           name + "\" SnapshotName=\"" + name +
           "\"><TopLevelComponents><ComponentList Language=\"VHDL\"><Component Library=\"" + name +
           "\" Architecture=\"" + name + "\">" + name +
           "</Component></ComponentList></TopLevelComponents><" + "X A=\"" + name + "\">" + name +
           "</X><SourceFileGroup Language=\"VHDL\"><SourceFile PrecompiledLibrary=\"" + name +
           "\">" + name + ".vhd<Dependency>" + name +
           "2.vhd</Dependency></SourceFile><SourceFile>" + name + "2.vhd<Dependency>" + name +
           ".vhd</Dependency></SourceFile></SourceFileGroup></HdlBuildFile></HdlBuildFileList>\n";
}

/// Whether it has a character that a terminal takes for a command; ends of lines are none.
bool HasCommand(const std::string& text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto c = static_cast<unsigned char>(text[at]);
        const auto next = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : 0);
        if ((c < 0x20 && c != '\n') || c == 0x7F || (c == 0xC2 && next >= 0x80 && next < 0xA0))
            return true;
    }
    return false;
}

/// In single quotes of the shell.
std::string Quoted(const std::string& word) {
    return "'" + word + "'";
}

class ShownNames : public testing::Test {
protected:
    ShownNames() {
        Folder.Write("h.xml", HostileBuild());
        Folder.Write("other.xml", "<HdlBuildFileList><HdlBuildFile/></HdlBuildFileList>\n");
        Folder.Write(std::string("disk/") + kOnDisk, "entity e is end;\nentity \x1b[2J is\n");
        Folder.Write("list.f", std::string(kOnDisk) + "\nnone\x1b[2J.vhd\n");
        Folder.Write("bad.xml", "<HdlBuildFileList>\x1b[2J");
        Folder.Write("bad.hpj", "<SimulationProject A=\"\x1b[2J\"/>");
    }

    /// The status, and what the tool prints on both streams.
    std::string Run(const std::string& arguments) const {
        const std::string command = "cd '" + Folder.Path() + "' && HOME='" + Home.Path() +
                                    "' '" HDLBUILD_PROGRAM "' " + arguments + " >'" +
                                    Home.Path("out") + "' 2>&1";
        const int status = std::system(command.c_str());
        return std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status)) +
               "\n" + Home.Read("out");
    }

    const TemporaryFolder Folder;
    const TemporaryFolder Home;
};

}  // namespace

TEST_F(ShownNames, HoldNothingThatATerminalTakesForACommand) {
    const std::string name = Quoted("x\x1b[2J\x07\t\x7f\xC2\x9B.vhd");
    const std::string build = Quoted(std::string("disk/") + kOnDisk);
    const std::string lines[] = {
        "show h.xml",
        "check h.xml",
        "order h.xml",
        "options h.xml",
        "list h.xml",
        "deps h.xml",
        "needed h.xml --top x",
        "diff h.xml other.xml",
        "get h.xml",
        "top h.xml list",
        "check h.xml --json",
        "order h.xml --json",
        "list h.xml --json",
        "show h.xml --json",
        "deps h.xml --json",
        "get h.xml --json",
        "top h.xml list --json",
        "run h.xml --list",
        "run h.xml --list --json",
        "run h.xml --with ghdl --dry-run",
        "export h.xml --to ghdl -o out.sh",
        "export h.xml --to make -o out.mk",
        "scan h.xml --dry-run",
        "scan disk -o n.xml --dry-run",
        "add other.xml disk --dry-run",
        "add other.xml " + name + " --dry-run",
        "remove h.xml " + name,
        "depend h.xml " + name,
        "rename h.xml " + name + " " + name,
        "source h.xml " + name + " --library " + name,
        "set h.xml " + name + " " + name,
        "set other.xml SnapshotName " + name + " --dry-run",
        "tool h.xml VHDL " + name,
        "use h.xml " + name,
        "use other.xml bad.hpj " + name,
        "import filelist list.f -o n.xml --dry-run",
        "import " + name + " list.f -o n.xml",
        "settings bad.hpj list",
        "settings bad.hpj show " + name,
        "templates show " + name,
        "servers list " + name,
        "servers list far --file bad.xml",
        "translator h.xml " + name,
        "show " + name,
        "show bad.xml",
        "show " + build,
        "graph h.xml -o " + name,
        "graph " + name,
        "new " + build,
        "help " + name,
        name,
        "--" + name,
        "show --" + name,
        "run h.xml --with " + name,
        "run h.xml --with ghdl --junit " + name + " --top " + name,
        "top h.xml add " + name + " --dry-run",
        "command-file h.xml -o " + name + "/" + name,
    };
    TTally tally("names on a terminal");
    for (const std::string& line : lines) {
        const std::string printed = Run(line);
        EXPECT_TRUE(tally.Count(!HasCommand(printed) && printed.size() > 2))
            << testing::PrintToString(line) << ": " << testing::PrintToString(printed);
    }
}

TEST_F(ShownNames, AreShownEscaped) {
    EXPECT_EQ(Run("show 'x\x1b[2J\x07.xml'"),
              "3\nhdlbuild: error: x\\x1B[2J\\x07.xml: the file does not exist\n");
    const std::string shown = "a\\tb\\nc\\rd\\x7F\\u0085\\u009B2J";
    EXPECT_EQ(Run("order other.xml " + Quoted("\x1b")),
              "2\nThe following argument was not expected: \\x1B\nRun with --help for more "
              "information.\n");
    EXPECT_EQ(Run("get h.xml SnapshotName"), "0\n" + shown + "\n");
}
