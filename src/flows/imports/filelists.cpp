#include "flows/imports/formatreaders.h"
#include "flows/imports/importreader.h"
#include "flows/imports/listdialects.h"
#include "flows/optiontexts.h"
#include "flows/plan/planoptions.h"
#include "flows/plan/toolwords.h"
#include "services/files/filestatus.h"
#include <algorithm>
#include <array>
#include <deque>
#include <optional>
#include <utility>

namespace {

// What a simulator links, and no compiler of HDL reads.
constexpr std::array<std::string_view, 8> kNoSources = {".a",  ".dll", ".o",   ".sft",
                                                        ".so", ".vlt", ".vpi", ".vpl"};

/// A list that is being read; it stands still while one that it names is.
struct TOpenList {
    TImportFile File;
    TListWords Words;
    std::string Library;  // of the sources that follow

    TOpenList(TImportFile file, const TListSyntax& syntax, std::string library)
        : File(std::move(file)), Words(File.Text, syntax), Library(std::move(library)) {}
    TOpenList(const TOpenList&) = delete;
    TOpenList& operator=(const TOpenList&) = delete;
};

/// Reads a list, and those that it names, of one dialect.
class TFileListReader {
public:
    TFileListReader(TImportReader* reader, const TListDialect& dialect)
        : Reader(*reader), Dialect(dialect) {}

    void Read(const TImportFile& file);

private:
    TOpenList& List() { return Lists.back(); }
    TImportPlace PlaceOf(const TListWord& word) {
        return {List().File.Name, word.Line, word.Column};
    }
    void TakeCommandLines();
    void TakeCommandLine(const std::vector<std::string>& words, const TImportPlace& place);
    void TakeWord(const TListWord& word);
    void KeepUnknown(const TListWord& word);
    bool IsOperand(const std::string& word);
    void TakeOption(const TListOption& option, const TListWord& word);
    void Take(TListMeaning meaning, const std::string& value, const TImportPlace& place);
    void TakeDelays(const std::string& word, const TImportPlace& place);
    void TakeFlag(TListMeaning meaning, const TImportPlace& place);
    void KeepOption(const TListOption& option, const TListWord& word);
    void AddSource(const std::string& name, bool isLibraryFile, const TImportPlace& place);
    void OpenList(TListMeaning meaning, const std::string& name, const TImportPlace& place);
    // Of the others some compile VHDL, too.
    THdlLanguage LanguageOfTops() const {
        return Dialect.Tool & (LIST_COMMON | LIST_VCS) ? LANGUAGE_NONE : LANGUAGE_VERILOG;
    }
    std::string Expanded(const std::string& text, const TImportPlace& place);
    TImportedText Folder(const std::string& name, const TImportPlace& place) {
        return {TImportReader::WholeOf(name, List().File.Folder), place};
    }

