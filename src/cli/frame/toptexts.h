#pragma once
#include "flows/buildtops.h"
#include "flows/trees/json.h"
#include <optional>
#include <string>

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
