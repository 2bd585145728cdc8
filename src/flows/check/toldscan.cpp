#include "flows/check/toldscan.h"
#include "flows/diagnosticrules.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"

std::string TToldScan::PathOf(std::size_t source) const {
    return PathText(Scan.GetSources()[source].Source->GetFileName(), Paths);
}

std::string TToldScan::NameOf(TUnitPlace place) const {
    const TDesignUnit& unit = UnitAt(Scan.GetFiles(), place);
    const std::string library = Scan.GetFiles()[place.File].Library + ".";
    if (unit.Kind == TDesignUnitKind::Architecture)
        return library + unit.Primary + "(" + unit.Name + ")";
    return library + unit.Name;
}

std::string TToldScan::NameOf(const TNeedPlace& place) const {
    const TUnitNeed& need = NeedAt(Scan.GetFiles(), place);
    std::string name = need.Library;
    if (!need.Unit.empty()) name += (name.empty() ? "" : ".") + need.Unit;
    return need.Secondary.empty() ? name : name + "(" + need.Secondary + ")";
}

TDiagnosticSource TToldScan::SourceOf(std::size_t source, const TSourcePlace& place) const {
    const auto& includes = Scan.GetFiles()[source].Scan.Includes;
    const bool isIncluded = place.Include > 0 && place.Include <= includes.size();
    return {isIncluded ? PathText(includes[place.Include - 1].Path.c_str(), Paths) : PathOf(source),
            static_cast<int>(place.Line), static_cast<int>(place.Column)};
}

TDiagnosticSource TToldScan::SourceOf(TUnitPlace unit) const {
    return SourceOf(unit.File, UnitAt(Scan.GetFiles(), unit).Place);
}

TDiagnosticSource TToldScan::SourceOf(const TNeedPlace& need) const {
    return SourceOf(need.Unit.File, NeedAt(Scan.GetFiles(), need).Place);
}
