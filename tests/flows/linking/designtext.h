#pragma once
#include "flows/linking/needlinker.h"
#include "flows/scan/verilogscan.h"
#include "flows/scan/vhdlscan.h"
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// A source and the library that it is compiled into.
struct TSourceText {
    const char* Library;
    const char* Text;
    bool IsVerilog = false;
};
inline constexpr bool kVerilog = true;

inline TDesignFiles Design(const std::vector<TSourceText>& sources) {
    TDesignFiles files;
    for (const TSourceText& source : sources)
        files.push_back({source.Library, source.IsVerilog ? ScanVerilog(source.Text, "", {})
                                                          : ScanVhdl(source.Text, {})});
    return files;
}

/// Files are letters, in their order.
inline std::string FileLetter(std::uint32_t file) {
    return std::string(1, static_cast<char>('a' + file));
}

/// "b: work.e 1:8", of a file that needs and a place in it.
inline std::string TextOf(const TDesignFiles& files, const TNeedPlace& place) {
    const TSourcePlace at = NeedAt(files, place).Place;
    return FileLetter(place.Unit.File) + ":" + std::to_string(at.Line) + ":" +
           std::to_string(at.Column);
}

/// "entity e in a".
inline std::string TextOf(const TDesignFiles& files, TUnitPlace place) {
    const TDesignUnit& unit = UnitAt(files, place);
    return std::string(GetDesignUnitKindName(unit.Kind)) + " " + unit.Name + " in " +
           FileLetter(place.File);
}

/// Each file that depends on others on a line: "c: a b".
inline std::string DependenciesIn(const TLinkedDesign& design) {
    std::string text;
    for (std::uint32_t file = 0; file < design.Dependencies.size(); ++file) {
        if (design.Dependencies[file].empty()) continue;
        text += FileLetter(file) + ":";
        for (const TLinkedFile& linked : design.Dependencies[file])
            text += " " + FileLetter(linked.File);
        text += "\n";
    }
    return text;
}

inline std::string LinkText(const std::vector<TSourceText>& sources) {
    return DependenciesIn(TNeedLinker(Design(sources), {}).Link());
}

/// What stands out in a design, one finding a line.
inline std::string FindingsIn(const std::vector<TSourceText>& sources,
                              const TLinkOptions& options = {}) {
    const TDesignFiles files = Design(sources);
    const TLinkedDesign design = TNeedLinker(files, options).Link();
    std::string text;
    for (const TRepeatedUnit& repeated : design.Repeated) {
        text += "repeated";
        for (const TUnitPlace place : repeated.Places) text += ", " + TextOf(files, place);
        text += "\n";
    }
    for (const TMissingUnit& missing : design.Missing) {
        text += missing.IsComponent ? "no entity " : "missing ";
        text += missing.Library + "." + missing.Unit;
        if (!missing.Secondary.empty()) text += "(" + missing.Secondary + ")";
        text += " x" + std::to_string(missing.Count) + " " + TextOf(files, missing.First) + "\n";
    }
    for (const TUnitElsewhere& elsewhere : design.Elsewhere)
        text += "elsewhere " + TextOf(files, elsewhere.Unit) + ", in " + elsewhere.Library + " " +
                TextOf(files, elsewhere.First) + "\n";
    for (const TForeignNeed& foreign : design.Foreign)
        text += "foreign " + TextOf(files, foreign.Unit) + " " + TextOf(files, foreign.Need) + "\n";
    for (const TUnitPlace place : design.Unneeded)
        text += "unneeded " + TextOf(files, place) + "\n";
    for (const TUnitPlace place : design.TopCandidates)
        text += "top " + TextOf(files, place) + "\n";
    return text;
}

/// A design of a few files, and which depend on which.
struct TLinkRow {
    const char* Label;
    std::vector<TSourceText> Sources;
    const char* Dependencies;
};

inline void ExpectDependencies(const std::vector<TLinkRow>& rows) {
    for (const TLinkRow& row : rows)
        EXPECT_EQ(LinkText(row.Sources), row.Dependencies) << row.Label;
}
