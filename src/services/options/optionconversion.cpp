#include "services/options/optionconversion.h"
#include "services/options/optiontable.h"
#include "services/options/optionwords.h"
#include <string>
#include <string_view>
#include <vector>

namespace options {

namespace {

constexpr const char* kUnclosedQuote = "the quote is not closed";
constexpr const char* kNoOperand = "the operand is missing";
constexpr const char* kEmptyList = "the list has no value";
constexpr const char* kNoCounterpart = "the simulator has no such option";

TOptionDestination HomeOf(int stage) {
    if (stage & STAGE_COMPILE) return PHASE_ANALYZE;
    if (stage & STAGE_ELABORATE) return ELABORATOR;
    return stage & STAGE_SIMULATE ? SIMULATOR : PHASE_ANALYZE;
}

bool HasConversion(int family) {
    return family == FAMILY_MODELSIM || family == FAMILY_NCSIM || family == FAMILY_ACTIVEHDL;
}

// The values that follow the row's text.
std::vector<std::string> GetValues(const TOptionRow& row, const std::string& word,
                                   const std::string& next) {
    const std::string_view rest =
        std::string_view(word).substr(std::string_view(row.Option).size());
    switch (row.Form) {
        case FORM_OPERAND:
            return {next};
        case FORM_VALUE:
            return {std::string(rest)};
        case FORM_LIST:
            return SplitAtPlus(rest);
        default:
            return {};
    }
}

std::string JoinedList(const TOptionRow& row, const std::vector<std::string>& values) {
    std::string text = row.Option;
    for (const auto& value : values) text += (&value == &values.front() ? "" : "+") + value;
    return text;
}

std::string NamedForEach(const char* name, const std::vector<std::string>& values) {
    std::string text;
    for (const auto& value : values) {
        if (!text.empty()) text += ' ';
        text += std::string(name) + " " + value;
    }
    return text;
}

// Converts the words of one text, one option after the other.
class TConverter {
public:
    TConverter(TOptionSourceKind source, TOptionDestination home, const TOptionTarget& target,
               IParseErrorSink* errors, TConvertedOptionResults* results)
        : Source(source), Home(home), Target(target), Errors(errors), Results(results) {}

    bool Convert(std::string_view text) {
        const TOptionWords split = SplitIntoWords(text);
        if (split.EndsInQuotes) Report(split.Words.back(), kUnclosedQuote);
        for (std::size_t i = 0; i < split.Words.size();) {
            const bool isLast = i + 1 == split.Words.size();
            i += HasConversion(Target.Family)
                     ? ConvertOption(split.Words[i], isLast ? std::string() : split.Words[i + 1])
                     : PassOn(split.Words[i], Home);
        }
        return !HasReported;
    }

private:
    void Report(const std::string& words, const char* reason) {
        HasReported = true;
        if (Errors) Errors->ReportParseError(words.c_str(), reason);
    }

    // These return the number of words that they used up.
    std::size_t PassOn(const std::string& word, TOptionDestination destination) {
        Results->Add({word, destination});
        return 1;
    }

    std::size_t ConvertOption(const std::string& word, const std::string& next) {
        const TOptionRow* row = FindOptionRow(word, next, Target.Language);
        // A simulator looks for unknown plus words, the plusargs, in its own command line only.
        const bool isPlusArgument = Source == SOURCE_RUNTIME && word.front() == '+';
        if (!row) return PassOn(word, isPlusArgument ? SIMULATOR : Home);

        const bool hasOperand = row->Form == FORM_OPERAND || row->Form == FORM_FORCED;
        if (hasOperand && next.empty()) {
            Report(word, kNoOperand);
            return PassOn(word, Home);
        }
        if (row->Form == FORM_FORCED)
            Force(*row, next);
        else
            AddConverted(*row, hasOperand ? word + " " + next : word, GetValues(*row, word, next));
        return hasOperand ? 2 : 1;
    }

    void Force(const TOptionRow& row, const std::string& operand) {
        const bool isMeant = (row.ForcedFamilies >> Target.Family) & 1U;
        for (const auto& word : SplitIntoWords(WithoutEnclosingQuotes(operand)).Words) {
            if (isMeant)
                Results->Add({word, Home, true});
            else if (word == row.LookedUpInside)
                ConvertOption(word, {});
        }
    }

    void AddConverted(const TOptionRow& row, const std::string& typed,
                      const std::vector<std::string>& values) {
        if (row.Form == FORM_LIST && values.empty()) return Report(typed, kEmptyList);
        const TConvertedForm& form = Target.Family == FAMILY_NCSIM ? row.Family4 : row.Family3;
        if (form.Conversion == OMITTED) return Report(typed, kNoCounterpart);
        const bool isFlag = row.Form == FORM_FLAG;
        Results->Add({TextOf(row, form, typed, values), form.AtHome ? Home : form.Destination,
                      false, isFlag});
    }

    static std::string TextOf(const TOptionRow& row, const TConvertedForm& form,
                              const std::string& typed, const std::vector<std::string>& values) {
        switch (form.Conversion) {
            case RENAMED:
                return values.empty() ? form.Name : NamedForEach(form.Name, values);
            case JOINED:
                return JoinedList(row, values);
            case EACH:
                return NamedForEach(form.Name, values);
            default:
                return typed;
        }
    }

    const TOptionSourceKind Source;
    const TOptionDestination Home;
    const TOptionTarget Target;
    IParseErrorSink* const Errors;
    TConvertedOptionResults* const Results;
    bool HasReported = false;
};

}  // namespace

bool ParseAndConvertOptions(const char* text, TOptionSourceKind source, int homeStage,
                            const TOptionTarget& target, IParseErrorSink* errors,
                            TConvertedOptionResults* results) {
    if (!results) return false;
    return TConverter(source, HomeOf(homeStage), target, errors, results).Convert(text ? text : "");
}

}  // namespace options
