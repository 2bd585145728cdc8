#include "tests/torture/savecases.h"
#include "services/xml/expatrun.h"
#include "tests/cli/projecttext.h"
#include "tests/cli/servers/simulatorsfile.h"
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <sys/wait.h>

namespace {

constexpr const char* kEntity = "entity e is end;\narchitecture a of e is begin end;\n";
constexpr const char* kUser =
    "entity f is end;\narchitecture a of f is begin u: entity work.e; end;\n";
constexpr const char* kPast = "what was there before\n";

/// A build of the two sources, which nobody has scanned.
std::string BuildText() {
    return "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
           "<HdlBuildFileList>\n"
           "<HdlBuildFile TopLevelLanguage=\"VHDL\" HvlLanguage=\"VHDL\" HdlLanguage=\"VHDL\" "
           "DestinationLibrary=\"work\">\n"
           "<SourceFileGroup Language=\"VHDL\">\n"
           "<SourceFile Library=\"false\">f.vhd</SourceFile>\n"
           "<SourceFile Library=\"false\">e.vhd</SourceFile>\n"
           "</SourceFileGroup>\n</HdlBuildFile>\n</HdlBuildFileList>\n";
}

/// The build and its sources, with another file beside them unless its name is "".
std::vector<std::pair<std::string, std::string>> BuildFiles(const std::string& name = {},
                                                            const std::string& bytes = {}) {
    std::vector<std::pair<std::string, std::string>> files = {
        {"b.xml", BuildText()}, {"e.vhd", kEntity}, {"f.vhd", kUser}};
    if (!name.empty()) files.emplace_back(name, bytes);
    return files;
}

/// A build of one top in Verilog.
std::string RunText() {
    return "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
           "<HdlBuildFileList>\n"
           "<HdlBuildFile TopLevelLanguage=\"Verilog\" HvlLanguage=\"Verilog\" "
           "HdlLanguage=\"Verilog\" DestinationLibrary=\"work\">\n"
           "<TopLevelComponents><ComponentList Language=\"Verilog\"><Component Library=\"work\" "
           "Architecture=\"\">t</Component></ComponentList></TopLevelComponents>\n"
           "<SourceFileGroup Language=\"Verilog\">\n"
           "<SourceFile Library=\"false\">t.v</SourceFile>\n"
           "</SourceFileGroup>\n</HdlBuildFile>\n</HdlBuildFileList>\n";
}

constexpr const char* kCompiler =
    "#!/bin/sh\nset -e\n"
    "while test $# -gt 0; do test \"$1\" != -o || out=$2; shift; done\n"
    "echo compiled >\"$out\"\n";
constexpr const char* kSimulator = "#!/bin/sh\nset -e\necho simulated\n";

std::string LastLineOf(const std::string& text) {
    return text.empty() ? "" : text.substr(text.rfind('\n', text.size() - 2) + 1);
}

}  // namespace

const std::vector<TSaveCase>& SaveCases() {
    static const std::vector<TSaveCase> cases = {
        {"set", BuildFiles(), HDLBUILD_PROGRAM, "set b.xml DestinationLibrary lib", "b.xml"},
        {"add", BuildFiles("g.vhd", kEntity), HDLBUILD_PROGRAM, "add b.xml g.vhd", "b.xml"},
        {"scan", BuildFiles(), HDLBUILD_PROGRAM, "scan b.xml", "b.xml"},
        {"new build by scan", BuildFiles(), HDLBUILD_PROGRAM, "scan e.vhd f.vhd -o n.xml", "n.xml"},
        {"new build by import", BuildFiles("b.f", "f.vhd\ne.vhd\n"), HDLBUILD_PROGRAM,
         "import filelist b.f -o n.xml", "n.xml"},
        {"export", BuildFiles("Makefile", kPast), HDLBUILD_PROGRAM,
         "export b.xml --to make -o Makefile", "Makefile"},
        {"graph", BuildFiles("g.dot", kPast), HDLBUILD_PROGRAM, "graph b.xml -o g.dot", "g.dot"},
        {"command file", BuildFiles("c.f", kPast), HDLBUILD_PROGRAM, "command-file b.xml -o c.f",
         "c.f"},
        {"project file",
         {{"p.hpj", ProjectText()}},
         HDLBUILD_PROGRAM,
         "settings p.hpj set Release LogFileName new.log",
         "p.hpj"},
        {"simulators file",
         {{"s.cfg", FileText("")}},
         HDLBUILD_PROGRAM,
         "servers add far 3 --file s.cfg --pli p",
         "s.cfg"},
        {"build file of the library", BuildFiles(), TORTURE_SAVER, "build b.xml", "b.xml"},
        {"project file of the library",
         {{"p.hpj", ProjectText()}},
         TORTURE_SAVER,
         "project p.hpj",
         "p.hpj"},
        {"INI file of the library", {{"u.ini", "[a]\nb=c\n"}}, TORTURE_SAVER, "ini u.ini", "u.ini"},
    };
    return cases;
}

