#pragma once
#include "flows/buildtops.h"
#include "flows/trees/json.h"
#include <optional>
#include <string>
#include <vector>

/// A top-level component as commands take and tell it: "work.counter(rtl)", or "work.tb" without an
/// architecture.
std::string TextOf(const TBuildTop& top);
TJson TopAsJson(const TBuildTop& top);

/// A component that a user named.
struct TNamedTop {
    TBuildTop Top;
    bool HasLibrary = false;
    std::string Complaint = {};  ///< why it names none; "" when it does
};

/// Reads [LIBRARY.]ENTITY[(ARCHITECTURE)]. Names that are no simple ones are written as `language`
/// escapes them.
TNamedTop ReadTop(const std::string& text, THdlLanguage language);

/// The same; the library is the build's where none is named.
TNamedTop ReadTopOf(const std::string& text, THdlLanguage language, const THdlBuildFile& build);
/// The same of a component that is to be recorded, which must have a library.
TNamedTop ReadTopToAdd(const std::string& text, THdlLanguage language, const THdlBuildFile& build);
/// Removes the components of that name from the list of `language`, from all for LANGUAGE_NONE.
/// False when there is none.
bool RemoveTopsCalled(const std::string& text, THdlLanguage language, THdlBuildFile& build);

/// The component that a user means with LIBRARY.ENTITY(ARCHITECTURE), or parts of it: a full name
/// goes before one without its architecture, that before one without its library, and the rule of
/// the language before any letter case. Null for none and for several.
const TBuildTop* FindTopOf(const std::vector<TBuildTop>& tops, const std::string& name);
/// Why FindTopOf finds none, without a line end: no component has the name, or several do.
std::string NoTopOf(const std::vector<TBuildTop>& tops, const std::string& name);
/// The fullest name of each.
std::vector<std::string> FullNamesOf(const std::vector<TBuildTop>& tops);
