#pragma once
#include "flows/scan/scannedfile.h"
#include <cstdint>
#include <string>
#include <vector>

/// One file of a design, scanned.
struct TDesignFile {
    std::string Library;  ///< that it is compiled into, in UTF-8
    TScannedFile Scan;
};
using TDesignFiles = std::vector<TDesignFile>;

/// A unit of a design: a file of it, and one of the file's units.
struct TUnitPlace {
    std::uint32_t File = 0;
    std::uint32_t Unit = 0;
    bool operator==(const TUnitPlace&) const = default;
};

/// In place of a unit: what stands outside of units.
inline constexpr std::uint32_t kOutsideUnits = 0xffffffff;

/// A need of a unit of a design, or of what stands outside of units in a file.
struct TNeedPlace {
    TUnitPlace Unit;
    std::uint32_t Need = 0;
    bool operator==(const TNeedPlace&) const = default;
};

const TDesignUnit& UnitAt(const TDesignFiles& files, TUnitPlace place);
const TUnitNeed& NeedAt(const TDesignFiles& files, TNeedPlace place);

/// A file that another one depends on, with the first need that tells so.
struct TLinkedFile {
    std::uint32_t File;
    TNeedPlace Need;
};

/// A unit that a need means.
struct TLinkedUnit {
    TUnitPlace Unit;
    TNeedPlace Need;
};

/// A unit that several files of one library declare. Needs mean that of their own file, else the
/// first.
struct TRepeatedUnit {
    std::vector<TUnitPlace> Places;  ///< at least two, one for each file
};

/// A unit that no file holds. The names are as written where it is needed first.
struct TMissingUnit {
    std::string Library;  ///< never "work"
    std::string Unit;
    std::string Secondary;  ///< an architecture; mostly empty
    TNeedPlace First;
    std::size_t Count;  ///< of the needs
    bool IsComponent;   ///< a component without an entity of its name: a configuration may bind it
};

/// A unit that is needed in a library other than that of its file, and which that one lacks.
struct TUnitElsewhere {
    TUnitPlace Unit;
    std::string Library;  ///< where it is needed, as written there; never "work"
    TNeedPlace First;
};

/// A unit of a file in another language, which no order of the files in one language holds.
struct TForeignNeed {
    TUnitPlace Unit;
    TNeedPlace Need;
};

/// What the needs of a design's files mean. All lists are in the order of the files.
struct TLinkedDesign {
    /// For each file those that have to be compiled before it, each once, in the order of the
    /// needs; never itself.
    std::vector<std::vector<TLinkedFile>> Dependencies;
    /// Unless it was asked for, empty: the units that each need means, in the order of the needs;
    /// also those that the file holds itself. Behind a unit comes the architecture or the body that
    /// has to be compiled before, too. A component may mean several entities.
    std::vector<TLinkedUnit> Units;
    std::vector<TRepeatedUnit> Repeated;
    std::vector<TMissingUnit> Missing;
    std::vector<TUnitElsewhere> Elsewhere;
    std::vector<TForeignNeed> Foreign;
    std::vector<TUnitPlace> Unneeded;  ///< primary units, but for those that may be top level
    std::vector<TUnitPlace>
        TopCandidates;  ///< entities, modules, programs that nobody instantiates
};

struct TLinkOptions {
    /// Libraries whose units are not looked for unless a file is compiled into them, besides those
    /// of the language's standards.
    std::vector<std::string> ExternalLibraries;
    bool KeepsUnits = false;  ///< whether it is told which units the needs mean
};
