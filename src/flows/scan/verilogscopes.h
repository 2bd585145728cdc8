#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// What its own word ends. The first ones may be design units.
enum class TVerilogScopeKind : unsigned char {
    Module,
    Interface,
    Program,
    Package,
    Primitive,
    Class,
    Config,
    Checker,
    Subprogram,
    Passive,  ///< a property, sequence, clocking, covergroup, specify block or table
    File,
};

/// The scopes of a source, as a tree: whoever keeps the number of one can go back to it.
class TVerilogScopes {
public:
    using TNumber = std::uint32_t;

    /// That of the file, which stays open.
    static constexpr TNumber kFile = 0;
    static constexpr std::size_t kNoUnit = static_cast<std::size_t>(-1);

    TVerilogScopes();

    /// Opens a scope within another one; a `unit` of kNoUnit is that of the outer scope.
    TNumber Enter(TNumber outer, TVerilogScopeKind kind, std::size_t unit);
    /// The scope around the innermost one of a kind; `scope` itself when there is none of it.
    TNumber Leave(TNumber scope, TVerilogScopeKind kind) const;

    TVerilogScopeKind Kind(TNumber scope) const { return Nodes[scope].Kind; }
    /// kNoUnit outside of units.
    std::size_t Unit(TNumber scope) const { return Nodes[scope].Unit; }
    bool IsIn(TNumber scope, TVerilogScopeKind kind) const { return Innermost(scope, kind) != 0; }

private:
    static constexpr std::size_t kKinds = static_cast<std::size_t>(TVerilogScopeKind::File);
    struct TNode {
        TVerilogScopeKind Kind;
        TNumber Outer;
        std::size_t Unit;
        std::array<TNumber, kKinds> Innermost;  // of each kind; 0 for none
    };
    TNumber Innermost(TNumber scope, TVerilogScopeKind kind) const {
        return Nodes[scope].Innermost[static_cast<std::size_t>(kind)];
    }

    std::vector<TNode> Nodes;
};
