#include "flows/imports/formatreaders.h"
#include "flows/imports/importreader.h"
#include "services/files/filestatus.h"
#include <algorithm>

namespace {

TImportedSource SourceAt(const std::string& path, const TImportFile& file,
                         const TImportPlace& place) {
    TImportedSource source;
    source.Path = TImportReader::WholeOf(path, file.Folder);
    source.Place = place;
    return source;
}

std::vector<std::string_view> FieldsOf(std::string_view line) {
    std::vector<std::string_view> fields;
    for (std::size_t end; (end = line.find('\t')) != std::string_view::npos;
         line.remove_prefix(end + 1))
        fields.push_back(line.substr(0, end));
    fields.push_back(line);
    return fields;
}

struct TFileSet {
    std::string_view Name;
    THdlLanguage Language;
};

constexpr TFileSet kFileSets[] = {
    {"VHDL", LANGUAGE_VHDL}, {"VLOG", LANGUAGE_VERILOG}, {"SYSV", LANGUAGE_VERILOG}};

void ReadBlueprintLine(std::string_view line, const TImportFile& file, const TImportPlace& place,
                       TImportReader* reader) {
    const std::vector<std::string_view> fields = FieldsOf(line);
    if (fields.size() != 3) return reader->Fail("a line without three fields", place);
    const auto set = std::find_if(std::begin(kFileSets), std::end(kFileSets),
                                  [&](const TFileSet& known) { return known.Name == fields[0]; });
    if (set == std::end(kFileSets))
        return reader->Lose("the file set " + std::string(fields[0]), place);
    TImportedSource source = SourceAt(std::string(fields[2]), file, place);
    source.Language = set->Language;
    source.Library = fields[1];
    reader->AddSource(std::move(source));
}

/// The records of a table whose fields are separated by commas, and may be quoted.
class TCommaTable {
public:
    explicit TCommaTable(std::string_view text) : Text(text) {}

    /// False at the end.
    bool Next(std::vector<std::string>* fields, int* line) {
        fields->clear();
        if (Position >= Text.size()) return false;
        *line = Line;
        do fields->push_back(TakeField());
        while (Take(','));
        const std::size_t end = std::min(Text.find('\n', Position), Text.size());
        HasRest = end != Position;
        Position = end;
        if (Take('\n')) ++Line;
        return true;
    }
    bool IsCut() const { return Cut; }
    /// Whether something followed the closing quote of the last field.
    bool IsGlued() const { return HasRest; }

private:
    bool Take(char c) {
        if (Position >= Text.size() || Text[Position] != c) return false;
        ++Position;
        return true;
    }
    std::string TakeField();

    std::string_view Text;
    std::size_t Position = 0;
    int Line = 1;
    bool Cut = false;
    bool HasRest = false;
};

// Blanks around a field count only within quotes.
std::string TCommaTable::TakeField() {
    while (Take(' ') || Take('\t')) continue;
    std::string field;
    if (!Take('"')) {
        const std::size_t end = std::min(Text.find_first_of(",\n", Position), Text.size());
        std::string_view plain = Text.substr(Position, end - Position);
        Position = end;
        if (plain.ends_with('\r')) plain.remove_suffix(1);
        return std::string(TrimmedImport(plain));
    }
    for (; Position < Text.size(); ++Position) {
        if (Text[Position] == '"' && (++Position == Text.size() || Text[Position] != '"')) {
            while (Take(' ') || Take('\t') || Take('\r')) continue;
            return field;
        }
        if (Text[Position] == '\n') ++Line;
        field += Text[Position];
    }
    Cut = true;
    return field;
}

bool IsNameOfLibrary(std::string_view text) {
    const auto isPart = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '_';
    };
    return !text.empty() && std::all_of(text.begin(), text.end(), isPart);
}

// Whether a library stands in front of each path. A file of that name says that it is none.
bool HasLibraries(const std::vector<std::string_view>& lines, const TImportFile& file) {
    for (const std::string_view line : lines) {
        if (line.empty()) continue;
        if (!IsNameOfLibrary(line.substr(0, line.find(' '))) ||
            line.find(' ') == std::string_view::npos)
            return false;
        if (LookAtFile(TImportReader::CanonicalOf(std::string(line), file.Folder)).Exists)
            return false;
    }
    return true;
}

}  // namespace

void ReadBlueprint(TImportReader& reader, const TImportFile& file) {
    int number = 0;
    for (const std::string_view line : LinesOfImport(file.Text)) {
        const TImportPlace place{file.Name, ++number, 1};
        if (!line.empty()) ReadBlueprintLine(line, file, place, &reader);
    }
}

// A library that is left out is none.
void ReadVunitTable(TImportReader& reader, const TImportFile& file) {
    TCommaTable table(file.Text);
    std::vector<std::string> fields;
    for (int line = 1; table.Next(&fields, &line);) {
        const TImportPlace place{file.Name, line, 1};
        if (table.IsCut()) return reader.Fail("a quote that does not end", place);
        if (table.IsGlued()) {
            reader.Fail("a text behind a quote", place);
            continue;
        }
        if (fields.size() == 1 && fields.front().empty()) continue;
        if (fields.size() > 2 || fields.back().empty()) {
            reader.Fail("a line that is not a library and a path", place);
            continue;
        }
        TImportedSource source = SourceAt(fields.back(), file, place);
        if (fields.size() == 2) source.Library = fields.front();
        reader.AddSource(std::move(source));
    }
}

void ReadGhdlOrder(TImportReader& reader, const TImportFile& file) {
    const std::vector<std::string_view> lines = LinesOfImport(file.Text);
    const bool hasLibraries = HasLibraries(lines, file);
    int number = 0;
    for (const std::string_view line : lines) {
        const TImportPlace place{file.Name, ++number, 1};
        if (line.empty()) continue;
        const std::size_t begin = hasLibraries ? line.find(' ') + 1 : 0;
        TImportedSource source = SourceAt(std::string(line.substr(begin)), file, place);
        source.Language = LANGUAGE_VHDL;
        if (hasLibraries) source.Library = line.substr(0, begin - 1);
        reader.AddSource(std::move(source));
    }
}
