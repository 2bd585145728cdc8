#include "flows/scan/verilogscanner.h"

// Statements that begin with names: instances above all.

void TVerilogScanner::ScanStart(const TVerilogToken& token) {
    if (State.MayEndProcedure) {
        State.MayEndProcedure = false;
        if (!token.Is(TVerilogKeyword::Else)) State.IsProcedural = false;
    }
    State.Questions = 0;
    State.IsBehindMacro = State.Previous.Is(TVerilogTokenKind::Directive);
    if (token.IsIdentifier()) {
        State.Candidate = token;
        State.Phase = TPhase::Named;
    } else if (token.Is(TVerilogTokenKind::Directive)) {
        State.Phase = TPhase::Macro;
    } else if (token.Is(TVerilogTokenKind::Keyword)) {
        const TKeywordRow* row = FindKeyword(token.Keyword);
        State.Phase = TPhase::Skip;
        if (row) (this->*row->Reader)(token);
    } else if (token.Is(':')) {
        const bool isLabelled = State.Previous.Is(TVerilogTokenKind::Keyword) &&
                                !State.Previous.Is(TVerilogKeyword::Default);
        if (isLabelled) State.Phase = TPhase::Label;
    } else if (!token.Is(';')) {
        State.Phase = TPhase::Skip;
        ScanSkip(token);
    }
}

void TVerilogScanner::ScanLabel(const TVerilogToken& token) {
    State.Phase = TPhase::Start;
    const bool isLabel = token.IsIdentifier() || token.Is(TVerilogTokenKind::Directive) ||
                         token.Is(TVerilogKeyword::New);
    if (!isLabel) ScanStart(token);
}

void TVerilogScanner::ScanMacro(const TVerilogToken& token) {
    State.Phase = TPhase::Start;
    if (!token.Is('(')) ScanStart(token);
}

void TVerilogScanner::ScanNamed(const TVerilogToken& token) {
    if (token.IsIdentifier() || token.Is(TVerilogTokenKind::Directive)) {
        State.Phase = TPhase::Instance;
    } else if (token.Is('#')) {
        State.Phase = TPhase::Hash;
    } else if (token.Is('(')) {
        State.Phase = TPhase::CallDone;
    } else if (token.Is('[')) {
        State.Phase = TPhase::Packed;
    } else {
        State.Phase = TPhase::Skip;
        ScanSkip(token);
    }
}

void TVerilogScanner::ScanPacked(const TVerilogToken& token) {
    if (token.Is('[')) return;
    State.Phase = TPhase::Skip;
    if (token.IsIdentifier())
        Units.AddUnlessDeclared(Unit(), TNeedKind::Class, State.Candidate, false);
    else
        ScanSkip(token);
}

void TVerilogScanner::ScanHash(const TVerilogToken& token) {
    const bool isValue = token.Is('(') || token.Is(TVerilogTokenKind::Number) ||
                         token.Is(TVerilogTokenKind::Directive) || token.IsIdentifier();
    State.Phase = isValue ? TPhase::Parameterised : TPhase::Skip;
}

void TVerilogScanner::ScanParameterised(const TVerilogToken& token) {
    if (token.Is(TVerilogTokenKind::Number)) return;
    if (token.IsIdentifier() || token.Is(TVerilogTokenKind::Directive)) {
        State.Phase = TPhase::Instance;
    } else if (token.Is('(')) {
        State.Phase = TPhase::CallDone;
    } else {
        State.Phase = TPhase::Skip;
        ScanSkip(token);
    }
}

void TVerilogScanner::ScanInstance(const TVerilogToken& token) {
    if (token.Is('[')) return;
    if (token.Is('(')) {
        State.Phase = TPhase::InstanceDone;
        return AddInstance(true);
    }
    // What is declared here is a variable, or a net.
    if (State.Candidate.IsIdentifier())
        Units.AddUnlessDeclared(Unit(), TNeedKind::Class, State.Candidate, false);
    State.Phase = TPhase::Skip;
    ScanSkip(token);
}

void TVerilogScanner::ScanInstanceDone(const TVerilogToken& token) {
    if (token.Is(',')) {
        State.Phase = TPhase::NextInstance;
    } else {
        State.Phase = TPhase::Skip;
        ScanSkip(token);
    }
}

void TVerilogScanner::ScanNextInstance(const TVerilogToken& token) {
    if (token.IsIdentifier() || token.Is(TVerilogTokenKind::Directive)) {
        State.Phase = TPhase::Instance;
    } else {
        State.Phase = token.Is('(') ? TPhase::InstanceDone : TPhase::Skip;
    }
}

/// A primitive may be instantiated without a name, and have a strength or delay before the name.
void TVerilogScanner::ScanCallDone(const TVerilogToken& token) {
    if (token.IsIdentifier()) {
        State.Phase = TPhase::Instance;
    } else if (token.Is('#')) {
        State.Phase = TPhase::Hash;
    } else {
        const bool isInstance = (token.Is(';') || token.Is(',')) && HoldsInstances();
        if (isInstance && !State.IsBehindMacro) AddInstance(false);
        State.Phase = TPhase::Skip;
        ScanSkip(token);
    }
}

/// Up to the end of the statement, or to a label of a case or a block.
void TVerilogScanner::ScanSkip(const TVerilogToken& token) {
    if (token.Is(';')) {
        EndStatement();
    } else if (token.Is('?')) {
        ++State.Questions;
    } else if (token.Is(':')) {
        if (State.Questions > 0)
            --State.Questions;
        else
            State.Phase = TPhase::Start;
    }
}

void TVerilogScanner::ScanHead(const TVerilogToken& token) {
    State.Phase = token.Is('(') ? TPhase::Start : TPhase::Skip;
    if (!token.Is('(')) ScanSkip(token);
}

void TVerilogScanner::ReadBind(const TVerilogToken&) {
    State.Phase = TPhase::Bind;
    State.IsBinding = true;
    State.IsPath = false;
    State.Candidate = {};
}

/// The target, a list of instances perhaps, then an instance as elsewhere.
void TVerilogScanner::ScanBind(const TVerilogToken& token) {
    const TVerilogToken& before = State.Previous;
    const bool isName = token.IsIdentifier() || token.Is(TVerilogTokenKind::Directive);
    const bool endsTarget = isName && (before.IsIdentifier() || before.Is(']') ||
                                       before.Is(TVerilogTokenKind::Directive));
    if (token.Is(';')) return EndStatement();
    if (token.Is('.')) State.IsPath = true;
    if (isName && before.Is(TVerilogKeyword::Bind)) State.Candidate = token;
    if (!endsTarget && !token.Is(':')) return;
    if (State.Candidate.IsIdentifier())
        // In a unit, the name may be that of an instance as well.
        Units.Add(Unit(), TNeedKind::Bind, State.Candidate,
                  !State.IsPath && Unit() == TVerilogUnits::kFile);
    State.Candidate = {};
    if (!endsTarget) return;
    State.Candidate = token;
    State.Phase = TPhase::Named;
}
