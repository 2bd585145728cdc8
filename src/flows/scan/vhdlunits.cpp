#include "flows/scan/vhdlunits.h"
#include "flows/scan/vhdlnames.h"
#include <utility>

TVhdlUnits::TVhdlUnits(std::string_view text, TVhdlTokens* tokens)
    : Tokens(*tokens), Lines(text), VisibleIn(1) {}

std::string TVhdlUnits::FoldedNameOf(const TVhdlToken& token) const {
    return FoldVhdlName(NameOf(token));
}

void TVhdlUnits::Begin(TDesignUnitKind kind, const TVhdlToken& name, const TVhdlToken* primary) {
    End();
    Units.push_back(std::exchange(Pending, {}));
    IsInUnit = true;
    TDesignUnit& unit = Units.back();
    unit.Kind = kind;
    unit.Name = NameOf(name);
    unit.Place = Lines.Find(name.Offset);
    if (primary) unit.Primary = NameOf(*primary);
    Inherit(kind, name, primary);
    // Within the unit its own name is a prefix as well: unit.item.
    Visible().Declared.insert(FoldVhdlName(unit.Name));
}

/// Secondary units inherit the context clause of their primary one, of this file or of another.
void TVhdlUnits::Inherit(TDesignUnitKind kind, const TVhdlToken& name, const TVhdlToken* primary) {
    const std::size_t number = Units.size() - 1;
    if (kind == TDesignUnitKind::Entity) Entities[FoldedNameOf(name)] = number;
    if (kind == TDesignUnitKind::Package) Packages[FoldedNameOf(name)] = number;
    const bool isOfPackage = kind == TDesignUnitKind::PackageBody;
    if (!isOfPackage && kind != TDesignUnitKind::Architecture &&
        kind != TDesignUnitKind::Verification)
        return;
    const auto& primaries = isOfPackage ? Packages : Entities;
    const auto found = primary ? primaries.find(FoldedNameOf(*primary)) : primaries.end();
    if (found == primaries.end())
        Visible().MayInherit = true;
    else
        Visible().Primary = found->second;
}

void TVhdlUnits::End() {
    if (!IsInUnit) return;
    LeaveScopes(0);
    IsInUnit = false;
    VisibleIn.emplace_back();
}

std::vector<TDesignUnit> TVhdlUnits::TakeUnits() {
    End();
    return std::move(Units);
}

void TVhdlUnits::AddLibrary(const TVhdlToken& name) {
    if (Visible().Libraries.insert(FoldedNameOf(name)).second)
        Current().Libraries.push_back(NameOf(name));
}

void TVhdlUnits::Declare(const TVhdlToken& name, std::size_t depth) {
    if (MayInherit() || IsLibrary(FoldedNameOf(name))) DeclarePrefix(name, depth);
}

void TVhdlUnits::DeclarePrefix(const TVhdlToken& name, std::size_t depth) {
    if (depth <= 1) {
        Visible().Declared.insert(FoldedNameOf(name));
        return;
    }
    const auto entry = NestedNames.try_emplace(FoldedNameOf(name), 0).first;
    ++entry->second;
    Nested.push_back({depth, entry});
}

void TVhdlUnits::LeaveScopes(std::size_t depth) {
    for (; !Nested.empty() && Nested.back().Depth > depth; Nested.pop_back())
        if (--Nested.back().Name->second == 0) NestedNames.erase(Nested.back().Name);
}

bool TVhdlUnits::IsDeclared(const std::string& foldedName) const {
    const TVisible& visible = VisibleIn.back();
    return visible.Declared.contains(foldedName) || NestedNames.contains(foldedName) ||
           (visible.Primary != kNone && VisibleIn[visible.Primary].Declared.contains(foldedName));
}

bool TVhdlUnits::IsLibrary(const std::string& foldedName) const {
    const TVisible& visible = VisibleIn.back();
    return foldedName == "work" || foldedName == "std" || visible.Libraries.contains(foldedName) ||
           (visible.Primary != kNone && VisibleIn[visible.Primary].Libraries.contains(foldedName));
}

