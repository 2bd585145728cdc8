#include "flows/imports/formatreaders.h"
#include "flows/imports/importreader.h"
#include <algorithm>
#include <deque>
#include <optional>
#include <set>

namespace {

struct TMapWord {
    std::string Text;
    bool IsQuoted = false;
    TImportPlace Place;
};

/// A map that is being read; it stands still while one that it includes is.
struct TOpenMap {
    TImportFile File;
    std::size_t Position = 0;
    int Line = 1;
    std::size_t LineBegin = 0;
};

/// Reads a library map, and those that it includes.
class TLibraryMapReader {
public:
    explicit TLibraryMapReader(TImportReader* reader) : Reader(*reader) {}

    void Read(const TImportFile& file);

private:
    bool Next(TMapWord* word);
    bool SkipBlanks();
    bool SkipComment();
    void Step();
    TImportPlace PlaceHere() const {
        const TOpenMap& map = Maps.back();
        return {map.File.Name, map.Line, static_cast<int>(map.Position - map.LineBegin) + 1};
    }
    void TakeQuoted(TMapWord* word);
    void ReadStatement(const TMapWord& word);
    bool NextName(const TMapWord& statement, TMapWord* name);
    void ReadLibrary(const TMapWord& statement);
    void ReadInclude(const TMapWord& statement);
    bool SkipTo(std::string_view end);
    void AddFiles(const std::string& path, const std::string& library, const TImportPlace& place);
    void AddFolders(const std::vector<TImportedText>& folders, const std::string& library,
                    const TImportPlace& place);

