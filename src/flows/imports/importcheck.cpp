#include "flows/imports/importcheck.h"
#include "flows/imports/importreader.h"
#include "flows/scan/asciicase.h"
#include "flows/scan/sourcetext.h"
#include "services/files/filestatus.h"
#include "services/names/environment.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <unordered_map>

namespace {

class TImportCheck {
public:
    TImportCheck(const TImportRequest& request, TImported* imported)
        : Request(request), Imported(*imported) {}

    void CheckSources();
    void CheckOrder();
    void CheckTops();
    void CheckSettings();

private:
    void Tell(TDiagnosticCode code, std::vector<std::string> names, const TImportPlace& place) {
        Imported.Diagnostics.push_back({code, std::move(names), {}, kNoXMLPlace, place});
    }
    bool IsKept(TImportedSource& source);
    bool IsFirst(const TImportedSource& source);
    bool IsSameFile(const TImportedSource& first, const TImportedSource& other) const;
    bool IsName(const std::string& name, const std::string& shown, const TImportPlace& place);
    bool IsPathOfBuild(const TImportedSource& source);
    bool IsOption(const std::string& text, const TImportPlace& place);
    bool IsDirectory(const TImportedText& directory);
    THdlLanguage LanguageOfTop(const TImportedTop& top);
    void FindLanguages();

    const TImportRequest& Request;
    TImported& Imported;
    std::unordered_map<std::size_t, const TImportedSource*> Known;  // by the file's number
    std::set<THdlLanguage> Languages;                               // of HDL that sources have
    std::unordered_map<std::string, std::set<THdlLanguage>> LanguagesOfNames;  // of files, folded
    std::unordered_map<std::string, std::set<THdlLanguage>> LanguagesOfTops;   // said by the file
};

constexpr const char* kEndBlanks = " \t\r\n";

/// Why no build holds the text; null: it may.
const char* FaultOfText(std::string_view text) {
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n' && c != '\r';
    };
    if (!IsUtf8Text(text)) return ", which is no UTF-8";
    const bool hasControl = std::any_of(text.begin(), text.end(), isControl) ||
                            text.find("\xEF\xBF\xBE") != std::string_view::npos ||
                            text.find("\xEF\xBF\xBF") != std::string_view::npos;
    return hasControl ? " with a control character in it" : nullptr;
}

bool TImportCheck::IsName(const std::string& name, const std::string& shown,
                          const TImportPlace& place) {
    const char* const fault = FaultOfText(name);
    if (fault) Tell(DIAGNOSTIC_NOT_IMPORTED, {"the name " + shown + fault}, place);
    return !fault;
}

// Readers of a build take blanks off the ends of a path, which is relative to its folder there.
bool TImportCheck::IsPathOfBuild(const TImportedSource& source) {
    std::string_view path = source.Path;
    if (!Request.BuildFolder.empty() && path.starts_with(Request.BuildFolder))
        path.remove_prefix(Request.BuildFolder.size());
    if (path.find_first_of(kEndBlanks) != 0 && path.find_last_of(kEndBlanks) != path.size() - 1)
        return true;
    Tell(DIAGNOSTIC_NOT_IMPORTED,
         {"the name " + Request.TextOf(source.Path) + " with a blank at its end"}, source.Place);
    return false;
}

void TImportCheck::CheckSources() {
    std::vector<TImportedSource> sources = std::move(Imported.Sources);
    Imported.Sources.clear();
    // What Known points to must not move.
    Imported.Sources.reserve(sources.size());
    for (TImportedSource& source : sources) {
        if (!IsKept(source)) continue;
        Imported.Sources.push_back(std::move(source));
        const TImportedSource& kept = Imported.Sources.back();
        Known[GetFileNumber(ISFileName::NewISFileName(kept.Path.c_str()))] = &kept;
    }
}

