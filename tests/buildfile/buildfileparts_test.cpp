#include "buildfile/buildfileparts.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/support/mortal.h"
#include <gtest/gtest.h>

namespace {

/// Parts with a configuration that was cleared, two that were read and one of a caller's.
std::unique_ptr<TBuildFileParts> MakeParts(std::string* grave, bool ownsConfigs) {
    auto parts = std::make_unique<TBuildFileParts>(nullptr);
    parts->OwnsConfigs = ownsConfigs;
    parts->StoreRead(LANGUAGE_VHDL, new MortalLanguage("cleared", grave));
    parts->Clear();
    parts->StoreRead(LANGUAGE_VHDL, new MortalLanguage("read", grave));
    parts->ConfigsRead.Keep<TProjectSimGeneralConfig>(new MortalGeneral("general", grave));
    parts->Store(LANGUAGE_VERILOG, new MortalLanguage("callers", grave));
    return parts;
}

TEST(BuildFilePartsLetGo, DeleteWhatWasReadAndLeaveTheRestToWhomeverHoldsIt) {
    std::string grave;
    auto parts = MakeParts(&grave, true);
    auto shares = parts->GetCallersShares();
    ASSERT_EQ(shares.size(), 4u) << "tools, components, sources, configurations";
    parts->DeleteWhatWasRead();
    EXPECT_EQ(grave, "read general ");
    parts.reset();
    EXPECT_EQ(grave, "read general ");
    shares.clear();
    EXPECT_EQ(grave, "read general cleared callers ");
}

TEST(BuildFilePartsLetGo, LeaveConfigurationsToCallersWhenNoBuildOwnsThem) {
    std::string grave;
    auto parts = MakeParts(&grave, false);
    const std::shared_ptr<const TKeeper> configs = parts->Configs;
    EXPECT_EQ(parts->GetCallersShares().size(), 3u);
    parts->DeleteWhatWasRead();
    EXPECT_EQ(grave, "read general ");
    parts.reset();
    EXPECT_TRUE(configs->IsEmpty());
    EXPECT_EQ(grave, "read general ");
}

TEST(BuildFilePartsLetGo, DeleteAReadConfigurationThatACallersReplaces) {
    std::string grave;
    TBuildFileParts parts(nullptr);
    parts.StoreRead(LANGUAGE_VHDL, new MortalLanguage("read", &grave));
    parts.Store(LANGUAGE_VHDL, new MortalLanguage("callers", &grave));
    EXPECT_EQ(grave, "read ");
    parts.DeleteWhatWasRead();
    EXPECT_EQ(grave, "read ");
    parts.DeleteConfigs();
    EXPECT_EQ(grave, "read callers ");
}

}  // namespace
