#include "flows/scan/vhdlnames.h"
#include "flows/scan/vhdlscanner.h"

// The heads of design units and their context clauses.

void TVhdlScanner::BeginUnit(TDesignUnitKind kind, TVhdlScopeKind scope, const TVhdlToken& name,
                             const TVhdlName* primary) {
    EndUnit();
    const TVhdlToken* last =
        primary && primary->Count > 0 ? &primary->Parts[primary->Count - 1] : nullptr;
    Units.Begin(kind, name, last);
    Enter(scope, name);
    if (last && kind != TDesignUnitKind::Verification)
        Units.Add(TNeedKind::Primary, true, "work", Units.NameOf(*last), "", *last);
}

void TVhdlScanner::EndUnit() {
    Scopes.Clear();
    Units.End();
    Parentheses = 0;
    IsAtStart = true;
    Head = TVhdlKeyword::None;
}

void TVhdlScanner::ReadLibrary() {
    Take();
    while (Peek().IsIdentifier()) {
        Units.AddLibrary(Take());
        if (!Peek().Is(',')) break;
        Take();
    }
}

void TVhdlScanner::ReadUse() {
    if (Peek(1).Is(TVhdlKeyword::Entity) || Peek(1).Is(TVhdlKeyword::Configuration))
        return ReadBinding();
    Take();
    // The binding of a verification unit names it behind its kind.
    if (Tokens.PeekWord("vunit") && Peek(1).IsIdentifier()) Take();
    while (Peek().IsIdentifier()) {
        Units.AddUse(ReadName(), Scopes.Depth());
        if (!Peek().Is(',')) break;
        Take();
    }
}

void TVhdlScanner::ReadContext() {
    if (Units.HasUnit() && !Scopes.IsIn(TVhdlScopeKind::Context)) EndUnit();
    Take();
    if (Peek(1).Is(TVhdlKeyword::Is)) {
        BeginUnit(TDesignUnitKind::Context, TVhdlScopeKind::Context, Take());
        Take();
        return;
    }
    IsAtStart = false;
    while (Peek().IsIdentifier()) {
        Units.AddContext(ReadName());
        if (!Peek().Is(',')) break;
        Take();
    }
}

void TVhdlScanner::ReadEntity() {
    if (IsLabelled && Units.HasUnit()) return ReadInstance(TNeedKind::Entity);
    if (!Peek(1).IsIdentifier()) return;
    Take();
    BeginUnit(TDesignUnitKind::Entity, TVhdlScopeKind::Entity, Take());
    SkipIf(TVhdlKeyword::Is);
}

void TVhdlScanner::ReadArchitecture() {
    if (!Peek(1).IsIdentifier()) return;
    Take();
    const TVhdlToken name = Take();
    TVhdlName entity;
    if (SkipIf(TVhdlKeyword::Of)) entity = ReadName();
    BeginUnit(TDesignUnitKind::Architecture, TVhdlScopeKind::Architecture, name, &entity);
    SkipIf(TVhdlKeyword::Is);
}

void TVhdlScanner::ReadConfiguration() {
    if (IsLabelled && Units.HasUnit()) return ReadInstance(TNeedKind::Configuration);
    if (!Peek(1).IsIdentifier()) return;
    Take();
    const TVhdlToken name = Take();
    TVhdlName entity;
    if (SkipIf(TVhdlKeyword::Of)) entity = ReadName();
    BeginUnit(TDesignUnitKind::Configuration, TVhdlScopeKind::Configuration, name, &entity);
    SkipIf(TVhdlKeyword::Is);
    if (entity.Count == 0) return;
    TVhdlScope& scope = Scopes.Top();
    scope.ConfiguresArchitecture = scope.IsBoundForCertain = true;
    scope.BoundLibrary = "work";
    scope.BoundEntity = Units.NameOf(entity.Parts[entity.Count - 1]);
}

void TVhdlScanner::ReadPackage() {
    if (Peek(1).Is(TVhdlKeyword::Body)) return ReadPackageBody();
    if (!Peek(1).IsIdentifier()) return;
    if (Peek(2).Is(TVhdlKeyword::Is) && Peek(3).Is(TVhdlKeyword::New)) return ReadPackageInstance();
    Take();
    const TVhdlToken name = Take();
    if (Units.HasUnit()) {
        Units.DeclarePrefix(name, Scopes.Depth());
        Enter(TVhdlScopeKind::Package, name);
    } else {
        BeginUnit(TDesignUnitKind::Package, TVhdlScopeKind::Package, name);
    }
    SkipIf(TVhdlKeyword::Is);
}

void TVhdlScanner::ReadPackageBody() {
    if (!Peek(2).IsIdentifier()) return;
    Take();
    Take();
    TVhdlName package;
    package.Parts[package.Count++] = Take();
    if (Units.HasUnit())
        Enter(TVhdlScopeKind::Package, package.Parts[0]);
    else
        BeginUnit(TDesignUnitKind::PackageBody, TVhdlScopeKind::Package, package.Parts[0],
                  &package);
    SkipIf(TVhdlKeyword::Is);
}

/// A unit, a declaration, or a generic that an instance of the package is mapped to.
void TVhdlScanner::ReadPackageInstance() {
    Take();
    if (!Peek().IsIdentifier() || !Peek(1).Is(TVhdlKeyword::Is) || !Peek(2).Is(TVhdlKeyword::New))
        return;
    const TVhdlToken name = Take();
    Take();
    Take();
    const TVhdlName package = ReadName();
    if (!Units.HasUnit())
        BeginUnit(TDesignUnitKind::PackageInstance, TVhdlScopeKind::PackageInstance, name);
    else
        Units.DeclarePrefix(name, DeclarationDepth());
    IsAtStart = false;
    Units.AddPackage(package, Parentheses > 0 ? TNeedKind::Package : TNeedKind::Generic);
}

/// The verification units that one takes over.
void TVhdlScanner::ReadInherit() {
    Take();
    while (Peek().IsIdentifier()) {
        const TVhdlName name = ReadName();
        if (name.Count == 1)
            Units.Add(TNeedKind::Use, true, "work", Units.NameOf(name.Parts[0]), "", name.Parts[0]);
        else
            Units.AddUse(name, Scopes.Depth());
        if (!Peek().Is(',')) break;
        Take();
    }
}

void TVhdlScanner::ReadVerification() {
    Take();
    const TVhdlToken name = Take();
    TVhdlName bound;
    TVhdlToken architecture;
    if (Peek().Is('(')) {
        Take();
        bound = ReadName();
        if (Peek().Is('(') && Peek(1).IsIdentifier()) {
            Take();
            architecture = Take();
        }
        while (!Tokens.IsAtEnd() && !Peek().Is('{') && !Peek().Is(';')) Take();
    }
    BeginUnit(TDesignUnitKind::Verification, TVhdlScopeKind::Verification, name, &bound);
    if (Peek().Is('{')) Take();
    if (bound.Count == 0) return;
    const std::string first = Units.NameOf(bound.Parts[0]);
    const bool isSelected = bound.Count > 1 && Units.IsLibrary(FoldVhdlName(first));
    const TVhdlToken& entity = bound.Parts[isSelected ? 1 : bound.Count - 1];
    Units.Add(TNeedKind::Primary, true, isSelected ? first : "work", Units.NameOf(entity),
              architecture.IsIdentifier() ? Units.NameOf(architecture) : "", entity);
}