    TImportReader& Reader;
    std::deque<TOpenMap> Maps;
    std::optional<std::set<std::string>> Folders;  // of the first library
};

void TLibraryMapReader::Read(const TImportFile& file) {
    Maps.push_back({file});
    while (!Maps.empty()) {
        TMapWord word;
        if (Next(&word)) {
            ReadStatement(word);
            continue;
        }
        Maps.pop_back();
        if (!Maps.empty()) Reader.Leave();
    }
}

void TLibraryMapReader::Step() {
    TOpenMap& map = Maps.back();
    if (map.File.Text[map.Position++] != '\n') return;
    ++map.Line;
    map.LineBegin = map.Position;
}

bool TLibraryMapReader::SkipComment() {
    TOpenMap& map = Maps.back();
    const std::string_view rest = std::string_view(map.File.Text).substr(map.Position);
    const bool isLine = rest.starts_with("//");
    if (!isLine && !rest.starts_with("/*")) return false;
    std::size_t length = rest.find(isLine ? "\n" : "*/", 2);
    if (length == std::string_view::npos) {
        if (!isLine) Reader.Fail("a comment that does not end", PlaceHere());
        length = rest.size();
    } else if (!isLine) {
        length += 2;
    }
    for (; length > 0; --length) Step();
    return true;
}

/// False at the end.
bool TLibraryMapReader::SkipBlanks() {
    TOpenMap& map = Maps.back();
    constexpr std::string_view kAllBlanks = " \t\r\n\f\v";
    while (map.Position < map.File.Text.size()) {
        if (kAllBlanks.find(map.File.Text[map.Position]) != std::string_view::npos)
            Step();
        else if (!SkipComment())
            return true;
    }
    return false;
}

bool TLibraryMapReader::Next(TMapWord* word) {
    if (!SkipBlanks()) return false;
    TOpenMap& map = Maps.back();
    word->Text.clear();
    word->IsQuoted = map.File.Text[map.Position] == '"';
    word->Place = PlaceHere();
    if (word->IsQuoted) {
        TakeQuoted(word);
        return true;
    }
    const std::size_t begin = map.Position;
    std::size_t end = map.File.Text.find_first_of(" \t\r\n\f\v,;\"", begin);
    if (end == begin) ++end;
    end = std::min(end, map.File.Text.size());
    word->Text = map.File.Text.substr(begin, end - begin);
    map.Position = end;
    return true;
}

void TLibraryMapReader::TakeQuoted(TMapWord* word) {
    TOpenMap& map = Maps.back();
    const std::size_t begin = map.Position + 1;
    const std::size_t end = map.File.Text.find('"', begin);
    if (end == std::string::npos) Reader.Fail("a quote that does not end", word->Place);
    word->Text = map.File.Text.substr(begin, std::min(end, map.File.Text.size()) - begin);
    while (map.Position < std::min(end, map.File.Text.size())) Step();
    if (end != std::string::npos) Step();
}

/// False when the map ends before.
bool TLibraryMapReader::SkipTo(std::string_view end) {
    for (TMapWord word; Next(&word);)
        if (word.Text == end) return true;
    return false;
}

void TLibraryMapReader::ReadStatement(const TMapWord& word) {
    if (word.Text == ";") return;
    if (word.Text == "library") return ReadLibrary(word);
    if (word.Text == "include") return ReadInclude(word);
    if (word.Text == "config") {
        Reader.Lose("a configuration", word.Place);
        if (!SkipTo("endconfig")) Reader.Fail("a configuration without an end", word.Place);
        return;
    }
    Reader.Fail("'" + word.Text + "' instead of a statement", word.Place);
    SkipTo(";");
}

/// False, told, when something else follows; then the statement is passed over.
bool TLibraryMapReader::NextName(const TMapWord& statement, TMapWord* name) {
    const std::string what = statement.Text == "library" ? "a library" : "an include";
    if (!Next(name)) {
        Reader.Fail(what + " without a name", statement.Place);
        return false;
    }
    if (name->IsQuoted || (name->Text != ";" && name->Text != ",")) return true;
    Reader.Fail(what + " without a name", name->Place);
    if (name->Text == ",") SkipTo(";");
    return false;
}

void TLibraryMapReader::ReadLibrary(const TMapWord& statement) {
    TMapWord library;
    if (!NextName(statement, &library)) return;
    std::vector<TImportedText> folders;
    bool isFolder = false;
    bool wantsName = true;
    TMapWord word;
    while (Next(&word)) {
        const bool isEnd = !word.IsQuoted && word.Text == ";";
        const bool isOption = !word.IsQuoted && word.Text == "-incdir";
        const bool isName = word.IsQuoted || (!isEnd && !isOption && word.Text != ",");
        if (isName != wantsName)
            Reader.Fail("'" + word.Text + "' instead of a " + (wantsName ? "name" : "comma"),
                        word.Place);
        wantsName = !isName;
        isFolder = isFolder || isOption;
        if (isEnd) return AddFolders(folders, library.Text, library.Place);
        if (!isName) continue;
        if (isFolder)
            folders.push_back(
                {TImportReader::WholeOf(word.Text, Maps.back().File.Folder), word.Place});
        else
            AddFiles(word.Text, library.Text, word.Place);
    }
    Reader.Fail("a library without a semicolon", library.Place);
}

// A build has include directories for all Verilog sources.
void TLibraryMapReader::AddFolders(const std::vector<TImportedText>& folders,
                                   const std::string& library, const TImportPlace& place) {
    std::set<std::string> names;
    for (const TImportedText& folder : folders) names.insert(folder.Text);
    if (!Folders) Folders = names;
    if (*Folders != names)
        Reader.Tell(DIAGNOSTIC_IMPORTED_FOR_ALL, {"include directories of the library " + library},
                    place);
    auto& directories = Reader.SettingsOf(LANGUAGE_VERILOG).IncludeDirectories;
    directories.insert(directories.end(), folders.begin(), folders.end());
}

// Three points are any folders, and a folder means the files in it.
void TLibraryMapReader::AddFiles(const std::string& path, const std::string& library,
                                 const TImportPlace& place) {
    TImportedSource source;
    source.Library = library;
    source.Place = place;
    std::string pattern = path.ends_with('/') ? path + "*" : path;
    if (pattern.find_first_of("*?") == std::string::npos &&
        pattern.find("...") == std::string::npos) {
        source.Path = TImportReader::WholeOf(path, Maps.back().File.Folder);
        source.Language = LanguageOfPath(source.Path);
        if (source.Language == LANGUAGE_NONE) source.Language = LANGUAGE_VERILOG;
        return Reader.AddSource(std::move(source));
    }
    for (std::size_t at = 0; (at = pattern.find("...", at)) != std::string::npos; at += 2)
        pattern.replace(at, 3, "**");
    pattern = TImportReader::WholeOf(pattern, Maps.back().File.Folder);
    for (const TFoundSource& each : Reader.FindPattern(pattern, path, LANGUAGE_NONE, place)) {
        source.Path = TImportReader::WholeOf(each.Path, "");
        source.Language = each.Language;
        Reader.AddSource(source);
    }
}

void TLibraryMapReader::ReadInclude(const TMapWord& statement) {
    TMapWord name;
    if (!NextName(statement, &name)) return;
    TMapWord end;
    if (!Next(&end)) return Reader.Fail("an include without a semicolon", name.Place);
    if (end.IsQuoted || end.Text != ";") {
        Reader.Fail("'" + end.Text + "' instead of a semicolon", end.Place);
        SkipTo(";");
        return;
    }
    const std::string path = TImportReader::CanonicalOf(name.Text, Maps.back().File.Folder);
    TOpenMap map;
    if (Reader.Enter(path, "", "", name.Place, &map.File)) Maps.push_back(std::move(map));
}

}  // namespace

void ReadLibraryMap(TImportReader& reader, const TImportFile& file) {
    TLibraryMapReader(&reader).Read(file);
}
