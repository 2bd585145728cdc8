#include "flows/scan/verilogscanner.h"
#include <array>
#include <iterator>

TVerilogScanner::TVerilogScanner(std::string_view text, std::string_view path,
                                 const TScanOptions& options, TScannedFile* file)
    : Source(text, path, options, &file->Includes), Units(&Source, file) {}

void TVerilogScanner::Scan() {
    TVerilogToken token;
    while (true) {
        Source.Next(&token);
        switch (token.Kind) {
            case TVerilogTokenKind::End:
                return;
            case TVerilogTokenKind::Fork:
                Kept.push_back(State);
                break;
            case TVerilogTokenKind::Turn:
                State = Kept.back();
                break;
            case TVerilogTokenKind::Join:
                Kept.pop_back();
                break;
            default:
                ScanToken(token);
        }
    }
}

void TVerilogScanner::ScanToken(const TVerilogToken& token) {
    Observe(token);
    if (!ScanKeywordAtAnyPlace(token) && State.Depth == 0) ScanOutside(token);
    if (token.Is('(') || token.Is('[') || token.Is('{')) {
        ++State.Depth;
        if (State.Previous.Is('#')) State.ParametersDepth = State.Depth;
    } else if ((token.Is(')') || token.Is(']') || token.Is('}')) && State.Depth > 0) {
        if (State.Depth == State.ParametersDepth) State.ParametersDepth = 0;
        --State.Depth;
    }
    State.BeforePrevious = State.Previous;
    State.Previous = token;
}

void TVerilogScanner::ScanOutside(const TVerilogToken& token) {
    static constexpr TReader kReaders[] = {
        &TVerilogScanner::ScanStart,         &TVerilogScanner::ScanLabel,
        &TVerilogScanner::ScanMacro,         &TVerilogScanner::ScanNamed,
        &TVerilogScanner::ScanPacked,        &TVerilogScanner::ScanHash,
        &TVerilogScanner::ScanParameterised, &TVerilogScanner::ScanInstance,
        &TVerilogScanner::ScanInstanceDone,  &TVerilogScanner::ScanNextInstance,
        &TVerilogScanner::ScanCallDone,      &TVerilogScanner::ScanSkip,
        &TVerilogScanner::ScanHead,          &TVerilogScanner::ScanUnitName,
        &TVerilogScanner::ScanUnitHead,      &TVerilogScanner::ScanBase,
        &TVerilogScanner::ScanBaseNamed,     &TVerilogScanner::ScanPassiveName,
        &TVerilogScanner::ScanVirtual,       &TVerilogScanner::ScanExtern,
        &TVerilogScanner::ScanImport,        &TVerilogScanner::ScanTypedef,
        &TVerilogScanner::ScanBind,          &TVerilogScanner::ScanConfigRule,
        &TVerilogScanner::ScanConfigName,    &TVerilogScanner::ScanTable,
    };
    static_assert(std::size(kReaders) == static_cast<std::size_t>(TPhase::Table) + 1);
    (this->*kReaders[static_cast<std::size_t>(State.Phase)])(token);
}

/// Ends and beginnings that mend what is wrong before them, such as a parenthesis that is open.
bool TVerilogScanner::ScanKeywordAtAnyPlace(const TVerilogToken& token) {
    if (!token.Is(TVerilogTokenKind::Keyword) || token.Is(TVerilogKeyword::Other)) return false;
    const TKeywordRow* row = FindKeyword(token.Keyword);
    if (!row || !row->IsAtAnyPlace) return false;
    if (State.Phase == TPhase::Start && State.Depth == 0) return false;
    if (State.Phase == TPhase::Extern && token.Is(TVerilogKeyword::Module)) return false;
    State.Depth = 0;
    (this->*row->Reader)(token);
    return true;
}

