#include "flows/linking/sourcescan.h"
#include "tests/support/progressrecorder.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

TEST(SourceScan, ScansEachFileInItsPlace) {
    const TemporaryFolder folder;
    std::vector<TSourceToScan> sources;
    for (int i = 0; i < 200; ++i) {
        const std::string name = "e" + std::to_string(i);
        sources.push_back({folder.Write(name + ".vhd", "entity " + name + " is end;"),
                           LANGUAGE_VHDL, "l" + std::to_string(i % 3)});
    }
    const TSourceScan scan = ScanSources(sources, {});
    ASSERT_EQ(scan.Files.size(), sources.size());
    EXPECT_EQ(scan.Reasons, std::vector<std::string>(sources.size()));
    for (std::size_t i = 0; i < sources.size(); ++i) {
        EXPECT_EQ(scan.Files[i].Library, sources[i].Library);
        EXPECT_EQ(scan.Files[i].Scan.Language, LANGUAGE_VHDL);
        ASSERT_EQ(scan.Files[i].Scan.Units.size(), 1u);
        EXPECT_EQ(scan.Files[i].Scan.Units[0].Name, "e" + std::to_string(i));
    }
}

TEST(SourceScan, TellsWhichFilesCannotBeRead) {
    const TemporaryFolder folder;
    const TSourceScan scan =
        ScanSources({{folder.Path("missing.vhd"), LANGUAGE_VHDL, "l"},
                     {folder.Write("a.vhd", "entity a is end;"), LANGUAGE_VHDL, "l"},
                     {folder.Path("missing.c"), LANGUAGE_CPLUSPLUS, "l"},
                     {folder.Path(), LANGUAGE_VHDL, "l"}},
                    {});
    ASSERT_EQ(scan.Reasons.size(), 4u);
    EXPECT_EQ(scan.Reasons[0], "the file does not exist");
    EXPECT_EQ(scan.Reasons[1], "");
    EXPECT_EQ(scan.Reasons[2], "");
    EXPECT_NE(scan.Reasons[3], "");
    EXPECT_TRUE(scan.Files[0].Scan.Units.empty());
    EXPECT_EQ(scan.Files[1].Scan.Units.size(), 1u);
    EXPECT_TRUE(CanScanLanguage(LANGUAGE_VHDL));
    EXPECT_FALSE(CanScanLanguage(LANGUAGE_CPLUSPLUS));
}

TEST(SourceScan, TellsTheObserverOfItsThread) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.vhd", "entity a is end;");
    RecordingProgress observer;
    ScanSources(std::vector<TSourceToScan>(40, {path, LANGUAGE_VHDL, "l"}), {});
    const std::string reports = observer.Take();
    EXPECT_TRUE(reports.starts_with("scan sources 0/40\n")) << reports;
    EXPECT_TRUE(reports.ends_with("scan sources 40/40\nscan sources ended\n")) << reports;
}
