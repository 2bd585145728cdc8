#pragma once
#include "flows/scan/vhdlscopes.h"
#include "flows/scan/vhdltokens.h"
#include "flows/scan/vhdlunits.h"
#include <cstddef>
#include <string_view>

/// One walk over the tokens of a file. Follows what opens and closes scopes, and the heads of what
/// names other units; passes over all else, so that broken text and new syntax do no harm.
class TVhdlScanner {
public:
    TVhdlScanner(std::string_view text, const TScanOptions& options);
    std::vector<TDesignUnit> Scan();

private:
    using TReader = void (TVhdlScanner::*)();
    struct TStatement {
        TVhdlKeyword Keyword;
        TReader Reader;
        bool NeedsUnit;  // it stands in a unit only
    };
    static const TStatement* FindStatement(TVhdlKeyword keyword);
    static TReader FindReader(TVhdlKeyword keyword);

    void ScanToken();
    void ScanRest();
    bool ScanStart();
    bool ScanKeywordStart();
    bool ScanWordStart();
    void ScanKeyword();
    void ScanMark();
    void ScanIdentifier();
    bool IsLostHead() const;

    // Design units and context clauses: vhdlunitheads.cpp
    void ReadLibrary();
    void ReadUse();
    void ReadContext();
    void ReadEntity();
    void ReadArchitecture();
    void ReadConfiguration();
    void ReadPackage();
    void ReadPackageBody();
    void ReadPackageInstance();
    void ReadVerification();
    void ReadInherit();
    void BeginUnit(TDesignUnitKind kind, TVhdlScopeKind scope, const TVhdlToken& name,
                   const TVhdlName* primary = nullptr);
    void EndUnit();

    // Declarations, statements and their ends: vhdlstatements.cpp
    void ReadLabel();
    void ReadDeclared();
    void ReadPrefix();
    void ReadObjects();
    void ReadType();
    void ReadComponent();
    void ReadSubprogram();
    void ReadView();
    void ReadOpening();
    void ReadHead();
    void ReadElse();
    void ReadBegin();
    void ReadLoop();
    void ReadGenerate();
    void ReadFields();
    void ReadIs();
    void ReadEnd();
    void LeaveByKeyword(TVhdlScopeKind kind);
    void LeaveByName();

    // Instances, bindings and configurations: vhdlinstances.cpp
    void ReadComponentInstance();
    void ReadBinding();
    void ReadInstance(TNeedKind kind);
    void ReadExternalName();
    void ReadFor();
    void ReadConfigured();

    TVhdlName ReadName();
    bool SkipIf(TVhdlKeyword keyword);
    void Enter(TVhdlScopeKind kind, const TVhdlToken& name = {});
    /// Where what is declared here is visible; the interface of a subprogram is its own.
    std::size_t DeclarationDepth() const;
    const TVhdlToken& Peek(std::size_t ahead = 0) const { return Tokens.Peek(ahead); }
    TVhdlToken Take() { return Tokens.Take(); }

    TVhdlTokens Tokens;
    TVhdlUnits Units;
    TVhdlScopes Scopes;
    std::size_t Parentheses = 0;             // and braces that are open
    bool IsAtStart = true;                   // a statement or declaration begins here
    bool IsLabelled = false;                 // and it has a label
    TVhdlKeyword Head = TVhdlKeyword::None;  // the word that the statement began with
    TVhdlToken Subprogram;                   // the name in the head of one
};
