#include "flows/scannedtops.h"
#include "buildfile/hdlbuildfile.h"
#include "filenames/componentname.h"
#include "filenames/componentnamelist.h"
#include "flows/scan/vhdlnames.h"
#include <unordered_map>
#include <unordered_set>

namespace {

using TNames = std::unordered_set<std::string>;

std::string KeyOf(const std::string& library, const std::string& entity) {
    return FoldVhdlName(library) + "\n" + FoldVhdlName(entity);
}

TNames RecordedTops(const THdlBuildFile& build, THdlLanguage language) {
    TNames names;
    if (const TComponentNameList* const list = build.GetComponentNameList(language))
        for (const TComponentName* const name : *list)
            names.insert(
                KeyOf(name->GetDestinationLibraryName(),
                      name->GetEntity().GetEscapedName(language, 0, false, false).c_str()));
    return names;
}

/// By the keys of entities; "" for several.
std::unordered_map<std::string, std::string> OnlyArchitectures(const TDesignFiles& files) {
    std::unordered_map<std::string, std::string> architectures;
    for (const TDesignFile& file : files)
        for (const TDesignUnit& unit : file.Scan.Units) {
            if (unit.Kind != TDesignUnitKind::Architecture) continue;
            const auto [entry, isNew] =
                architectures.try_emplace(KeyOf(file.Library, unit.Primary), unit.Name);
            if (!isNew) entry->second.clear();
        }
    return architectures;
}

}  // namespace

std::vector<TScannedTop> ListUnrecordedTops(const TBuildScan& scan, const THdlBuildFile& build) {
    std::vector<TScannedTop> tops;
    std::unordered_map<int, TNames> recorded;
    const auto architectures = OnlyArchitectures(scan.GetFiles());
    for (const TUnitPlace place : scan.GetDesign().TopCandidates) {
        const THdlLanguage language = scan.GetSources()[place.File].Group;
        const auto entry = recorded.try_emplace(language);
        if (entry.second) entry.first->second = RecordedTops(build, language);
        const std::string& library = scan.GetFiles()[place.File].Library;
        const std::string& entity = UnitAt(scan.GetFiles(), place).Name;
        const std::string key = KeyOf(library, entity);
        if (!entry.first->second.insert(key).second) continue;
        const auto architecture = architectures.find(key);
        tops.push_back({entity, architecture == architectures.end() ? "" : architecture->second,
                        library, language});
    }
    return tops;
}

namespace {

/// Names of Verilog are compared as they are.
std::string UnitKeyOf(THdlLanguage language, const std::string& library, const std::string& unit) {
    const bool isVhdl = language == LANGUAGE_VHDL;
    const std::string plain = !isVhdl && unit.starts_with('\\') ? unit.substr(1) : unit;
    return FoldVhdlName(library) + "\n" + (isVhdl ? FoldVhdlName(plain) : plain);
}

bool MayBeTop(TDesignUnitKind kind) {
    return kind == TDesignUnitKind::Entity || kind == TDesignUnitKind::Configuration ||
           kind == TDesignUnitKind::Module || kind == TDesignUnitKind::Interface ||
           kind == TDesignUnitKind::Program || kind == TDesignUnitKind::Primitive;
}

}  // namespace

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
                held.insert(UnitKeyOf(files[i].Scan.Language, files[i].Library, unit.Name));
    }
    for (const std::string& library : options.ExternalLibraries)
        if (!filled.contains(FoldVhdlName(library))) unknown.insert(FoldVhdlName(library));
    std::vector<TTopMention> unheld;
    for (const TTopMention& top : mentions)
        if (!unknown.contains(FoldVhdlName(top.Library)) &&
            !held.contains(
                UnitKeyOf(GetHdlLanguageFromString(top.Language.c_str()), top.Library, top.Entity)))
            unheld.push_back(top);
    return unheld;
}