    TImportReader& Reader;
    const TListDialect& Dialect;
    std::string WorkingFolder;
    std::deque<TOpenList> Lists;     // the views of words must stay
    std::optional<TListWord> Ahead;  // of the last list, read behind an option that is not known
};

void TFileListReader::Read(const TImportFile& file) {
    WorkingFolder = file.Folder;
    Lists.emplace_back(file, Dialect.Syntax, "");
    if (Dialect.Tool == LIST_ICARUS) TakeCommandLines();
    while (!Lists.empty()) {
        TListWord word;
        const bool isAhead = Ahead.has_value();
        if (isAhead) word = *std::exchange(Ahead, std::nullopt);
        if (isAhead || List().Words.Next(&word)) {
            TakeWord(word);
            continue;
        }
        const TListWords& words = List().Words;
        if (words.GetFault()) Reader.Fail(words.GetFault(), PlaceOf(words.GetFaultWord()));
        Lists.pop_back();
        if (!Lists.empty()) Reader.Leave();
    }
}

// A comment that is the command line says what a list has no words for: exports have one.
void TFileListReader::TakeCommandLines() {
    int number = 0;
    for (const std::string_view line : LinesOfImport(List().File.Text)) {
        ++number;
        if (line.starts_with("// iverilog "))
            TakeCommandLine(WordsOfOptions(line), {List().File.Name, number, 1});
    }
}

// The list itself is an operand there, and what the command makes; words of people are no options.
void TFileListReader::TakeCommandLine(const std::vector<std::string>& words,
                                      const TImportPlace& place) {
    for (const std::vector<std::string>& group : WithOperands(words)) {
        const std::string& word = group.front();
        const TListOption* const option = FindListOption(word, LIST_ICARUS_COMMAND);
        if (const char* const year = FindVerilogYear(word)) {
            Reader.SetStandard(LANGUAGE_VERILOG, year, place);
        } else if (const auto delay = FindIcarusDelay(word)) {
            Reader.SettingsOf(LANGUAGE_VERILOG).Delay = delay;
        } else if (option && (group.size() > 1 || word != option->Name)) {
            if (option->Meaning != MEANS_LIST)
                Take(option->Meaning, word == option->Name ? group[1] : word.substr(2), place);
        } else if (IsTaken(word, kWordsOfIcarus)) {
            Reader.KeepOption(LANGUAGE_VERILOG, word, place, {group.begin() + 1, group.end()});
        } else if (IsOptionWord(word) && word != "-o") {
            Reader.Lose("the option " + TextOfOption(group), place);
        }
    }
}

void TFileListReader::TakeWord(const TListWord& word) {
    const bool isOption = IsOptionWord(word.Text);
    if (const TListOption* const option = FindListOption(word.Text, Dialect.Tool))
        TakeOption(*option, word);
    else if (isOption && Dialect.Tool == LIST_VERIBLE)
        Reader.Lose("the line " + word.Text, PlaceOf(word));
    else if (isOption)
        KeepUnknown(word);
    else
        AddSource(word.Text, false, PlaceOf(word));
}

void TFileListReader::TakeOption(const TListOption& option, const TListWord& word) {
    if (option.Meaning == MEANS_OPTION) return KeepOption(option, word);
    if (option.Form == FORM_ALONE) return TakeFlag(option.Meaning, PlaceOf(word));
    std::string value = word.Text.substr(option.Name.size());
    if (option.Form == FORM_EQUALS && !value.empty()) value.erase(0, 1);
    if (option.Form == FORM_LIST) {
        for (const std::string& each : ValuesOfList(value))
            Take(option.Meaning, each, PlaceOf(word));
        return;
    }
    TListWord next;
    const bool isNext = option.Form != FORM_REST && word.Text == option.Name;
    if (isNext && !List().Words.Next(&next)) {
        if (!List().Words.GetFault()) Reader.Fail(word.Text + " without a value", PlaceOf(word));
        return;
    }
    Take(option.Meaning, isNext ? next.Text : value, PlaceOf(word));
}

void TFileListReader::KeepOption(const TListOption& option, const TListWord& word) {
    TListWord next;
    std::vector<std::string> operands;
    if (word.Text == option.Name && List().Words.Next(&next)) operands.push_back(next.Text);
    if (List().Words.GetFault()) return;
    Reader.KeepOption(LANGUAGE_VERILOG, word.Text, PlaceOf(word), operands);
}

// A word behind an option that is not known belongs to it on the same line, unless it looks like a
// source.
void TFileListReader::KeepUnknown(const TListWord& word) {
    const TImportPlace place = PlaceOf(word);
    TListWord next;
    std::vector<std::string> operands;
    const bool mayHaveOperand =
        word.Text.starts_with('-') && word.Text.find('=') == std::string::npos;
    if (mayHaveOperand && List().Words.Next(&next)) {
        if (next.Line == word.Line && IsOperand(next.Text))
            operands.push_back(next.Text);
        else
            Ahead = next;
    }
    Reader.KeepOption(LANGUAGE_VERILOG, word.Text, place, operands);
}

bool TFileListReader::IsOperand(const std::string& word) {
    std::vector<std::string> unset;
    return !IsOptionWord(word) &&
           TImportReader::MayBeOperand(
               WithVariables(word, Dialect.Variables, Dialect.KeepsUnsetVariables, &unset),
               List().File.Folder);
}

void TFileListReader::Take(TListMeaning meaning, const std::string& value,
                           const TImportPlace& place) {
    TImportedSettings& settings = Reader.SettingsOf(LANGUAGE_VERILOG);
    switch (meaning) {
        case MEANS_INCLUDE_FOLDER:
            return settings.IncludeDirectories.push_back(Folder(Expanded(value, place), place));
        case MEANS_LIBRARY_FOLDER:
            return settings.LibraryDirectories.push_back(Folder(Expanded(value, place), place));
        case MEANS_LIBRARY_EXTENSION:
            return settings.LibraryExtensions.push_back({value, place});
        case MEANS_LIBRARY_FILE:
            return AddSource(value, true, place);
        case MEANS_DEFINE:
            return Reader.AddDefine(value, place);
        case MEANS_TOP:
            return Reader.AddTop({LanguageOfTops(), List().Library, value, ""}, place);
        case MEANS_LIBRARY:
            List().Library = value;
            return;
        case MEANS_DELAYS:
            return TakeDelays(value, place);
        case MEANS_LIST:
        case MEANS_LIST_BESIDE:
        case MEANS_UNIT_LIST:
            return OpenList(meaning, Expanded(value, place), place);
        case MEANS_SYSTEM_VERILOG:
        case MEANS_MINIMUM_DELAYS:
        case MEANS_TYPICAL_DELAYS:
        case MEANS_MAXIMUM_DELAYS:
        case MEANS_END_OF_LIBRARY:
        case MEANS_OPTION:
            return;  // have no value
    }
}

// Icarus Verilog has the same three words, behind its option.
void TFileListReader::TakeDelays(const std::string& word, const TImportPlace& place) {
    const std::optional<TSimProjectDelayType> delay = FindIcarusDelay("-T" + word);
    if (!delay) return Reader.Fail("the delays " + word, place);
    Reader.SettingsOf(LANGUAGE_VERILOG).Delay = delay;
}

void TFileListReader::TakeFlag(TListMeaning meaning, const TImportPlace& place) {
    std::optional<TSimProjectDelayType>& delay = Reader.SettingsOf(LANGUAGE_VERILOG).Delay;
    switch (meaning) {
        case MEANS_SYSTEM_VERILOG:
            return Reader.SetStandard(LANGUAGE_VERILOG, kSystemVerilogYear, place);
        case MEANS_MINIMUM_DELAYS:
            delay = DELAY_TYPE_MINIMUM;
            return;
        case MEANS_MAXIMUM_DELAYS:
            delay = DELAY_TYPE_MAXIMUM;
            return;
        case MEANS_TYPICAL_DELAYS:
            delay = DELAY_TYPE_TYPICAL;
            return;
        case MEANS_END_OF_LIBRARY:
            return List().Library.clear();
        case MEANS_INCLUDE_FOLDER:
        case MEANS_LIBRARY_FOLDER:
        case MEANS_LIBRARY_FILE:
        case MEANS_LIBRARY_EXTENSION:
        case MEANS_DEFINE:
        case MEANS_LIST:
        case MEANS_LIST_BESIDE:
        case MEANS_UNIT_LIST:
        case MEANS_TOP:
        case MEANS_LIBRARY:
        case MEANS_DELAYS:
        case MEANS_OPTION:
            return;  // have one
    }
}

void TFileListReader::AddSource(const std::string& name, bool isLibraryFile,
                                const TImportPlace& place) {
    std::string path = Expanded(name, place);
    TImportedSource source;
    source.Library = List().Library;
    // A library in front of a library file. A sign of a path has to follow this one.
    if (const std::size_t sign = path.find('=');
        isLibraryFile && Dialect.Tool == LIST_SLANG && sign != std::string::npos) {
        source.Library = path.substr(0, sign);
        path.erase(0, sign + 1);
    }
    if (path.empty()) return Reader.Fail("an empty name", place);
    const auto isNone = [&path](std::string_view extension) { return path.ends_with(extension); };
    if (std::any_of(kNoSources.begin(), kNoSources.end(), isNone))
        return Reader.Lose(path + ", which is no source", place);
    if (!Dialect.IsVerilogOnly) source.Language = LanguageOfPath(path);
    if (source.Language == LANGUAGE_NONE) source.Language = LANGUAGE_VERILOG;
    source.Path = TImportReader::WholeOf(path, List().File.Folder);
    source.IsLibraryFile = isLibraryFile;
    source.Place = place;
    Reader.AddSource(std::move(source));
}

void TFileListReader::OpenList(TListMeaning meaning, const std::string& name,
                               const TImportPlace& place) {
    const TImportFile& parent = List().File;
    if (meaning == MEANS_UNIT_LIST) Reader.Lose("a compilation unit of its own", place);
    const std::string beside = parent.Path.substr(0, parent.Path.find_last_of("/\\") + 1);
    const std::string path =
        TImportReader::CanonicalOf(name, Dialect.IsBesideItsParent ? beside : parent.Folder);
    const std::string folder = meaning == MEANS_LIST ? WorkingFolder : std::string();
    TImportFile file;
    if (Reader.Enter(path, folder, List().Library, place, &file))
        Lists.emplace_back(std::move(file), Dialect.Syntax, List().Library);
}

// A dollar in the name of a file that is there is none of a variable.
std::string TFileListReader::Expanded(const std::string& text, const TImportPlace& place) {
    std::vector<std::string> unset;
    std::string whole = WithVariables(text, Dialect.Variables, Dialect.KeepsUnsetVariables, &unset);
    if (whole == text && !unset.empty() &&
        LookAtFile(TImportReader::CanonicalOf(text, List().File.Folder)).Exists)
        return whole;
    for (const std::string& name : unset) Reader.Tell(DIAGNOSTIC_UNSET_VARIABLE, {name}, place);
    return whole;
}

}  // namespace

void ReadFileList(TImportReader& reader, const TImportFile& file) {
    TFileListReader(&reader, kCommonList).Read(file);
}

void ReadIcarusList(TImportReader& reader, const TImportFile& file) {
    TFileListReader(&reader, kIcarusList).Read(file);
}

void ReadSlangList(TImportReader& reader, const TImportFile& file) {
    TFileListReader(&reader, kSlangList).Read(file);
}

void ReadVcsList(TImportReader& reader, const TImportFile& file) {
    TFileListReader(&reader, kVcsList).Read(file);
}

void ReadVeribleList(TImportReader& reader, const TImportFile& file) {
    TFileListReader(&reader, kVeribleList).Read(file);
}

void ReadVerilatorList(TImportReader& reader, const TImportFile& file) {
    TFileListReader(&reader, kVerilatorList).Read(file);
}
