#pragma once
#include "bench/builds/dependencygraph.h"
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

/// A language with its share of the files of a build: languages of weights 4 and 1 have four and
/// one fifth of them.
struct TLanguageShare {
    std::string Language;  ///< as the build file names it
    std::uint32_t Weight = 1;
};

/// What a generated build is like. Equal options give equal builds, on every system.
struct TGeneratedBuildOptions {
    std::uint32_t Files = 100;
    TShape Shape = TShape::RANDOM;
    std::uint32_t Dependencies = 4;  ///< of a source, on average
    std::uint64_t Seed = 1;
    std::vector<TLanguageShare> Languages = {{"VHDL", 1}};
    std::uint32_t Missing = 0;  ///< so many of the files are listed, but not there
};

/// The languages that a generated build can have.
std::vector<std::string> GetGeneratedLanguages();

/// A build file with sources in a tree of folders, whose names have upper and lower case, some
/// blanks and a few ampersands. Sources and dependencies are listed in an order that says nothing
/// about the compile order.
class TGeneratedBuild {
public:
    /// Every language must be one of GetGeneratedLanguages, and one must have a weight.
    explicit TGeneratedBuild(const TGeneratedBuildOptions& options);

    void WriteDocument(std::ostream& out) const;
    /// Makes the files that are not missing, each with a comment line. False when one cannot be
    /// made.
    bool WriteSources(const std::filesystem::path& folder) const;

    std::uint32_t GetFileCount() const;
    std::size_t GetDependencyCount() const;

private:
    struct TGroup {
        std::string Language;
        std::vector<std::string> Paths;  // by number in the graph
        TDependencyGraph Graph;
        std::vector<std::uint32_t> Listed;  // the numbers in the order of the document
    };
    void WriteGroup(const TGroup& group, std::ostream& out) const;

    std::vector<TGroup> Groups;
    std::uint32_t Missing;
};
