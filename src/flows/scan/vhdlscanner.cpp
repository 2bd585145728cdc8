#include "flows/scan/vhdlscanner.h"
#include <algorithm>
#include <iterator>
#include <utility>

TVhdlScanner::TVhdlScanner(std::string_view text, const TScanOptions& options)
    : Tokens(text, options), Units(text, &Tokens) {}

std::vector<TDesignUnit> TVhdlScanner::Scan() {
    while (!Tokens.IsAtEnd()) ScanToken();
    return Units.TakeUnits();
}

/// What begins a statement, declaration or unit. The words of later versions are in ScanWordStart.
const TVhdlScanner::TStatement* TVhdlScanner::FindStatement(TVhdlKeyword keyword) {
    using enum TVhdlKeyword;
    static constexpr TStatement kStatements[] = {
        {Library, &TVhdlScanner::ReadLibrary, false},
        {Use, &TVhdlScanner::ReadUse, false},
        {Entity, &TVhdlScanner::ReadEntity, false},
        {Architecture, &TVhdlScanner::ReadArchitecture, false},
        {Configuration, &TVhdlScanner::ReadConfiguration, false},
        {Package, &TVhdlScanner::ReadPackage, false},
        {Postponed, &TVhdlScanner::ReadPrefix, true},
        {Pure, &TVhdlScanner::ReadPrefix, true},
        {Impure, &TVhdlScanner::ReadPrefix, true},
        {Shared, &TVhdlScanner::ReadPrefix, true},
        {Signal, &TVhdlScanner::ReadObjects, true},
        {Variable, &TVhdlScanner::ReadObjects, true},
        {Constant, &TVhdlScanner::ReadObjects, true},
        {File, &TVhdlScanner::ReadObjects, true},
        {Alias, &TVhdlScanner::ReadObjects, true},
        {Subtype, &TVhdlScanner::ReadObjects, true},
        {Type, &TVhdlScanner::ReadType, true},
        {Component, &TVhdlScanner::ReadComponent, true},
        {Function, &TVhdlScanner::ReadSubprogram, true},
        {Procedure, &TVhdlScanner::ReadSubprogram, true},
        {Block, &TVhdlScanner::ReadOpening, true},
        {Process, &TVhdlScanner::ReadOpening, true},
        {If, &TVhdlScanner::ReadOpening, true},
        {Case, &TVhdlScanner::ReadOpening, true},
        {For, &TVhdlScanner::ReadFor, true},
        {When, &TVhdlScanner::ReadHead, true},
        {Elsif, &TVhdlScanner::ReadHead, true},
        {Else, &TVhdlScanner::ReadElse, true},
    };
    const auto* row = std::find_if(std::begin(kStatements), std::end(kStatements),
                                   [keyword](const TStatement& r) { return r.Keyword == keyword; });
    return row == std::end(kStatements) ? nullptr : row;
}

/// What matters within a statement, too.
TVhdlScanner::TReader TVhdlScanner::FindReader(TVhdlKeyword keyword) {
    using enum TVhdlKeyword;
    switch (keyword) {
        case End:
            return &TVhdlScanner::ReadEnd;
        case Begin:
        case Then:
            return &TVhdlScanner::ReadBegin;
        case Is:
            return &TVhdlScanner::ReadIs;
        case Loop:
            return &TVhdlScanner::ReadLoop;
        case Generate:
            return &TVhdlScanner::ReadGenerate;
        case Record:
        case TVhdlKeyword::Units:
            return &TVhdlScanner::ReadFields;
        case Use:
            return &TVhdlScanner::ReadBinding;
        case Package:
            return &TVhdlScanner::ReadPackageInstance;
        default:
            return nullptr;
    }
}

void TVhdlScanner::ScanToken() {
    if (IsLostHead()) {
        EndUnit();
        IsLabelled = false;
    }
    const bool isStart = !Units.HasUnit() || (IsAtStart && Parentheses == 0);
    if (isStart && ScanStart()) return;
    IsAtStart = IsLabelled = false;
    if (Units.HasUnit() || Peek().Is(TVhdlKeyword::End))
        ScanRest();
    else
        Take();
}

/// What does not begin a statement.
void TVhdlScanner::ScanRest() {
    if (Peek().Is(TVhdlTokenKind::Keyword))
        ScanKeyword();
    else if (Peek().Is(TVhdlTokenKind::Delimiter))
        ScanMark();
    else if (Peek().IsIdentifier())
        ScanIdentifier();
    else
        Take();
}

/// Whether a unit begins here whatever came before, since nothing else begins like this.
bool TVhdlScanner::IsLostHead() const {
    if (!Peek().Is(TVhdlTokenKind::Keyword) || !Units.HasUnit()) return false;
    if (Peek().Is(TVhdlKeyword::Library)) return !Scopes.IsIn(TVhdlScopeKind::Context);
    if (Peek().Is(TVhdlKeyword::Entity))
        return Peek(1).IsIdentifier() && Peek(2).Is(TVhdlKeyword::Is);
    return (Peek().Is(TVhdlKeyword::Architecture) || Peek().Is(TVhdlKeyword::Configuration)) &&
           Peek(1).IsIdentifier() && Peek(2).Is(TVhdlKeyword::Of);
}

