#include "services/base/progress.h"
#include "tests/support/progressrecorder.h"
#include <gtest/gtest.h>
#include <thread>

namespace {

/// Does `count` items of a work, one by one.
void Work(TProgressWork work, std::size_t total, std::size_t step, std::size_t count) {
    TProgress progress(work, total, step);
    for (std::size_t i = 0; i < count; ++i) progress.Advance();
}

}  // namespace

TEST(Progress, IsReportedAtTheBeginningInStepsAndAtTheEnd) {
    RecordingProgress observer;
    Work(PROGRESS_CHECK_NAMES, 7, 3, 7);
    EXPECT_EQ(observer.Take(),
              "check names 0/7\n"
              "check names 3/7\n"
              "check names 6/7\n"
              "check names 7/7\n"
              "check names ended\n");
    Work(PROGRESS_ORDER_SOURCES, 6, 3, 6);
    EXPECT_EQ(observer.Take(), "order 0/6\norder 3/6\norder 6/6\norder ended\n");
}

TEST(Progress, IsNotReportedOfASingleStep) {
    RecordingProgress observer;
    Work(PROGRESS_CHECK_NAMES, 3, 3, 3);
    Work(PROGRESS_CHECK_NAMES, 0, 3, 5);
    EXPECT_EQ(observer.Take(), "");
}

TEST(Progress, EndsWhereTheWorkIsBrokenOff) {
    RecordingProgress observer;
    Work(PROGRESS_READ_SOURCES, 7, 3, 5);
    EXPECT_EQ(observer.Take(), "read 0/7\nread 3/7\nread ended\n");
}

TEST(Progress, RaisesTheTotalWhenThereIsMore) {
    RecordingProgress observer;
    Work(PROGRESS_READ_SOURCES, 4, 3, 8);
    EXPECT_EQ(observer.Take(), "read 0/4\nread 3/4\nread 4/4\nread 7/7\nread ended\n");
}

TEST(Progress, ReportsAPlaceThatWasReachedOnceAStep) {
    RecordingProgress observer;
    {
        TProgress progress(PROGRESS_READ_DOCUMENT, 100, 10);
        for (const std::size_t place : {5U, 9U, 10U, 11U, 35U, 44U, 45U, 100U})
            progress.Reach(place);
    }
    EXPECT_EQ(
        observer.Take(),
        "parse 0/100\nparse 10/100\nparse 35/100\nparse 45/100\nparse 100/100\nparse ended\n");
}

TEST(Progress, IsToldToTheObserverOfItsBeginning) {
    EXPECT_EQ(GetProgressObserver(), nullptr);
    RecordingProgress outer;
    TProgress outerWork(PROGRESS_READ_SOURCES, 4, 2);
    {
        RecordingProgress inner;
        EXPECT_EQ(GetProgressObserver(), &inner);
        Work(PROGRESS_CHECK_NAMES, 2, 1, 1);
        outerWork.Advance();
        outerWork.Advance();
        EXPECT_EQ(inner.Take(), "check names 0/2\ncheck names 1/2\ncheck names ended\n");
    }
    EXPECT_EQ(GetProgressObserver(), &outer);
    EXPECT_EQ(outer.Take(), "read 0/4\nread 2/4\n");
}

TEST(Progress, IsNotToldToAnObserverThatWasThereTooLate) {
    TProgress progress(PROGRESS_READ_SOURCES, 4, 1);
    EXPECT_FALSE(progress.IsObserved());
    RecordingProgress observer;
    progress.Advance();
    progress.Reach(4);
    EXPECT_EQ(observer.Take(), "");
    EXPECT_TRUE(TProgress(PROGRESS_READ_SOURCES, 4, 1).IsObserved());
}

TEST(Progress, IsToldToTheObserverOfItsThread) {
    RecordingProgress observer;
    std::string reports;
    IProgressObserver* found = &observer;
    std::thread([&] {
        found = GetProgressObserver();
        Work(PROGRESS_READ_SOURCES, 2, 1, 2);
        RecordingProgress own;
        Work(PROGRESS_CHECK_NAMES, 2, 1, 2);
        reports = own.Take();
    }).join();
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(reports, "check names 0/2\ncheck names 1/2\ncheck names 2/2\ncheck names ended\n");
    EXPECT_EQ(observer.Take(), "");
}
