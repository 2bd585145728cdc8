#pragma once
#include "flows/linking/linkeddesign.h"
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// What Verilog keeps apart by names of their own.
enum class TVerilogNames : char {
    Definitions = 'd',  ///< modules and all that is instantiated like one
    Packages = 'k',
    Classes = 'c',  ///< outside of modules and packages
};

/// Which file of a design holds a unit. Names of VHDL and of libraries are asked for folded, those
/// of Verilog as they are. Of a unit that several files of a library hold, the one of the asking
/// file is meant, else the first.
class TUnitIndex {
public:
    using TUnits = std::vector<TUnitPlace>;

    /// Keeps `files`, not a copy.
    explicit TUnitIndex(const TDesignFiles& files);

    const TDesignFiles& GetFiles() const { return Files; }
    /// The folded name of the library that a file is compiled into.
    const std::string& LibraryOf(std::uint32_t file) const { return Libraries[file]; }
    bool HasLibrary(const std::string& library) const { return KnownLibraries.contains(library); }

    // Units of VHDL.
    std::optional<TUnitPlace> FindPrimary(const std::string& library, const std::string& unit,
                                          std::uint32_t askingFile) const;
    std::optional<TUnitPlace> FindArchitecture(const std::string& library,
                                               const std::string& entity,
                                               const std::string& architecture,
                                               std::uint32_t askingFile) const;
    std::optional<TUnitPlace> FindPackageBody(const std::string& library,
                                              const std::string& package,
                                              std::uint32_t askingFile) const;
    /// The primary units of that name in all libraries.
    const TUnits& FindInAllLibraries(const std::string& unit) const;

    /// A unit of Verilog, in that library or else in the first that has one.
    std::optional<TUnitPlace> FindVerilog(TVerilogNames names, const std::string& library,
                                          const std::string& unit, std::uint32_t askingFile) const;
    /// A module, or what is instantiated like one, that a name of VHDL may mean.
    std::optional<TUnitPlace> FindModule(const std::string& foldedName) const;

    /// Those that stand in the files themselves, not in included ones, and for sure.
    std::vector<TRepeatedUnit> ListRepeated() const;

private:
    /// The units of one name, in one library.
    struct TEntry {
        TUnitPlace First;
        std::size_t Repeated;  // its list, or kNone
    };
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    void Add(TUnitPlace place);
    void AddVerilog(TUnitPlace place);
    void AddNamed(const std::string& key, TUnitPlace place);
    std::optional<TUnitPlace> Find(const std::string& key, std::uint32_t askingFile) const;

    const TDesignFiles& Files;
    std::vector<std::string> Libraries;  // of the files
    std::unordered_set<std::string> KnownLibraries;
    std::unordered_map<std::string, TEntry> Entries;
    std::unordered_map<std::string, TUnitPlace> InTheirFiles;  // those that are repeated
    std::vector<TUnits> Repeated;
    std::unordered_map<std::string, TUnits> ByName;           // of VHDL
    std::unordered_map<std::string, TUnitPlace> FirstByName;  // of Verilog
    std::unordered_map<std::string, TUnitPlace> ModulesByFoldedName;
};
