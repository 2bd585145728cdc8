#include "cli/questions/sourcenames.h"
#include "flows/nearestnames.h"
#include "flows/scan/asciicase.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"

namespace {

// Of files that have one name in many folders, as many are told.
constexpr std::size_t kMostNearestNamed = 10;

std::string NameOf(const ISFileName* file) {
    const std::string path = file->Canonical(false);
    return FoldAscii(path.substr(path.find_last_of("/\\") + 1));
}

/// Files of that name in other folders, else those whose paths are nearly the same.
std::vector<std::string> NearestFiles(const std::string& path, const TBuildNeeds& needs,
                                      const TPathForm& form) {
    const ISFileName* const wanted = ISFileName::NewISFileName(path.c_str());
    const std::string name = NameOf(wanted);
    std::vector<std::string> namesakes;
    std::vector<std::string> all;
    for (const IHdlSourceFile* const file : needs.GetFiles()) {
        if (!file->GetFileName()) continue;
        all.push_back(PathText(file->GetFileName(), form));
        if (NameOf(file->GetFileName()) == name) namesakes.push_back(all.back());
    }
    return namesakes.empty() ? NearestNames(PathText(wanted, form), all) : namesakes;
}

}  // namespace

std::optional<std::uint32_t> FindNamedFile(const std::string& path, const TBuildNeeds& needs,
                                           const TPathForm& form, const TToolStreams& streams) {
    if (const auto file = needs.FindFile(ISFileName::NewISFileName(path.c_str()))) return file;
    std::vector<std::string> nearest = NearestFiles(path, needs, form);
    const std::size_t more =
        nearest.size() > kMostNearestNamed ? nearest.size() - kMostNearestNamed : 0;
    nearest.resize(nearest.size() - more);
    if (more > 0) nearest.push_back(std::to_string(more) + " more");
    ReportError(streams, path + " is no source of the build" +
                             (nearest.empty() ? "" : "; nearest: " + JoinChoices(nearest)));
    return std::nullopt;
}