bool TImportCheck::IsKept(TImportedSource& source) {
    if (!IsName(source.Path, Request.TextOf(source.Path), source.Place) ||
        !IsName(source.Library, source.Library, source.Place) || !IsPathOfBuild(source))
        return false;
    if (source.Language == LANGUAGE_NONE) source.Language = LanguageOfPath(source.Path);
    if (source.Language == LANGUAGE_NONE) {
        Tell(DIAGNOSTIC_IMPORTED_NO_LANGUAGE, {Request.TextOf(source.Path)}, source.Place);
        return false;
    }
    if (!IsFirst(source)) return false;
    const TFileStatus status =
        LookAtFile(ISFileName::NewISFileName(source.Path.c_str())->Canonical(false));
    if (status.IsDirectory) {
        Tell(DIAGNOSTIC_NOT_IMPORTED,
             {"the folder " + Request.TextOf(source.Path) + " as a source"}, source.Place);
        return false;
    }
    if (!status.Exists)
        Tell(DIAGNOSTIC_IMPORTED_FILE_MISSING, {Request.TextOf(source.Path)}, source.Place);
    return true;
}

// A build holds a path once.
bool TImportCheck::IsFirst(const TImportedSource& source) {
    const auto found = Known.find(GetFileNumber(ISFileName::NewISFileName(source.Path.c_str())));
    if (found == Known.end()) return true;
    const TImportedSource& first = *found->second;
    const bool isSame = first.Library == source.Library && first.Language == source.Language &&
                        first.IsLibraryFile == source.IsLibraryFile && IsSameFile(first, source);
    Tell(isSame ? DIAGNOSTIC_IMPORTED_AGAIN : DIAGNOSTIC_IMPORTED_OTHERWISE,
         {Request.TextOf(source.Path), GetSourcePlaceText(first.Place)}, source.Place);
    return false;
}

// A build takes names that differ in case for one. Where the system does not, there may be two.
bool TImportCheck::IsSameFile(const TImportedSource& first, const TImportedSource& other) const {
    const std::string firstPath = TImportReader::CanonicalOf(first.Path, "");
    const std::string otherPath = TImportReader::CanonicalOf(other.Path, "");
    if (firstPath == otherPath) return true;
    if (!LookAtFile(firstPath).Exists || !LookAtFile(otherPath).Exists) return true;
    std::error_code fault;
    return std::filesystem::equivalent(std::u8string(firstPath.begin(), firstPath.end()),
                                       std::u8string(otherPath.begin(), otherPath.end()), fault);
}

// A build compiles language by language. Of library files the order does not count.
void TImportCheck::CheckOrder() {
    THdlLanguage last = LANGUAGE_VERILOG;
    for (const TImportedSource& source : Imported.Sources) {
        if (source.IsLibraryFile) continue;
        if (source.Language < last)
            return Tell(
                DIAGNOSTIC_NOT_IMPORTED,
                {std::string("the order of ") + GetDisplayStringFromHdlLanguage(source.Language) +
                 " behind " + GetDisplayStringFromHdlLanguage(last)},
                source.Place);
        last = source.Language;
    }
}

void TImportCheck::FindLanguages() {
    for (const TImportedSource& source : Imported.Sources) {
        if (source.Language != LANGUAGE_VHDL && source.Language != LANGUAGE_VERILOG) continue;
        Languages.insert(source.Language);
        const std::string name = TUtilFileName(source.Path.c_str()).GetParts(PART_NAME);
        LanguagesOfNames[FoldAscii(name)].insert(source.Language);
    }
}

// Where there are sources in both, that of another top of its name, or of the one whose file is
// named like the top.
THdlLanguage TImportCheck::LanguageOfTop(const TImportedTop& top) {
    if (Imported.Sources.empty()) return LANGUAGE_VERILOG;
    if (Languages.size() == 1) return *Languages.begin();
    const auto said = LanguagesOfTops.find(top.Top.Entity);
    if (said != LanguagesOfTops.end() && said->second.size() == 1) return *said->second.begin();
    const auto found = LanguagesOfNames.find(FoldAscii(top.Top.Entity));
    if (found != LanguagesOfNames.end() && found->second.size() == 1) return *found->second.begin();
    const THdlLanguage language = Languages.empty() ? LANGUAGE_VERILOG : LANGUAGE_VHDL;
    Tell(DIAGNOSTIC_NOT_IMPORTED,
         {"the language of the top " + top.Top.Entity + ", taken for " +
          GetDisplayStringFromHdlLanguage(language)},
         top.Place);
    return language;
}