const TVerilogScanner::TKeywordRow* TVerilogScanner::FindKeyword(TVerilogKeyword keyword) {
    using S = TVerilogScanner;
    using K = TVerilogKeyword;
    static constexpr TKeywordRow kRows[] = {
        {K::Module, &S::ReadUnit, true},
        {K::Macromodule, &S::ReadUnit, true},
        {K::Interface, &S::ReadUnit, false},
        {K::Program, &S::ReadUnit, false},
        {K::Package, &S::ReadUnit, false},
        {K::Primitive, &S::ReadUnit, false},
        {K::Class, &S::ReadUnit, false},
        {K::Config, &S::ReadUnit, false},
        {K::Checker, &S::ReadUnit, false},
        {K::Endmodule, &S::ReadEndOfUnit, true},
        {K::Endinterface, &S::ReadEndOfUnit, true},
        {K::Endprogram, &S::ReadEndOfUnit, true},
        {K::Endpackage, &S::ReadEndOfUnit, true},
        {K::Endprimitive, &S::ReadEndOfUnit, true},
        {K::Endclass, &S::ReadEndOfUnit, true},
        {K::Endconfig, &S::ReadEndOfUnit, true},
        {K::Endchecker, &S::ReadEndOfUnit, true},
        {K::Function, &S::ReadSubprogram, false},
        {K::Task, &S::ReadSubprogram, false},
        {K::Endfunction, &S::ReadEndOfSubprogram, true},
        {K::Endtask, &S::ReadEndOfSubprogram, true},
        {K::Property, &S::ReadPassive, false},
        {K::Sequence, &S::ReadPassive, false},
        {K::Clocking, &S::ReadPassive, false},
        {K::Covergroup, &S::ReadPassive, false},
        {K::Specify, &S::ReadSpecify, false},
        {K::Endproperty, &S::ReadEndOfPassive, true},
        {K::Endsequence, &S::ReadEndOfPassive, true},
        {K::Endclocking, &S::ReadEndOfPassive, true},
        {K::Endgroup, &S::ReadEndOfPassive, true},
        {K::Endspecify, &S::ReadEndOfPassive, true},
        {K::Endtable, &S::ReadEndOfPassive, true},
        {K::Table, &S::ReadTable, false},
        {K::Randsequence, &S::ReadTable, false},
        {K::Initial, &S::ReadProcedure, true},
        {K::Always, &S::ReadProcedure, false},
        {K::AlwaysComb, &S::ReadProcedure, true},
        {K::AlwaysFf, &S::ReadProcedure, true},
        {K::AlwaysLatch, &S::ReadProcedure, true},
        {K::Final, &S::ReadProcedure, false},
        {K::Begin, &S::ReadBlock, true},
        {K::Fork, &S::ReadFork, true},
        {K::Case, &S::ReadCase, false},
        {K::Casex, &S::ReadCase, false},
        {K::Casez, &S::ReadCase, false},
        {K::Randcase, &S::ReadBlock, false},
        {K::End, &S::ReadEndOfBlock, true},
        {K::Join, &S::ReadEndOfBlock, true},
        {K::JoinAny, &S::ReadEndOfBlock, true},
        {K::JoinNone, &S::ReadEndOfBlock, true},
        {K::Endcase, &S::ReadEndOfBlock, true},
        {K::Generate, &S::ReadStart, false},
        {K::Endgenerate, &S::ReadStart, true},
        {K::Else, &S::ReadStart, true},
        {K::Do, &S::ReadStart, false},
        {K::Forever, &S::ReadStart, false},
        {K::If, &S::ReadHead, false},
        {K::For, &S::ReadHead, false},
        {K::Foreach, &S::ReadHead, false},
        {K::While, &S::ReadHead, false},
        {K::Repeat, &S::ReadHead, false},
        {K::Wait, &S::ReadHead, false},
        {K::Unique, &S::ReadPrefix, false},
        {K::Unique0, &S::ReadPrefix, false},
        {K::Priority, &S::ReadPrefix, false},
        {K::Static, &S::ReadPrefix, false},
        {K::Automatic, &S::ReadPrefix, false},
        {K::Local, &S::ReadPrefix, false},
        {K::Protected, &S::ReadPrefix, false},
        {K::Rand, &S::ReadPrefix, false},
        {K::Randc, &S::ReadPrefix, false},
        {K::Const, &S::ReadPrefix, false},
        {K::Var, &S::ReadPrefix, false},
        {K::Virtual, &S::ReadVirtual, false},
        {K::Extern, &S::ReadExtern, false},
        {K::Pure, &S::ReadExtern, false},
        {K::Export, &S::ReadExtern, false},
        {K::Import, &S::ReadImport, false},
        {K::Typedef, &S::ReadTypedef, false},
        {K::Bind, &S::ReadBind, false},
        {K::Instance, &S::ReadConfigRule, false},
        {K::Cell, &S::ReadConfigRule, false},
        {K::Design, &S::ReadDesign, false},
    };
    static constexpr auto kRowOf = [] {
        std::array<unsigned char, 256> rowOf{};
        unsigned char number = 0;
        for (const TKeywordRow& row : kRows)
            rowOf[static_cast<std::size_t>(row.Keyword)] = ++number;
        return rowOf;
    }();
    const unsigned char number = kRowOf[static_cast<std::size_t>(keyword)];
    return number == 0 ? nullptr : &kRows[number - 1];
}

