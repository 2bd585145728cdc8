#include "flows/scanedit.h"
#include "buildfile/hdlbuildfile.h"
#include "flows/buildchanges.h"
#include "projectfiles/ihdlsourcefile.h"
#include <utility>

TScanChanges FindScanChanges(const TBuildScan& scan, const THdlBuildFile& build,
                             const TScanWishes& wishes) {
    TScanChanges changes;
    for (TDependencyDifference difference : scan.GetDifferences()) {
        if (!wishes.Exact) difference.Unexplained.clear();
        if (!difference.Lacking.empty() || !difference.Unexplained.empty())
            changes.Differences.push_back(std::move(difference));
    }
    if (wishes.SetTops) changes.Tops = ListUnrecordedTops(scan, build);
    return changes;
}

void ApplyScan(const TBuildScan& scan, const TScanChanges& changes, THdlBuildFile* build) {
    for (const TDependencyDifference& difference : changes.Differences) {
        IHdlSourceFile& source = *scan.GetSources()[difference.Source].Source;
        for (const TLinkedFile& linked : difference.Lacking)
            source.AddDependency(scan.GetSources()[linked.File].Source);
        for (IHdlSourceFile* const dependency : difference.Unexplained)
            source.RemoveDependency(dependency);
    }
    for (const TBuildTop& top : changes.Tops) AddTop(*build, top);
}

TCompileSort SortVerilog(THdlBuildFile& build) {
    return SortForCompile(*build.GetSourceFileGroup(LANGUAGE_VERILOG));
}

void ApplySort(const TCompileSort& sort, THdlBuildFile* build) {
    if (!sort.Late.empty()) MoveSources(*build, LANGUAGE_VERILOG, sort.Order, PLACE_FIRST, nullptr);
}
