#include "tests/cli/projecttext.h"
#include "tests/support/temporaryfolder.h"
#include "tests/torture/strace.h"
#include "tests/torture/tally.h"
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>

// What the tool opens, makes, removes, starts and connects to.

namespace {

/// A folder in which the tool is called under strace.
class OpenedFiles : public testing::Test {
protected:
    void SetUp() override {
        if (kHasAddressSanitizer) GTEST_SKIP() << "the address sanitizer prints under strace";
        if (const std::string reason = WhyNoStrace(); !reason.empty()) GTEST_SKIP() << reason;
        Usual = CallsOf("--version");
    }

    /// All calls but those that look, one a line; those of every program are left out.
    std::string Opened(const std::string& arguments) const {
        std::string lines;
        for (const std::string& call : CallsOf(arguments))
            if (!Usual.contains(call)) lines += call + "\n";
        return lines;
    }

    const TemporaryFolder Folder;

private:
    std::set<std::string> CallsOf(const std::string& arguments) const {
        const std::string log = Other.Path("log");
        const std::string command =
            "cd '" + Folder.Path() + "' && HOME='" + Other.Path() +
            "' XDG_CONFIG_HOME= strace -f -s 10000 -e trace=%file,%network -o '" + log +
            "' '" HDLBUILD_PROGRAM "' " + arguments + " >'" + Other.Path("out") + "' 2>&1";
        if (std::system(command.c_str()) < 0) return {"no shell"};
        std::set<std::string> calls;
        std::ifstream stream(log);
        for (std::string line; std::getline(stream, line);)
            if (const std::string call = CallOf(line); !call.empty()) calls.insert(call);
        return calls;
    }

    /// "openat f.vhd" of a line of strace; "" for a look and what is no call.
    std::string CallOf(const std::string& line) const {
        static const std::set<std::string> looks = {
            "stat",       "lstat",  "newfstatat", "statx",    "access", "faccessat",
            "faccessat2", "getcwd", "readlinkat", "readlink", "statfs"};
        static const std::regex form(R"rx(\d+ +(\w+)\((?:[^"]*"((?:[^"\\]|\\.)*)")?.*)rx");
        std::smatch match;
        if (!std::regex_match(line, match, form) || looks.contains(match[1])) return {};
        std::string path = match[2];
        if (path.starts_with(Folder.Path() + "/")) path.erase(0, Folder.Path().size() + 1);
        // The scheduler of threads looks for libraries, and at processors. Failures are logged.
        static const std::regex systems(R"((/proc/self|/sys)/.*|.*\.so(\.\d+)*)");
        const bool isUsual = path.empty() || std::regex_match(path, systems) || IsLog(path);
        return isUsual ? "" : match[1].str() + " " + path;
    }

    /// Whether it is the user's log, or one of its folders.
    bool IsLog(const std::string& path) const {
        return (Other.Path(".config/hdlbuildfile/hdlbuildfile.log") + "/").starts_with(path + "/");
    }

    const TemporaryFolder Other;
    std::set<std::string> Usual;
};

/// Names that lead elsewhere, on one system or another.
const char* const kHostileNames[] = {
    "../../../../../../../../etc/passwd",
    "/etc/passwd",
    "//host/share/a.vhd",
    "\\\\host\\share\\a.vhd",
    "\\\\?\\C:\\a.vhd",
    "C:\\a.vhd",
    "C:a.vhd",
    "CON",
    "NUL.vhd",
    "trailing.vhd...",
    "~/a.vhd",
    "$HOME/a.vhd",
    "`touch made`.vhd",
    "file:///etc/passwd",
    "http://127.0.0.1:9/a.vhd",
    "/dev/tty",
    "/dev/zero",
    "a&#9;b&#10;c&#13;d&#x7f;&#x85;&#x9b;2J.vhd",
};

std::string HostileBuild() {
    std::string text =
        "<HdlBuildFileList>\n<HdlBuildFile TopLevelLanguage=\"VHDL\" "
        "DestinationLibrary=\"../../lib\">\n<SourceFileGroup Language=\"VHDL\">\n"
        "<SourceFile>f.vhd</SourceFile>\n";
    for (const char* name : kHostileNames)
        text += std::string("<SourceFile Library=\"") + name + "\">" + name + "<Dependency>" +
                name + "x</Dependency></SourceFile>\n";
    return text + "</SourceFileGroup>\n</HdlBuildFile>\n</HdlBuildFileList>\n";
}

}  // namespace

