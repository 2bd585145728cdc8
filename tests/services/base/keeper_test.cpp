#include "services/base/keeper.h"
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// That KeepUntilExit keeps an object reachable shows in the leak checker only.

namespace {

/// Forgets itself in its destructor, as all that is kept does, and tells when that runs.
class Mortal {
public:
    Mortal(std::string name, std::string* deleted) : Name(std::move(name)), Deleted(deleted) {}
    ~Mortal() {
        *Deleted += Name + " ";
        ForgetKept(this);
        if (Then) Then();
    }
    std::function<void()> Then;

private:
    std::string Name;
    std::string* Deleted;
};

class KeeperTest : public testing::Test {
protected:
    std::unique_ptr<Mortal> Make(const char* name) {
        return std::make_unique<Mortal>(name, &Deleted);
    }
    std::string Deleted;
};

}  // namespace

TEST_F(KeeperTest, DeletesWhatItHasInTheOrderInWhichItWasKept) {
    auto keeper = std::make_unique<TKeeper>();
    for (const char* name : {"one", "two", "three"}) keeper->Keep(Make(name).release());
    keeper->DeleteAll();
    EXPECT_EQ(std::exchange(Deleted, {}), "one two three ");
    EXPECT_TRUE(keeper->IsEmpty());
    for (const char* name : {"four", "five"}) keeper->Keep(Make(name).release());
    keeper.reset();
    EXPECT_EQ(Deleted, "four five ");
}

TEST_F(KeeperTest, LetsGoOfWhatOthersDelete) {
    TKeeper keeper;
    auto one = Make("one");
    auto two = Make("two");
    keeper.Keep(one.get());
    keeper.Keep(two.get());
    const void* const gone = one.get();
    one.reset();
    EXPECT_FALSE(keeper.Has(gone));
    EXPECT_TRUE(keeper.Has(two.get()));
    two.reset();
    EXPECT_TRUE(keeper.IsEmpty());
    keeper.DeleteAll();
    EXPECT_EQ(Deleted, "one two ");
}

TEST_F(KeeperTest, DeletesOnlyWhatItHas) {
    TKeeper keeper;
    TKeeper other;
    Mortal* const kept = Make("kept").release();
    Mortal* const others = Make("others").release();
    const auto nobodys = Make("nobodys");
    keeper.Keep(kept);
    other.Keep(others);
    for (const void* object :
         {static_cast<const void*>(others), static_cast<const void*>(nobodys.get())})
        keeper.Delete(object);
    keeper.Delete(nullptr);
    EXPECT_EQ(std::exchange(Deleted, {}), "");
    keeper.Delete(kept);
    EXPECT_EQ(std::exchange(Deleted, {}), "kept ");
    EXPECT_TRUE(keeper.IsEmpty());
    EXPECT_TRUE(other.Has(others));
}

TEST_F(KeeperTest, LetsADestructorDeleteWhatElseIsKept) {
    TKeeper keeper;
    Mortal* const one = Make("one").release();
    Mortal* const two = Make("two").release();
    Mortal* const three = Make("three").release();
    for (Mortal* object : {one, two, three}) keeper.Keep(object);
    one->Then = [two] { delete two; };
    keeper.Delete(one);
    EXPECT_EQ(std::exchange(Deleted, {}), "one two ");
    Mortal* const four = Make("four").release();
    keeper.Keep(four);
    three->Then = [four] { delete four; };
    keeper.DeleteAll();
    EXPECT_EQ(Deleted, "three four ");
    EXPECT_TRUE(keeper.IsEmpty());
}

TEST_F(KeeperTest, TakesAnObjectFromWhereverItIsKept) {
    TKeeper former;
    TKeeper keeper;
    Mortal* const another = Make("another").release();
    Mortal* const untilExit = Make("until exit").release();
    former.Keep(another);
    KeepUntilExit(untilExit);
    EXPECT_FALSE(former.Has(untilExit));
    for (Mortal* object : {another, untilExit, another}) keeper.Keep(object);
    EXPECT_TRUE(former.IsEmpty());
    EXPECT_TRUE(keeper.Has(another) && keeper.Has(untilExit));
    keeper.DeleteAll();
    EXPECT_EQ(Deleted, "until exit another ");
}

TEST_F(KeeperTest, TakesAllThatAnotherHas) {
    TKeeper former;
    TKeeper keeper;
    keeper.Keep(Make("one").release());
    for (const char* name : {"two", "three"}) former.Keep(Make(name).release());
    keeper.TakeAll(&former);
    EXPECT_TRUE(former.IsEmpty());
    keeper.DeleteAll();
    EXPECT_EQ(Deleted, "one two three ");
}

TEST_F(KeeperTest, KeepsWhatAKeeperHasThere) {
    TKeeper keeper;
    Mortal* const kept = Make("kept").release();
    keeper.Keep(kept);
    KeepUntilExit(kept);
    EXPECT_TRUE(keeper.Has(kept));
    keeper.DeleteAll();
    EXPECT_EQ(Deleted, "kept ");
}

TEST_F(KeeperTest, HandsOverToCallers) {
    const auto one = Make("one");
    const auto two = Make("two");
    const auto nobodys = Make("nobodys");
    {
        TKeeper keeper;
        for (Mortal* object : {one.get(), two.get()}) keeper.Keep(object);
        EXPECT_TRUE(HandOver(one.get()));
        EXPECT_FALSE(HandOver(one.get()));
        EXPECT_FALSE(HandOver(nobodys.get()));
        EXPECT_FALSE(keeper.Has(one.get()));
        EXPECT_TRUE(keeper.Has(two.get()));
        keeper.HandOverAll();
        EXPECT_TRUE(keeper.IsEmpty());
    }
    EXPECT_EQ(Deleted, "");
}

TEST_F(KeeperTest, IgnoresNull) {
    TKeeper keeper;
    keeper.Keep(static_cast<Mortal*>(nullptr));
    KeepUntilExit(nullptr);
    ForgetKept(nullptr);
    EXPECT_FALSE(HandOver(nullptr));
    EXPECT_TRUE(keeper.IsEmpty());
    EXPECT_FALSE(keeper.Has(nullptr));
}

TEST_F(KeeperTest, ForgetsTwiceWhatWasKeptTwice) {
    const auto one = Make("one");
    TKeeper keeper;
    for (int time = 0; time < 2; ++time) {
        KeepUntilExit(one.get());
        ForgetKept(one.get());
    }
    keeper.Keep(one.get());
    ForgetKept(one.get());
    ForgetKept(one.get());
    EXPECT_TRUE(keeper.IsEmpty());
}

TEST_F(KeeperTest, TakesConstantTimeForManyObjects) {
    std::vector<int> objects(300000);
    TKeeper keeper;
    const auto begin = std::chrono::steady_clock::now();
    for (const int& object : objects) keeper.Keep(&object, [](const void*) {});
    for (const int& object : objects) KeepUntilExit(&object);
    for (const int& object : objects) ForgetKept(&object);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
    EXPECT_TRUE(keeper.IsEmpty());
}
