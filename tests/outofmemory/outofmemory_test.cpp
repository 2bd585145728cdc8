#include "services/names/isfilename.h"
#include "services/xml/expatrun.h"
#include "tests/outofmemory/failingheap.h"
#include "tests/outofmemory/tries.h"
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <vector>

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

// A table of names that cannot grow must not fill up: a search in it would not end.
TEST(OutOfMemory, FindsEveryNameWhenNoTableOfNamesCanGrow) {
    constexpr int kNames = 4000;
    constexpr int kNamesWithoutMemory = 300;
    const auto make = [](int i) {
        return ISFileName::NewISFileName(("/f/" + std::to_string(i)).c_str());
    };
    std::vector<const ISFileName*> names(kNames, nullptr);
    for (int i = 0; i < kNames; ++i) {
        // Names lie in blocks of memory, which are taken with memory.
        if (i % kNamesWithoutMemory == 0) make(-i - 1);
        FailingHeap::FailAt(1, true);
        try {
            names[static_cast<std::size_t>(i)] = make(i);
        } catch (const std::bad_alloc&) {
        }
        FailingHeap::Stop();
    }
    int found = 0;
    for (int i = 0; i < kNames; ++i) {
        const ISFileName* const name = names[static_cast<std::size_t>(i)];
        if (!name) continue;
        EXPECT_EQ(make(i), name);
        ++found;
    }
    EXPECT_GT(found, kNamesWithoutMemory);
}