bool TVhdlUnits::MayInherit() const {
    const TVisible& visible = VisibleIn.back();
    return visible.MayInherit ||
           (visible.Primary != kNone && VisibleIn[visible.Primary].MayInherit);
}

void TVhdlUnits::Add(TNeedKind kind, bool isCertain, std::string_view library,
                     std::string_view unit, std::string_view secondary, const TVhdlToken& token) {
    Key = std::to_string(VisibleIn.size());
    Key += static_cast<char>('a' + static_cast<int>(kind));
    Key += isCertain ? '+' : '-';
    for (const std::string_view name : {library, unit, secondary}) {
        AppendFoldedVhdlName(name, &Key);
        Key += '\n';
    }
    if (Known.find(std::string_view(Key)) != Known.end()) return;
    Known.insert(Key);
    Current().Needs.push_back({kind, isCertain, std::string(library), std::string(unit),
                               std::string(secondary), Lines.Find(token.Offset)});
}

void TVhdlUnits::AddUse(const TVhdlName& name, std::size_t depth) {
    if (name.Count == 0 || IsDeclared(FoldedNameOf(name.Parts[0]))) return;
    const std::string first = NameOf(name.Parts[0]);
    const std::string second = name.Count > 1 ? NameOf(name.Parts[1]) : "";
    const bool isLibrary = IsLibrary(FoldVhdlName(first));
    if (second.empty() && !name.EndsInAll) return;
    Add(TNeedKind::Use, isLibrary, first, second, "", name.Parts[0]);
    // All its packages may be prefixes now.
    if (second.empty()) Visible().MayInherit = true;
    if (isLibrary && !name.EndsInAll) DeclarePrefix(name.Parts[name.Count - 1], depth);
}

void TVhdlUnits::AddContext(const TVhdlName& name) {
    if (name.Count < 2) return;
    const std::string library = NameOf(name.Parts[0]);
    Add(TNeedKind::Context, IsLibrary(FoldVhdlName(library)), library, NameOf(name.Parts[1]), "",
        name.Parts[0]);
    Visible().MayInherit = true;
}

void TVhdlUnits::AddSelected(const TVhdlName& name, TNeedKind kind) {
    if (name.Count < 2) return;
    const std::string first = NameOf(name.Parts[0]);
    const std::string folded = FoldVhdlName(first);
    if (IsDeclared(folded)) return;
    const bool isLibrary = IsLibrary(folded);
    if (isLibrary || MayInherit())
        Add(kind, isLibrary, first, NameOf(name.Parts[1]), "", name.Parts[0]);
}

void TVhdlUnits::AddPackage(const TVhdlName& name, TNeedKind kind) {
    if (name.Count == 0) return;
    const std::string first = NameOf(name.Parts[0]);
    const std::string folded = FoldVhdlName(first);
    // A name alone may be declared by a use clause.
    if (name.Count == 1)
        Add(kind, false, "", first, "", name.Parts[0]);
    else if (!IsDeclared(folded))
        Add(kind, IsLibrary(folded), first, NameOf(name.Parts[1]), "", name.Parts[0]);
}

void TVhdlUnits::AddComponent(const TVhdlName& name) {
    if (name.Count == 0) return;
    AddSelected(name);
    const TVhdlToken& last = name.Parts[name.Count - 1];
    Add(TNeedKind::Component, true, "", NameOf(last), "", last);
}

void TVhdlUnits::AddInstance(TNeedKind kind, const TVhdlName& name,
                             const TVhdlToken* architecture) {
    if (name.Count == 0) return;
    const std::string secondary = architecture ? NameOf(*architecture) : "";
    const std::string first = NameOf(name.Parts[0]);
    if (name.Count == 1)
        Add(kind, true, "", first, secondary, name.Parts[0]);
    else
        Add(kind, IsLibrary(FoldVhdlName(first)), first, NameOf(name.Parts[1]), secondary,
            name.Parts[0]);
}
