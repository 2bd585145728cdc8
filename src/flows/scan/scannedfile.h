#pragma once
#include "flows/scan/sourceplace.h"
#include "services/hdl/hdllanguage.h"
#include <string>
#include <vector>

class TIncludeFiles;
class TIncludeIndex;

/// What can be compiled on its own and be needed by others.
enum class TDesignUnitKind {
    Entity,
    Architecture,
    Package,
    PackageBody,
    PackageInstance,
    Configuration,
    Context,
    Verification,  ///< a verification unit of PSL
    Module,
    Interface,
    Program,
    Primitive,  ///< user-defined
    Class,      ///< outside of modules and packages
    Checker,
};

/// How a design unit needs another. What follows from a kind is a row of GetNeedRule.
enum class TNeedKind {
    Primary,        ///< a secondary unit its primary one; a configuration its entity
    Use,            ///< use clause
    Context,        ///< context reference
    Selected,       ///< a name like library.package.item, without a use clause
    Entity,         ///< direct instantiation, or a configuration specification
    Configuration,  ///< instantiation, or a binding
    Generic,        ///< instantiates the package, or a subprogram in it, with actual generics
    Package,        ///< of an interface package: its actual one instantiates this one
    Architecture,   ///< a configuration configures this architecture
    Binding,        ///< a configuration binds a component to this entity
    Component,      ///< instantiation of a component
    Import,         ///< of a package, whole or an item of it
    Scope,          ///< a name like package::item or class::item
    Extends,        ///< a class its base, or an interface class
    Class,          ///< a name of a type, which may be a class outside of packages
    Instance,       ///< of a module, interface, program, primitive or checker
    Interface,      ///< of a port, or a virtual one
    Bind,           ///< the module or instance into which an instance is bound
    Design,         ///< a configuration the top of its design
    Cell,           ///< what a configuration puts in the place of a cell or an instance
};

/// One row of the table of needs.
struct TNeedRule {
    TNeedKind Kind;
    const char* Name;      ///< in lists, unique
    bool OrdersFiles;      ///< the unit has to be compiled before
    bool OrdersSecondary;  ///< and so has its architecture, if one is named
    bool OrdersBody;       ///< and so has its package body, if there is one
    bool IsInstantiation;  ///< the unit is no top level then
};

const TNeedRule& GetNeedRule(TNeedKind kind);
/// "package body" and the like. Static.
const char* GetDesignUnitKindName(TDesignUnitKind kind);

/// One unit that another needs. Names are as written, in UTF-8; a Verilog name that is escaped
/// without need comes without its backslash, others with it, so that equal names have equal texts.
struct TUnitNeed {
    TNeedKind Kind;
    /// Whether it is one for sure. In VHDL: whether `Library` is known to be the name of a library.
    /// If not, it may be a library that the primary unit or a context declaration makes visible, or
    /// else a package that a use clause of a whole library does, or no need at all: the prefix of a
    /// record's element looks the same. In Verilog: not where the name may be one of the file's own
    /// or of an imported package, nor where the source is left out under conditions that nobody has
    /// decided.
    bool IsCertain;
    std::string Library;    ///< logical name, "work" for the file's own; empty when none is named
    std::string Unit;       ///< empty in the use of a whole library
    std::string Secondary;  ///< an architecture; mostly empty
    TSourcePlace Place;
};

/// One design unit. Names are as written, in UTF-8.
struct TDesignUnit {
    TDesignUnitKind Kind;
    std::string Name;
    std::string Primary;                 ///< of an architecture its entity; of a configuration, too
    TSourcePlace Place;                  ///< of its name
    std::vector<std::string> Libraries;  ///< that its context clause names, without inherited ones
    std::vector<TUnitNeed> Needs;        ///< each once, where it stands first, in that order
    /// False where the unit is left out under conditions that nobody has decided.
    bool IsCertain = true;
};

/// A file that another one includes.
struct TScannedInclude {
    std::string Name;       ///< as written, in UTF-8, without its quotes
    bool IsAngled = false;  ///< it stands in angle brackets
    bool IsCertain = true;  ///< as in the units
    std::string Path;       ///< of the file that was read, as the reader knows it; empty for none
    TSourcePlace Place;     ///< of the name
};

/// What a scan finds in one source, whatever its language.
struct TScannedFile {
    THdlLanguage Language = LANGUAGE_NONE;
    std::vector<TDesignUnit> Units;         ///< in the order of the file
    std::vector<TUnitNeed> Needs;           ///< of what stands outside of units, as in a unit
    std::vector<TScannedInclude> Includes;  ///< also those of included files, as they come
};

/// A name that conditions in sources may ask for, such as a tool's, with its value.
struct TScanDefine {
    std::string Name;
    std::string Value;  ///< "" without one
    bool operator==(const TScanDefine&) const = default;
};

struct TScanOptions {
    std::vector<TScanDefine> Defines;
    /// Where included files are looked for, behind the folder of the including one.
    std::vector<std::string> IncludeFolders = {};
    /// Where one is looked for that none of these folders has. Null: nowhere.
    const TIncludeIndex* Elsewhere = nullptr;
    /// Reads included files; shared by the scans of a set. Null reads none.
    TIncludeFiles* Includes = nullptr;
};
