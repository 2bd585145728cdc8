#include "flows/imports/importreader.h"
#include "flows/plan/planoptions.h"
#include "services/files/filereplace.h"
#include "services/hdl/sourcefileextensions.h"
#include "services/names/utilfilename.h"
#include <algorithm>

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string FolderOf(const std::string& path) {
    const std::string directory = TUtilFileName(path.c_str()).GetParts(PART_DRIVE | PART_DIRECTORY);
    return WholePath("", directory) + "/";
}

}  // namespace

std::string TImportReader::WholeOf(const std::string& path, const std::string& folder) {
    return WholePath(path, folder);
}

std::string TImportReader::CanonicalOf(const std::string& path, const std::string& folder) {
    return TUtilFileName(WholeOf(path, folder).c_str()).CanonicalWithoutFinalSlash();
}

void TImportReader::AddDefine(const std::string& text, const TImportPlace& place) {
    const std::size_t sign = text.find('=');
    TScanDefine define{text.substr(0, sign), ""};
    if (sign != std::string::npos) define.Value = text.substr(sign + 1);
    if (define.Name.empty()) return Fail("a define without a name", place);
    SettingsOf(LANGUAGE_VERILOG).Defines.push_back({std::move(define), place});
}

void TImportReader::SetStandard(THdlLanguage language, const std::string& year,
                                const TImportPlace& place) {
    std::optional<TImportedText>& standard = SettingsOf(language).Standard;
    if (standard && standard->Text != year) Lose("the standard " + standard->Text, standard->Place);
    standard = {year, place};
}

void TImportReader::KeepOption(const std::string& word, const TImportPlace& place) {
    SettingsOf(LANGUAGE_VERILOG).Options[STEP_ANALYSE].push_back({word, place});
    Tell(DIAGNOSTIC_IMPORTED_OPTION, {word}, place);
}

bool TImportReader::Enter(const std::string& path, const std::string& folder,
                          const std::string& context, const TImportPlace& place,
                          TImportFile* file) {
    if (!MayEnter(path, place)) return false;
    file->Path = path;
    file->Name = Request.TextOf(path);
    file->Folder = folder.empty() ? FolderOf(path) : folder;
    // No path holds a line end of its own more often than none.
    if (!Known.insert(path + "\n" + file->Folder + "\n" + context).second) return false;
    std::string reason;
    const TFileReadResult result = ReadWholeFile(path.c_str(), &file->Text, &reason);
    if (result == FILE_READ_MISSING) reason = "the file does not exist";
    if (result != FILE_READ_DONE) {
        Tell(DIAGNOSTIC_IMPORT_UNREADABLE, {file->Name, reason}, place);
        return false;
    }
    if (file->Text.starts_with(kByteOrderMark)) file->Text.erase(0, kByteOrderMark.size());
    Open.push_back({path, place});
    return true;
}

void TImportReader::Leave() {
    Open.pop_back();
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
