#include "flows/imports/formatreaders.h"
#include "flows/imports/importreader.h"
#include "services/names/utilfilename.h"
#include <algorithm>
#include <unordered_set>

namespace {

/// Puts the files that a tool has read into the record, each once.
class TReadFiles {
public:
    TReadFiles(TImportReader* reader, const TImportFile& file) : Reader(*reader), File(file) {}

    /// LANGUAGE_NONE: the extension tells.
    void AddSource(const std::string& path, THdlLanguage language, const TImportPlace& place) {
        TImportedSource source;
        source.Path = TImportReader::WholeOf(path, File.Folder);
        source.Language = language;
        source.Place = place;
        if (Known.insert(source.Path).second) Reader.AddSource(std::move(source));
    }
    // A build holds no included file, but the folder in which it is found.
    void AddIncluded(const std::string& path, const TImportPlace& place) {
        std::string folder = TImportReader::FolderOf(TImportReader::WholeOf(path, File.Folder));
        if (Known.insert(folder + "/").second)
            Reader.SettingsOf(LANGUAGE_VERILOG).IncludeDirectories.push_back({folder, place});
    }

private:
    TImportReader& Reader;
    const TImportFile& File;
    std::unordered_set<std::string> Known;
};

bool IsIncluded(const std::string& path) {
    const std::string extension = TUtilFileName(path.c_str()).GetParts(PART_EXTENSION);
    return extension == ".vh" || extension == ".svh";
}

// Verilator names itself and its command files among what it has read.
bool IsOfVerilator(const std::string& path) {
    const std::string name = TUtilFileName(path.c_str()).GetParts(PART_NAME | PART_EXTENSION);
    return name.starts_with("verilator") || name.ends_with(".f") || name.ends_with(".vc");
}

/// Reads the rules of make that name files, and nothing else of make.
class TDepfileReader {
public:
    TDepfileReader(TImportReader* reader, const TImportFile& file)
        : Reader(*reader), File(file), Files(reader, file), Text(file.Text) {}

    void Read();

private:
    char At(std::size_t ahead = 0) const {
        return Position + ahead < Text.size() ? Text[Position + ahead] : '\0';
    }
    bool IsLineEnd(std::size_t ahead = 0) const {
        return At(ahead) == '\n' || (At(ahead) == '\r' && At(ahead + 1) == '\n');
    }
    bool IsBlank() const { return At() == ' ' || At() == '\t' || At() == '\r'; }
    bool IsColon(const std::string& word) const;
    void ReadRule();
    void SkipLine();
    bool SkipBlanks();
    std::string TakeWord(bool isTarget);
    void TakeCharacter(std::string* word);
    void TakePrerequisite(const std::string& word, const TImportPlace& place);
    TImportPlace Here() const {
        return {File.Name, Line, static_cast<int>(Position - LineBegin) + 1};
    }

    TImportReader& Reader;
    const TImportFile& File;
    TReadFiles Files;
    std::string_view Text;
    std::size_t Position = 0;
    std::size_t LineBegin = 0;
    int Line = 1;
    bool HasVariable = false;  // in the last word
};

void TDepfileReader::Read() {
    while (Position < Text.size()) {
        if (At() == '\t') {
            Reader.Lose("a command", Here());
            SkipLine();
        } else {
            ReadRule();
        }
        if (Position < Text.size()) ++Position;
        LineBegin = Position;
        ++Line;
    }
}

void TDepfileReader::SkipLine() {
    Position = std::min(Text.find('\n', Position), Text.size());
}

/// False at the end of the line, unless the next one goes on with it.
bool TDepfileReader::SkipBlanks() {
    for (; Position < Text.size(); ++Position) {
        if (At() == '\\' && IsLineEnd(1)) {
            Position += std::size_t{At(1) == '\r' ? 2u : 1u};
            LineBegin = Position + 1;
            ++Line;
        } else if (At() == '#') {
            SkipLine();
            return false;
        } else if (At() == '\n') {
            return false;
        } else if (!IsBlank()) {
            return true;
        }
    }
    return false;
}

// The colon of a drive is none.
bool TDepfileReader::IsColon(const std::string& word) const {
    return At() == ':' && (word.size() != 1 || (At(1) != '/' && At(1) != '\\'));
}

void TDepfileReader::ReadRule() {
    bool isTarget = true;
    bool hasWords = false;
    const TImportPlace begin = Here();
    while (SkipBlanks()) {
        const TImportPlace place = Here();
        if (!isTarget && At() == ';') {
            Reader.Lose("a command", place);
            return SkipLine();
        }
        if (!isTarget && At() == '|') {
            ++Position;
            continue;
        }
        const std::string word = TakeWord(isTarget);
        hasWords = true;
        if (isTarget && At() == ':') {
            isTarget = false;
            Position += std::size_t{At(1) == ':' ? 2u : 1u};
            if (At() != '=') continue;
            Reader.Fail("a line that is no rule", begin);
            return SkipLine();
        } else if (!isTarget) {
            TakePrerequisite(word, place);
        }
    }
    if (hasWords && isTarget) Reader.Fail("a line that is no rule", begin);
}

std::string TDepfileReader::TakeWord(bool isTarget) {
    std::string word;
    HasVariable = false;
    while (Position < Text.size() && !IsBlank() && !IsLineEnd()) {
        if ((isTarget && IsColon(word)) || (At() == '\\' && IsLineEnd(1))) break;
        if (!isTarget && (At() == ';' || At() == '|')) break;
        TakeCharacter(&word);
    }
    return word;
}

void TDepfileReader::TakeCharacter(std::string* word) {
    const char next = At(1);
    if (At() == '\\' && std::string_view(" #:;|").find(next) < 5) {
        ++Position;
    } else if (At() == '$') {
        if (next != '$') HasVariable = true;
        if (next == '$') ++Position;
    }
    *word += At();
    ++Position;
}

void TDepfileReader::TakePrerequisite(const std::string& word, const TImportPlace& place) {
    if (HasVariable) return Reader.Lose("the variable in " + word, place);
    const THdlLanguage language = LanguageOfPath(word);
    if (language == LANGUAGE_NONE && IsOfVerilator(word)) return;
    if (IsIncluded(word))
        Files.AddIncluded(word, place);
    else
        Files.AddSource(word, language, place);
}

}  // namespace

void ReadDepfile(TImportReader& reader, const TImportFile& file) {
    TDepfileReader(&reader, file).Read();
}

// With the word "prefix" a letter tells what a file is.
void ReadIcarusDependencies(TImportReader& reader, const TImportFile& file) {
    TReadFiles files(&reader, file);
    int number = 0;
    for (const std::string_view line : LinesOfImport(file.Text)) {
        const TImportPlace place{file.Name, ++number, 1};
        const bool hasPrefix = line.starts_with("I ") || line.starts_with("M ");
        const std::string path(line.substr(hasPrefix ? 2 : 0));
        if (path.empty()) continue;
        if (hasPrefix ? line.front() == 'I' : IsIncluded(path))
            files.AddIncluded(path, place);
        else
            files.AddSource(path, LANGUAGE_VERILOG, place);
    }
}
