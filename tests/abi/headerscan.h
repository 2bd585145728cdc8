#pragma once
#include <map>
#include <set>
#include <string>

/// One operation as its class declares it, told apart from others by what both a declaration and a
/// demangled symbol show.
struct TOperation {
    std::string Name;         ///< without class
    int Parameters = 0;       ///< those with defaults included; -1 for a static field
    bool IsConstant = false;  ///< a const member function

    auto operator<=>(const TOperation&) const = default;
};

/// A class that a header marks for export.
struct TScannedClass {
    /// The public operations and static fields that have a definition: not the pure, deleted and
    /// template ones. With how many of each there are.
    std::map<TOperation, int> Public;
    /// The names of all operations, whatever their access.
    std::set<std::string> Names;
};

struct THeaderScan {
    std::map<std::string, TScannedClass> Classes;  ///< by full name
    std::set<std::string> Functions;               ///< and objects, outside classes, by full name
};

/// What the library's headers mark for export.
const THeaderScan& ScannedHeaders();

/// The operation that a demangled symbol "Class::Name(...)" is, once "Class::" is off.
TOperation OperationOf(const std::string& text);
