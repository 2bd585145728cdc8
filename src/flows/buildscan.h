#pragma once
#include "flows/linking/needlinker.h"
#include "flows/linking/sourcescan.h"
#include <string>
#include <vector>

class IHdlSourceFile;
class THdlBuildFile;

/// A source of a build that is scanned; its number is that of the file in the design.
struct TScannedSource {
    THdlLanguage Group;
    IHdlSourceFile* Source;
};

/// How the recorded dependencies of a source differ from those that the scan finds.
struct TDependencyDifference {
    std::size_t Source;                        ///< its number
    std::vector<TLinkedFile> Lacking;          ///< found, but not recorded
    std::vector<IHdlSourceFile*> Unexplained;  ///< recorded, but not found
};

/// What the sources of a build tell of their dependencies.
class TBuildScan {
public:
    /// Reads and scans the sources of all groups. A source is in the library that it names, else in
    /// the build's destination library, else in "work". Keeps the sources of `build`.
    TBuildScan(THdlBuildFile& build, const TLinkOptions& options);

    /// In ascending order of language, then in group order.
    const std::vector<TScannedSource>& GetSources() const { return Sources; }
    const TDesignFiles& GetFiles() const { return Scan.Files; }
    /// For each source why it could not be read; "" when it was.
    const std::vector<std::string>& GetReasons() const { return Scan.Reasons; }
    const TLinkedDesign& GetDesign() const { return Design; }
    /// Of the sources that differ, in their order. A source that could not be scanned explains all
    /// that it records.
    const std::vector<TDependencyDifference>& GetDifferences() const { return Differences; }

private:
    void Compare();
    TDependencyDifference Compare(std::size_t number);
    std::size_t NumberOf(const IHdlSourceFile* source) const;

    std::vector<TScannedSource> Sources;
    TSourceScan Scan;
    TLinkedDesign Design;
    std::vector<TDependencyDifference> Differences;
    // Of the comparison: which number last had the source as a dependency.
    std::unordered_map<const IHdlSourceFile*, std::size_t> Numbers;
    std::vector<std::size_t> RecordedBy;
    std::vector<std::size_t> FoundBy;
};
