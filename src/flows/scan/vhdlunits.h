#pragma once
#include "flows/scan/scannedfile.h"
#include "flows/scan/vhdltokens.h"
#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// A name of parts with dots between them, such as a selected one.
struct TVhdlName {
    std::array<TVhdlToken, 3> Parts;  ///< the first ones
    std::size_t Count = 0;
    bool EndsInAll = false;  ///< "all" stands behind them
};

/// Gathers the units of a file, and tells which names are libraries in them.
class TVhdlUnits {
public:
    /// Keeps both, not copies.
    TVhdlUnits(std::string_view text, TVhdlTokens* tokens);

    /// What is added without a unit is part of the context clause of the next one.
    bool HasUnit() const { return IsInUnit; }
    /// Begins a unit. `name` and `primary`, null for none, are identifiers.
    void Begin(TDesignUnitKind kind, const TVhdlToken& name, const TVhdlToken* primary = nullptr);
    void End();

    void AddLibrary(const TVhdlToken& name);
    /// The name may mean something else until the scopes are left down to `depth`, which is at
    /// least 1; outside of units it is part of the context clause.
    void Declare(const TVhdlToken& name, std::size_t depth);
    /// The same, for a name that may be sought in vain as that of a library or unit, such as a
    /// package's.
    void DeclarePrefix(const TVhdlToken& name, std::size_t depth);
    void LeaveScopes(std::size_t depth);

    void AddUse(const TVhdlName& name, std::size_t depth);
    void AddContext(const TVhdlName& name);
    void AddSelected(const TVhdlName& name, TNeedKind kind = TNeedKind::Selected);
    /// The package that another one is an instance of.
    void AddPackage(const TVhdlName& name, TNeedKind kind);
    void AddComponent(const TVhdlName& name);
    /// An entity or configuration, the former with an architecture, null for none.
    void AddInstance(TNeedKind kind, const TVhdlName& name, const TVhdlToken* architecture);
    /// `IsCertain` and the texts as in the need; the place is that of `token`.
    void Add(TNeedKind kind, bool isCertain, std::string_view library, std::string_view unit,
             std::string_view secondary, const TVhdlToken& token);

    std::string NameOf(const TVhdlToken& token) const { return Tokens.NameOf(token); }
    bool IsLibrary(const std::string& foldedName) const;
    std::vector<TDesignUnit> TakeUnits();

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    struct THash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };
    /// What is visible in a unit, by its folded name.
    struct TVisible {
        std::set<std::string> Libraries;
        std::set<std::string> Declared;
        std::size_t Primary = kNone;  // its context clause counts here as well
        bool MayInherit = false;      // from what is not in this file
    };

    std::string FoldedNameOf(const TVhdlToken& token) const;
    TVisible& Visible() { return VisibleIn.back(); }
    TDesignUnit& Current() { return IsInUnit ? Units.back() : Pending; }
    void Inherit(TDesignUnitKind kind, const TVhdlToken& name, const TVhdlToken* primary);
    bool IsDeclared(const std::string& foldedName) const;
    bool MayInherit() const;

    TVhdlTokens& Tokens;
    TSourceLines Lines;
    std::vector<TDesignUnit> Units;
    TDesignUnit Pending{};
    bool IsInUnit = false;
    std::vector<TVisible> VisibleIn;  // the units, then the context clause of the next one
    std::unordered_map<std::string, std::size_t> Entities, Packages;  // by folded name
    struct TNested {
        std::size_t Depth;
        std::map<std::string, std::size_t>::iterator Name;
    };
    std::map<std::string, std::size_t> NestedNames;  // with how often each is declared
    std::vector<TNested> Nested;
    std::unordered_set<std::string, THash, std::equal_to<>> Known;  // needs, with their units
    std::string Key;
};
