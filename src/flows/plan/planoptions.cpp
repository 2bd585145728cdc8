#include "flows/plan/planoptions.h"
#include "flows/optiontexts.h"
#include "flows/verilogoptions.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
#include <algorithm>
#include <unordered_set>

namespace {

/// A word of Verilog that says which delays are taken.
struct TDelayWord {
    std::string_view Word;
    TSimProjectDelayType Delay;
};

constexpr TDelayWord kDelayWords[] = {
    {"+mindelays", DELAY_TYPE_MINIMUM},
    {"+typdelays", DELAY_TYPE_TYPICAL},
    {"+maxdelays", DELAY_TYPE_MAXIMUM},
};

/// What follows "-" or "--std=" where VHDL's standard is chosen.
struct TYearName {
    const char* Name;
    const char* Standard;
};

constexpr TYearName kVhdlYears[] = {
    {"87", "1987"},   {"93", "1993"},   {"93c", "1993"},  {"00", "2000"},   {"02", "2002"},
    {"08", "2008"},   {"19", "2019"},   {"1987", "1987"}, {"1993", "1993"}, {"2000", "2000"},
    {"2002", "2002"}, {"2008", "2008"}, {"2019", "2019"},
};

bool TakeVerilogWord(const std::string& word, TPlanSettings* settings) {
    const std::optional<TSimProjectDelayType> delay = FindVerilogDelay(word);
    if (delay) settings->Delay = *delay;
    const bool isSystemVerilog = word == "-sv" || word == "-sverilog";
    const char* const year = isSystemVerilog ? kSystemVerilogYear : FindVerilogYear(word);
    if (year) settings->Standard = year;
    return delay || year;
}

bool TakeVhdlWord(const std::string& word, TPlanSettings* settings) {
    for (const std::string prefix : {"--std=", "-"}) {
        if (word.compare(0, prefix.size(), prefix) != 0) continue;
        const std::string year = FindVhdlStandard(word.substr(prefix.size()));
        if (year.empty()) continue;
        if (!settings->Standard.empty() && settings->Standard != year)
            settings->OtherStandards.push_back(settings->Standard);
        settings->Standard = year;
        return true;
    }
    return false;
}

bool TakeKnown(const std::string& word, TPlanSettings* settings) {
    switch (settings->Language) {
        case LANGUAGE_VERILOG:
            return TakeVerilogWord(word, settings);
        case LANGUAGE_VHDL:
            return TakeVhdlWord(word, settings);
        default:
            return false;
    }
}

/// Texts of which each is held once.
class TNewTexts {
public:
    explicit TNewTexts(std::vector<std::string>* texts)
        : Texts(*texts), Known(texts->begin(), texts->end()) {}
    void Add(std::string text) {
        if (Known.insert(text).second) Texts.push_back(std::move(text));
    }

private:
    std::vector<std::string>& Texts;
    std::unordered_set<std::string> Known;
};

/// Returns the words that are left.
std::vector<std::string> TakeVerilog(const std::string& text, const std::string& folder,
                                     TPlanSettings* settings,
                                     std::vector<std::string>* libraryFiles) {
    TVerilogOptions options;
    AddVerilogOptions(text, &options);
    settings->Defines.insert(settings->Defines.end(), options.Defines.begin(),
                             options.Defines.end());
    TNewTexts includes(&settings->IncludeDirectories);
    TNewTexts libraries(&settings->LibraryDirectories);
    TNewTexts extensions(&settings->LibraryExtensions);
    TNewTexts files(libraryFiles);
    for (const std::string& include : options.IncludeFolders)
        includes.Add(WholePath(include, folder));
    for (const std::string& library : options.LibraryFolders)
        libraries.Add(WholePath(library, folder));
    for (const std::string& extension : options.LibraryExtensions) extensions.Add(extension);
    for (const std::string& file : options.LibraryFiles) files.Add(WholePath(file, folder));
    return std::move(options.Others);
}

}  // namespace

std::optional<TSimProjectDelayType> FindVerilogDelay(std::string_view word) {
    for (const TDelayWord& delay : kDelayWords)
        if (word == delay.Word) return delay.Delay;
    return {};
}

const char* FindVerilogYear(std::string_view icarusWord) {
    for (const TVerilogStandard& standard : kVerilogStandards)
        if (icarusWord == standard.IcarusWord) return standard.Year;
    return nullptr;
}

const char* FindIcarusWord(const TBuildPlan& plan) {
    if (!HasSystemVerilog(plan)) return nullptr;
    const TPlanSettings* const settings = plan.FindSettings(LANGUAGE_VERILOG);
    for (const TVerilogStandard& standard : kVerilogStandards)
        if (settings && settings->Standard == standard.Year) return standard.IcarusWord;
    return kVerilogStandards.back().IcarusWord;
}

std::string FindVhdlStandard(const std::string& name) {
    for (const TYearName& year : kVhdlYears)
        if (name == year.Name) return year.Standard;
    return {};
}

std::string WholePath(const std::string& path, const std::string& folder) {
    TUtilFileName name(folder.c_str());
    name.PushDirectory(path.c_str());
    std::string whole = name.CanonicalWithoutFinalSlash();
    std::replace(whole.begin(), whole.end(), '\\', '/');
    return whole;
}

std::string WholePathOf(const ISFileName& file) {
    std::string path = file.Canonical(false);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

void AddOptions(const std::string& text, TPlanStep step, const std::string& folder,
                TPlanSettings* settings, std::vector<std::string>* libraryFiles) {
    const std::vector<std::string> words = settings->Language == LANGUAGE_VERILOG
                                               ? TakeVerilog(text, folder, settings, libraryFiles)
                                               : WordsOfOptions(text);
    for (const std::string& word : words)
        if (!TakeKnown(word, settings)) settings->Options[step].push_back(word);
}
