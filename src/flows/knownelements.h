#pragma once
#include <string>
#include <string_view>
#include <vector>

/// What a text of a build file means to its reader.
enum TWordKind : int {
    WORD_ANY,
    WORD_LANGUAGE,
    WORD_NEEDED_LANGUAGE,      ///< one must be there
    WORD_SIMULATOR,            ///< a name
    WORD_SIMULATOR_OR_NUMBER,  ///< a name or a number
    WORD_TIME_UNIT,
};

struct TKnownAttribute {
    const char* Name;
    TWordKind Kind = WORD_ANY;
};

/// What becomes of the elements that a reader does not know.
enum TUnknownChildren : int {
    UNKNOWN_IS_PASSED_OVER,  ///< the reader goes on behind them
    UNKNOWN_ENDS_SECTION,    ///< what follows them in the section is not read
    UNKNOWN_IS_FREE,         ///< others define what may be in the element
};

/// One element of a build file.
struct TKnownElement {
    std::string Name;
    std::string Parent;  ///< empty for a section, which is read at every depth
    std::vector<TKnownAttribute> Attributes;
    TUnknownChildren Unknown = UNKNOWN_IS_PASSED_OVER;
    TWordKind Text = WORD_ANY;
    std::string NeededEntry = {};  ///< without which the list cannot be read; empty: none
};

/// All of them, in no order. Static.
const std::vector<TKnownElement>& GetKnownElements();
/// The element of that name in `parent`, or the section of that name; null for an unknown one.
const TKnownElement* FindKnownElement(std::string_view name, std::string_view parent);
/// The element of that name in whatever parent; null for an unknown one.
const TKnownElement* FindElementElsewhere(std::string_view name);
/// The known name that `name` may be meant to be, within `parent` or as a section; empty for none.
std::string FindMeantElement(std::string_view name, std::string_view parent);
