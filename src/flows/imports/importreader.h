#pragma once
#include "flows/imports/importformats.h"
#include "flows/sourcesearch.h"
#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// How many files may be open, one named by the other.
inline constexpr std::size_t kDeepestImport = 64;

/// What the readers of all formats share: where what they read goes, and the files they read.
class TImportReader {
public:
    /// All must outlive the object.
    TImportReader(const TImportRequest& request, TImported* imported)
        : Request(request), Imported(*imported) {}

    /// `path` against `folder`: whole, with '/'.
    static std::string WholeOf(const std::string& path, const std::string& folder);
    /// The same as the system writes it.
    static std::string CanonicalOf(const std::string& path, const std::string& folder);
    /// The folder of a whole path with '/', without a '/' at its end unless it is the outermost.
    static std::string FolderOf(const std::string& path);

    void AddSource(TImportedSource source) { Imported.Sources.push_back(std::move(source)); }
    void AddTop(const TBuildTop& top, const TImportPlace& place);
    TImportedSettings& SettingsOf(THdlLanguage language) { return Imported.Settings[language]; }
    /// "NAME" or "NAME=VALUE", for Verilog.
    void AddDefine(const std::string& text, const TImportPlace& place);
    /// A year; another one than before is told.
    void SetStandard(THdlLanguage language, const std::string& year, const TImportPlace& place);
    /// Whether a word in `folder` may belong to the option in front of it: it looks neither like
    /// an option nor like a source, and is no file.
    static bool MayBeOperand(const std::string& word, const std::string& folder);
    /// Keeps a compile option that has no meaning here, with the words behind it that belong to it,
    /// and tells it. One that readers of a build would take for a setting is lost.
    void KeepOption(THdlLanguage language, const std::string& word, const TImportPlace& place,
                    const std::vector<std::string>& operands = {});
    /// The same of an option of the simulation, which is not told when it is kept.
    void KeepRunOption(THdlLanguage language, const std::string& word, const TImportPlace& place,
                       const std::vector<std::string>& operands = {});
    /// The compile options of a language in one text. Relative paths are taken against `folder`.
    void TakeOptions(THdlLanguage language, const std::string& text, const std::string& folder,
                     const TImportPlace& place);

    /// The sources that a whole pattern means, which stands in a file as `written`: those in
    /// `language`, or all of them for LANGUAGE_NONE. What is in its way is told, and when there are
    /// none.
    std::vector<TFoundSource> FindPattern(const std::string& pattern, const std::string& written,
                                          THdlLanguage language, const TImportPlace& place);

    /// Tells that a build has no words for `what`.
    void Lose(const std::string& what, const TImportPlace& place) {
        Tell(DIAGNOSTIC_NOT_IMPORTED, {what}, place);
    }
    /// Tells that the file is not what its format asks for.
    void Fail(const std::string& what, const TImportPlace& place) {
        Tell(DIAGNOSTIC_IMPORT_SYNTAX, {what}, place);
    }
    void Tell(TDiagnosticCode code, std::vector<std::string> names, const TImportPlace& place) {
        Imported.Diagnostics.push_back({code, std::move(names), {}, kNoXMLPlace, place});
    }

    /// Reads the file of a canonical path, named at `place`, and has it open until Leave. A
    /// relative path in it is taken against `folder`; "" for the file's own. False when it cannot
    /// be read, is no text, names itself or lies too deep, which is told, and when it has been read
    /// with the same `folder` and `context`: its sources and settings are there.
    bool Enter(const std::string& path, const std::string& folder, const std::string& context,
               const TImportPlace& place, TImportFile* file);
    void Leave();
    /// Keeps what reading a file with that context has left of it, for those that name the file
    /// again, and finds it; null: it has not been read to its end so.
    void KeepContextBehind(const std::string& path, const std::string& context,
                           const std::string& behind) {
        ContextsBehind[{path, context}] = behind;
    }
    const std::string* FindContextBehind(const std::string& path, const std::string& context) const;

private:
    struct TOpenFile {
        std::string Path;
        TImportPlace From;
    };

    void TakeWhatPlansHide(const std::string& text, const TImportPlace& place);
    bool AddOption(THdlLanguage language, TPlanStep step, const TImportedOption& option);
    bool IsText(const TImportFile& file);
    bool MayEnter(const std::string& path, const TImportPlace& place);
    std::string ChainFrom(std::size_t first, const TImportPlace& place) const;

    const TImportRequest& Request;
    TImported& Imported;
    std::vector<TOpenFile> Open;
    std::set<std::array<std::string, 3>> Known;  // path, folder, context
    std::map<std::pair<std::string, std::string>, std::string> ContextsBehind;  // path, context
};

/// The option with its operands, a blank between the words.
std::string TextOf(const TImportedOption& option);
/// The lines of a text without their ends, be they of Unix or of Windows.
std::vector<std::string_view> LinesOfImport(std::string_view text);
/// Without blanks and tabulators at both ends.
std::string_view TrimmedImport(std::string_view text);
/// Of the extension; LANGUAGE_NONE when no language has it.
THdlLanguage LanguageOfPath(const std::string& path);
