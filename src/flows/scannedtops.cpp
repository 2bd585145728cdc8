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
