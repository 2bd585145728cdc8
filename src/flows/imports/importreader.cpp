#include "flows/imports/importreader.h"
#include "flows/plan/planoptions.h"
#include "flows/plan/toolwords.h"
#include "flows/verilogoptions.h"
#include "services/files/filereplace.h"
#include "services/files/filestatus.h"
#include "services/hdl/sourcefileextensions.h"
#include "services/names/utilfilename.h"
#include <algorithm>

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Marks[] = {"\xFF\xFE", "\xFE\xFF"};

std::string FolderOfFile(const std::string& path) {
    const std::string directory = TUtilFileName(path.c_str()).GetParts(PART_DRIVE | PART_DIRECTORY);
    return WholePath("", directory) + "/";
}

/// An option text that readers take apart into these words. None of them holds a quote.
std::string TextOfWords(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text.append("\"").append(word).append("\" ");
    return text;
}

/// Whether readers of a build leave the words as they are, and take none behind them along.
bool IsPlainOption(THdlLanguage language, std::vector<std::string> words) {
    if (language == LANGUAGE_VERILOG && words.size() == 2 && words[1].starts_with('-') &&
        !TakesAnyOperand(words[0]))
        return false;
    for (const std::string& word : words)
        if (word.find('"') != std::string::npos) return true;
    words.emplace_back("x");
    TPlanSettings settings;
    settings.Language = language;
    std::vector<std::string> libraryFiles;
    AddOptions(TextOfWords(words), STEP_ANALYSE, "/", &settings, &libraryFiles);
    return settings.Options[STEP_ANALYSE] == words;
}

}  // namespace

std::string TImportReader::WholeOf(const std::string& path, const std::string& folder) {
    return WholePath(path, folder);
}

std::string TImportReader::CanonicalOf(const std::string& path, const std::string& folder) {
    return TUtilFileName(WholeOf(path, folder).c_str()).CanonicalWithoutFinalSlash();
}

std::string TImportReader::FolderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    const bool isOutermost = slash == 0 || (slash == 2 && path[1] == ':');
    return path.substr(0, isOutermost ? slash + 1 : slash);
}

std::vector<TFoundSource> TImportReader::FindPattern(const std::string& pattern,
                                                     const std::string& written,
                                                     THdlLanguage language,
                                                     const TImportPlace& place) {
    TSourceSearch search;
    // Another tool's pattern says itself where sources are, be they made by tools.
    search.EntersOutputs = true;
    TFoundSources found = FindSources({pattern}, search);
    std::erase_if(found.Sources, [language](const TFoundSource& source) {
        return language != LANGUAGE_NONE && source.Language != language;
    });
    for (const std::string& link : found.Links)
        Lose("the folder " + Request.TextOf(link) + ", which is a link", place);
    const std::string plain = FolderOf(pattern.substr(0, pattern.find_first_of("*?")));
    if (found.IsFileFault && LookAtFile(CanonicalOf(plain, "")).Exists)
        Tell(DIAGNOSTIC_IMPORT_UNREADABLE, {written, found.Complaint}, place);
    else if (found.Sources.empty())
        Lose("the pattern " + written + ", which no file has", place);
    return std::move(found.Sources);
}

void TImportReader::AddTop(const TBuildTop& top, const TImportPlace& place) {
    if (top.Entity.empty()) return Fail("a top without a name", place);
    Imported.Tops.push_back({top, place});
}

void TImportReader::AddDefine(const std::string& text, const TImportPlace& place) {
    const std::size_t sign = text.find('=');
    TScanDefine define{text.substr(0, sign), ""};
    if (sign != std::string::npos) define.Value = text.substr(sign + 1);
    if (define.Name.empty()) return Fail("a define without a name", place);
    // Where a build has no value, simulators take 1.
    if (sign != std::string::npos && define.Value.empty())
        Lose("the empty value of the define " + define.Name, place);
    SettingsOf(LANGUAGE_VERILOG).Defines.push_back({std::move(define), place});
}

void TImportReader::SetStandard(THdlLanguage language, const std::string& year,
                                const TImportPlace& place) {
    std::optional<TImportedText>& standard = SettingsOf(language).Standard;
    if (standard && standard->Text != year) Lose("the standard " + standard->Text, standard->Place);
    standard = {year, place};
}

bool TImportReader::MayBeOperand(const std::string& word, const std::string& folder) {
    if (IsOptionWord(word) || LanguageOfPath(word) != LANGUAGE_NONE) return false;
    const TFileStatus status = LookAtFile(CanonicalOf(word, folder));
    return !status.Exists || status.IsDirectory;
}

bool TImportReader::AddOption(THdlLanguage language, TPlanStep step,
                              const TImportedOption& option) {
    std::vector<std::string> words{option.Text};
    words.insert(words.end(), option.Operands.begin(), option.Operands.end());
    if (IsPlainOption(language, std::move(words))) {
        SettingsOf(language).Options[step].push_back(option);
        return true;
    }
    Lose("the option " + TextOf(option) + ", which means something else there", option.Place);
    return false;
}

void TImportReader::KeepOption(THdlLanguage language, const std::string& word,
                               const TImportPlace& place,
                               const std::vector<std::string>& operands) {
    const TImportedOption option{word, place, operands};
    if (AddOption(language, STEP_ANALYSE, option))
        Tell(DIAGNOSTIC_IMPORTED_OPTION, {TextOf(option)}, place);
}

void TImportReader::KeepRunOption(THdlLanguage language, const std::string& word,
                                  const TImportPlace& place,
                                  const std::vector<std::string>& operands) {
    AddOption(language, STEP_RUN, {word, place, operands});
}

