#pragma once
#include "flows/scan/scannedfile.h"
#include "flows/scan/verilogneedset.h"
#include "flows/scan/verilogpreprocessor.h"
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// Gathers the units of a Verilog file and what they need.
class TVerilogUnits {
public:
    /// Stands for what is outside of units.
    static constexpr std::size_t kFile = static_cast<std::size_t>(-1);

    /// Keeps both, not copies; fills `*file`.
    TVerilogUnits(TVerilogPreprocessor* source, TScannedFile* file);

    /// Begins a unit and returns its number. One that stands there already, under conditions that
    /// nobody has decided, is gone on with.
    std::size_t Begin(TDesignUnitKind kind, const TVerilogToken& name);

    /// A type's name that the file gives itself: it needs nobody for it.
    void Declare(const TVerilogToken& name);
    /// All that packages hold may be meant by a name from now on.
    void ImportAll(std::size_t unit);

    /// Adds a need, `isCertain` unless conditions make it uncertain. `library`, null for none, is
    /// an identifier as well.
    void Add(std::size_t unit, TNeedKind kind, const TVerilogToken& name, bool isCertain = true,
             const TVerilogToken* library = nullptr);
    /// The same for a name that a type of the file or of an imported package may have as well.
    void AddUnlessDeclared(std::size_t unit, TNeedKind kind, const TVerilogToken& name,
                           bool isCertain = true);

private:
    struct THash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };
    using TNames = std::unordered_set<std::string, THash, std::equal_to<>>;

    TVerilogPreprocessor& Source;
    TScannedFile& File;
    TNames Declared;
    TVerilogNeedSet Known;
    std::unordered_map<std::string, std::size_t> Numbers;  // of units, by kind and name
    std::unordered_set<std::size_t> Importing;             // units that import whole packages
};
