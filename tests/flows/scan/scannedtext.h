#pragma once
#include "flows/scan/scannedfile.h"
#include <string>

/// Every unit on a line, with its place, and each need on one of its own below it:
///
///     architecture rtl of counter 5:14
///       use ieee.numeric_std 2:5
///       maybe selected rec.field 7:8
///
/// The libraries of a context clause stand behind the unit's place. Needs outside of units come
/// first, with included files before them. A place in an included file begins with its number.
inline std::string TextOf(const TSourcePlace& place) {
    const std::string include = place.Include == 0 ? "" : "#" + std::to_string(place.Include) + ":";
    return include + std::to_string(place.Line) + ":" + std::to_string(place.Column);
}

inline std::string TextOf(const TUnitNeed& need) {
    std::string text = need.IsCertain ? "  " : "  maybe ";
    text += std::string(GetNeedRule(need.Kind).Name) + " ";
    if (!need.Library.empty()) text += need.Library + ".";
    text += need.Unit.empty() ? "*" : need.Unit;
    if (!need.Secondary.empty()) text += "(" + need.Secondary + ")";
    return text + " " + TextOf(need.Place) + "\n";
}

inline std::string TextOf(const TScannedInclude& include) {
    std::string text = include.IsCertain ? "include " : "maybe include ";
    text += include.IsAngled ? "<" + include.Name + ">" : include.Name;
    if (!include.Path.empty()) text += " is " + include.Path;
    return text + " " + TextOf(include.Place) + "\n";
}

inline std::string TextOf(const TScannedFile& file) {
    std::string text;
    for (const TScannedInclude& include : file.Includes) text += TextOf(include);
    for (const TUnitNeed& need : file.Needs) text += TextOf(need);
    for (const TDesignUnit& unit : file.Units) {
        if (!unit.IsCertain) text += "maybe ";
        text += std::string(GetDesignUnitKindName(unit.Kind)) + " " + unit.Name;
        if (!unit.Primary.empty()) text += " of " + unit.Primary;
        text += " " + TextOf(unit.Place);
        for (const std::string& library : unit.Libraries) text += " library " + library;
        text += "\n";
        for (const TUnitNeed& need : unit.Needs) text += TextOf(need);
    }
    return text;
}