void TVerilogScanner::EndStatement() {
    State.Phase = TPhase::Start;
    State.IsBinding = false;
    State.Questions = 0;
    State.MayEndProcedure = State.IsProcedural && State.Blocks == 0;
}

/// Whether an identifier before another one may be a module here.
bool TVerilogScanner::HoldsInstances() const {
    if (State.IsBinding) return true;
    if (State.IsProcedural) return false;
    const TVerilogScopeKind kind = Scopes.Kind(State.Scope);
    return kind == TVerilogScopeKind::Module || kind == TVerilogScopeKind::Interface ||
           kind == TVerilogScopeKind::Program || kind == TVerilogScopeKind::Checker;
}

void TVerilogScanner::AddInstance(bool isCertain) {
    if (!State.Candidate.IsIdentifier()) return;
    Units.Add(Unit(), TNeedKind::Instance, State.Candidate, isCertain && HoldsInstances());
}

// What names need wherever they stand.

void TVerilogScanner::Observe(const TVerilogToken& token) {
    if (token.IsIdentifier()) return ObserveIdentifier(token);
    if (token.Kind != TVerilogTokenKind::Mark) return;
    const bool isBehindName = State.Previous.IsIdentifier();
    if (token.Is(kVerilogScope)) {
        ObserveScope();
    } else if (isBehindName && token.Is('#')) {
        const bool isPart = State.BeforePrevious.Is(kVerilogScope) || State.BeforePrevious.Is('.');
        State.Parameterised = isPart ? TVerilogToken() : State.Previous;
        State.ParameterisedDepth = State.Depth;
    } else if (isBehindName && (token.Is(',') || token.Is(')'))) {
        ObserveParameter();
    } else if (isBehindName && token.Is('.') && State.Depth == 1 && State.IsPortList) {
        ObservePort(token);
    }
}

/// Names do not stand side by side, but for a type before what is of the type, and an instance.
void TVerilogScanner::ObserveIdentifier(const TVerilogToken& token) {
    const TVerilogToken& before = State.BeforePrevious;
    if (State.Previous.Is(TVerilogKeyword::Virtual) ||
        (State.Previous.Is(TVerilogKeyword::Interface) && before.Is(TVerilogKeyword::Virtual)))
        return Units.Add(Unit(), TNeedKind::Interface, token);
    if (State.Previous.Is(TVerilogKeyword::Type)) return Units.Declare(token);
    if (!State.Previous.IsIdentifier() || before.Is(kVerilogScope) || before.Is('.')) return;
    if (before.Is(TVerilogKeyword::Virtual) || before.Is(TVerilogKeyword::Interface)) return;
    if (State.IsPortList && State.Depth == 1) return ObservePort(token);
    const bool mayBeType = State.Depth > 0 || State.Phase == TPhase::Skip ||
                           State.Phase == TPhase::Typedef || State.Phase == TPhase::Extern;
    if (mayBeType && Scopes.Kind(State.Scope) != TVerilogScopeKind::Config)
        Units.AddUnlessDeclared(Unit(), TNeedKind::Class, State.Previous, false);
}

/// A file of classes may be meant to be included, where names mean more than they do here.
void TVerilogScanner::AddScope(const TVerilogToken& name) {
    Units.AddUnlessDeclared(Unit(), TNeedKind::Scope, name, !IsIn(TVerilogScopeKind::Class));
}

void TVerilogScanner::ObserveScope() {
    if (State.Phase == TPhase::Import) return;
    const TVerilogToken& before = State.BeforePrevious;
    if (State.Previous.IsIdentifier()) {
        if (!before.Is(kVerilogScope) && !before.Is('.')) AddScope(State.Previous);
        return;
    }
    const bool isBehindParameters = State.Previous.Is(')') && State.Parameterised.IsIdentifier() &&
                                    State.Depth == State.ParameterisedDepth;
    if (isBehindParameters) AddScope(State.Parameterised);
    State.Parameterised = {};
}

/// A name alone among the parameters of a class may be a class.
void TVerilogScanner::ObserveParameter() {
    if (State.ParametersDepth == 0 || State.Depth != State.ParametersDepth) return;
    if (!State.BeforePrevious.Is('(') && !State.BeforePrevious.Is(',')) return;
    if (IsIn(TVerilogScopeKind::Class))
        Units.AddUnlessDeclared(Unit(), TNeedKind::Class, State.Previous, false);
}

/// A name before that of a port may be an interface; before a modport, it is one.
void TVerilogScanner::ObservePort(const TVerilogToken& token) {
    if (!State.BeforePrevious.Is('(') && !State.BeforePrevious.Is(',')) return;
    Units.Add(Unit(), TNeedKind::Interface, State.Previous, token.Is('.'));
}
