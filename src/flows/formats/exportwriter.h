#pragma once
#include "flows/formats/exportformats.h"
#include "flows/plan/toolwords.h"
#include <functional>
#include <set>
#include <string>
#include <string_view>

/// "NAME" or "NAME=VALUE".
std::string TextOf(const TScanDefine& define);

/// Whether one of the characters is in the text.
inline bool HasAny(std::string_view text, std::string_view characters) {
    return text.find_first_of(characters) != std::string_view::npos;
}

/// What is written for one format.
class TExportWriter {
public:
    /// Both must outlive the object; `format` is the name that users know.
    TExportWriter(const TExportRequest& request, const char* format)
        : Request(request), Format(format) {}

    const TBuildPlan& GetPlan() const { return Request.Plan; }
    const TBuildTop* GetTop() const { return Request.Top; }
    /// The settings of a language; empty ones when the plan has none.
    const TPlanSettings& SettingsOf(THdlLanguage language) const;

    bool HasSources(THdlLanguage language) const;
    /// The tops in a language that are written: the chosen one or all.
    std::vector<const TBuildTop*> ListTops(THdlLanguage language) const;

    /// A path of the plan as the file names it.
    std::string PathOf(const std::string& path) const;
    /// The same as a word of a command line: with "./" where it would be read as an option.
    std::string WordOf(const std::string& path) const;
    void AddLine(std::string_view line);

    /// Tells once that the format has no words for `what`.
    void Lose(const std::string& what);
    /// Tells once that the format cannot hold a name.
    void Refuse(const std::string& name, const char* reason);
    /// The name; for a format that is read as UTF-8, one that is none is refused.
    const std::string& Utf8Of(const std::string& name);

    /// Tells of sources in a language.
    void LoseLanguage(THdlLanguage language);
    /// Tells of the directories and defines of a language.
    void LoseDirectories(THdlLanguage language);
    /// Tells of sources in other languages than these.
    void LoseOtherLanguages(const std::set<THdlLanguage>& written);
    /// Tells of libraries where the sources in these languages are in more than one.
    void LoseLibraries(const std::set<THdlLanguage>& written);
    /// Tells of a standard of Verilog.
    void LoseVerilogStandard();
    /// Tells of library files.
    void LoseLibraryFiles();
    /// Tells of delays of Verilog that are not the typical ones.
    void LoseDelays();
    /// Tells of an option of a step.
    void LoseOption(TPlanStep step, const std::string& option);
    /// Tells of the options that a language has besides those with a field in the plan.
    void LoseOptions(THdlLanguage language, const std::set<TPlanStep>& written);
    /// Of a step's options those that the tool takes, with their operands; tells of the others.
    std::vector<std::string> OptionsFor(const TToolWords& tool, THdlLanguage language,
                                        TPlanStep step);

    TExported Take() { return std::move(Exported); }

private:
    const TExportRequest& Request;
    const char* Format;
    TExported Exported;
    std::set<std::string> Lost;
    std::set<std::string> Refused;
};
