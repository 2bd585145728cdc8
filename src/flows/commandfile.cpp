#include "flows/commandfile.h"
#include "flows/listedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/files/filestatus.h"
#include "services/names/isfilename.h"
#include "services/names/recordedstatus.h"
#include <algorithm>
#include <cstring>
#include <sstream>
#include <string_view>

namespace {

std::string LinesOfWholePaths(const THdlBuildFile& build) {
    std::string lines;
    for (const IHdlSourceFile* source : *build.GetSourceFileGroup(LANGUAGE_VERILOG)) {
        if (!source->GetFileName() || source->IsExcludeFromBuild()) continue;
        if (source->IsLibrary()) lines += "-v ";
        std::string path = source->GetFileName()->Canonical(false);
        std::replace(path.begin(), path.end(), '\\', '/');
        lines += path + "\n";
    }
    return lines;
}

}  // namespace

bool TCommandFile::RunsTogether() const {
    static constexpr std::string_view kBlanks = " \t\r\n";
    return !Options.empty() && !Sources.empty() &&
           kBlanks.find(Options.back()) == std::string_view::npos;
}

TCommandFile MakeCommandFile(THdlBuildFile* build, const TCommandFileForm& form) {
    // Nothing is relative to no directory.
    if (form.Absolute)
        return {THdlBuildFile::GetVerilogCommandLineOptions(
                    "", build->GetProjectLanguageConfig(LANGUAGE_VERILOG),
                    build->GetGeneralConfiguration(), "", form.Gof),
                LinesOfWholePaths(*build)};
    build->SetGOFBuildFileFlag(form.Gof);
    TCommandFile file{build->GetVerilogCommandLineOptions(), ""};
    std::ostringstream sources;
    build->AddSourceFilesToCommandFile(sources, LANGUAGE_VERILOG);
    file.Sources = sources.str();
    return file;
}

bool IsSameFile(const ISFileName* one, const ISFileName* other) {
    return std::strcmp(one->CanonicalWithExpandedLinks(), other->CanonicalWithExpandedLinks()) == 0;
}

// Links are only looked through for files that look like the one at `path`: a build may list a
// million.
const IHdlSourceFile* FindSourceReplacedBy(const std::string& path, const THdlBuildFile& build) {
    const ISFileName* const file = ISFileName::NewISFileName(path.c_str());
    const TFileStatus status = LookAtFile(file->Canonical(false));
    for (const TListedSource& source : ListSources(build)) {
        const ISFileName* const name = source.File->GetFileName();
        if (!name) continue;
        if (name->IsEquivalent(*file)) return source.File;
        if (!status.Exists) continue;
        const auto recorded = FindStatusWhenLoaded(name, kDefaultTimeStampKey);
        if ((!recorded || *recorded == status) && IsSameFile(name, file)) return source.File;
    }
    return nullptr;
}
