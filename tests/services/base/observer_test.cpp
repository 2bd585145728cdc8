#include "services/base/observer.h"
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

class Observer {
public:
    Observer(std::string name, std::string* calls) : Name(std::move(name)), Calls(calls) {}
    void ToolsChanged() {
        *Calls += Name + "\n";
        if (Then) Then();
    }
    void ToolAdded(const std::string& tool) { *Calls += Name + " " + tool + "\n"; }
    std::function<void()> Then;

private:
    std::string Name;
    std::string* Calls;
};

class Manager : public TEmbeddedObserverMgr<Observer> {
public:
    using TEmbeddedObserverMgr::CopyRegistrations;
    using TEmbeddedObserverMgr::HasObservers;
    void NotifyAll() const {
        TNotifyNoArg<Observer> notify(&Observer::ToolsChanged);
        ForEach(notify);
    }
};

class ObserverTest : public testing::Test {
protected:
    std::string Taken() { return std::exchange(Calls, {}); }
    std::string Calls;
    Observer First{"first", &Calls};
    Observer Second{"second", &Calls};
    Observer Third{"third", &Calls};
    Manager Observers;
};

}  // namespace

TEST_F(ObserverTest, CallsObserversInOrderOfRegistration) {
    EXPECT_FALSE(Observers.HasObservers());
    Observers.NotifyAll();
    Observers.AddObserver(&Second);
    Observers.AddObserver(&First);
    EXPECT_TRUE(Observers.HasObservers());
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "second\nfirst\n");
}

TEST_F(ObserverTest, PassesTheArgument) {
    Observers.AddObserver(&First);
    Observers.AddObserver(&Second);
    const std::string tool = "GCC";
    TNotifyOneArg<Observer, const std::string&> notify(&Observer::ToolAdded, tool);
    Observers.ForEach(notify);
    EXPECT_EQ(Taken(), "first GCC\nsecond GCC\n");
}

TEST_F(ObserverTest, AddsAnObserverOnceAndIgnoresNull) {
    Observers.AddObserver(&First);
    Observers.AddObserver(nullptr);
    Observers.AddObserver(&First);
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "first\n");
    Observers.DeleteObserver(nullptr);
    Observers.DeleteObserver(&Second);
    Observers.DeleteObserver(&First);
    Observers.DeleteObserver(&First);
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "");
    EXPECT_FALSE(Observers.HasObservers());
}

TEST_F(ObserverTest, SkipsAnObserverDeletedMeanwhile) {
    for (Observer* observer : {&First, &Second, &Third}) Observers.AddObserver(observer);
    First.Then = [this] { Observers.DeleteObserver(&Second); };
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "first\nthird\n");
}

TEST_F(ObserverTest, SkipsAnObserverDeletedAndAddedAgainMeanwhile) {
    for (Observer* observer : {&First, &Second}) Observers.AddObserver(observer);
    First.Then = [this] {
        Observers.DeleteObserver(&Second);
        Observers.AddObserver(&Second);
    };
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "first\n");
    First.Then = nullptr;
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "first\nsecond\n");
}

TEST_F(ObserverTest, CallsAnObserverAddedMeanwhileNextTimeOnly) {
    Observers.AddObserver(&First);
    First.Then = [this] { Observers.AddObserver(&Second); };
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "first\n");
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "first\nsecond\n");
}

TEST_F(ObserverTest, LetsAnObserverDeleteItself) {
    for (Observer* observer : {&First, &Second}) Observers.AddObserver(observer);
    First.Then = [this] { Observers.DeleteObserver(&First); };
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "first\nsecond\n");
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "second\n");
}

TEST_F(ObserverTest, SurvivesTheEndOfTheManagerDuringAWalk) {
    auto manager = std::make_unique<Manager>();
    manager->AddObserver(&First);
    manager->AddObserver(&Second);
    First.Then = [&manager] { manager.reset(); };
    manager->NotifyAll();
    EXPECT_EQ(Taken(), "first\nsecond\n");
}

TEST_F(ObserverTest, CopiesShareTheirRegistrations) {
    const Manager copyOfEmpty(Observers);
    Observers.AddObserver(&First);
    copyOfEmpty.NotifyAll();
    EXPECT_EQ(Taken(), "first\n");
    copyOfEmpty.AddObserver(&Second);
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "first\nsecond\n");
    copyOfEmpty.DeleteObserver(&First);
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "second\n");
}

TEST_F(ObserverTest, AssignmentTakesTheOthersRegistrations) {
    Manager assigned;
    assigned.AddObserver(&Third);
    assigned = Observers;
    Observers.AddObserver(&First);
    assigned.NotifyAll();
    EXPECT_EQ(Taken(), "first\n");
    const Manager& self = assigned;
    assigned = self;
    assigned.NotifyAll();
    EXPECT_EQ(Taken(), "first\n");
}

TEST_F(ObserverTest, CopiedRegistrationsChangeApart) {
    Observers.AddObserver(&First);
    Observers.AddObserver(&Second);
    Manager other;
    other.AddObserver(&Third);
    other.CopyRegistrations(Observers);
    other.NotifyAll();
    EXPECT_EQ(Taken(), "first\nsecond\n");
    other.DeleteObserver(&First);
    Observers.AddObserver(&Third);
    other.NotifyAll();
    EXPECT_EQ(Taken(), "second\n");
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "first\nsecond\nthird\n");
}

TEST_F(ObserverTest, CopiedRegistrationsOfNobodyAreNone) {
    Manager other;
    other.AddObserver(&First);
    other.CopyRegistrations(Observers);
    EXPECT_FALSE(other.HasObservers());
    other.AddObserver(&Second);
    Observers.NotifyAll();
    EXPECT_EQ(Taken(), "");
    other.NotifyAll();
    EXPECT_EQ(Taken(), "second\n");
}

TEST_F(ObserverTest, MayBeUsedByManyThreadsAtOnce) {
    class Counter {
    public:
        void ToolsChanged() { ++Count; }
        std::atomic<int> Count = 0;
    };
    class Counters : public TEmbeddedObserverMgr<Counter> {
    } counters;
    constexpr int kThreads = 4;
    constexpr int kRounds = 1000;
    Counter common;
    std::vector<Counter> own(kThreads);
    std::vector<std::thread> threads;
    for (Counter& counter : own)
        threads.emplace_back([&] {
            for (int i = 0; i < kRounds; ++i) {
                counters.AddObserver(&common);
                counters.AddObserver(&counter);
                TNotifyNoArg<Counter> notify(&Counter::ToolsChanged);
                counters.ForEach(notify);
            }
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(common.Count, kThreads * kRounds);
    for (const Counter& counter : own) EXPECT_GE(counter.Count, kRounds);
}
