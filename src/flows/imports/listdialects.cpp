#include "flows/imports/listdialects.h"

namespace {

constexpr unsigned kLarge = LIST_COMMON | LIST_VCS;
constexpr unsigned kLong = LIST_COMMON | LIST_SLANG | LIST_VERILATOR;  // know "-I" and "--top"
constexpr unsigned kAll = kLarge | kLong | LIST_ICARUS | LIST_VERIBLE;
constexpr unsigned kNotVerible = kAll & ~static_cast<unsigned>(LIST_VERIBLE);
constexpr unsigned kListed = kNotVerible & ~static_cast<unsigned>(LIST_ICARUS);
constexpr unsigned kOneDefine = LIST_ICARUS | LIST_VERIBLE;

// Of two rows for one tool, the one whose name begins like the other's stands in front.
constexpr TListOption kOptions[] = {
    {"+incdir+", FORM_LIST, MEANS_INCLUDE_FOLDER, kNotVerible},
    {"+incdir+", FORM_REST, MEANS_INCLUDE_FOLDER, LIST_VERIBLE},
    {"+define+", FORM_LIST, MEANS_DEFINE, kListed},
    {"+define+", FORM_REST, MEANS_DEFINE, kOneDefine},
    {"+libext+", FORM_LIST, MEANS_LIBRARY_EXTENSION, kNotVerible},
    {"+mindelays", FORM_ALONE, MEANS_MINIMUM_DELAYS, kLarge},
    {"+typdelays", FORM_ALONE, MEANS_TYPICAL_DELAYS, kLarge},
    {"+maxdelays", FORM_ALONE, MEANS_MAXIMUM_DELAYS, kLarge},
    {"--top-module", FORM_OPERAND, MEANS_TOP, LIST_COMMON | LIST_VERILATOR},
    {"-top-module", FORM_OPERAND, MEANS_TOP, LIST_VERILATOR},
    {"--top", FORM_EQUALS, MEANS_TOP, kLong},
    {"-top", FORM_OPERAND, MEANS_TOP, kLarge},
    {"-y", FORM_JOINED, MEANS_LIBRARY_FOLDER, LIST_ICARUS | LIST_ICARUS_COMMAND},
    {"-y", FORM_OPERAND, MEANS_LIBRARY_FOLDER, kListed},
    {"--libdir", FORM_EQUALS, MEANS_LIBRARY_FOLDER, LIST_SLANG},
    {"-v", FORM_OPERAND, MEANS_LIBRARY_FILE, kNotVerible},
    {"-l", FORM_OPERAND, MEANS_LIBRARY_FILE, LIST_ICARUS},
    {"-Y", FORM_OPERAND, MEANS_LIBRARY_EXTENSION, LIST_SLANG},
    {"--libext", FORM_EQUALS, MEANS_LIBRARY_EXTENSION, LIST_SLANG},
    {"-f", FORM_OPERAND, MEANS_LIST, kNotVerible},
    {"-c", FORM_OPERAND, MEANS_LIST, LIST_ICARUS},
    {"-file", FORM_OPERAND, MEANS_LIST, kLarge},
    {"-F", FORM_OPERAND, MEANS_LIST_BESIDE, kListed},
    {"-C", FORM_OPERAND, MEANS_UNIT_LIST, LIST_COMMON | LIST_SLANG},
    {"-sverilog", FORM_ALONE, MEANS_SYSTEM_VERILOG, kLarge},
    {"-sv", FORM_ALONE, MEANS_SYSTEM_VERILOG, kLarge | LIST_VERILATOR},
    {"--sv", FORM_ALONE, MEANS_SYSTEM_VERILOG, LIST_VERILATOR},
    {"-work", FORM_OPERAND, MEANS_LIBRARY, kLarge},
    {"-makelib", FORM_OPERAND, MEANS_LIBRARY, kLarge},
    {"-endlib", FORM_ALONE, MEANS_END_OF_LIBRARY, kLarge},
    {"-incdir", FORM_OPERAND, MEANS_INCLUDE_FOLDER, kLarge},
    {"-define", FORM_OPERAND, MEANS_DEFINE, kLarge},
    {"--timescale", FORM_EQUALS, MEANS_OPTION, kLong},
    {"-timescale", FORM_EQUALS, MEANS_OPTION, kLarge | LIST_VERILATOR},
    {"--language", FORM_OPERAND, MEANS_OPTION, LIST_COMMON | LIST_VERILATOR},
    {"-language", FORM_OPERAND, MEANS_OPTION, LIST_VERILATOR},
    {"--libmap", FORM_EQUALS, MEANS_OPTION, LIST_SLANG},
    {"--std", FORM_EQUALS, MEANS_OPTION, LIST_SLANG},
    {"-G", FORM_JOINED, MEANS_OPTION, LIST_SLANG},
    {"--compat", FORM_EQUALS, MEANS_OPTION, LIST_SLANG},
    {"--timing", FORM_EQUALS, MEANS_DELAYS, LIST_SLANG},
    {"-T", FORM_JOINED, MEANS_DELAYS, LIST_SLANG},
    {"--error-limit", FORM_EQUALS, MEANS_OPTION, LIST_SLANG},
    {"--max-hierarchy-depth", FORM_EQUALS, MEANS_OPTION, LIST_SLANG},
    {"--max-include-depth", FORM_EQUALS, MEANS_OPTION, LIST_SLANG},
    {"--x-assign", FORM_OPERAND, MEANS_OPTION, LIST_COMMON | LIST_VERILATOR},
    {"-x-assign", FORM_OPERAND, MEANS_OPTION, LIST_VERILATOR},
    {"--x-initial", FORM_OPERAND, MEANS_OPTION, LIST_COMMON | LIST_VERILATOR},
    {"-x-initial", FORM_OPERAND, MEANS_OPTION, LIST_VERILATOR},
    {"--trace-depth", FORM_OPERAND, MEANS_OPTION, LIST_COMMON | LIST_VERILATOR},
    {"-trace-depth", FORM_OPERAND, MEANS_OPTION, LIST_VERILATOR},
    {"--trace-threads", FORM_OPERAND, MEANS_OPTION, LIST_COMMON | LIST_VERILATOR},
    {"-trace-threads", FORM_OPERAND, MEANS_OPTION, LIST_VERILATOR},
    {"--output-split", FORM_OPERAND, MEANS_OPTION, LIST_COMMON | LIST_VERILATOR},
    {"-output-split", FORM_OPERAND, MEANS_OPTION, LIST_VERILATOR},
    {"--unroll-count", FORM_OPERAND, MEANS_OPTION, LIST_COMMON | LIST_VERILATOR},
    {"-unroll-count", FORM_OPERAND, MEANS_OPTION, LIST_VERILATOR},
    {"--default-language", FORM_OPERAND, MEANS_OPTION, LIST_COMMON | LIST_VERILATOR},
    {"-default-language", FORM_OPERAND, MEANS_OPTION, LIST_VERILATOR},
    {"-prefix", FORM_OPERAND, MEANS_OPTION, LIST_VERILATOR},
    {"-threads", FORM_OPERAND, MEANS_OPTION, LIST_VERILATOR},
    {"-MAKEFLAGS", FORM_OPERAND, MEANS_OPTION, LIST_COMMON | LIST_VERILATOR},
    {"-P", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-ntb_opts", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-assert", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-access", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-cm", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-cm_dir", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-cm_hier", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-cm_name", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-L", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-suppress", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-nowarn", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-snapshot", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-svseed", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-errormax", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-input", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-CFLAGS", FORM_OPERAND, MEANS_OPTION, kLarge | LIST_VERILATOR},
    {"-LDFLAGS", FORM_OPERAND, MEANS_OPTION, kLarge | LIST_VERILATOR},
    {"--Mdir", FORM_OPERAND, MEANS_OPTION, LIST_COMMON | LIST_VERILATOR},
    {"-Mdir", FORM_OPERAND, MEANS_OPTION, LIST_VERILATOR},
    {"--prefix", FORM_OPERAND, MEANS_OPTION, LIST_COMMON | LIST_VERILATOR},
    {"--threads", FORM_OPERAND, MEANS_OPTION, LIST_COMMON | LIST_VERILATOR},
    {"-l", FORM_OPERAND, MEANS_OPTION, kLarge},
    {"-o", FORM_OPERAND, MEANS_OPTION, kListed},
    {"-s", FORM_OPERAND, MEANS_TOP, LIST_COMMON},
    {"-I", FORM_JOINED, MEANS_INCLUDE_FOLDER, kLong | LIST_ICARUS_COMMAND},
    {"-D", FORM_JOINED, MEANS_DEFINE, kLong | LIST_ICARUS_COMMAND},
    {"-Y", FORM_JOINED, MEANS_LIBRARY_EXTENSION, LIST_ICARUS_COMMAND},
    {"-c", FORM_JOINED, MEANS_LIST, LIST_ICARUS_COMMAND},
    {"-f", FORM_JOINED, MEANS_LIST, LIST_ICARUS_COMMAND},
    {"-l", FORM_JOINED, MEANS_LIBRARY_FILE, LIST_ICARUS_COMMAND},
    {"-s", FORM_JOINED, MEANS_TOP, LIST_ICARUS_COMMAND},
};

struct TIcarusDelay {
    std::string_view Word;
    TSimProjectDelayType Delay;
};

constexpr TIcarusDelay kIcarusDelays[] = {
    {"-Tmax", DELAY_TYPE_MAXIMUM},
    {"-Tmin", DELAY_TYPE_MINIMUM},
    {"-Ttyp", DELAY_TYPE_TYPICAL},
};

bool IsMeant(const TListOption& option, std::string_view word) {
    switch (option.Form) {
        case FORM_ALONE:
        case FORM_OPERAND:
            return word == option.Name;
        case FORM_EQUALS:
            return word.starts_with(option.Name) &&
                   (word.size() == option.Name.size() || word[option.Name.size()] == '=');
        default:
            return word.starts_with(option.Name);
    }
}

}  // namespace

const TListOption* FindListOption(std::string_view word, TListTool tool) {
    if (!word.starts_with('-') && !word.starts_with('+')) return nullptr;
    for (const TListOption& option : kOptions)
        if ((option.Tools & tool) && IsMeant(option, word)) return &option;
    return nullptr;
}

std::optional<TSimProjectDelayType> FindIcarusDelay(std::string_view word) {
    for (const TIcarusDelay& delay : kIcarusDelays)
        if (word == delay.Word) return delay.Delay;
    return {};
}

const TListDialect kCommonList{
    .Tool = LIST_COMMON,
    .Syntax = {.Quotes = "\"'", .QuotesInWords = false, .HasEscapedQuotes = true},
    .Variables = VARIABLES_ALL,
    .KeepsUnsetVariables = true,
    .IsVerilogOnly = false,
    .IsBesideItsParent = false};
const TListDialect kIcarusList{
    .Tool = LIST_ICARUS,
    .Syntax = {.Names = NAME_TO_LINE_END, .Hash = HASH_IN_COLUMN_1, .SlashesEndWords = true},
    .Variables = VARIABLES_IN_BRACKETS,
    .KeepsUnsetVariables = false,
    .IsVerilogOnly = true,
    .IsBesideItsParent = true};
const TListDialect kSlangList{
    .Tool = LIST_SLANG,
    .Syntax = {.Hash = HASH_ANYWHERE, .Quotes = "\"'", .HasEscapes = true},
    .Variables = VARIABLES_ALL,
    .KeepsUnsetVariables = true,
    .IsVerilogOnly = true,
    .IsBesideItsParent = false};
const TListDialect kVcsList{
    .Tool = LIST_VCS,
    .Syntax = {.Quotes = "\"'", .QuotesInWords = false, .HasEscapedQuotes = true},
    .Variables = VARIABLES_ALL,
    .KeepsUnsetVariables = true,
    .IsVerilogOnly = false,
    .IsBesideItsParent = false};
const TListDialect kVeribleList{
    .Tool = LIST_VERIBLE,
    .Syntax = {.Names = ITEM_TO_LINE_END, .Hash = HASH_FIRST_ON_LINE, .Star = STAR_NOWHERE},
    .Variables = VARIABLES_NONE,
    .KeepsUnsetVariables = true,
    .IsVerilogOnly = true,
    .IsBesideItsParent = false};
const TListDialect kVerilatorList{.Tool = LIST_VERILATOR,
                                  .Syntax = {.Hash = HASH_FIRST_ON_LINE,
                                             .Star = STAR_ANYWHERE,
                                             .Quotes = "\"",
                                             .HasEscapes = true,
                                             .IsGluedBehindQuote = true},
                                  .Variables = VARIABLES_ALL,
                                  .KeepsUnsetVariables = true,
                                  .IsVerilogOnly = false,
                                  .IsBesideItsParent = false};
