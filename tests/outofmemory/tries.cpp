#include "tests/outofmemory/tries.h"
#include "tests/outofmemory/failingheap.h"
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

namespace {

constexpr const char* kLeak = "it leaks ";

std::string ResultOf(IWork* work) {
    return work->Do() ? work->GetResult() : "failed";
}

/// Whether the work says that it is done.
bool DoWithout(std::size_t number, bool forever, TAfterFailure after, std::unique_ptr<IWork>* work,
               bool* isReached) {
    bool isDone = false;
    FailingHeap::FailAt(number, forever);
    try {
        isDone = (*work)->Do();
    } catch (const std::bad_alloc&) {
        isDone = false;
    }
    if (after == WORK_IS_DELETED_AT_ONCE) work->reset();
    *isReached = FailingHeap::Stop() >= number;
    return isDone;
}

/// What is lost, as one of these: a text of its own would count as a leak.
const char* FindLoss(IWork* work, bool isDone, TAfterFailure after, const std::string& expected) {
    if (!work->IsWhole()) return "what it changes is not whole";
    if (isDone && work->GetResult() != expected) return "it says that it is done, and is not";
    if (after == WORK_IS_DELETED || ResultOf(work) == expected) return "";
    return "it does something else when it is done again";
}

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

}  // namespace

TTries::TTries(const TWorkRow& row) : Row(row) {
    for (int i = 0; i < 3; ++i) {
        const std::unique_ptr<IWork> work = Row.Make();
        Expected = ResultOf(work.get());
        EXPECT_EQ(ResultOf(work.get()), Expected) << Row.Name;
    }
    EXPECT_NE(Expected, "failed") << Row.Name;
}

// What grows for ever, as the memory of file names does, takes a block now and then: that is no
// leak of this try.
std::string TTries::Try(std::size_t number, bool forever, TAfterFailure after,
                        bool* isReached) const {
    const std::string complaint = TryOnce(number, forever, after, isReached);
    return complaint.starts_with(kLeak) ? TryOnce(number, forever, after, isReached) : complaint;
}

std::string TTries::TryOnce(std::size_t number, bool forever, TAfterFailure after,
                            bool* isReached) const {
    const std::ptrdiff_t before = FailingHeap::GetLiveCount();
    const char* loss = "";
    {
        std::unique_ptr<IWork> work = Row.Make();
        const bool isDone = DoWithout(number, forever, after, &work, isReached);
        if (work) loss = FindLoss(work.get(), isDone, after, Expected);
    }
    const std::ptrdiff_t leaked = FailingHeap::GetLiveCount() - before;
    if (*loss || leaked <= Row.MostLost) return loss;
    return kLeak + std::to_string(leaked) + " allocations";
}

void TryWorks(const std::vector<TWorkRow>& works) {
    for (const TWorkRow& row : works) {
        std::size_t count = TryAll(row, false, WORK_IS_DELETED);
        count += TryAll(row, true, WORK_IS_DELETED_AT_ONCE);
        for (const bool forever : {false, true}) count += TryAll(row, forever, WORK_IS_DONE_AGAIN);
        EXPECT_GT(count, 3U) << row.Name;
        testing::Test::RecordProperty(row.Name, std::to_string(count));
    }
}
