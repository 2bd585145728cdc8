#include "flows/scan/verilogscopes.h"

TVerilogScopes::TVerilogScopes() {
    Nodes.push_back({TVerilogScopeKind::File, kFile, kNoUnit, {}});
}

TVerilogScopes::TNumber TVerilogScopes::Enter(TNumber outer, TVerilogScopeKind kind,
                                              std::size_t unit) {
    TNode node = Nodes[outer];
    const auto number = static_cast<TNumber>(Nodes.size());
    node.Kind = kind;
    node.Outer = outer;
    if (unit != kNoUnit) node.Unit = unit;
    node.Innermost[static_cast<std::size_t>(kind)] = number;
    Nodes.push_back(node);
    return number;
}

TVerilogScopes::TNumber TVerilogScopes::Leave(TNumber scope, TVerilogScopeKind kind) const {
    const TNumber innermost = Innermost(scope, kind);
    return innermost == 0 ? scope : Nodes[innermost].Outer;
}
