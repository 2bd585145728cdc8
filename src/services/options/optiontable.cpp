#include "services/options/optiontable.h"

#include "services/options/optionconversion.h"

namespace options {

namespace {

constexpr TConvertedForm kOmit{};
constexpr TConvertedForm kTypedAtHome{AS_TYPED, true, PHASE_ANALYZE, ""};

constexpr TConvertedForm Typed(TOptionDestination destination) {
    return {AS_TYPED, false, destination, ""};
}
constexpr TConvertedForm Renamed(TOptionDestination destination, const char* name) {
    return {RENAMED, false, destination, name};
}
constexpr TConvertedForm RenamedAtHome(const char* name) {
    return {RENAMED, true, PHASE_ANALYZE, name};
}
constexpr TConvertedForm Joined(TOptionDestination destination) {
    return {JOINED, false, destination, ""};
}
constexpr TConvertedForm Each(TOptionDestination destination, const char* name) {
    return {EACH, false, destination, name};
}
constexpr unsigned Family(int family) {
    return 1U << family;
}

constexpr unsigned kOwnFamilies =
    Family(FAMILY_ZORVIK) | Family(FAMILY_ZORVIK_64) | Family(FAMILY_ZORVIK_CL);

// The spellings of families 3 and 4 are those of the documented options of these simulators. No
// VHDL compiler knows macros. Verbosity, debugging and the own tool chain have no counterpart where
// a column omits them; no other option may be omitted, since that would change the result.
constexpr TOptionRow kOptionTable[] = {
    {"+define+", FORM_LIST, NOT_VHDL, Joined(PHASE_PREPROCESS), Each(PHASE_PREPROCESS, "-define")},
    {"+define+", FORM_LIST, ONLY_VHDL, kOmit, kOmit},
    {"+incdir+", FORM_LIST, ANY, Joined(PHASE_PREPROCESS), Each(PHASE_PREPROCESS, "-incdir")},
    {"+libext+", FORM_LIST, ANY, Joined(PHASE_LIBRARY), Typed(PHASE_LIBRARY)},
    {"-y", FORM_OPERAND, ANY, Typed(PHASE_LIBRARY), Typed(PHASE_LIBRARY)},
    {"-v", FORM_OPERAND, ANY, Typed(PHASE_LIBRARY), Typed(PHASE_LIBRARY)},
    {"+librescan", FORM_FLAG, ANY, Typed(PHASE_LIBRARY), Typed(PHASE_LIBRARY)},
    {"+liborder", FORM_FLAG, ANY, Typed(PHASE_LIBRARY), Typed(PHASE_LIBRARY)},
    {"-f", FORM_OPERAND, ANY, kTypedAtHome, RenamedAtHome("-file")},
    {"-l", FORM_OPERAND, ANY, kTypedAtHome, RenamedAtHome("-logfile")},
    {"+mindelays", FORM_FLAG, ANY, Typed(ELABORATOR), Renamed(ELABORATOR, "-mindelays")},
    {"+typdelays", FORM_FLAG, ANY, Typed(ELABORATOR), Renamed(ELABORATOR, "-typdelays")},
    {"+maxdelays", FORM_FLAG, ANY, Typed(ELABORATOR), Renamed(ELABORATOR, "-maxdelays")},
    {"+notimingchecks", FORM_FLAG, ANY, Typed(ELABORATOR), Renamed(ELABORATOR, "-notimingchecks")},
    {"+nospecify", FORM_FLAG, ANY, Typed(ELABORATOR), Renamed(ELABORATOR, "-nospecify")},
    {"+no_notifier", FORM_FLAG, ANY, Typed(ELABORATOR), Renamed(ELABORATOR, "-nonotifier")},
    {"+delay_mode_", FORM_VALUE, ANY, Typed(PHASE_ANALYZE), Renamed(ELABORATOR, "-delay_mode")},
    {"+pulse_r/", FORM_VALUE, ANY, Typed(ELABORATOR), Renamed(ELABORATOR, "-pulse_r")},
    {"+pulse_e/", FORM_VALUE, ANY, Typed(ELABORATOR), Renamed(ELABORATOR, "-pulse_e")},
    {"+sdf_verbose", FORM_FLAG, ANY, Typed(ELABORATOR), Renamed(ELABORATOR, "-sdf_verbose")},
    {"-u", FORM_FLAG, ANY, Typed(PHASE_ANALYZE), Renamed(PHASE_ANALYZE, "-upcase")},
    {"-w", FORM_FLAG, ANY, kOmit, Renamed(PHASE_ANALYZE, "-neverwarn")},
    {"-s", FORM_FLAG, ANY, kOmit, Renamed(SIMULATOR, "-tcl")},
    {"-i", FORM_OPERAND, ANY, Renamed(SIMULATOR, "-do"), Renamed(SIMULATOR, "-input")},
    {"-k", FORM_OPERAND, ANY, kOmit, Renamed(SIMULATOR, "-keyfile")},
    {"-c", FORM_FLAG, ANY, kOmit, kOmit},
    {"-a", FORM_FLAG, ANY, kOmit, kOmit},
    // "-t ns" is a target's own option, a time resolution, and must not lose its first half.
    {"-t", FORM_FLAG_ALONE, ANY, kOmit, kOmit},
    {"-d", FORM_FLAG, ANY, kOmit, kOmit},
    {"-x", FORM_FLAG, ANY, kOmit, kOmit},
    {"+linedebug", FORM_FLAG, ANY, kOmit, Renamed(PHASE_ANALYZE, "-linedebug")},
    {"-linedebug", FORM_FLAG, ANY, kOmit, Renamed(PHASE_ANALYZE, "-linedebug")},
    {"-work", FORM_OPERAND, ANY, Typed(PHASE_ANALYZE), Typed(PHASE_ANALYZE)},
    {"-87", FORM_FLAG, ONLY_VHDL, Typed(PHASE_ANALYZE), kOmit},
    {"-93", FORM_FLAG, ONLY_VHDL, Typed(PHASE_ANALYZE), Renamed(PHASE_ANALYZE, "-v93")},
    {"--qdx_", FORM_NAME_FLAG, ANY, kOmit, kOmit},
    // Line debugging is asked for in these words whatever the target is.
    {"--simz_options", FORM_FORCED, ANY, kOmit, kOmit, kOwnFamilies, "+linedebug"},
    {"--modelsim_options", FORM_FORCED, ANY, kOmit, kOmit, Family(FAMILY_MODELSIM)},
    {"--ncsim_options", FORM_FORCED, ANY, kOmit, kOmit, Family(FAMILY_NCSIM)},
    {"--activehdl_options", FORM_FORCED, ANY, kOmit, kOmit, Family(FAMILY_ACTIVEHDL)},
};

bool HoldsFor(const TOptionRow& row, THdlLanguage language) {
    return row.Languages == ANY || (row.Languages == ONLY_VHDL) == (language == LANGUAGE_VHDL);
}

bool IsOption(std::string_view word) {
    return !word.empty() && (word.front() == '-' || word.front() == '+');
}

bool IsTypedAs(const TOptionRow& row, std::string_view word, std::string_view next) {
    const std::string_view option = row.Option;
    switch (row.Form) {
        case FORM_FLAG_ALONE:
            return word == option && (next.empty() || IsOption(next));
        case FORM_NAME_FLAG:
        case FORM_VALUE:
            return word.size() > option.size() && word.starts_with(option);
        case FORM_LIST:
            return word.starts_with(option);
        default:
            return word == option;
    }
}

}  // namespace

std::span<const TOptionRow> GetOptionTable() {
    return kOptionTable;
}

const TOptionRow* FindOptionRow(std::string_view word, std::string_view next,
                                THdlLanguage language) {
    for (const TOptionRow& row : kOptionTable)
        if (HoldsFor(row, language) && IsTypedAs(row, word, next)) return &row;
    return nullptr;
}

}  // namespace options
