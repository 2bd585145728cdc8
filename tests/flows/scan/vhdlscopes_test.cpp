#include "flows/scan/vhdlscopes.h"
#include <gtest/gtest.h>

TEST(VhdlScopes, LeaveThoseWithinAsWell) {
    TVhdlScopes scopes;
    scopes.Enter(TVhdlScopeKind::Architecture);
    scopes.Enter(TVhdlScopeKind::Process);
    scopes.Enter(TVhdlScopeKind::If);
    EXPECT_FALSE(scopes.Leave(TVhdlScopeKind::Loop));
    EXPECT_EQ(scopes.Depth(), 3u);
    EXPECT_TRUE(scopes.Leave(TVhdlScopeKind::Process));
    EXPECT_TRUE(scopes.IsIn(TVhdlScopeKind::Architecture));
    EXPECT_FALSE(scopes.Has(TVhdlScopeKind::If));
    scopes.Clear();
    EXPECT_TRUE(scopes.IsEmpty());
    EXPECT_FALSE(scopes.Has(TVhdlScopeKind::Architecture));
}

TEST(VhdlScopes, KnowWhereStatementsAreConcurrent) {
    TVhdlScopes scopes;
    EXPECT_FALSE(scopes.IsConcurrent());
    scopes.Enter(TVhdlScopeKind::Architecture);
    EXPECT_TRUE(scopes.IsConcurrent());
    scopes.Enter(TVhdlScopeKind::If);
    EXPECT_FALSE(scopes.IsConcurrent());
    scopes.ChangeTop(TVhdlScopeKind::Generate);
    EXPECT_TRUE(scopes.IsConcurrent());
    EXPECT_FALSE(scopes.Has(TVhdlScopeKind::If));
    scopes.Enter(TVhdlScopeKind::Process);
    // A sequential block.
    scopes.Enter(TVhdlScopeKind::Block);
    EXPECT_FALSE(scopes.IsConcurrent());
}

TEST(VhdlScopes, FindWhatAnEndWithoutKeywordCloses) {
    TVhdlScopes scopes;
    EXPECT_EQ(scopes.FindNamed(), nullptr);
    scopes.Enter(TVhdlScopeKind::Architecture);
    scopes.Enter(TVhdlScopeKind::Subprogram);
    scopes.Enter(TVhdlScopeKind::Loop);
    ASSERT_NE(scopes.FindNamed(), nullptr);
    EXPECT_EQ(scopes.FindNamed()->Kind, TVhdlScopeKind::Subprogram);
    EXPECT_FALSE(scopes.Has(TVhdlScopeKind::Loop));
    scopes.Enter(TVhdlScopeKind::Generate);
    EXPECT_EQ(scopes.FindNamed(), nullptr);
    EXPECT_TRUE(scopes.IsIn(TVhdlScopeKind::Generate));
}
