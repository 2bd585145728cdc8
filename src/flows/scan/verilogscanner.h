#pragma once
#include "flows/scan/verilogpreprocessor.h"
#include "flows/scan/verilogscopes.h"
#include "flows/scan/verilogunits.h"
#include <cstddef>
#include <string_view>
#include <vector>

/// Walks the tokens of a Verilog file and tells `TVerilogUnits` what it finds.
///
/// No parser: it looks at no token ahead, so that all it knows is a state that can be kept. Where a
/// condition that nobody has decided opens, the state is; each further part begins with it again.
class TVerilogScanner {
public:
    /// Keeps all, not copies; fills `*file`.
    TVerilogScanner(std::string_view text, std::string_view path, const TScanOptions& options,
                    TScannedFile* file);

    void Scan();

private:
    /// What stood last, outside of parentheses.
    enum class TPhase : unsigned char {
        Start,          // a statement may begin
        Label,          // the colon behind the word that a label follows
        Macro,          // a macro, where a statement may begin
        Named,          // an identifier, where a statement may begin
        Packed,         // and a range behind it
        Hash,           // and a hash
        Parameterised,  // and what follows that
        Instance,       // and the name of an instance, with its ranges
        InstanceDone,   // and its connections
        NextInstance,   // and a comma
        CallDone,       // an identifier and parentheses
        Skip,           // something of no interest, up to a semicolon
        Head,           // if, for and the like, whose parentheses a statement follows
        UnitName,       // the word before the name of a unit
        UnitHead,       // the name of a unit
        Base,           // extends, or implements
        BaseNamed,      // and an identifier
        PassiveName,    // the word before the name of a passive scope
        Virtual,
        Extern,
        Import,
        Typedef,
        Bind,
        ConfigRule,  // of an instance or a cell
        ConfigName,  // what is configured, up to a semicolon
        Table,       // of a primitive: no statements
    };
    using TReader = void (TVerilogScanner::*)(const TVerilogToken& token);

    struct TState {
        TPhase Phase = TPhase::Start;
        std::size_t Depth = 0;  // of parentheses, brackets and braces
        TVerilogScopes::TNumber Scope = TVerilogScopes::kFile;
        TVerilogToken Previous;
        TVerilogToken BeforePrevious;
        TVerilogToken Candidate;  // what may turn out to be needed
        TVerilogToken Library;    // of a configured cell
        // Of the unit that begins.
        TVerilogScopeKind UnitKind = TVerilogScopeKind::Module;
        bool IsInHead = false;
        bool IsPortList = false;
        // Of the statement.
        bool IsBehindMacro = false;
        bool IsBinding = false;
        bool IsPath = false;
        std::size_t Questions = 0;  // whose colons are to come
        // Procedural statements outside of subprograms.
        bool IsProcedural = false;
        bool MayEndProcedure = false;  // unless an else follows
        std::size_t Blocks = 0;
        // The last name with parameters, behind which a scope operator may follow.
        TVerilogToken Parameterised;
        std::size_t ParameterisedDepth = 0;
        std::size_t ParametersDepth = 0;  // within the parameters; 0 for none
        TNeedKind ConfigNeed = TNeedKind::Cell;
    };

    struct TKeywordRow {
        TVerilogKeyword Keyword;
        TReader Reader;
        bool IsAtAnyPlace;  // it begins something where no statement may begin, too
    };
    static const TKeywordRow* FindKeyword(TVerilogKeyword keyword);

    void ScanToken(const TVerilogToken& token);
    void ScanOutside(const TVerilogToken& token);
    bool ScanKeywordAtAnyPlace(const TVerilogToken& token);

    // What names need wherever they stand.
    void Observe(const TVerilogToken& token);
    void ObserveIdentifier(const TVerilogToken& token);
    void ObserveScope();
    void ObserveParameter();
    void ObservePort(const TVerilogToken& token);

    // One for each phase.
    void ScanStart(const TVerilogToken& token);
    void ScanLabel(const TVerilogToken& token);
    void ScanMacro(const TVerilogToken& token);
    void ScanNamed(const TVerilogToken& token);
    void ScanPacked(const TVerilogToken& token);
    void ScanHash(const TVerilogToken& token);
    void ScanParameterised(const TVerilogToken& token);
    void ScanInstance(const TVerilogToken& token);
    void ScanInstanceDone(const TVerilogToken& token);
    void ScanNextInstance(const TVerilogToken& token);
    void ScanCallDone(const TVerilogToken& token);
    void ScanSkip(const TVerilogToken& token);
    void ScanHead(const TVerilogToken& token);
    void ScanUnitName(const TVerilogToken& token);
    void ScanUnitHead(const TVerilogToken& token);
    void ScanBase(const TVerilogToken& token);
    void ScanBaseNamed(const TVerilogToken& token);
    void ScanPassiveName(const TVerilogToken& token);
    void ScanVirtual(const TVerilogToken& token);
    void ScanExtern(const TVerilogToken& token);
    void ScanImport(const TVerilogToken& token);
    void ScanTypedef(const TVerilogToken& token);
    void ScanBind(const TVerilogToken& token);
    void ScanConfigRule(const TVerilogToken& token);
    void ScanConfigName(const TVerilogToken& token);
    void ScanTable(const TVerilogToken& token);

    // What keywords begin.
    void ReadUnit(const TVerilogToken& token);
    void ReadEndOfUnit(const TVerilogToken& token);
    void ReadSubprogram(const TVerilogToken& token);
    void ReadEndOfSubprogram(const TVerilogToken& token);
    void ReadPassive(const TVerilogToken& token);
    void ReadSpecify(const TVerilogToken& token);
    void ReadEndOfPassive(const TVerilogToken& token);
    void ReadTable(const TVerilogToken& token);
    void ReadProcedure(const TVerilogToken& token);
    void ReadBlock(const TVerilogToken& token);
    void ReadFork(const TVerilogToken& token);
    void ReadCase(const TVerilogToken& token);
    void ReadEndOfBlock(const TVerilogToken& token);
    void ReadHead(const TVerilogToken& token);
    void ReadStart(const TVerilogToken& token);
    void ReadPrefix(const TVerilogToken& token);
    void ReadVirtual(const TVerilogToken& token);
    void ReadExtern(const TVerilogToken& token);
    void ReadImport(const TVerilogToken& token);
    void ReadTypedef(const TVerilogToken& token);
    void ReadBind(const TVerilogToken& token);
    void ReadConfigRule(const TVerilogToken& token);
    void ReadDesign(const TVerilogToken& token);

    void EndStatement();
    void Leave(TVerilogScopeKind kind);
    void EnterUnit(const TVerilogToken& name);
    void AddInstance(bool isCertain);
    void AddConfigured();
    std::size_t Unit() const { return Scopes.Unit(State.Scope); }
    bool IsIn(TVerilogScopeKind kind) const { return Scopes.IsIn(State.Scope, kind); }
    bool HoldsInstances() const;
    void AddScope(const TVerilogToken& name);

    TVerilogPreprocessor Source;
    TVerilogUnits Units;
    TVerilogScopes Scopes;
    TState State;
    std::vector<TState> Kept;  // at the beginning of the open conditions
};
