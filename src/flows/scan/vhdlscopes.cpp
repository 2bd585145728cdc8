#include "flows/scan/vhdlscopes.h"

TVhdlScope& TVhdlScopes::Enter(TVhdlScopeKind kind, const TVhdlToken& name) {
    TVhdlScope& scope = Open.emplace_back();
    scope.Kind = kind;
    scope.Name = name;
    ++Counts[static_cast<std::size_t>(kind)];
    return scope;
}

void TVhdlScopes::Pop() {
    --Counts[static_cast<std::size_t>(Open.back().Kind)];
    Open.pop_back();
}

bool TVhdlScopes::Leave(TVhdlScopeKind kind) {
    if (!Has(kind)) return false;
    while (Open.back().Kind != kind) Pop();
    Pop();
    return true;
}

void TVhdlScopes::Clear() {
    while (!Open.empty()) Pop();
}

bool TVhdlScopes::IsConcurrent() const {
    if (Has(TVhdlScopeKind::Process) || Has(TVhdlScopeKind::Subprogram)) return false;
    return IsIn(TVhdlScopeKind::Architecture) || IsIn(TVhdlScopeKind::Block) ||
           IsIn(TVhdlScopeKind::Generate);
}

void TVhdlScopes::ChangeTop(TVhdlScopeKind kind) {
    --Counts[static_cast<std::size_t>(Open.back().Kind)];
    ++Counts[static_cast<std::size_t>(kind)];
    Open.back().Kind = kind;
}

const TVhdlScope* TVhdlScopes::FindNamed() {
    while (!Open.empty()) {
        const TVhdlScopeKind kind = Open.back().Kind;
        if (kind == TVhdlScopeKind::Generate) return nullptr;
        if (kind <= TVhdlScopeKind::Component) return &Open.back();
        Pop();
    }
    return nullptr;
}