/// Reads a head where a statement may begin; false, with nothing taken, when it is none of those.
bool TVhdlScanner::ScanStart() {
    if (Peek().Is(TVhdlTokenKind::Keyword)) return ScanKeywordStart();
    if (!Peek().IsIdentifier()) return false;
    if (Units.HasUnit() && Peek(1).Is(':')) {
        ReadLabel();
        return true;
    }
    if (ScanWordStart()) return true;
    if (!IsLabelled || !Scopes.IsConcurrent()) return false;
    ReadComponentInstance();
    return true;
}

bool TVhdlScanner::ScanKeywordStart() {
    const TStatement* statement = FindStatement(Peek().Keyword);
    if (!statement || (statement->NeedsUnit && !Units.HasUnit())) return false;
    Head = TVhdlKeyword::None;
    const bool wasAtStart = std::exchange(IsAtStart, false);
    const std::size_t offset = Peek().Offset;
    (this->*statement->Reader)();
    if (statement->Reader != &TVhdlScanner::ReadPrefix) IsLabelled = false;
    if (Peek().Offset != offset || Tokens.IsAtEnd()) return true;
    IsAtStart = wasAtStart;
    return false;
}

/// The words that later versions reserved.
bool TVhdlScanner::ScanWordStart() {
    if (!Peek(1).IsIdentifier()) return false;
    if (Tokens.PeekWord("context")) {
        ReadContext();
        return true;
    }
    if (Units.HasUnit() && Tokens.PeekWord("view") && Peek(2).Is(TVhdlKeyword::Of)) {
        ReadView();
        return true;
    }
    if (Scopes.Has(TVhdlScopeKind::Verification) && Tokens.PeekWord("inherit")) {
        ReadInherit();
        return true;
    }
    const bool isVerification =
        Tokens.PeekWord("vunit") || Tokens.PeekWord("vprop") || Tokens.PeekWord("vmode");
    if (!isVerification || !(Peek(2).Is('(') || Peek(2).Is('{'))) return false;
    ReadVerification();
    return true;
}

void TVhdlScanner::ScanKeyword() {
    const TReader reader = FindReader(Peek().Keyword);
    if (reader)
        (this->*reader)();
    else
        Take();
}

void TVhdlScanner::ScanMark() {
    if (Peek().Is(kVhdlOpenExternal)) return ReadExternalName();
    const TVhdlToken mark = Take();
    if (mark.Is('(') || mark.Is('{')) {
        ++Parentheses;
        return;
    }
    if (mark.Is(')') || mark.Is('}')) {
        if (Parentheses > 0)
            --Parentheses;
        else if (mark.Is('}') && Scopes.Has(TVhdlScopeKind::Verification))
            return EndUnit();
        // Behind a sensitivity list or a guard, "is" may be left out.
        IsAtStart =
            Parentheses == 0 && (Head == TVhdlKeyword::Process || Head == TVhdlKeyword::Block);
    }
    if (Parentheses > 0) return;
    if (mark.Is(';')) {
        Units.LeaveScopes(Scopes.Depth());
        if (Scopes.IsIn(TVhdlScopeKind::PackageInstance)) return EndUnit();
        IsAtStart = true;
    }
    if (mark.Is(kVhdlArrow)) IsAtStart = Head == TVhdlKeyword::When;
    if (IsAtStart) Head = TVhdlKeyword::None;
}

void TVhdlScanner::ScanIdentifier() {
    const bool isPrefix = !Tokens.Previous().Is('.') && !Tokens.Previous().Is('\'');
    if (isPrefix && Peek(1).Is(':'))
        ReadDeclared();
    else if (isPrefix && Peek(1).Is('.'))
        Units.AddSelected(ReadName());
    else
        Take();
}

TVhdlName TVhdlScanner::ReadName() {
    TVhdlName name;
    while (Peek().IsIdentifier()) {
        const TVhdlToken part = Take();
        if (name.Count < name.Parts.size()) name.Parts[name.Count++] = part;
        if (!Peek().Is('.')) break;
        name.EndsInAll = Peek(1).Is(TVhdlKeyword::All);
        const bool isOperator =
            Peek(1).Is(TVhdlTokenKind::String) || Peek(1).Is(TVhdlTokenKind::Character);
        if (!name.EndsInAll && !isOperator && !Peek(1).IsIdentifier()) break;
        Take();
        if (name.EndsInAll || isOperator) {
            Take();
            break;
        }
    }
    return name;
}

bool TVhdlScanner::SkipIf(TVhdlKeyword keyword) {
    const bool isThere = Peek().Is(keyword);
    if (isThere) Take();
    return isThere;
}

void TVhdlScanner::Enter(TVhdlScopeKind kind, const TVhdlToken& name) {
    Scopes.Enter(kind, name);
    Head = TVhdlKeyword::None;
    IsAtStart = true;
}

std::size_t TVhdlScanner::DeclarationDepth() const {
    const bool isInterface = Head == TVhdlKeyword::Function || Head == TVhdlKeyword::Procedure;
    return Scopes.Depth() + (isInterface && Parentheses > 0 ? 1 : 0);
}
