#include "flows/plan/planoptions.h"
#include "flows/optiontexts.h"
#include "services/names/utilfilename.h"
#include <algorithm>
#include <string_view>
#include <utility>

namespace {

void AddDefine(std::string_view text, TPlanSettings* settings) {
    const std::size_t equals = text.find('=');
    TPlanDefine define{std::string(text.substr(0, equals)), {}};
    if (equals != std::string_view::npos) define.Value = text.substr(equals + 1);
    settings->Defines.push_back(std::move(define));
}

void AddNew(std::string text, std::vector<std::string>* texts) {
    if (std::find(texts->begin(), texts->end(), text) == texts->end())
        texts->push_back(std::move(text));
}

enum TKnownForm { FLAG, LIST, JOINED, OPERAND };

/// An option with a field in the settings.
struct TKnownOption {
    std::string_view Text;
    TKnownForm Form;
    void (*Take)(const std::string& value, const std::string& folder, TPlanSettings* settings);
    const char* Value = "";  ///< of a flag
};

void TakeDefine(const std::string& value, const std::string&, TPlanSettings* settings) {
    AddDefine(value, settings);
}

void TakeInclude(const std::string& value, const std::string& folder, TPlanSettings* settings) {
    AddNew(WholePath(value, folder), &settings->IncludeDirectories);
}

void TakeLibraryDirectory(const std::string& value, const std::string& folder,
                          TPlanSettings* settings) {
    AddNew(WholePath(value, folder), &settings->LibraryDirectories);
}

void TakeExtension(const std::string& value, const std::string&, TPlanSettings* settings) {
    AddNew(value, &settings->LibraryExtensions);
}

void TakeDelay(const std::string& value, const std::string&, TPlanSettings* settings) {
    settings->Delay = ParseDelayType(value.c_str());
}

// Two digits are what simulators take, years what people say.
void TakeStandard(const std::string& value, const std::string&, TPlanSettings* settings) {
    static const std::pair<const char*, const char*> kYears[] = {
        {"87", "1987"}, {"93", "1993"}, {"93c", "1993"}, {"00", "2000"}, {"02", "2002"},
        {"08", "2008"}, {"19", "2019"}, {"05", "2005"},  {"12", "2012"}, {"17", "2017"}};
    const auto year = std::find_if(std::begin(kYears), std::end(kYears),
                                   [&value](const auto& row) { return value == row.first; });
    settings->Standard = year == std::end(kYears) ? value : year->second;
}

using TKnownOptions = std::vector<TKnownOption>;

const TKnownOptions& VerilogOptions() {
    static const TKnownOptions options = {
        {"+define+", LIST, TakeDefine},
        {"+incdir+", LIST, TakeInclude},
        {"+libext+", LIST, TakeExtension},
        {"+mindelays", FLAG, TakeDelay, "min"},
        {"+typdelays", FLAG, TakeDelay, "typical"},
        {"+maxdelays", FLAG, TakeDelay, "max"},
        {"-y", OPERAND, TakeLibraryDirectory},
        {"-I", JOINED, TakeInclude},
        {"-D", JOINED, TakeDefine},
        {"-sv", FLAG, TakeStandard, "2012"},
        {"-sverilog", FLAG, TakeStandard, "2012"},
        {"-g2005-sv", FLAG, TakeStandard, "2005"},
        {"-g2009", FLAG, TakeStandard, "2009"},
        {"-g2012", FLAG, TakeStandard, "2012"},
    };
    return options;
}

const TKnownOptions& VhdlOptions() {
    static const TKnownOptions options = {
        {"-87", FLAG, TakeStandard, "1987"},   {"-93", FLAG, TakeStandard, "1993"},
        {"-2002", FLAG, TakeStandard, "2002"}, {"-2008", FLAG, TakeStandard, "2008"},
        {"-2019", FLAG, TakeStandard, "2019"}, {"--std=", JOINED, TakeStandard},
    };
    return options;
}

const TKnownOptions& OptionsOf(THdlLanguage language) {
    static const TKnownOptions none;
    if (language == LANGUAGE_VERILOG) return VerilogOptions();
    return language == LANGUAGE_VHDL ? VhdlOptions() : none;
}

/// Whether the option is the word at `*at`, and taken with what belongs to it.
bool Take(const TKnownOption& option, const std::vector<std::string>& words, std::size_t* at,
          const std::string& folder, TPlanSettings* settings) {
    const std::string& word = words[*at];
    switch (option.Form) {
        case FLAG:
            if (word != option.Text) return false;
            option.Take(option.Value, folder, settings);
            return true;
        case OPERAND:
            if (word != option.Text || *at + 1 == words.size()) return false;
            option.Take(words[++*at], folder, settings);
            return true;
        case JOINED:
            if (!word.starts_with(option.Text) || word == option.Text) return false;
            option.Take(word.substr(option.Text.size()), folder, settings);
            return true;
        case LIST:
            if (!word.starts_with(option.Text)) return false;
            for (const std::string& part :
                 ValuesOfList(std::string_view(word).substr(option.Text.size())))
                option.Take(part, folder, settings);
            return true;
    }
    return false;
}

}  // namespace

std::string WholePath(const std::string& path, const std::string& folder) {
    TUtilFileName name(folder.c_str());
    name.PushDirectory(path.c_str());
    std::string whole = name.CanonicalWithoutFinalSlash();
    std::replace(whole.begin(), whole.end(), '\\', '/');
    return whole;
}

void AddOptions(const std::string& text, TPlanStep step, const std::string& folder,
                TPlanSettings* settings) {
    const std::vector<std::string> words = WordsOfOptions(text);
    const TKnownOptions& known = OptionsOf(settings->Language);
    for (std::size_t at = 0; at < words.size(); ++at) {
        const bool isTaken = std::any_of(known.begin(), known.end(), [&](const auto& option) {
            return Take(option, words, &at, folder, settings);
        });
        if (!isTaken) settings->Options[step].push_back(words[at]);
    }
}
