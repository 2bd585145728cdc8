#include "tests/torture/powerloss.h"
#include "tests/torture/savecases.h"
#include "tests/torture/tally.h"
#include <gtest/gtest.h>
#include <set>

// Calls of the program are seen and changed by a library that is loaded in front of the system's.

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMayPreload = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
constexpr bool kMayPreload = false;
#else
constexpr bool kMayPreload = true;
#endif
#else
constexpr bool kMayPreload = true;
#endif
constexpr const char* kWhyNot = "sanitizers want to be loaded first";

std::string Preloaded(const TSavePlace& place, const std::string& variable) {
    return "env LD_PRELOAD='" TORTURE_RECORDER "' TORTURE_FOLDER='" + place.Path() + "' " +
           variable;
}

std::vector<TRecordedCall> RecordOf(const TSavePlace& place) {
    const TemporaryFolder folder;
    place.Restore();
    EXPECT_EQ(place.Run(Preloaded(place, "TORTURE_RECORD='" + folder.Path("record") + "'")), 0);
    return ReadRecord(folder.Read("record"));
}

/// The steps that make a save of the file survive a power failure, in their order.
std::string StepsOf(const std::vector<TRecordedCall>& calls, const TSavePlace& place) {
    std::string steps;
    std::map<int, std::string> paths;
    for (const TRecordedCall& call : calls) {
        if (call.Name == "open") paths[call.Number] = call.Path;
        const bool isFolder = call.Name == "fsync" && paths[call.Number] == place.Path() + "/";
        if (call.Name == "fsync") steps += isFolder ? "fsync(folder)\n" : "fsync(file)\n";
        if (call.Name == "rename" && call.To == place.Target()) steps += "rename\n";
    }
    return steps;
}

std::string TextAt(const TFiles& files, const std::string& path) {
    const auto place = files.find(path);
    return place == files.end() ? "<missing>" : place->second;
}

/// Whether the file is the old or the new one, and the others are what they were.
bool IsWhole(const TFiles& files, const TFiles& former, const TSavePlace& place) {
    for (const auto& [path, bytes] : former)
        if (path != place.Target() && TextAt(files, path) != bytes) return false;
    const std::string text = TextAt(files, place.Target());
    return text == place.Old() || text == place.New();
}

}  // namespace

TEST(LossyDisk, MayLoseWhatNobodyWaitedFor) {
    TLossyDisk disk(TFiles{{"/f/a", "old"}});
    const std::vector<TRecordedCall> calls =
        ReadRecord("open 4 1 /f/t\nwrite 4 4\nne\nw\nrename /f/t\t/f/a\nclose 4\n");
    for (const TRecordedCall& call : calls) EXPECT_TRUE(disk.Do(call)) << call.Name;
    EXPECT_EQ(disk.Current(), (TFiles{{"/f/a", "ne\nw"}}));
    std::set<TFiles> losses;
    disk.ForEachLoss([&losses](const TFiles& files) { losses.insert(files); });
    const std::string zeros(4, '\0');
    std::set<TFiles> expected = {{{"/f/a", "old"}}};
    for (const std::string& bytes : {std::string(), std::string("ne"), std::string("ne\nw"), zeros,
                                     zeros.substr(0, 2) + "\nw"}) {
        expected.insert({{"/f/a", "old"}, {"/f/t", bytes}});
        expected.insert({{"/f/a", bytes}});
        expected.insert({{"/f/a", bytes}, {"/f/t", bytes}});
    }
    EXPECT_EQ(losses, expected);
}

TEST(LossyDisk, KeepsWhatSomebodyWaitedFor) {
    TLossyDisk disk(TFiles{{"/f/a", "old"}});
    for (const TRecordedCall& call :
         ReadRecord("open 4 1 /f/t\nwrite 4 3\nnew\nfsync 4\nlink /f/a\t/f/b\n"
                    "rename /f/t\t/f/a\nopen 5 0 /f/\nfsync 5\nunlink /f/b\n"))
        EXPECT_TRUE(disk.Do(call)) << call.Name;
    std::set<TFiles> losses;
    disk.ForEachLoss([&losses](const TFiles& files) { losses.insert(files); });
    EXPECT_EQ(losses, (std::set<TFiles>{{{"/f/a", "new"}}, {{"/f/a", "new"}, {"/f/b", "old"}}}));
    EXPECT_FALSE(disk.Do(ReadRecord("other pwrite\n").front()));
}

TEST(PowerLoss, FindsEachSaveInTheRightOrder) {
    if (!kMayPreload) GTEST_SKIP() << kWhyNot;
    for (const TSaveCase& save : SaveCases()) {
        TSavePlace place(save);
        ASSERT_TRUE(place.Saves()) << save.Label;
        EXPECT_EQ(StepsOf(RecordOf(place), place), "fsync(file)\nrename\nfsync(folder)\n")
            << save.Label;
    }
}

TEST(PowerLoss, LeavesTheOldFileOrTheNewOne) {
    if (!kMayPreload) GTEST_SKIP() << kWhyNot;
    TTally tally("save: power loss");
    TTally next("save: the next one after a power loss");
    for (const TSaveCase& save : SaveCases()) {
        TSavePlace place(save);
        ASSERT_TRUE(place.Saves()) << save.Label;
        place.Restore();
        const TFiles former = place.Files();
        TLossyDisk disk(former);
        std::set<TFiles> losses;
        const auto look = [&](const TFiles& files) {
            EXPECT_TRUE(tally.Count(IsWhole(files, former, place))) << save.Label;
            losses.insert(files);
        };
        for (const TRecordedCall& call : RecordOf(place)) {
            ASSERT_TRUE(disk.Do(call)) << save.Label << ": " << call.Name << " " << call.Path;
            disk.ForEachLoss(look);
        }
        // Nothing happened that was not recorded.
        EXPECT_EQ(disk.Current(), place.Files()) << save.Label;
        // What the tool has called done stays.
        disk.ForEachLoss([&](const TFiles& files) {
            EXPECT_TRUE(tally.Count(TextAt(files, place.Target()) == place.New())) << save.Label;
        });
        std::size_t number = 0;
        for (const TFiles& files : losses) {
            if (number++ % OfTorture(16, 1) != 0) continue;
            place.Put(files);
            EXPECT_TRUE(next.Count(place.SavesAgain())) << save.Label << ": " << place.List();
        }
    }
    EXPECT_GT(tally.GetTries(), 1000u);
}

TEST(ShortCalls, AreMadeAgainForTheRest) {
    if (!kMayPreload) GTEST_SKIP() << kWhyNot;
    TTally tally("save: short reads and writes");
    for (const TSaveCase& save : SaveCases()) {
        TSavePlace place(save);
        ASSERT_TRUE(place.Saves()) << save.Label;
        for (const std::string most : {"1", "7", "100"}) {
            place.Restore();
            const int status = place.Run(Preloaded(place, "TORTURE_SHORT=" + most));
            EXPECT_TRUE(tally.Count(status == 0 && place.IsAsTold(0) && place.IsCleanBeside()))
                << save.Label << ", " << most << ": " << status;
        }
    }
}
