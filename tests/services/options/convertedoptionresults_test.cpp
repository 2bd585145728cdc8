#include "services/options/convertedoptionresults.h"
#include <gtest/gtest.h>

using namespace options;

TEST(ConvertedOptionResults, AreEmptyAtFirst) {
    const TConvertedOptionResults results;
    EXPECT_EQ(results.GetArgsForPhases(GetCompilePhasesForStage(7)), "");
    EXPECT_EQ(results.GetElaboratorArgs(), "");
    EXPECT_EQ(results.GetSimulatorArgs(), "");
    EXPECT_EQ(results.GetForcedArgsForPhases(GetCompilePhasesForStage(7)), "");
    EXPECT_EQ(results.GetForcedElaboratorArgs(), "");
    EXPECT_EQ(results.GetForcedSimulatorArgs(), "");
}

TEST(ConvertedOptionResults, JoinTheItemsOfEachDestinationInTheOrderAdded) {
    TConvertedOptionResults results;
    results.Add({"-y lib", PHASE_LIBRARY});
    results.Add({"-elab", ELABORATOR});
    results.Add({"+define+A", PHASE_PREPROCESS});
    results.Add({"-run", SIMULATOR});
    results.Add({"-gen", PHASE_CODEGEN});
    results.Add({"-word", PHASE_ANALYZE});
    results.Add({"-link", PHASE_LINK});
    results.Add({"-forced word", PHASE_ANALYZE, true});
    results.Add({"-forced elab", ELABORATOR, true});
    results.Add({"-forced run", SIMULATOR, true});
    results.Add({"-forced link", PHASE_LINK, true});
    results.Add({"-elab2", ELABORATOR});
    results.Add({"-run2", SIMULATOR});

    EXPECT_EQ(results.GetArgsForPhases(GetCompilePhasesForStage(1)), "-y lib +define+A -word");
    EXPECT_EQ(results.GetArgsForPhases(GetCompilePhasesForStage(2)), "-gen -link");
    EXPECT_EQ(results.GetArgsForPhases(GetCompilePhasesForStage(7)),
              "-y lib +define+A -gen -word -link");
    EXPECT_EQ(results.GetArgsForPhases({PHASE_LIBRARY}), "-y lib");
    EXPECT_EQ(results.GetArgsForPhases({}), "");
    EXPECT_EQ(results.GetElaboratorArgs(), "-elab -elab2");
    EXPECT_EQ(results.GetSimulatorArgs(), "-run -run2");
    EXPECT_EQ(results.GetForcedArgsForPhases(GetCompilePhasesForStage(1)), "-forced word");
    EXPECT_EQ(results.GetForcedArgsForPhases(GetCompilePhasesForStage(2)), "-forced link");
    EXPECT_EQ(results.GetForcedElaboratorArgs(), "-forced elab");
    EXPECT_EQ(results.GetForcedSimulatorArgs(), "-forced run");
}

TEST(ConvertedOptionResults, GiveFlagsOnceAndEverythingElseAsOftenAsAdded) {
    TConvertedOptionResults results;
    results.Add({"-s", ELABORATOR, false, true});
    results.Add({"+define+A=1", ELABORATOR});
    results.Add({"-s", ELABORATOR, false, true});
    results.Add({"+define+A=2", ELABORATOR});
    results.Add({"+define+A=1", ELABORATOR});
    results.Add({"-s", SIMULATOR, false, true});
    results.Add({"-s", ELABORATOR, true});
    results.Add({"-s", ELABORATOR, true});
    EXPECT_EQ(results.GetElaboratorArgs(), "-s +define+A=1 +define+A=2 +define+A=1");
    EXPECT_EQ(results.GetSimulatorArgs(), "-s");
    EXPECT_EQ(results.GetForcedElaboratorArgs(), "-s -s");
}