void TImportCheck::CheckTops() {
    std::erase_if(Imported.Tops, [this](const TImportedTop& top) {
        return !IsName(top.Top.Library, top.Top.Library, top.Place) ||
               !IsName(top.Top.Entity, top.Top.Entity, top.Place);
    });
    FindLanguages();
    for (const TImportedTop& top : Imported.Tops)
        if (top.Top.Language != LANGUAGE_NONE)
            LanguagesOfTops[top.Top.Entity].insert(top.Top.Language);
    for (TImportedTop& top : Imported.Tops)
        if (top.Top.Language == LANGUAGE_NONE) top.Top.Language = LanguageOfTop(top);
}

// Readers of a build put in the values of variables.
bool HasVariable(const std::string& text) {
    return ResolveOrvaneEnvVariables(text.c_str()) != text;
}

// Quotes group in option texts, which have no escapes.
bool TImportCheck::IsOption(const std::string& text, const TImportPlace& place) {
    const bool hasQuote = text.find('"') != std::string::npos;
    const bool hasLineEnd = text.find_first_of("\n\r") != std::string::npos;
    const char* const textFault = FaultOfText(text);
    if (!hasQuote && !hasLineEnd && !textFault && !HasVariable(text)) return true;
    const char* const fault = textFault    ? textFault
                              : hasQuote   ? " with a quote in it"
                              : hasLineEnd ? " with a line end in it"
                                           : " with a variable in it";
    Tell(DIAGNOSTIC_NOT_IMPORTED, {"the option " + text + fault}, place);
    return false;
}

bool TImportCheck::IsDirectory(const TImportedText& directory) {
    if (!IsName(directory.Text, Request.TextOf(directory.Text), directory.Place)) return false;
    if (HasVariable(directory.Text)) {
        Tell(DIAGNOSTIC_NOT_IMPORTED,
             {"the folder " + Request.TextOf(directory.Text) + " with a variable in it"},
             directory.Place);
        return false;
    }
    const std::string canonical =
        ISFileName::NewISFileName(directory.Text.c_str())->Canonical(false);
    if (!LookAtFile(canonical).Exists)
        Tell(DIAGNOSTIC_IMPORTED_FILE_MISSING, {Request.TextOf(directory.Text)}, directory.Place);
    return true;
}

void TImportCheck::CheckSettings() {
    const auto keep = [](auto* entries, auto isGood) {
        std::erase_if(*entries, [&](const auto& entry) { return !isGood(entry); });
    };
    const auto isFolder = [this](const TImportedText& text) { return IsDirectory(text); };
    const auto isOption = [this](const TImportedText& text) {
        return IsOption(text.Text, text.Place);
    };
    for (auto& [language, settings] : Imported.Settings) {
        keep(&settings.IncludeDirectories, isFolder);
        keep(&settings.LibraryDirectories, isFolder);
        keep(&settings.LibraryExtensions, isOption);
        keep(&settings.Defines, [this](const TImportedDefine& define) {
            return IsOption(define.Define.Name + "=" + define.Define.Value, define.Place);
        });
        for (auto& options : settings.Options)
            keep(&options, [this](const TImportedOption& option) {
                return IsOption(TextOf(option), option.Place);
            });
    }
}

}  // namespace

void CheckImported(TImportOrder order, const TImportRequest& request, TImported* imported) {
    TImportCheck check(request, imported);
    check.CheckSources();
    if (order == ORDER_COUNTS) check.CheckOrder();
    check.CheckTops();
    check.CheckSettings();
}
