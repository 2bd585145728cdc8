#include "flows/buildneeds.h"
#include "buildfile/hdlbuildfile.h"
#include "flows/listedsources.h"
#include "flows/scan/asciicase.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"

// One need may mean several units of a file; they stand one behind the other.
std::vector<TNeedPlace> ListNeedsOf(const TFileNeed& need) {
    std::vector<TNeedPlace> needs;
    for (const TLinkedUnit& unit : need.Units)
        if (needs.empty() || !(needs.back() == unit.Need)) needs.push_back(unit.Need);
    return needs;
}

TBuildNeeds::TBuildNeeds(const THdlBuildFile& build) {
    for (const TListedSource& source : ListSources(build))
        if (NumberOf(source.File) == Groups.size()) Groups.push_back(source.Group);
    // Files grows while it is walked.
    for (std::uint32_t file = 0; file < Files.size(); ++file) {
        std::vector<TFileNeed> needs;
        if (const TIHdlSourceFileList* const dependencies = Files[file]->GetDependencyList())
            for (const IHdlSourceFile* const dependency : *dependencies)
                needs.push_back({NumberOf(dependency), true, {}});
        Needs.push_back(std::move(needs));
    }
}

std::uint32_t TBuildNeeds::NumberOf(const IHdlSourceFile* file) {
    const auto [entry, isNew] = Numbers.try_emplace(file, static_cast<std::uint32_t>(Files.size()));
    if (isNew) Files.push_back(file);
    return entry->second;
}

void TBuildNeeds::Add(const TBuildScan& scan) {
    std::vector<std::uint32_t> numbers;  // of the scanned sources; two groups may list one file
    for (const TScannedSource& source : scan.GetSources())
        numbers.push_back(NumberOf(source.Source));
    std::vector<std::vector<const TLinkedUnit*>> units(Files.size());
    for (const TLinkedUnit& unit : scan.GetDesign().Units)
        if (numbers[unit.Unit.File] != numbers[unit.Need.Unit.File])
            units[numbers[unit.Need.Unit.File]].push_back(&unit);
    constexpr auto kNoPlace = static_cast<std::size_t>(-1);
    std::vector<std::size_t> places(Files.size(), kNoPlace);  // among the needs of one file
    for (std::uint32_t file = 0; file < Files.size(); ++file) {
        std::vector<TFileNeed>& needs = Needs[file];
        for (std::size_t i = 0; i < needs.size(); ++i) places[needs[i].File] = i;
        for (const TLinkedUnit* const unit : units[file]) {
            const std::uint32_t needed = numbers[unit->Unit.File];
            if (places[needed] == kNoPlace) {
                places[needed] = needs.size();
                needs.push_back({needed, false, {}});
            }
            TFileNeed& need = needs[places[needed]];
            need.Units.push_back(*unit);
            if (GetNeedRule(NeedAt(scan.GetFiles(), unit->Need).Kind).OrdersFiles)
                need.IsForCompile = true;
        }
        for (const TFileNeed& need : needs) places[need.File] = kNoPlace;
    }
}

std::optional<std::uint32_t> TBuildNeeds::FindFile(const ISFileName* name) const {
    const std::string wanted = FoldAscii(name->Canonical(false));
    for (std::uint32_t file = 0; file < Files.size(); ++file) {
        const ISFileName* const known = Files[file]->GetFileName();
        if (known && FoldAscii(known->Canonical(false)) == wanted) return file;
    }
    return std::nullopt;
}

TFileGraph TBuildNeeds::MakeGraph() const {
    TFileGraph graph(Needs.size());
    for (std::size_t file = 0; file < Needs.size(); ++file)
        for (const TFileNeed& need : Needs[file]) graph[file].push_back(need.File);
    return graph;
}
