#pragma once
#include "services/xml/xmllist.h"
#include <string>
#include <string_view>
#include <vector>

enum TDiagnosticSeverity : int { SEVERITY_NOTE, SEVERITY_WARNING, SEVERITY_ERROR };

/// What may be wrong with a build. The number is that of the code which users see: 101 is "HB101".
enum TDiagnosticCode : int {
    DIAGNOSTIC_NO_BUILD = 101,
    DIAGNOSTIC_READ_RESULT = 102,
    DIAGNOSTIC_UNKNOWN_ELEMENT = 103,
    DIAGNOSTIC_MISSPELT_ELEMENT = 104,
    DIAGNOSTIC_ELEMENT_ENDS_SECTION = 105,
    DIAGNOSTIC_UNKNOWN_ATTRIBUTE = 106,
    DIAGNOSTIC_MISPLACED_ELEMENT = 107,
    DIAGNOSTIC_MISSING_FILE = 201,
    DIAGNOSTIC_REPEATED_SOURCE = 202,
    DIAGNOSTIC_SPELLINGS = 203,
    DIAGNOSTIC_FOLDER = 204,
    DIAGNOSTIC_SOURCE_IN_LIBRARIES = 205,
    DIAGNOSTIC_CYCLE = 301,
    DIAGNOSTIC_MISSING_DEPENDENCY = 302,
    DIAGNOSTIC_UNLISTED_DEPENDENCY = 303,
    DIAGNOSTIC_UNKNOWN_LANGUAGE = 401,
    DIAGNOSTIC_UNKNOWN_SIMULATOR = 402,
    DIAGNOSTIC_UNKNOWN_TIME_UNIT = 403,
    DIAGNOSTIC_SETTINGS_WITHOUT_LANGUAGE = 404,
    DIAGNOSTIC_UNREADABLE_LIST = 405,
    DIAGNOSTIC_UNREAD_SOURCE = 501,
    DIAGNOSTIC_REPEATED_UNIT = 502,
    DIAGNOSTIC_MISSING_UNIT = 503,
    DIAGNOSTIC_UNIT_ELSEWHERE = 504,
    DIAGNOSTIC_LACKING_DEPENDENCY = 505,
    DIAGNOSTIC_UNEXPLAINED_DEPENDENCY = 506,
    DIAGNOSTIC_UNBOUND_COMPONENT = 507,
    DIAGNOSTIC_UNNEEDED_UNIT = 508,
    DIAGNOSTIC_TOP_CANDIDATE = 509,
    DIAGNOSTIC_FOREIGN_NEED = 510,
    DIAGNOSTIC_MISSING_INCLUDE = 511,
    DIAGNOSTIC_LATE_SOURCE = 512,
    DIAGNOSTIC_UNHELD_TOP = 513,
    DIAGNOSTIC_UNKNOWN_VARIABLE = 601,
    DIAGNOSTIC_NOT_EXPORTED = 602,
    DIAGNOSTIC_UNWRITABLE_NAME = 603,
    DIAGNOSTIC_LEFT_OUT = 604,
    DIAGNOSTIC_UNSCANNED_TOP = 605,
    DIAGNOSTIC_NOT_IMPORTED = 701,
    DIAGNOSTIC_IMPORTED_OTHERWISE = 702,
    DIAGNOSTIC_IMPORTED_NO_LANGUAGE = 703,
    DIAGNOSTIC_UNSET_VARIABLE = 704,
    DIAGNOSTIC_IMPORTED_AGAIN = 705,
    DIAGNOSTIC_IMPORTED_OPTION = 706,
    DIAGNOSTIC_IMPORTED_FILE_MISSING = 707,
    DIAGNOSTIC_IMPORT_SYNTAX = 708,
    DIAGNOSTIC_IMPORT_UNREADABLE = 709,
    DIAGNOSTIC_IMPORT_CYCLE = 710,
    DIAGNOSTIC_IMPORT_TOO_DEEP = 711,
    DIAGNOSTIC_IMPORTED_FOR_ALL = 712,
    DIAGNOSTIC_IMPORT_DESCRIBES = 713,
    DIAGNOSTIC_TWO_STANDARDS = 801,
    DIAGNOSTIC_MIXED_TOP = 802,
    DIAGNOSTIC_TOP_WITHOUT_TOOL = 803,
};

/// One row of the table of diagnostics. The texts are static and never null.
struct TDiagnosticRule {
    TDiagnosticCode Code;
    const char* Name;  ///< a word for other tools, unique
    TDiagnosticSeverity Severity;
    const char* Text;  ///< what is wrong; "{1}" to "{9}" stand for the names of one fault
    const char* Cure;  ///< what helps, in whole sentences
};

/// Where a fault stands in a source of the build.
struct TDiagnosticSource {
    std::string Path = {};  ///< as users see it; empty: the fault stands in none
    int Line = 0;           ///< 1-based; 0: the source as a whole
    int Column = 0;         ///< 1-based, in bytes; 0: the line as a whole
};

/// One fault.
struct TDiagnostic {
    TDiagnosticCode Code;
    std::vector<std::string> Names;         ///< for the places in the text, as users see them
    std::vector<std::string> Details = {};  ///< names that need a line of their own
    std::uint32_t Place = kNoXMLPlace;      ///< of its element in the build file, if it has one
    TDiagnosticSource Source = {};
};

/// All rows, in ascending order of their codes. Static.
const std::vector<TDiagnosticRule>& GetDiagnosticRules();
/// The row of a code.
const TDiagnosticRule& GetDiagnosticRule(TDiagnosticCode code);
/// The row of a code as users write it, ignoring case: "HB101". Null for an unknown one.
const TDiagnosticRule* FindDiagnosticRule(std::string_view id);

/// The code as users see it.
std::string GetDiagnosticId(TDiagnosticCode code);
/// "note", "warning" or "error". Static.
const char* GetSeverityText(TDiagnosticSeverity severity);
/// The text of one fault with its names, but without its details.
std::string GetDiagnosticText(const TDiagnostic& diagnostic);
/// "a.vhd:1:2", "a.vhd:1" for a line and "a.vhd" for a source as a whole.
std::string GetSourcePlaceText(const TDiagnosticSource& source);
