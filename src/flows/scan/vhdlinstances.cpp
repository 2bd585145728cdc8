#include "flows/scan/vhdlnames.h"
#include "flows/scan/vhdlscanner.h"
#include <string>

// Instances, bindings and configurations.

/// Behind a label, where concurrent statements stand. A call has its arguments at once; one without
/// arguments looks like an instance without maps, and is taken for one.
void TVhdlScanner::ReadComponentInstance() {
    IsAtStart = IsLabelled = false;
    const TVhdlName name = ReadName();
    const bool isInstance =
        Peek().Is(';') || Peek().Is(TVhdlKeyword::Generic) || Peek().Is(TVhdlKeyword::Port);
    if (isInstance)
        Units.AddComponent(name);
    else
        Units.AddSelected(name);
}

void TVhdlScanner::ReadInstance(TNeedKind kind) {
    IsAtStart = IsLabelled = false;
    Take();
    const TVhdlName name = ReadName();
    if (kind == TNeedKind::Component) return Units.AddComponent(name);
    TVhdlToken architecture;
    if (Peek().Is('(') && Peek(1).IsIdentifier() && Peek(2).Is(')')) {
        Take();
        architecture = Take();
        Take();
    }
    Units.AddInstance(kind, name, architecture.IsIdentifier() ? &architecture : nullptr);
    if (kind == TNeedKind::Configuration || name.Count == 0) return;
    if (!Scopes.IsIn(TVhdlScopeKind::Configured)) return;
    TVhdlScope& scope = Scopes.Top();
    const bool hasLibrary = name.Count > 1;
    const std::string first = Units.NameOf(name.Parts[0]);
    scope.IsBoundForCertain = !hasLibrary || Units.IsLibrary(FoldVhdlName(first));
    scope.BoundLibrary = hasLibrary ? first : "";
    scope.BoundEntity = Units.NameOf(name.Parts[hasLibrary ? 1 : 0]);
}

void TVhdlScanner::ReadBinding() {
    Take();
    if (!Peek(1).IsIdentifier()) return;
    const bool isInConfiguration = Scopes.Has(TVhdlScopeKind::Configuration);
    if (Peek().Is(TVhdlKeyword::Entity))
        ReadInstance(isInConfiguration ? TNeedKind::Binding : TNeedKind::Entity);
    else if (Peek().Is(TVhdlKeyword::Configuration))
        ReadInstance(TNeedKind::Configuration);
}

/// The path of an external name is none of the names that are visible here, but for a package's.
void TVhdlScanner::ReadExternalName() {
    Take();
    if (Peek().Is(TVhdlTokenKind::Keyword)) Take();
    if (Peek().Is('@')) {
        Take();
        Units.AddSelected(ReadName());
    }
    while (!Tokens.IsAtEnd() && !Peek().Is(':') && !Peek().Is(';') &&
           !Peek().Is(kVhdlCloseExternal))
        Take();
}

void TVhdlScanner::ReadFor() {
    if (Scopes.IsIn(TVhdlScopeKind::Configuration) || Scopes.IsIn(TVhdlScopeKind::Configured))
        return ReadConfigured();
    Head = Take().Keyword;
}

/// A configuration of instances ("for all : component"), or of an architecture or a block ("for
/// name"): of an architecture directly within the configuration or where instances are bound.
void TVhdlScanner::ReadConfigured() {
    Take();
    const TVhdlToken item = Take();
    while (Peek().Is(',') && !Peek(1).Is(';')) {
        Take();
        Take();
    }
    if (Peek().Is(':')) {
        Take();
        const TVhdlName component = ReadName();
        Enter(TVhdlScopeKind::Configured);
        // Unless it is bound to another, to the entity of its own name.
        if (component.Count == 0) return;
        Scopes.Top().ConfiguresArchitecture = true;
        Scopes.Top().BoundEntity = Units.NameOf(component.Parts[component.Count - 1]);
        return;
    }
    const TVhdlScope& outer = Scopes.Top();
    if (outer.ConfiguresArchitecture && item.IsIdentifier())
        Units.Add(TNeedKind::Architecture, outer.IsBoundForCertain, outer.BoundLibrary,
                  outer.BoundEntity, Units.NameOf(item), item);
    if (Peek().Is('(')) {
        while (!Tokens.IsAtEnd() && !Peek().Is(')') && !Peek().Is(';')) Take();
        if (Peek().Is(')')) Take();
    }
    Enter(TVhdlScopeKind::Configured);
}
