#pragma once
#include "services/base/languagenumber.h"
#include "services/options/compilephase.h"
#include <span>
#include <string_view>

namespace options {

/// How an option is typed.
enum TOptionForm {
    FORM_FLAG,        ///< exactly the row's text
    FORM_FLAG_ALONE,  ///< the same, unless a word that is no option follows
    FORM_NAME_FLAG,   ///< the row's text with a name after it, in one word
    FORM_OPERAND,     ///< the row's text and the next word, whatever that is
    FORM_VALUE,       ///< the row's text with a value after it, in one word
    FORM_LIST,        ///< the row's text with values after it, separated by '+', in one word
    FORM_FORCED       ///< as FORM_OPERAND; the operand holds words for a target of their own
};

/// In which languages a row holds.
enum TOptionLanguages { ANY, ONLY_VHDL, NOT_VHDL };

/// What becomes of an option in a target's language.
enum TConversion {
    OMITTED,
    AS_TYPED,
    RENAMED,  ///< the new name, then a blank and the operand or value, if any
    JOINED,   ///< a list without its empty values
    EACH      ///< the new name, a blank and the value, for each value of a list
};

struct TConvertedForm {
    TConversion Conversion = OMITTED;
    bool AtHome = false;  ///< goes to the stage of the text that it was typed in
    TOptionDestination Destination = PHASE_ANALYZE;  ///< unless AtHome
    const char* Name = "";
};

/// One option of the system's own language, with its form in the languages of two target families.
struct TOptionRow {
    const char* Option;
    TOptionForm Form;
    TOptionLanguages Languages;
    TConvertedForm Family3;
    TConvertedForm Family4;
    unsigned ForcedFamilies = 0;        ///< FORM_FORCED: the targets meant, bit n for family n
    std::string_view LookedUpInside{};  ///< FORM_FORCED: converted for every other target
};

/// All options known, each text and language at most once. Static.
std::span<const TOptionRow> GetOptionTable();

/// The row of `word`, null for an unknown one. `next` is the word after it, "" without one.
const TOptionRow* FindOptionRow(std::string_view word, std::string_view next,
                                THdlLanguage language);

}  // namespace options
