#pragma once
#include "flows/scan/scannedfile.h"
#include <string>

/// Every unit on a line, with its place, and each need on one of its own below it:
///
///     architecture rtl of counter 5:14
///       use ieee.numeric_std 2:5
///       maybe selected rec.field 7:8
///
/// The libraries of a context clause stand behind the unit's place.
inline std::string TextOf(const TSourcePlace& place) {
    return std::to_string(place.Line) + ":" + std::to_string(place.Column);
}

inline std::string TextOf(const TUnitNeed& need) {
    std::string text = need.IsCertain ? "  " : "  maybe ";
    text += std::string(GetNeedRule(need.Kind).Name) + " ";
    if (!need.Library.empty()) text += need.Library + ".";
    text += need.Unit.empty() ? "*" : need.Unit;
    if (!need.Secondary.empty()) text += "(" + need.Secondary + ")";
    return text + " " + TextOf(need.Place) + "\n";
}

inline std::string TextOf(const TScannedFile& file) {
    std::string text;
    for (const TDesignUnit& unit : file.Units) {
        text += std::string(GetDesignUnitKindName(unit.Kind)) + " " + unit.Name;
        if (!unit.Primary.empty()) text += " of " + unit.Primary;
        text += " " + TextOf(unit.Place);
        for (const std::string& library : unit.Libraries) text += " library " + library;
        text += "\n";
        for (const TUnitNeed& need : unit.Needs) text += TextOf(need);
    }
    return text;
}
