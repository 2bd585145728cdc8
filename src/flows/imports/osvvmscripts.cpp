#include "flows/imports/formatreaders.h"
#include "flows/imports/importreader.h"
#include "flows/imports/tclcommands.h"
#include "flows/plan/planoptions.h"
#include "services/files/filestatus.h"
#include "services/names/utilfilename.h"
#include <deque>

namespace {

/// A script that is being read; it stands still while one that it includes is.
struct TOpenScript {
    TImportFile File;
    TTclCommands Commands;
    std::string Library;  // at its begin

    TOpenScript(TImportFile file, std::string library)
        : File(std::move(file)), Commands(File.Text), Library(std::move(library)) {}
    TOpenScript(const TOpenScript&) = delete;
    TOpenScript& operator=(const TOpenScript&) = delete;
};

/// Reads a script, and those that it includes. The library is one for all of them.
class TOsvvmReader {
public:
    explicit TOsvvmReader(TImportReader* reader) : Reader(*reader) {}

    void Read(const TImportFile& file);

private:
    /// What the first word behind the name of a command means.
    struct TVerb {
        std::string_view Name;
        void (TOsvvmReader::*Take)(const std::string& word, const TImportPlace& place);
    };
    static const TVerb kVerbs[];

    void TakeCommand(const TTclCommand& command);
    void EnterLibrary(const std::string& word, const TImportPlace&) { Library = word; }
    void Analyze(const std::string& word, const TImportPlace& place);
    void Simulate(const std::string& word, const TImportPlace& place) {
        Reader.AddTop({LANGUAGE_NONE, Library, word, ""}, place);
    }
    void RunTest(const std::string& word, const TImportPlace& place);
    void Include(const std::string& word, const TImportPlace& place);
    void SetVersion(const std::string& word, const TImportPlace& place);

    TImportReader& Reader;
    std::deque<TOpenScript> Scripts;
    std::string Library;
};

const TOsvvmReader::TVerb TOsvvmReader::kVerbs[] = {
    {"RunTest", &TOsvvmReader::RunTest},   {"SetVHDLVersion", &TOsvvmReader::SetVersion},
    {"analyze", &TOsvvmReader::Analyze},   {"build", &TOsvvmReader::Include},
    {"include", &TOsvvmReader::Include},   {"library", &TOsvvmReader::EnterLibrary},
    {"simulate", &TOsvvmReader::Simulate},
};

void TOsvvmReader::Read(const TImportFile& file) {
    Scripts.emplace_back(file, "");
    while (!Scripts.empty()) {
        TTclCommand command;
        TTclCommands& commands = Scripts.back().Commands;
        if (commands.Next(&command)) {
            TakeCommand(command);
            continue;
        }
        if (commands.GetFault())
            Reader.Fail(commands.GetFault(), {Scripts.back().File.Name, command.Line, 0});
        Reader.KeepContextBehind(Scripts.back().File.Path, Scripts.back().Library, Library);
        Scripts.pop_back();
        if (!Scripts.empty()) Reader.Leave();
    }
}

void TOsvvmReader::TakeCommand(const TTclCommand& command) {
    const TImportPlace place{Scripts.back().File.Name, command.Line, 0};
    const std::string& name = command.Words.front();
    for (const TVerb& verb : kVerbs) {
        if (verb.Name != name) continue;
        if (!command.IsLiteral)
            return Reader.Lose("the command " + name + " with a variable or another command",
                               place);
        if (command.Words.size() < 2) return Reader.Fail(name + " without a name", place);
        (this->*verb.Take)(command.Words[1], place);
        for (std::size_t at = 2; at < command.Words.size(); ++at)
            Reader.Lose("the word " + command.Words[at] + " of the command " + name, place);
        return;
    }
    Reader.Lose("the command " + name, place);
}

void TOsvvmReader::Analyze(const std::string& word, const TImportPlace& place) {
    TImportedSource source;
    source.Path = TImportReader::WholeOf(word, Scripts.back().File.Folder);
    source.Library = Library;
    source.Place = place;
    Reader.AddSource(std::move(source));
}

// A test is an entity of the name of its file.
void TOsvvmReader::RunTest(const std::string& word, const TImportPlace& place) {
    Analyze(word, place);
    Simulate(TUtilFileName(word.c_str()).GetParts(PART_NAME), place);
}

// Of a folder the script is meant that is named as the folder, or "build".
void TOsvvmReader::Include(const std::string& word, const TImportPlace& place) {
    std::string path = TImportReader::CanonicalOf(word, Scripts.back().File.Folder);
    if (LookAtFile(path).IsDirectory) {
        const std::string name = path.substr(path.find_last_of("/\\") + 1);
        const std::string own = TImportReader::CanonicalOf(name + ".pro", path + "/");
        path = LookAtFile(own).Exists ? own : TImportReader::CanonicalOf("build.pro", path + "/");
    }
    TImportFile file;
    if (const std::string* const behind = Reader.FindContextBehind(path, Library))
        Library = *behind;
    else if (Reader.Enter(path, "", Library, place, &file))
        Scripts.emplace_back(std::move(file), Library);
}

void TOsvvmReader::SetVersion(const std::string& word, const TImportPlace& place) {
    const std::string year = FindVhdlStandard(word);
    if (!year.empty()) return Reader.SetStandard(LANGUAGE_VHDL, year, place);
    Reader.Lose("the VHDL version " + word, place);
}

}  // namespace

void ReadOsvvmScript(TImportReader& reader, const TImportFile& file) {
    TOsvvmReader(&reader).Read(file);
}
