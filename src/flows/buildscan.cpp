#include "flows/buildscan.h"
#include "buildfile/hdlbuildfile.h"
#include "flows/listedsources.h"
#include "flows/verilogoptions.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/files/filestatus.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/environment.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
#include "settings/projectsimlanguageconfig.h"
#include <unordered_set>

namespace {

constexpr auto kNobody = static_cast<std::size_t>(-1);

/// Whole paths, with the delimiter that ends them.
std::vector<std::string> FoldersOf(const std::vector<std::string>& directories,
                                   const THdlBuildFile& build) {
    std::vector<std::string> folders;
    for (const std::string& directory : ResolveOrvaneEnvVariables(directories)) {
        TUtilFileName name(build.GetProjectPath().c_str());
        name.PushDirectory(directory.c_str());
        folders.emplace_back(name.Canonical());
    }
    return folders;
}

TVerilogOptions VerilogOptionsOf(THdlBuildFile& build) {
    TVerilogOptions options;
    if (const TProjectSimLanguageConfig* const verilog =
            build.GetProjectLanguageConfig(LANGUAGE_VERILOG)) {
        options.IncludeFolders = verilog->GetIncludeDirectories();
        options.LibraryFolders = verilog->GetLibraryDirectories();
        options.LibraryExtensions = verilog->GetLibraryExtensions();
        AddVerilogOptions(build.GetCompileOptions(LANGUAGE_VERILOG), &options);
    }
    AddVerilogOptions(build.GetVerilogUserDefines(), &options);
    AddVerilogOptions(build.GetVerilogOtherPlusOptions(), &options);
    return options;
}

TScanOptions ScanOptionsOf(const TVerilogOptions& options, const THdlBuildFile& build) {
    return {options.Defines, FoldersOf(options.IncludeFolders, build)};
}

/// The names of what library files of the options hold.
std::unordered_set<std::string> NamesInLibraryFiles(const TVerilogOptions& options,
                                                    const THdlBuildFile& build) {
    std::vector<TSourceToScan> files;
    for (const std::string& file : ResolveOrvaneEnvVariables(options.LibraryFiles)) {
        TUtilFileName name(build.GetProjectPath().c_str());
        name.PushFileName(file.c_str());
        files.push_back({name.Canonical(), LANGUAGE_VERILOG, ""});
    }
    std::unordered_set<std::string> names;
    if (files.empty()) return names;
    for (const TDesignFile& file : ScanSources(files, ScanOptionsOf(options, build)).Files)
        for (const TDesignUnit& unit : file.Scan.Units) names.insert(unit.Name);
    return names;
}

/// Takes out the modules that simulators find in library files, and in library directories by the
/// names of the files there.
void DropThoseInLibraries(const TVerilogOptions& options, const THdlBuildFile& build,
                          const TDesignFiles& files, std::vector<TMissingUnit>* missing) {
    const std::vector<std::string> folders = FoldersOf(options.LibraryFolders, build);
    const std::unordered_set<std::string> held =
        missing->empty() ? std::unordered_set<std::string>() : NamesInLibraryFiles(options, build);
    std::erase_if(*missing, [&](const TMissingUnit& unit) {
        if (files[unit.First.Unit.File].Scan.Language != LANGUAGE_VERILOG) return false;
        if (held.contains(unit.Unit)) return true;
        for (const std::string& folder : folders)
            for (const std::string& extension : options.LibraryExtensions) {
                std::string path = folder;
                path.append(unit.Unit).append(extension);
                if (LookAtFile(path).Exists) return true;
            }
        return false;
    });
}

TSourceScan ScanAll(const std::vector<TScannedSource>& sources, const THdlBuildFile& build,
                    const TVerilogOptions& options) {
    std::vector<TSourceToScan> toScan;
    toScan.reserve(sources.size());
    for (const TScannedSource& source : sources)
        toScan.push_back({source.Source->GetFileName()->Canonical(false), source.Group,
                          LibraryOfSource(*source.Source, build)});
    return ScanSources(toScan, ScanOptionsOf(options, build));
}

}  // namespace

TBuildScan::TBuildScan(THdlBuildFile& build, const TLinkOptions& options) {
    for (const THdlLanguageRecord& record : GetHdlLanguageTable())
        for (IHdlSourceFile* const source : *build.GetSourceFileGroup(record.Language))
            Sources.push_back({record.Language, source});
    const TVerilogOptions verilog = VerilogOptionsOf(build);
    Scan = ScanAll(Sources, build, verilog);
    Design = TNeedLinker(Scan.Files, options).Link();
    DropThoseInLibraries(verilog, build, Scan.Files, &Design.Missing);
    Compare();
}

void TBuildScan::Compare() {
    for (std::size_t number = 0; number < Sources.size(); ++number)
        Numbers.try_emplace(Sources[number].Source, number);
    RecordedBy.assign(Sources.size(), kNobody);
    FoundBy.assign(Sources.size(), kNobody);
    for (std::size_t number = 0; number < Sources.size(); ++number) {
        TDependencyDifference difference = Compare(number);
        if (!difference.Lacking.empty() || !difference.Unexplained.empty())
            Differences.push_back(std::move(difference));
    }
}

/// kNobody for a source that no group lists.
std::size_t TBuildScan::NumberOf(const IHdlSourceFile* source) const {
    const auto found = Numbers.find(source);
    return found == Numbers.end() ? kNobody : found->second;
}

TDependencyDifference TBuildScan::Compare(std::size_t number) {
    TDependencyDifference difference{number, {}, {}};
    const IHdlSourceFile& source = *Sources[number].Source;
    const bool isScanned = CanScanLanguage(Sources[number].Group) && Scan.Reasons[number].empty();
    if (!isScanned) return difference;
    // What two groups list is one source, which the build has once.
    const std::vector<TLinkedFile>& found = Design.Dependencies[number];
    for (const TLinkedFile& linked : found) FoundBy[NumberOf(Sources[linked.File].Source)] = number;
    if (const TIHdlSourceFileList* const recorded = source.GetDependencyList())
        for (IHdlSourceFile* const dependency : *recorded) {
            const std::size_t known = NumberOf(dependency);
            if (known != kNobody) RecordedBy[known] = number;
            if (known == kNobody || FoundBy[known] != number)
                difference.Unexplained.push_back(dependency);
        }
    for (const TLinkedFile& linked : found)
        if (RecordedBy[NumberOf(Sources[linked.File].Source)] != number)
            difference.Lacking.push_back(linked);
    return difference;
}
