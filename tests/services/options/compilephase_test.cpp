#include "services/options/compilephase.h"
#include <gtest/gtest.h>

using namespace options;

TEST(CompilePhases, AreThoseOfTheStagesBits) {
    const TCompilePhases compile = {PHASE_PREPROCESS, PHASE_ANALYZE, PHASE_LIBRARY};
    const TCompilePhases link = {PHASE_CODEGEN, PHASE_LINK};
    const TCompilePhases all = {PHASE_PREPROCESS, PHASE_ANALYZE, PHASE_LIBRARY, PHASE_CODEGEN,
                                PHASE_LINK};
    EXPECT_EQ(GetCompilePhasesForStage(0), TCompilePhases());
    EXPECT_EQ(GetCompilePhasesForStage(1), compile);
    EXPECT_EQ(GetCompilePhasesForStage(2), link);
    EXPECT_EQ(GetCompilePhasesForStage(3), all);
    EXPECT_EQ(GetCompilePhasesForStage(4), TCompilePhases());
    EXPECT_EQ(GetCompilePhasesForStage(5), compile);
    EXPECT_EQ(GetCompilePhasesForStage(6), link);
    EXPECT_EQ(GetCompilePhasesForStage(7), all);
    EXPECT_EQ(GetCompilePhasesForStage(8), TCompilePhases());
    EXPECT_EQ(GetCompilePhasesForStage(9), compile);
}

TEST(CompilePhases, HaveTheirFixedNumbers) {
    EXPECT_EQ(PHASE_PREPROCESS, 0);
    EXPECT_EQ(PHASE_ANALYZE, 1);
    EXPECT_EQ(PHASE_LIBRARY, 2);
    EXPECT_EQ(PHASE_CODEGEN, 3);
    EXPECT_EQ(PHASE_LINK, 4);
}
