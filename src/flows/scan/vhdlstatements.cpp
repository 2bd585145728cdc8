#include "flows/scan/vhdlnames.h"
#include "flows/scan/vhdlscanner.h"
#include <algorithm>
#include <iterator>
#include <string>

// Declarations, statements and their ends.

void TVhdlScanner::ReadLabel() {
    const TVhdlToken label = Take();
    Units.Declare(label, Scopes.Depth());
    Take();
    // That of an alternative behind "else".
    if (Peek().Is(TVhdlKeyword::Generate)) Scopes.Top().Name = label;
    IsAtStart = IsLabelled = true;
}

/// An object, or the label of a generate alternative.
void TVhdlScanner::ReadDeclared() {
    const TVhdlToken name = Take();
    Units.Declare(name, DeclarationDepth());
    const bool isAlternative =
        Head == TVhdlKeyword::If || Head == TVhdlKeyword::Elsif || Head == TVhdlKeyword::When;
    if (isAlternative && Parentheses == 0) Scopes.Top().Name = name;
}

/// A word before the one that tells.
void TVhdlScanner::ReadPrefix() {
    Take();
    IsAtStart = true;
}

void TVhdlScanner::ReadObjects() {
    Take();
    while (Peek().IsIdentifier()) {
        Units.Declare(Take(), Scopes.Depth());
        if (!Peek().Is(',')) break;
        Take();
    }
}

void TVhdlScanner::ReadType() {
    Head = Take().Keyword;
    if (Peek().IsIdentifier()) Units.Declare(Take(), Scopes.Depth());
}

void TVhdlScanner::ReadComponent() {
    if (IsLabelled) return ReadInstance(TNeedKind::Component);
    if (!Peek(1).IsIdentifier()) return;
    Take();
    Enter(TVhdlScopeKind::Component, Take());
    SkipIf(TVhdlKeyword::Is);
}

void TVhdlScanner::ReadSubprogram() {
    Head = Take().Keyword;
    Subprogram = Peek();
    if (Peek().IsIdentifier()) Units.Declare(Take(), Scopes.Depth());
}

void TVhdlScanner::ReadView() {
    Take();
    Enter(TVhdlScopeKind::View, Take());
    IsAtStart = false;
}

/// What an end with the same word closes.
void TVhdlScanner::ReadOpening() {
    struct TRow {
        TVhdlKeyword Keyword;
        TVhdlScopeKind Scope;
        bool HasHead;
    };
    static constexpr TRow kRows[] = {
        {TVhdlKeyword::Block, TVhdlScopeKind::Block, false},
        {TVhdlKeyword::Process, TVhdlScopeKind::Process, false},
        {TVhdlKeyword::If, TVhdlScopeKind::If, true},
        {TVhdlKeyword::Case, TVhdlScopeKind::Case, true},
    };
    const TVhdlKeyword keyword = Take().Keyword;
    for (const TRow& row : kRows) {
        if (row.Keyword != keyword) continue;
        Enter(row.Scope);
        IsAtStart = !row.HasHead && !Peek().Is('(');
        Head = IsAtStart ? TVhdlKeyword::None : keyword;
    }
}

void TVhdlScanner::ReadHead() {
    Head = Take().Keyword;
}

void TVhdlScanner::ReadElse() {
    Take();
    IsAtStart = true;
}

/// Statements follow: begin, then.
void TVhdlScanner::ReadBegin() {
    Take();
    Parentheses = 0;
    Head = TVhdlKeyword::None;
    IsAtStart = true;
}

void TVhdlScanner::ReadLoop() {
    Take();
    Enter(TVhdlScopeKind::Loop);
}

void TVhdlScanner::ReadGenerate() {
    Take();
    const bool isAlternative = Head != TVhdlKeyword::If && Head != TVhdlKeyword::Case;
    if (Head == TVhdlKeyword::For)
        Enter(TVhdlScopeKind::Generate);
    else if (!isAlternative && !Scopes.IsEmpty())
        Scopes.ChangeTop(TVhdlScopeKind::Generate);
    Head = TVhdlKeyword::None;
    IsAtStart = true;
}

/// The fields of a record, or the units of a physical type.
void TVhdlScanner::ReadFields() {
    const TVhdlKeyword keyword = Take().Keyword;
    if (Head != TVhdlKeyword::Type || Parentheses > 0) return;
    Enter(keyword == TVhdlKeyword::Record ? TVhdlScopeKind::Record : TVhdlScopeKind::Units);
}

