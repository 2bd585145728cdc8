#include "services/xml/expatrun.h"
#include "tests/outofmemory/failingheap.h"
#include "tests/outofmemory/tries.h"
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

/// The distance of the allocations that fail: all of them with HDLBUILDFILE_EVERY_ALLOCATION.
std::size_t GetStep() {
    constexpr std::size_t kUsualStep = 7;
    return std::getenv("HDLBUILDFILE_EVERY_ALLOCATION") ? 1 : kUsualStep;
}

constexpr const char* kThen[] = {", then deleted", ", then deleted at once", ", then done again"};

std::size_t TryAll(const TWorkRow& row, bool forever, TAfterFailure after) {
    const TTries tries(row);
    std::size_t count = 0;
    bool isReached = true;
    for (std::size_t number = 1; isReached; number += GetStep(), ++count)
        EXPECT_EQ(tries.Try(number, forever, after, &isReached), "")
            << row.Name << ", allocation " << number << (forever ? " and all behind it" : "")
            << kThen[after];
    return count;
}

/// Each work without one allocation, and without all from one on.
void TryWorks(const std::vector<TWorkRow>& works) {
    SetExpatMemory(&FailingHeap::GetExpatMemory());
    for (const TWorkRow& row : works) {
        std::size_t count = TryAll(row, false, WORK_IS_DELETED);
        count += TryAll(row, true, WORK_IS_DELETED_AT_ONCE);
        for (const bool forever : {false, true}) count += TryAll(row, forever, WORK_IS_DONE_AGAIN);
        EXPECT_GT(count, 3U) << row.Name;
        testing::Test::RecordProperty(row.Name, std::to_string(count));
    }
}

}  // namespace

TEST(OutOfMemory, LosesNothingOfDocuments) {
    TryWorks(MakeXmlWorks());
}

TEST(OutOfMemory, LosesNothingOfBuilds) {
    TryWorks(MakeBuildWorks());
}

TEST(OutOfMemory, ChangesBuildsWholeOrNotAtAll) {
    TryWorks(MakeEditWorks());
}

TEST(OutOfMemory, ChangesProjectFileListsWholeOrNotAtAll) {
    TryWorks(MakeProjectFileWorks());
}

TEST(OutOfMemory, LosesNothingOfSettings) {
    TryWorks(MakeSettingsWorks());
}
