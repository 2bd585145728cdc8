#include "flows/listedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/base/progress.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"
#include "services/names/recordedstatus.h"

namespace {

std::size_t CountSources(const THdlBuildFile& build) {
    std::size_t count = 0;
    for (const THdlLanguageRecord& record : GetHdlLanguageTable())
        count += build.GetSourceFileGroup(record.Language)->size();
    return count;
}

bool IsMissing(const ISFileName& file) {
    // The read has asked the disk already.
    const auto status = FindStatusWhenLoaded(&file, kDefaultTimeStampKey);
    return !(status ? status->Exists : file.Exists());
}

}  // namespace

std::vector<TListedSource> ListSources(const THdlBuildFile& build) {
    std::vector<TListedSource> sources;
    sources.reserve(CountSources(build));
    for (const THdlLanguageRecord& record : GetHdlLanguageTable())
        for (const IHdlSourceFile* file : *build.GetSourceFileGroup(record.Language))
            sources.push_back({record.Language, file});
    return sources;
}

std::string LibraryOfSource(const IHdlSourceFile& source, const THdlBuildFile& build) {
    const std::string library = source.GetPrecompiledLibraryGroupName();
    return library.empty() ? GetDestinationLibraryName(build) : library;
}

std::vector<TListedSource> ListMissingSources(const THdlBuildFile& build) {
    std::vector<TListedSource> missing;
    if (build.GetReadResult() == 0) return missing;
    // Few for a report: a disk may be slow.
    TProgress progress(PROGRESS_CHECK_SOURCES, CountSources(build), 16);
    for (const THdlLanguageRecord& record : GetHdlLanguageTable())
        for (const IHdlSourceFile* file : *build.GetSourceFileGroup(record.Language)) {
            if (IsMissing(*file->GetFileName())) missing.push_back({record.Language, file});
            progress.Advance();
        }
    return missing;
}

std::string GetDestinationLibraryName(const THdlBuildFile& build) {
    const std::string library = build.GetDestinationLibrary();
    return library.empty() ? "work" : library;
}