TEST_F(OpenedFiles, AreTheNamedOnesWhateverABuildLists) {
    Folder.Write("h.xml", HostileBuild());
    Folder.Write("f.vhd", "entity f is end;\n");
    const struct {
        const char* Arguments;
        const char* Opened;
    } rows[] = {
        {"show h.xml", "openat h.xml\n"},
        {"check h.xml", "openat h.xml\n"},
        {"order h.xml", "openat h.xml\n"},
        {"list h.xml", "openat h.xml\n"},
        {"options h.xml", "openat h.xml\n"},
        {"deps h.xml", "openat h.xml\n"},
        {"get h.xml", "openat h.xml\n"},
        {"diff h.xml h.xml", "openat h.xml\n"},
        {"graph h.xml", "openat h.xml\n"},
        {"command-file h.xml", "openat h.xml\n"},
        {"export h.xml --to make", "openat h.xml\n"},
        {"export h.xml --to ghdl", "openat h.xml\n"},
        {"run h.xml --list", "openat h.xml\n"},
        // Reads what is listed, and nothing that is no file.
        {"scan h.xml --dry-run", "openat /etc/passwd\nopenat f.vhd\nopenat h.xml\n"},
    };
    TTally tally("nothing else is opened");
    for (const auto& row : rows) {
        const std::string opened = Opened(row.Arguments);
        EXPECT_TRUE(tally.Count(opened == row.Opened)) << row.Arguments << ":\n" << opened;
    }
    EXPECT_EQ(Folder.List(), "f.vhd\nh.xml\n");
}

TEST_F(OpenedFiles, AreNotThoseThatADocumentRefersTo) {
    const std::string build = "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"VHDL\">";
    const std::string end = "</HdlBuildFile></HdlBuildFileList>\n";
    const struct {
        const char* Label;
        std::string Begin;
        std::string Content;
    } rows[] = {
        {"subset", "<!DOCTYPE HdlBuildFileList SYSTEM \"/etc/passwd\">", ""},
        {"subset beside", "<!DOCTYPE HdlBuildFileList SYSTEM \"other.dtd\">", ""},
        {"subset elsewhere", "<!DOCTYPE HdlBuildFileList SYSTEM \"http://127.0.0.1:9/a.dtd\">", ""},
        {"public subset",
         "<!DOCTYPE HdlBuildFileList PUBLIC \"-//W3C//DTD XHTML 1.0//EN\" "
         "\"http://127.0.0.1:9/a.dtd\">",
         ""},
        {"entity", "<!DOCTYPE HdlBuildFileList [<!ENTITY e SYSTEM \"/etc/passwd\">]>",
         "<X>&e;</X>"},
        {"entity elsewhere",
         "<!DOCTYPE HdlBuildFileList [<!ENTITY e SYSTEM \"http://127.0.0.1:9/e\">]>", "<X>&e;</X>"},
        {"parameter entity",
         "<!DOCTYPE HdlBuildFileList [<!ENTITY % e SYSTEM \"file:///etc/passwd\"> %e;]>", ""},
        {"unparsed entity",
         "<!DOCTYPE HdlBuildFileList [<!NOTATION n SYSTEM \"/bin/sh\">"
         "<!ENTITY e SYSTEM \"/etc/passwd\" NDATA n>]>",
         "<X A=\"e\"/>"},
        {"inclusion", "",
         "<xi:include xmlns:xi=\"http://www.w3.org/2001/XInclude\" href=\"/etc/passwd\"/>"},
        {"style sheet", "<?xml-stylesheet href=\"/etc/passwd\" type=\"text/xsl\"?>", ""},
        {"schema", "",
         "<X xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
         "xsi:noNamespaceSchemaLocation=\"http://127.0.0.1:9/a.xsd\"/>"},
    };
    TTally tally("nothing else is opened");
    Folder.Write("other.dtd", "<!ENTITY e 'x'>");
    for (const auto& row : rows) {
        Folder.Write("d.xml", row.Begin + build + row.Content + end);
        Folder.Write("d.hpj",
                     row.Begin + "<SimulationProject>" + row.Content + "</SimulationProject>");
        for (const char* arguments :
             {"show d.xml", "check d.xml", "servers list --file d.xml", "settings d.hpj list"}) {
            const std::string name =
                std::string(arguments).find("hpj") == std::string::npos ? "d.xml" : "d.hpj";
            const std::string opened = Opened(arguments);
            EXPECT_TRUE(tally.Count(opened == "openat " + name + "\n"))
                << row.Label << ", " << arguments << ":\n"
                << opened;
        }
    }
    EXPECT_EQ(Folder.List(), "d.hpj\nd.xml\nother.dtd\n");
}
