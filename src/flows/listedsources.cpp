#include "flows/listedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"

std::vector<TListedSource> ListSources(const THdlBuildFile& build) {
    std::vector<TListedSource> sources;
    for (const THdlLanguageRecord& record : GetHdlLanguageTable())
        for (const IHdlSourceFile* file : *build.GetSourceFileGroup(record.Language))
            sources.push_back({record.Language, file});
    return sources;
}

std::vector<TListedSource> ListMissingSources(const THdlBuildFile& build) {
    std::vector<TListedSource> missing;
    if (build.GetReadResult() == 0) return missing;
    for (const TListedSource& source : ListSources(build))
        if (!source.File->GetFileName()->Exists()) missing.push_back(source);
    return missing;
}
