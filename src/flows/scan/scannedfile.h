#pragma once
#include "flows/scan/sourceplace.h"
#include "services/hdl/hdllanguage.h"
#include <string>
#include <vector>

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

/// One unit that another needs. Names are as written, in UTF-8.
struct TUnitNeed {
    TNeedKind Kind;
    /// Whether `Library` is known to be the name of a library. If not, it may be a library that the
    /// primary unit or a context declaration makes visible, or else a package that a use clause of
    /// a whole library does, or no need at all: the prefix of a record's element looks the same.
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
};

/// What a scan finds in one source, whatever its language.
struct TScannedFile {
    THdlLanguage Language = LANGUAGE_NONE;
    std::vector<TDesignUnit> Units;  ///< in the order of the file
};

/// A name that conditions in sources may ask for, such as a tool's, with its value.
struct TScanDefine {
    std::string Name;
    std::string Value;
};

struct TScanOptions {
    std::vector<TScanDefine> Defines;
};
