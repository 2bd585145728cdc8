#pragma once
#include "services/base/languagenumber.h"
#include "services/options/convertedoptionresults.h"

namespace options {

/// Is told of words that could not be parsed or have no counterpart in the target's language.
class IParseErrorSink {
public:
    virtual ~IParseErrorSink() = default;
    /// `words` are the words in question as typed. The texts live for the call only.
    virtual void ReportParseError(const char* words, const char* reason) = 0;
};

/// Where a text was typed.
enum TOptionSourceKind : int { SOURCE_BUILD_OR_LINKER = 3, SOURCE_RUNTIME = 4 };

/// The simulators that take the same options.
enum TOptionFamily : int {
    FAMILY_NONE = 0,  ///< any number that is not listed counts as this one
    FAMILY_ZORVIK = 1,
    FAMILY_ZORVIK_64 = 2,
    FAMILY_MODELSIM = 3,
    FAMILY_NCSIM = 4,
    FAMILY_ZORVIK_CL = 7,
    FAMILY_ACTIVEHDL = 8
};

/// Who a text is converted for.
struct TOptionTarget {
    int Family;  ///< a TOptionFamily
    THdlLanguage Language;
};

/// Adds the options of `text` to `results` in the language of `target`. `homeStage` is the
/// TOptionStage of the text (of a sum, the lowest): words that are not known go there as typed. The
/// own simulators and those of no known family get every word as typed.
///
/// A quote that is not closed, an option without its operand and a list without a value are
/// reported, and so is an option that is left out because the target has no counterpart; the result
/// is false when something was. The results are usable nevertheless: what cannot be parsed is
/// passed on as typed, except for the empty list. Words meant for another target alone are left out
/// unreported. Null text counts as empty, without a sink errors are not reported; null results:
/// false.
bool ParseAndConvertOptions(const char* text, TOptionSourceKind source, int homeStage,
                            const TOptionTarget& target, IParseErrorSink* errors,
                            TConvertedOptionResults* results);

}  // namespace options
