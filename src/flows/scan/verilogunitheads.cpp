#include "flows/scan/verilogscanner.h"

// The heads and ends of units.

namespace {

struct TVerilogUnitRow {
    TVerilogKeyword Begin;
    TVerilogKeyword End;
    TVerilogScopeKind Scope;
    TDesignUnitKind Unit;
};
constexpr TVerilogUnitRow kVerilogUnits[] = {
    {TVerilogKeyword::Module, TVerilogKeyword::Endmodule, TVerilogScopeKind::Module,
     TDesignUnitKind::Module},
    {TVerilogKeyword::Macromodule, TVerilogKeyword::Endmodule, TVerilogScopeKind::Module,
     TDesignUnitKind::Module},
    {TVerilogKeyword::Interface, TVerilogKeyword::Endinterface, TVerilogScopeKind::Interface,
     TDesignUnitKind::Interface},
    {TVerilogKeyword::Program, TVerilogKeyword::Endprogram, TVerilogScopeKind::Program,
     TDesignUnitKind::Program},
    {TVerilogKeyword::Package, TVerilogKeyword::Endpackage, TVerilogScopeKind::Package,
     TDesignUnitKind::Package},
    {TVerilogKeyword::Primitive, TVerilogKeyword::Endprimitive, TVerilogScopeKind::Primitive,
     TDesignUnitKind::Primitive},
    {TVerilogKeyword::Class, TVerilogKeyword::Endclass, TVerilogScopeKind::Class,
     TDesignUnitKind::Class},
    {TVerilogKeyword::Config, TVerilogKeyword::Endconfig, TVerilogScopeKind::Config,
     TDesignUnitKind::Configuration},
    {TVerilogKeyword::Checker, TVerilogKeyword::Endchecker, TVerilogScopeKind::Checker,
     TDesignUnitKind::Checker},
};

}  // namespace

void TVerilogScanner::ReadUnit(const TVerilogToken& token) {
    for (const TVerilogUnitRow& row : kVerilogUnits)
        if (token.Is(row.Begin)) State.UnitKind = row.Scope;
    State.Depth = 0;
    State.Phase = TPhase::UnitName;
}

void TVerilogScanner::ReadEndOfUnit(const TVerilogToken& token) {
    for (const TVerilogUnitRow& row : kVerilogUnits)
        if (token.Is(row.End)) return Leave(row.Scope);
}

void TVerilogScanner::Leave(TVerilogScopeKind kind) {
    State.Scope = Scopes.Leave(State.Scope, kind);
    State.Depth = 0;
    State.IsInHead = State.IsPortList = false;
    State.IsProcedural = false;
    EndStatement();
}

void TVerilogScanner::ScanUnitName(const TVerilogToken& token) {
    const bool isPrefix = token.Is(TVerilogKeyword::Automatic) || token.Is(TVerilogKeyword::Static);
    if (isPrefix) return;
    if (token.Is(TVerilogKeyword::Class)) {
        State.UnitKind = TVerilogScopeKind::Class;
    } else if (token.IsIdentifier() || token.Is(TVerilogTokenKind::Directive)) {
        EnterUnit(token);
    } else {
        State.Phase = TPhase::Skip;
        ScanSkip(token);
    }
}

/// Classes are units outside of others alone. A unit whose name is a macro without a known text is
/// none, but has its scope.
void TVerilogScanner::EnterUnit(const TVerilogToken& name) {
    const bool isClass = State.UnitKind == TVerilogScopeKind::Class;
    const bool isUnit = name.IsIdentifier() && (!isClass || State.Scope == TVerilogScopes::kFile);
    std::size_t unit = TVerilogScopes::kNoUnit;
    for (const TVerilogUnitRow& row : kVerilogUnits) {
        if (!isUnit || row.Scope != State.UnitKind) continue;
        unit = Units.Begin(row.Unit, name);
        break;
    }
    if (isClass) Units.Declare(name);
    State.Scope = Scopes.Enter(State.Scope, State.UnitKind, unit);
    State.IsProcedural = false;
    State.IsInHead = true;
    State.IsPortList = false;
    State.Phase = TPhase::UnitHead;
}

void TVerilogScanner::ScanUnitHead(const TVerilogToken& token) {
    const bool isClass = State.UnitKind == TVerilogScopeKind::Class;
    if (token.Is(';')) {
        State.IsInHead = State.IsPortList = false;
        EndStatement();
    } else if (token.Is(TVerilogKeyword::Import)) {
        State.Phase = TPhase::Import;
    } else if (isClass && (token.Is(TVerilogKeyword::Extends) || token.Is(',') ||
                           token.Is(TVerilogKeyword::Implements))) {
        State.Phase = TPhase::Base;
    } else if (token.Is('(')) {
        State.IsPortList = !isClass && !State.Previous.Is('#');
    }
}

void TVerilogScanner::ScanBase(const TVerilogToken& token) {
    State.Candidate = token;
    State.Phase = token.IsIdentifier() ? TPhase::BaseNamed : TPhase::UnitHead;
    if (!token.IsIdentifier()) ScanUnitHead(token);
}

/// The base, unless a scope operator tells that it is a package.
void TVerilogScanner::ScanBaseNamed(const TVerilogToken& token) {
    State.Phase = TPhase::UnitHead;
    if (token.Is(kVerilogScope)) return;
    // A file of classes may be meant to be included, where more names are known than here.
    Units.AddUnlessDeclared(Unit(), TNeedKind::Extends, State.Candidate, false);
    ScanUnitHead(token);
}

// Configurations.

void TVerilogScanner::ReadDesign(const TVerilogToken&) {
    if (Scopes.Kind(State.Scope) != TVerilogScopeKind::Config) return;
    State.Phase = TPhase::ConfigName;
    State.ConfigNeed = TNeedKind::Design;
    State.Candidate = State.Library = {};
}

void TVerilogScanner::ReadConfigRule(const TVerilogToken&) {
    if (Scopes.Kind(State.Scope) == TVerilogScopeKind::Config) State.Phase = TPhase::ConfigRule;
}

void TVerilogScanner::ScanConfigRule(const TVerilogToken& token) {
    if (token.Is(';')) return EndStatement();
    if (!token.Is(TVerilogKeyword::Use)) return;
    State.Phase = TPhase::ConfigName;
    State.ConfigNeed = TNeedKind::Cell;
    State.Candidate = State.Library = {};
}

void TVerilogScanner::ScanConfigName(const TVerilogToken& token) {
    if (token.IsIdentifier()) {
        const bool isInLibrary = State.Previous.Is('.');
        if (isInLibrary)
            State.Library = State.Candidate;
        else
            AddConfigured();
        State.Candidate = token;
    } else if (!token.Is('.')) {
        AddConfigured();
        State.Phase = TPhase::Skip;
        ScanSkip(token);
    }
}

void TVerilogScanner::AddConfigured() {
    if (State.Candidate.IsIdentifier())
        Units.Add(Unit(), State.ConfigNeed, State.Candidate, true,
                  State.Library.IsIdentifier() ? &State.Library : nullptr);
    State.Candidate = State.Library = {};
}
