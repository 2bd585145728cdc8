#include "flows/imports/importcheck.h"
#include "flows/imports/importreader.h"
#include "services/files/filestatus.h"
#include "services/names/environment.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <unordered_map>
#include <unordered_set>

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
    bool IsOption(const std::string& text, const TImportPlace& place);
    bool IsDirectory(const TImportedText& directory);
    THdlLanguage LanguageOfTops() const;

    const TImportRequest& Request;
    TImported& Imported;
    std::unordered_map<std::size_t, const TImportedSource*> Known;  // by the file's number
};

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
                        first.IsLibraryFile == source.IsLibraryFile;
    Tell(isSame ? DIAGNOSTIC_IMPORTED_AGAIN : DIAGNOSTIC_IMPORTED_OTHERWISE,
         {Request.TextOf(source.Path), GetSourcePlaceText(first.Place)}, source.Place);
    return false;
}

// A build compiles language by language.
void TImportCheck::CheckOrder() {
    THdlLanguage last = LANGUAGE_VERILOG;
    for (const TImportedSource& source : Imported.Sources) {
        if (source.Language < last)
            return Tell(
                DIAGNOSTIC_NOT_IMPORTED,
                {std::string("the order of ") + GetDisplayStringFromHdlLanguage(source.Language) +
                 " behind " + GetDisplayStringFromHdlLanguage(last)},
                source.Place);
        last = source.Language;
    }
}

THdlLanguage TImportCheck::LanguageOfTops() const {
    const auto isVhdl = [](const TImportedSource& source) {
        return source.Language == LANGUAGE_VHDL;
    };
    const auto& sources = Imported.Sources;
    return std::any_of(sources.begin(), sources.end(), isVhdl) ? LANGUAGE_VHDL : LANGUAGE_VERILOG;
}

void TImportCheck::CheckTops() {
    const THdlLanguage language = LanguageOfTops();
    for (TImportedTop& top : Imported.Tops)
        if (top.Top.Language == LANGUAGE_NONE) top.Top.Language = language;
}

// Readers of a build put in the values of variables.
bool HasVariable(const std::string& text) {
    return ResolveOrvaneEnvVariables(text.c_str()) != text;
}

// Quotes group in option texts, which have no escapes.
bool TImportCheck::IsOption(const std::string& text, const TImportPlace& place) {
    const bool hasQuote = text.find('"') != std::string::npos;
    const bool hasLineEnd = text.find_first_of("\n\r") != std::string::npos;
    if (!hasQuote && !hasLineEnd && !HasVariable(text)) return true;
    const char* const fault = hasQuote     ? " with a quote in it"
                              : hasLineEnd ? " with a line end in it"
                                           : " with a variable in it";
    Tell(DIAGNOSTIC_NOT_IMPORTED, {"the option " + text + fault}, place);
    return false;
}

bool TImportCheck::IsDirectory(const TImportedText& directory) {
    if (HasVariable(directory.Text)) {
        Tell(DIAGNOSTIC_NOT_IMPORTED, {"the folder " + directory.Text + " with a variable in it"},
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
        for (auto& words : settings.Options) keep(&words, isOption);
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
