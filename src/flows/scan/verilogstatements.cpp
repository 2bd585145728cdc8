#include "flows/scan/verilogscanner.h"

// Other statements and declarations, and what blocks hold.

void TVerilogScanner::ReadSubprogram(const TVerilogToken&) {
    State.Scope = Scopes.Enter(State.Scope, TVerilogScopeKind::Subprogram, TVerilogScopes::kNoUnit);
    State.IsProcedural = false;
    State.Phase = TPhase::Skip;
}

void TVerilogScanner::ReadEndOfSubprogram(const TVerilogToken&) {
    Leave(TVerilogScopeKind::Subprogram);
}

/// A word that older sources may have for a name.
void TVerilogScanner::ReadPassive(const TVerilogToken&) {
    State.Phase = TPhase::PassiveName;
}

void TVerilogScanner::ScanPassiveName(const TVerilogToken& token) {
    State.Phase = TPhase::Skip;
    if (token.IsIdentifier())
        State.Scope =
            Scopes.Enter(State.Scope, TVerilogScopeKind::Passive, TVerilogScopes::kNoUnit);
    else
        ScanSkip(token);
}

void TVerilogScanner::ReadSpecify(const TVerilogToken&) {
    State.Scope = Scopes.Enter(State.Scope, TVerilogScopeKind::Passive, TVerilogScopes::kNoUnit);
    State.Phase = TPhase::Start;
}

void TVerilogScanner::ReadTable(const TVerilogToken&) {
    State.Scope = Scopes.Enter(State.Scope, TVerilogScopeKind::Passive, TVerilogScopes::kNoUnit);
    State.Phase = TPhase::Table;
}

void TVerilogScanner::ScanTable(const TVerilogToken&) {}

void TVerilogScanner::ReadEndOfPassive(const TVerilogToken&) {
    Leave(TVerilogScopeKind::Passive);
}

void TVerilogScanner::ReadProcedure(const TVerilogToken&) {
    State.Depth = 0;
    State.Blocks = 0;
    State.IsProcedural = true;
    State.MayEndProcedure = false;
    State.Phase = TPhase::Start;
}

void TVerilogScanner::ReadBlock(const TVerilogToken&) {
    if (State.IsProcedural) ++State.Blocks;
    State.Phase = TPhase::Start;
}

void TVerilogScanner::ReadFork(const TVerilogToken& token) {
    // "wait fork" and "disable fork" are statements.
    if (State.Previous.Is(TVerilogKeyword::Wait) || State.Previous.Is(TVerilogKeyword::Disable))
        State.Phase = TPhase::Skip;
    else
        ReadBlock(token);
}

void TVerilogScanner::ReadCase(const TVerilogToken&) {
    if (State.IsProcedural) ++State.Blocks;
    State.Phase = TPhase::Head;
}

void TVerilogScanner::ReadEndOfBlock(const TVerilogToken&) {
    if (State.Blocks > 0) --State.Blocks;
    EndStatement();
}

void TVerilogScanner::ReadHead(const TVerilogToken&) {
    State.Phase = TPhase::Head;
}

void TVerilogScanner::ReadStart(const TVerilogToken&) {
    State.Phase = TPhase::Start;
}

/// A word before the one that tells.
void TVerilogScanner::ReadPrefix(const TVerilogToken&) {
    State.Phase = TPhase::Start;
}

void TVerilogScanner::ReadVirtual(const TVerilogToken&) {
    State.Phase = TPhase::Virtual;
}

/// A class, a method, or a variable that refers to an interface.
void TVerilogScanner::ScanVirtual(const TVerilogToken& token) {
    const bool isMethod = token.Is(TVerilogKeyword::Function) || token.Is(TVerilogKeyword::Task);
    State.Phase = TPhase::Skip;
    if (isMethod || token.Is(TVerilogKeyword::Class))
        ScanStart(token);
    else if (token.Is(TVerilogKeyword::Protected) || token.Is(TVerilogKeyword::Local) ||
             token.Is(TVerilogKeyword::Static))
        State.Phase = TPhase::Virtual;
}

void TVerilogScanner::ReadExtern(const TVerilogToken&) {
    State.Phase = TPhase::Extern;
}

/// A prototype: it has no end of its own, unlike what begins with the same words.
void TVerilogScanner::ScanExtern(const TVerilogToken& token) {
    if (token.Is(';')) EndStatement();
}

void TVerilogScanner::ReadImport(const TVerilogToken&) {
    State.Phase = TPhase::Import;
}

void TVerilogScanner::ScanImport(const TVerilogToken& token) {
    const bool isItem = State.Previous.Is(kVerilogScope);
    if (token.IsIdentifier() && !isItem) {
        Units.Add(Unit(), TNeedKind::Import, token);
    } else if (token.Is('*') && isItem) {
        Units.ImportAll(Unit());
    } else if (token.Is(TVerilogTokenKind::String)) {
        // Of another language: a prototype follows.
        State.Phase = TPhase::Extern;
    } else if (token.Is(';')) {
        EndStatement();
        if (State.IsInHead) State.Phase = TPhase::UnitHead;
    }
}

void TVerilogScanner::ReadTypedef(const TVerilogToken&) {
    State.Phase = TPhase::Typedef;
    State.Candidate = {};
}

void TVerilogScanner::ScanTypedef(const TVerilogToken& token) {
    if (token.IsIdentifier()) {
        State.Candidate = token;
    } else if (token.Is(';')) {
        if (State.Candidate.IsIdentifier()) Units.Declare(State.Candidate);
        EndStatement();
    }
}
