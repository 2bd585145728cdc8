#include "flows/scan/scannedfile.h"
#include <array>
#include <cstddef>

namespace {

constexpr std::array kNeedRules = {
    TNeedRule{TNeedKind::Primary, "primary", true, true, false, false},
    TNeedRule{TNeedKind::Use, "use", true, false, false, false},
    TNeedRule{TNeedKind::Context, "context", true, false, false, false},
    TNeedRule{TNeedKind::Selected, "selected", true, false, false, false},
    // The architecture is looked for when the design is elaborated.
    TNeedRule{TNeedKind::Entity, "entity", true, false, false, true},
    TNeedRule{TNeedKind::Configuration, "configuration", true, false, false, true},
    // Compilers copy the body into the instance.
    TNeedRule{TNeedKind::Generic, "generic", true, false, true, false},
    TNeedRule{TNeedKind::Package, "package", true, false, false, false},
    TNeedRule{TNeedKind::Architecture, "architecture", true, true, false, false},
    TNeedRule{TNeedKind::Binding, "binding", true, true, false, true},
    TNeedRule{TNeedKind::Component, "component", false, false, false, true},
    TNeedRule{TNeedKind::Import, "import", true, false, false, false},
    TNeedRule{TNeedKind::Scope, "scope", true, false, false, false},
    TNeedRule{TNeedKind::Extends, "extends", true, false, false, false},
    TNeedRule{TNeedKind::Class, "class", true, false, false, false},
    // Modules are looked for when the design is elaborated, whatever the order of the files.
    TNeedRule{TNeedKind::Instance, "instance", false, false, false, true},
    TNeedRule{TNeedKind::Interface, "interface", false, false, false, false},
    TNeedRule{TNeedKind::Bind, "bind", false, false, false, false},
    TNeedRule{TNeedKind::Design, "design", false, false, false, false},
    TNeedRule{TNeedKind::Cell, "cell", false, false, false, true},
};

constexpr std::array kUnitKindNames = {"entity",
                                       "architecture",
                                       "package",
                                       "package body",
                                       "package instance",
                                       "configuration",
                                       "context",
                                       "verification unit",
                                       "module",
                                       "interface",
                                       "program",
                                       "primitive",
                                       "class",
                                       "checker"};

constexpr bool AreInOrder() {
    for (std::size_t row = 0; row < kNeedRules.size(); ++row)
        if (static_cast<std::size_t>(kNeedRules[row].Kind) != row) return false;
    return true;
}
static_assert(AreInOrder());

}  // namespace

const TNeedRule& GetNeedRule(TNeedKind kind) {
    return kNeedRules[static_cast<std::size_t>(kind)];
}

const char* GetDesignUnitKindName(TDesignUnitKind kind) {
    return kUnitKindNames[static_cast<std::size_t>(kind)];
}
