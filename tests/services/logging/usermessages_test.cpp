#include "services/logging/usermessages.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>
#include <optional>
#include <thread>

TEST(UserMessages, AreShownAtOnce) {
    RecordingMessageBox box;
    TellUser("text", "caption");
    EXPECT_EQ(box.Take(), "caption: text [0]\n");
    TellSaveFailure("/p/a.xml", "no space");
    EXPECT_EQ(box.Take(), "Cannot save file: \"/p/a.xml\": no space [0]\n");
}

TEST(UserMessages, AreHeldBackOnOneThreadUntilTheOutermostEnds) {
    RecordingMessageBox box;
    std::optional<TMessagesHeldBack> outer(std::in_place);
    TellUser("1", "first");
    {
        const TMessagesHeldBack inner;
        TellUser("2", "second");
    }
    TellUser("3", "third");
    EXPECT_EQ(box.Take(), "");
    std::thread([] { TellUser("now", "another thread"); }).join();
    EXPECT_EQ(box.Take(), "another thread: now [0]\n");
    outer.reset();
    EXPECT_EQ(box.Take(), "first: 1 [0]\nsecond: 2 [0]\nthird: 3 [0]\n");
    TellUser("4", "fourth");
    EXPECT_EQ(box.Take(), "fourth: 4 [0]\n");
}
