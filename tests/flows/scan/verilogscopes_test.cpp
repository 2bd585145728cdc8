#include "flows/scan/verilogscopes.h"
#include <gtest/gtest.h>

TEST(VerilogScopes, LeaveTheInnermostOfAKindAndThoseWithin) {
    TVerilogScopes scopes;
    const auto module = scopes.Enter(TVerilogScopes::kFile, TVerilogScopeKind::Module, 7);
    const auto task = scopes.Enter(module, TVerilogScopeKind::Subprogram, TVerilogScopes::kNoUnit);
    const auto inner = scopes.Enter(task, TVerilogScopeKind::Class, TVerilogScopes::kNoUnit);
    EXPECT_EQ(scopes.Unit(inner), 7u);
    EXPECT_EQ(scopes.Unit(TVerilogScopes::kFile), TVerilogScopes::kNoUnit);
    EXPECT_EQ(scopes.Kind(inner), TVerilogScopeKind::Class);
    EXPECT_TRUE(scopes.IsIn(inner, TVerilogScopeKind::Module));
    EXPECT_FALSE(scopes.IsIn(module, TVerilogScopeKind::Class));
    EXPECT_EQ(scopes.Leave(inner, TVerilogScopeKind::Subprogram), module);
    EXPECT_EQ(scopes.Leave(inner, TVerilogScopeKind::Package), inner);
    EXPECT_EQ(scopes.Leave(inner, TVerilogScopeKind::Module), TVerilogScopes::kFile);
    // What was left can be gone back to.
    EXPECT_EQ(scopes.Leave(inner, TVerilogScopeKind::Class), task);
}