// Settings of a plan tell neither an empty value from none nor chosen delays from the usual ones.
void TImportReader::TakeWhatPlansHide(const std::string& text, const TImportPlace& place) {
    TVerilogOptions options;
    AddVerilogOptions(text, &options);
    for (const std::string& name : options.EmptyDefines)
        Lose("the empty value of the define " + name, place);
    for (const std::string& word : options.Others)
        if (const auto delay = FindVerilogDelay(word)) SettingsOf(LANGUAGE_VERILOG).Delay = delay;
}

void TImportReader::TakeOptions(THdlLanguage language, const std::string& text,
                                const std::string& folder, const TImportPlace& place) {
    TPlanSettings taken;
    taken.Language = language;
    std::vector<std::string> libraryFiles;
    AddOptions(text, STEP_ANALYSE, folder, &taken, &libraryFiles);
    TImportedSettings& settings = SettingsOf(language);
    const auto add = [&](const std::vector<std::string>& from, std::vector<TImportedText>* to) {
        for (const std::string& each : from) to->push_back({each, place});
    };
    add(taken.IncludeDirectories, &settings.IncludeDirectories);
    add(taken.LibraryDirectories, &settings.LibraryDirectories);
    add(taken.LibraryExtensions, &settings.LibraryExtensions);
    for (const TScanDefine& define : taken.Defines) settings.Defines.push_back({define, place});
    for (const std::string& path : libraryFiles) {
        TImportedSource source;
        source.Path = path;
        source.Language = language;
        source.IsLibraryFile = true;
        source.Place = place;
        AddSource(std::move(source));
    }
    for (const std::string& standard : taken.OtherStandards) SetStandard(language, standard, place);
    if (!taken.Standard.empty()) SetStandard(language, taken.Standard, place);
    if (language == LANGUAGE_VERILOG) TakeWhatPlansHide(text, place);
    for (const std::string& word : taken.Options[STEP_ANALYSE]) KeepOption(language, word, place);
}

bool TImportReader::Enter(const std::string& path, const std::string& folder,
                          const std::string& context, const TImportPlace& place,
                          TImportFile* file) {
    if (!MayEnter(path, place)) return false;
    file->Path = path;
    file->Name = Request.TextOf(path);
    file->Folder = folder.empty() ? FolderOfFile(path) : folder;
    if (!Known.insert({path, file->Folder, context}).second) return false;
    std::string reason;
    const TFileReadResult result = ReadWholeFile(path.c_str(), &file->Text, &reason);
    if (result == FILE_READ_MISSING) reason = "the file does not exist";
    if (result != FILE_READ_DONE) {
        Tell(DIAGNOSTIC_IMPORT_UNREADABLE, {file->Name, reason}, place);
        return false;
    }
    if (!IsText(*file)) return false;
    if (file->Text.starts_with(kByteOrderMark)) file->Text.erase(0, kByteOrderMark.size());
    Open.push_back({path, place});
    return true;
}

// What is no UTF-8 matters in names alone: many a comment is Latin-1.
bool TImportReader::IsText(const TImportFile& file) {
    for (const std::string_view mark : kUtf16Marks) {
        if (!file.Text.starts_with(mark)) continue;
        Fail("UTF-16", {file.Name, 1, 0});
        return false;
    }
    const std::size_t zero = file.Text.find('\0');
    if (zero == std::string::npos) return true;
    const auto lines =
        std::count(file.Text.begin(), file.Text.begin() + static_cast<std::ptrdiff_t>(zero), '\n');
    Fail("a byte 0", {file.Name, static_cast<int>(lines) + 1, 0});
    return false;
}

void TImportReader::Leave() {
    Open.pop_back();
}

const std::string* TImportReader::FindContextBehind(const std::string& path,
                                                    const std::string& context) const {
    const auto found = ContextsBehind.find({path, context});
    return found == ContextsBehind.end() ? nullptr : &found->second;
}

bool TImportReader::MayEnter(const std::string& path, const TImportPlace& place) {
    for (std::size_t at = 0; at < Open.size(); ++at) {
        if (Open[at].Path != path) continue;
        Tell(DIAGNOSTIC_IMPORT_CYCLE, {ChainFrom(at, place)}, place);
        return false;
    }
    if (Open.size() < kDeepestImport) return true;
    Tell(DIAGNOSTIC_IMPORT_TOO_DEEP, {std::to_string(kDeepestImport)}, place);
    return false;
}

// The places where each file names the next one, and the file that is reached again.
std::string TImportReader::ChainFrom(std::size_t first, const TImportPlace& place) const {
    std::string chain;
    for (std::size_t at = first + 1; at < Open.size(); ++at)
        chain += GetSourcePlaceText(Open[at].From) + " -> ";
    return chain + GetSourcePlaceText(place) + " -> " + Request.TextOf(Open[first].Path);
}

std::string TextOf(const TImportedOption& option) {
    std::vector<std::string> words{option.Text};
    words.insert(words.end(), option.Operands.begin(), option.Operands.end());
    return TextOfOption(words);
}

std::vector<std::string_view> LinesOfImport(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, length);
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines.push_back(line);
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return lines;
}

std::string_view TrimmedImport(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t");
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(" \t") + 1 - begin);
}

THdlLanguage LanguageOfPath(const std::string& path) {
    return TSourceFileExtensions::GetInstance()->GetSourceFileLanguageFromExtension(
        TUtilFileName(path.c_str()).GetParts(PART_EXTENSION));
}
