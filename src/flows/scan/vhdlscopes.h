#pragma once
#include "flows/scan/vhdltoken.h"
#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// What an `end` closes. The design units come first.
enum class TVhdlScopeKind : unsigned char {
    Entity,
    Architecture,
    Configuration,
    Context,
    Verification,
    PackageInstance,  ///< closed by its semicolon
    Package,          ///< or its body; may be nested
    Subprogram,
    Component,
    Block,
    Process,
    Generate,
    If,
    Case,
    Loop,
    Record,
    Units,
    Protected,
    View,
    Configured,  ///< a block or component configuration
};

struct TVhdlScope {
    TVhdlScopeKind Kind = TVhdlScopeKind::Entity;
    TVhdlToken Name;  ///< of a unit, package or subprogram; the label of a generate alternative
    /// Of a configuration and a component configuration: what its component is bound to. The next
    /// configuration within names an architecture of that entity.
    bool ConfiguresArchitecture = false;
    bool IsBoundForCertain = false;
    std::string BoundLibrary;
    std::string BoundEntity;
};

/// The scopes that are open, the design unit outermost.
class TVhdlScopes {
public:
    TVhdlScope& Enter(TVhdlScopeKind kind, const TVhdlToken& name = {});
    /// Closes the innermost scope of a kind and those within. Returns false when there is none.
    bool Leave(TVhdlScopeKind kind);
    void Clear();

    bool IsEmpty() const { return Open.empty(); }
    std::size_t Depth() const { return Open.size(); }
    bool Has(TVhdlScopeKind kind) const { return Count(kind) > 0; }
    bool IsIn(TVhdlScopeKind kind) const { return !Open.empty() && Open.back().Kind == kind; }
    /// Whether concurrent statements stand here.
    bool IsConcurrent() const;
    /// The design unit and the innermost scope. There must be one.
    const TVhdlScope& Unit() const { return Open.front(); }
    TVhdlScope& Top() { return Open.back(); }
    /// An `if` or `case` turns out to generate.
    void ChangeTop(TVhdlScopeKind kind);

    /// The innermost scope that an `end` without a keyword may close, those within already closed
    /// as they lack their ends. Null when there is none: in a generate statement such an `end`
    /// closes one of its alternatives.
    const TVhdlScope* FindNamed();

private:
    static constexpr std::size_t kKinds = static_cast<std::size_t>(TVhdlScopeKind::Configured) + 1;
    std::size_t Count(TVhdlScopeKind kind) const { return Counts[static_cast<std::size_t>(kind)]; }
    void Pop();

    std::vector<TVhdlScope> Open;
    std::array<std::size_t, kKinds> Counts{};  // so that nothing is looked for that is not there
};
