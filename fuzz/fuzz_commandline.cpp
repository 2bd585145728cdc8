#include "cli/commands.h"
#include "cli/frame/commandline.h"
#include "fuzz/buildtext.h"
#include "services/files/directories.h"
#include "services/files/pathtext.h"
#include "services/ini/inifilenames.h"
#include "services/ini/propcache.h"
#include "tests/cli/projecttext.h"
#include "tests/support/memoryfilesystem.h"
#include "tests/support/recorders.h"
#include "tests/torture/formatsamples.h"

#include <algorithm>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <sstream>

namespace {

// The sources of folders are looked for on the disk, which has no such folder.
constexpr const char* kFolder = "/hdlbuild-fuzz/";

/// A folder with a file of every kind.
class TFiles : public MemoryFileSystem {
public:
    TFiles() {
        Add("b.xml", BuildSample(3));
        Add("p.hpj", ProjectText());
        Add("s.cfg", SimulatorsSample());
        Add("user.ini", IniSample());
        Add("a.vhd", "architecture a of e is begin end;");
        Add("e.vhd", "entity e is end;");
        Add("t.sv", "module t; u x(); endmodule");
        Add("t.csv", "work,e.vhd\n");
        PutFolder(std::string(kFolder) + "data");
        ChangeWorkingDirectory(kFolder);
    }
    /// All of it.
    std::string Text() const {
        std::istringstream names(List());
        std::string text;
        for (std::string name; std::getline(names, name);)
            text += name + "\n" + MemoryFileSystem::Text(name);
        return text;
    }

private:
    void Add(const std::string& name, const std::string& bytes) { Put(kFolder + name, bytes); }
};

/// The settings of the user and of the system, which are in that folder as well.
class TUserFiles {
public:
    TUserFiles() {
        SetIniFile((std::string(kFolder) + "user.ini").c_str());
        SetSystemIniFile((std::string(kFolder) + "system.ini").c_str());
        SetTalveraAppDataDirectory((std::string(kFolder) + "data/").c_str());
        ResetSystemPropCache();
    }
    ~TUserFiles() {
        SetIniFile(nullptr);
        SetSystemIniFile(nullptr);
        ResetSystemPropCache();
        SetTalveraAppDataDirectory(nullptr);
    }
    TUserFiles(const TUserFiles&) = delete;
    TUserFiles& operator=(const TUserFiles&) = delete;
};

/// The tool, which starts no program here.
TTool MakeTool() {
    TTool tool{"hdlbuild", "1.0", "A tool.", "", MakeCommands()};
    for (TCommand& command : tool.Commands)
        if (command.Name == std::string("run"))
            // It holds the arguments.
            command.Run = [run = command.Run](const TToolStreams&) {
                return run ? kExitDone : kExitFile;
            };
    return tool;
}

/// Whether the word, read as a path, leads out of the folder.
bool LeadsOut(const std::string& word) {
    return !CanonicalPath(word).starts_with(kFolder);
}

bool IsControl(char character) {
    const auto value = static_cast<unsigned char>(character);
    return (value < ' ' && character != '\n') || value == 0x7F;
}

void Check(int status, const std::string& out, const std::string& err, bool isJson) {
    if (status < kExitDone || status > kExitFile) Give("no exit status", std::to_string(status));
    if (status != kExitDone && err.empty() && out.empty()) Give("a failure without a word", "");
    if (status > kExitProblems && err.empty()) Give("a failure without a reason", out);
    if (std::any_of(err.begin(), err.end(), IsControl)) Give("control characters are shown", err);
    // An option may have taken the word.
    if (isJson && out.starts_with('{') && !nlohmann::json::accept(out)) Give("no JSON", out);
}

}  // namespace

// A command line, a word a line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream lines(std::string(reinterpret_cast<const char*>(data), size));
    std::vector<std::string> words;
    // No system hands a program a zero within a word.
    for (std::string word; std::getline(lines, word);) words.emplace_back(word.c_str());
    const RecordingLog log;
    const RecordingMessageBox box;
    TFiles files;
    const TUserFiles user;
    if (std::any_of(words.begin(), words.end(), LeadsOut)) return -1;
    const std::string before = files.Text();
    const TTool tool = MakeTool();
    std::ostringstream out;
    std::ostringstream err;
    const int status = RunCommandLine(tool, words, {out, err});
    const bool isJson = std::find(words.begin(), words.end(), "--json") != words.end();
    Check(status, out.str(), err.str(), isJson);
    if (status == kExitUsage && files.Text() != before)
        Give("a wrong command line changed files", files.Text());
    return 0;
}
