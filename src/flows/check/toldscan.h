#pragma once
#include "flows/buildscan.h"
#include "flows/compilesort.h"
#include "flows/diagnosticrules.h"
#include "flows/pathtexts.h"
#include <string>
#include <vector>

/// A build that has been scanned, as it is told.
struct TToldScan {
    const TBuildScan& Scan;
    TPathForm Paths;
    std::vector<TLateSource> Late = {};  ///< of Verilog

    std::string PathOf(std::size_t source) const;
    /// "lib.e", "lib.e(a)" of an architecture.
    std::string NameOf(TUnitPlace unit) const;
    /// "work.p", "work.e(a)" as the need names it.
    std::string NameOf(const TNeedPlace& need) const;
    /// Of what an included file holds, with its path.
    TDiagnosticSource SourceOf(std::size_t source, const TSourcePlace& place) const;
    TDiagnosticSource SourceOf(TUnitPlace unit) const;
    TDiagnosticSource SourceOf(const TNeedPlace& need) const;
    /// The same as text: "path:line:column".
    template <class... T>
    std::string PlaceOf(const T&... thing) const {
        return GetSourcePlaceText(SourceOf(thing...));
    }
};
