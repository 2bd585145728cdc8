#include "flows/scannedtops.h"
#include "flows/scan/vhdlnames.h"
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace {

using TNames = std::unordered_set<std::string>;

/// Names of Verilog are compared as they are.
std::string KeyOf(THdlLanguage language, const std::string& library, const std::string& unit) {
    const bool isVhdl = language == LANGUAGE_VHDL;
    const std::string plain = !isVhdl && unit.starts_with('\\') ? unit.substr(1) : unit;
    return FoldVhdlName(library) + "\n" + (isVhdl ? FoldVhdlName(plain) : plain);
}

bool MayBeTop(TDesignUnitKind kind) {
    return kind == TDesignUnitKind::Entity || kind == TDesignUnitKind::Configuration ||
           kind == TDesignUnitKind::Module || kind == TDesignUnitKind::Interface ||
           kind == TDesignUnitKind::Program || kind == TDesignUnitKind::Primitive;
}

/// Whatever its architecture.
std::string KeyOf(const TBuildTop& top) {
    return std::to_string(top.Language) + "\n" + KeyOf(top.Language, top.Library, top.Entity);
}

/// By the keys of entities; "" for several.
std::unordered_map<std::string, std::string> OnlyArchitectures(const TDesignFiles& files) {
    std::unordered_map<std::string, std::string> architectures;
    for (const TDesignFile& file : files)
        for (const TDesignUnit& unit : file.Scan.Units) {
            if (unit.Kind != TDesignUnitKind::Architecture) continue;
            const auto [entry, isNew] = architectures.try_emplace(
                KeyOf(LANGUAGE_VHDL, file.Library, unit.Primary), unit.Name);
            if (!isNew) entry->second.clear();
        }
    return architectures;
}

}  // namespace

std::vector<TBuildTop> ListUnrecordedTops(const TBuildScan& scan, const THdlBuildFile& build) {
    std::vector<TBuildTop> tops;
    TNames recorded;
    for (const TBuildTop& top : ListTops(build)) recorded.insert(KeyOf(top));
    const auto architectures = OnlyArchitectures(scan.GetFiles());
    for (const TUnitPlace place : scan.GetDesign().TopCandidates) {
        TBuildTop top{scan.GetSources()[place.File].Group,
                      scan.GetFiles()[place.File].Library,
                      UnitAt(scan.GetFiles(), place).Name,
                      {}};
        if (!recorded.insert(KeyOf(top)).second) continue;
        const auto architecture = architectures.find(KeyOf(LANGUAGE_VHDL, top.Library, top.Entity));
        if (top.Language == LANGUAGE_VHDL && architecture != architectures.end())
            top.Architecture = architecture->second;
        tops.push_back(std::move(top));
    }
    return tops;
}

std::vector<TTopMention> ListUnheldTops(const TBuildScan& scan, const TLinkOptions& options,
                                        const std::vector<TTopMention>& mentions) {
    TNames held;
    TNames filled;
    TNames unknown;  // libraries, folded as all of them
    const TDesignFiles& files = scan.GetFiles();
    for (std::size_t i = 0; i < files.size(); ++i) {
        filled.insert(FoldVhdlName(files[i].Library));
        if (!scan.GetReasons()[i].empty()) unknown.insert(FoldVhdlName(files[i].Library));
        for (const TDesignUnit& unit : files[i].Scan.Units)
            if (MayBeTop(unit.Kind))
                held.insert(KeyOf(files[i].Scan.Language, files[i].Library, unit.Name));
    }
    for (const std::string& library : options.ExternalLibraries)
        if (!filled.contains(FoldVhdlName(library))) unknown.insert(FoldVhdlName(library));
    std::vector<TTopMention> unheld;
    for (const TTopMention& top : mentions)
        if (!unknown.contains(FoldVhdlName(top.Library)) &&
            !held.contains(
                KeyOf(GetHdlLanguageFromString(top.Language.c_str()), top.Library, top.Entity)))
            unheld.push_back(top);
    return unheld;
}