TSaveCase ReportCase() {
    return {"report of a run",
            {{"b.xml", RunText()},
             {"t.v", "module t; endmodule\n"},
             {"bin/iverilog", kCompiler},
             {"bin/vvp", kSimulator},
             {"j.xml", kPast}},
            HDLBUILD_PROGRAM,
            "run b.xml --with icarus --tool-path bin -o out --junit j.xml",
            "j.xml"};
}

std::string WhyNoRun() {
    return std::system("command -v ninja >/dev/null 2>&1") == 0 ? "" : "ninja is not installed";
}

std::string WithoutTimes(const std::string& text) {
    static const std::regex time("time=\"[0-9.]+\"");
    return std::regex_replace(text, time, "time=\"T\"");
}

void TSavePlace::Restore() const {
    for (const auto& entry : std::filesystem::directory_iterator(Folder.Path()))
        std::filesystem::remove_all(entry);
    for (const auto& [name, bytes] : Save.Files) {
        Folder.Write(name, bytes);
        if (name.starts_with("bin/"))
            std::filesystem::permissions(Folder.Path(name), std::filesystem::perms::owner_all);
    }
}

void TSavePlace::RestoreTarget() const {
    std::filesystem::remove(Target());
    for (const auto& [name, bytes] : Save.Files)
        if (name == Save.Target) Folder.Write(name, bytes);
}

void TSavePlace::Put(const std::map<std::string, std::string>& files) const {
    for (const auto& entry : std::filesystem::directory_iterator(Folder.Path()))
        std::filesystem::remove_all(entry);
    for (const auto& [path, bytes] : files)
        Folder.Write(std::filesystem::path(path).filename().string(), bytes);
}

std::map<std::string, std::string> TSavePlace::Files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(Folder.Path()))
        files[entry.path().string()] = Folder.Read(entry.path().filename().string());
    return files;
}

int TSavePlace::Run(const std::string& prefix) const {
    // A program that lives longer hangs. The leak checker does not work where strace is.
    const std::string command = "cd '" + Folder.Path() + "' && HOME='" + Home.Path() +
                                "' XDG_CONFIG_HOME= ASAN_OPTIONS=detect_leaks=0 exec timeout -s "
                                "KILL 20 " +
                                prefix + " '" + Save.Program + "' " + Save.Arguments +
                                " >/dev/null 2>'" + Home.Path("errors") + "'";
    const int status = std::system(command.c_str());
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

std::string TSavePlace::Target() const {
    return Folder.Path(Save.Target);
}

std::string TSavePlace::Read() const {
    return WithoutTimes(Folder.Read(Save.Target));
}

std::string TSavePlace::List() const {
    return Folder.List();
}

bool TSavePlace::Saves() {
    Restore();
    OldBytes = Read();
    OldList = List();
    if (Run() != 0) return false;
    NewBytes = Read();
    NewList = List();
    return NewBytes != OldBytes && NewBytes != "<missing>";
}

bool TSavePlace::IsAsTold(int status) const {
    constexpr int kProblems = 1;
    constexpr int kKilled = 137;
    const std::string bytes = Read();
    if (status == 0) return bytes == NewBytes;
    if (bytes == OldBytes) return true;
    // What is listed, and could not be looked at, counts as missing: that changes no output, but
    // the report tells what did not pass, and a build lacks sources that could not be read.
    if (status == kProblems)
        return bytes == NewBytes ||
               (IsWellFormed(bytes) && LastLineOf(bytes) == LastLineOf(NewBytes));
    return status == kKilled && bytes == NewBytes;
}

bool TSavePlace::IsCleanBeside() const {
    const std::string list = std::regex_replace(List(), std::regex(R"(.*\.lock\n)"), "");
    return list == OldList || list == NewList;
}

bool TSavePlace::SavesAgain() const {
    RestoreTarget();
    return Run() == 0 && Read() == NewBytes && List() == NewList;
}
