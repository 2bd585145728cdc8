#pragma once
#include "flows/imports/listvariables.h"
#include "flows/imports/listwords.h"
#include "settings/simprojectdelaytype.h"
#include <optional>

/// The tools whose lists are read, one bit each.
enum TListTool : unsigned {
    LIST_COMMON = 1,
    LIST_ICARUS = 2,
    LIST_SLANG = 4,
    LIST_VCS = 8,
    LIST_VERIBLE = 16,
    LIST_VERILATOR = 32,
    LIST_ICARUS_COMMAND = 64  ///< the command line, which knows other words than its lists
};

/// How a tool reads its lists of Verilog sources.
struct TListDialect {
    TListTool Tool;
    TListSyntax Syntax;
    TListVariables Variables;
    bool KeepsUnsetVariables;
    bool IsVerilogOnly;      ///< whatever the extension of a source
    bool IsBesideItsParent;  ///< where a list named by a list is looked for; else where sources are
};

/// What stands behind the name of an option.
enum TListForm : int {
    FORM_ALONE,    ///< nothing
    FORM_LIST,     ///< values with a plus in between
    FORM_REST,     ///< one value
    FORM_OPERAND,  ///< nothing, and the value is the next word
    FORM_JOINED,   ///< the value, or nothing when it is the next word
    FORM_EQUALS    ///< '=' and the value, or nothing when it is the next word
};

enum TListMeaning : int {
    MEANS_INCLUDE_FOLDER,
    MEANS_LIBRARY_FOLDER,
    MEANS_LIBRARY_FILE,
    MEANS_LIBRARY_EXTENSION,
    MEANS_DEFINE,
    MEANS_LIST,         ///< of paths from the working directory
    MEANS_LIST_BESIDE,  ///< of paths from its own folder
    MEANS_UNIT_LIST,    ///< the same, compiled as one unit
    MEANS_SYSTEM_VERILOG,
    MEANS_TOP,
    MEANS_MINIMUM_DELAYS,
    MEANS_TYPICAL_DELAYS,
    MEANS_MAXIMUM_DELAYS,
    MEANS_DELAYS,  ///< "min", "typ" or "max"
    MEANS_LIBRARY,
    MEANS_END_OF_LIBRARY,
    MEANS_OPTION  ///< of the simulator alone
};

struct TListOption {
    std::string_view Name;
    TListForm Form;
    TListMeaning Meaning;
    unsigned Tools;  ///< that know it so
};

/// The row for a word; null for a source and for an option that is not known.
const TListOption* FindListOption(std::string_view word, TListTool tool);

/// The delays that a word of the command line of Icarus Verilog chooses.
std::optional<TSimProjectDelayType> FindIcarusDelay(std::string_view word);

extern const TListDialect kCommonList;
extern const TListDialect kIcarusList;
extern const TListDialect kSlangList;
extern const TListDialect kVcsList;
extern const TListDialect kVeribleList;
extern const TListDialect kVerilatorList;