void TVhdlScanner::ReadIs() {
    Take();
    if (Parentheses > 0) return;
    switch (Head) {
        case TVhdlKeyword::Function:
        case TVhdlKeyword::Procedure:
            if (SkipIf(TVhdlKeyword::New))
                Units.AddSelected(ReadName(), TNeedKind::Generic);
            else
                Enter(TVhdlScopeKind::Subprogram, Subprogram);
            break;
        case TVhdlKeyword::Type:
            if (!Tokens.PeekWord("protected")) break;
            Take();
            SkipIf(TVhdlKeyword::Body);
            Enter(TVhdlScopeKind::Protected);
            break;
        default:
            // The alternatives of a case; what a process, block or component declares.
            IsAtStart = Head == TVhdlKeyword::None || Head == TVhdlKeyword::Case;
            if (IsAtStart) Head = TVhdlKeyword::None;
    }
}

void TVhdlScanner::ReadEnd() {
    struct TRow {
        TVhdlKeyword Keyword;
        TVhdlScopeKind Scope;
    };
    static constexpr TRow kRows[] = {
        {TVhdlKeyword::If, TVhdlScopeKind::If},
        {TVhdlKeyword::Process, TVhdlScopeKind::Process},
        {TVhdlKeyword::Case, TVhdlScopeKind::Case},
        {TVhdlKeyword::Loop, TVhdlScopeKind::Loop},
        {TVhdlKeyword::Function, TVhdlScopeKind::Subprogram},
        {TVhdlKeyword::Procedure, TVhdlScopeKind::Subprogram},
        {TVhdlKeyword::Record, TVhdlScopeKind::Record},
        {TVhdlKeyword::Generate, TVhdlScopeKind::Generate},
        {TVhdlKeyword::Component, TVhdlScopeKind::Component},
        {TVhdlKeyword::Architecture, TVhdlScopeKind::Architecture},
        {TVhdlKeyword::Entity, TVhdlScopeKind::Entity},
        {TVhdlKeyword::Package, TVhdlScopeKind::Package},
        {TVhdlKeyword::For, TVhdlScopeKind::Configured},
        {TVhdlKeyword::Configuration, TVhdlScopeKind::Configuration},
        {TVhdlKeyword::Block, TVhdlScopeKind::Block},
        {TVhdlKeyword::Units, TVhdlScopeKind::Units},
    };
    struct TWordRow {
        const char* Word;
        TVhdlScopeKind Scope;
    };
    static constexpr TWordRow kWordRows[] = {{"protected", TVhdlScopeKind::Protected},
                                             {"context", TVhdlScopeKind::Context},
                                             {"view", TVhdlScopeKind::View}};
    Take();
    Parentheses = 0;
    Head = TVhdlKeyword::None;
    SkipIf(TVhdlKeyword::Postponed);
    for (const TRow& row : kRows)
        if (Peek().Is(row.Keyword)) return LeaveByKeyword(row.Scope);
    for (const TWordRow& row : kWordRows)
        if (Tokens.PeekWord(row.Word) && Scopes.Has(row.Scope)) return LeaveByKeyword(row.Scope);
    LeaveByName();
}

void TVhdlScanner::LeaveByKeyword(TVhdlScopeKind kind) {
    Take();
    if (kind == TVhdlScopeKind::Package || kind == TVhdlScopeKind::Protected)
        SkipIf(TVhdlKeyword::Body);
    if (Scopes.Leave(kind)) Units.LeaveScopes(Scopes.Depth());
    if (Scopes.IsEmpty()) {
        EndUnit();
        IsAtStart = false;
    }
}

/// Closes what an end without a keyword stands for. One with the unit's name closes the unit, even
/// where scopes within lack their ends.
void TVhdlScanner::LeaveByName() {
    const TVhdlScope* scope = Scopes.FindNamed();
    if (Scopes.IsEmpty()) return EndUnit();
    const TVhdlScope& innermost = Scopes.Top();
    const auto isNameOf = [this](const TVhdlScope& named) {
        return named.Name.IsIdentifier() &&
               FoldVhdlName(Units.NameOf(named.Name)) == FoldVhdlName(Units.NameOf(Peek()));
    };
    if (Peek().IsIdentifier() && !isNameOf(innermost) && isNameOf(Scopes.Unit())) {
        Scopes.Clear();
    } else if (scope) {
        Scopes.Leave(scope->Kind);
    }
    if (Scopes.IsEmpty())
        EndUnit();
    else
        Units.LeaveScopes(Scopes.Depth());
    IsAtStart = false;
}
