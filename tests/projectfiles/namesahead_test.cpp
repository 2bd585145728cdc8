#include "projectfiles/namesahead.h"
#include "tests/projectfiles/sourcefakes.h"
#include <gtest/gtest.h>
#include <vector>

namespace {

TEST(NamesAhead, GiveTheHandlesOfRelativeNamesInTheirOrder) {
    const ISFileName* build = Handle("/p/build.xml");
    TNamesAhead names(build);
    EXPECT_EQ(names.FindNext("a.vhd", build), nullptr);
    std::vector<std::string> texts;
    for (int i = 0; !names.IsFull(); ++i) {
        texts.push_back("ahead/../sub/f" + std::to_string(i) + ".vhd");
        names.Announce(texts.back());
    }
    ASSERT_GT(texts.size(), 10u);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        ASSERT_TRUE(names.IsNext(texts[i]));
        EXPECT_FALSE(names.IsNext("other.vhd"));
        EXPECT_EQ(names.FindNext("other.vhd", build), nullptr);
        EXPECT_EQ(names.FindNext(texts[i], Handle("/q/build.xml")), nullptr);
        const ISFileName* handle = Handle("/p/sub/f" + std::to_string(i) + ".vhd");
        EXPECT_EQ(names.FindNext(texts[i], build), handle);
        EXPECT_EQ(names.FindNext(texts[i], build), handle) << "again";
        EXPECT_EQ(names.Peek(0), handle);
        names.DropNext();
    }
    EXPECT_FALSE(names.IsNext(texts.back()));
    EXPECT_EQ(names.Peek(0), nullptr);
}

TEST(NamesAhead, KnowWhatTheyAreAskedForSoonBeforeItIsAskedFor) {
    TNamesAhead names(Handle("/p/build.xml"));
    for (int i = 0; !names.IsFull(); ++i) names.Announce("soon" + std::to_string(i));
    EXPECT_EQ(names.Peek(2), nullptr);
    for (int i = 0; i < 5; ++i) names.DropNext();
    EXPECT_EQ(names.Peek(2), Handle("/p/soon7"));
    names.DropAll();
    EXPECT_EQ(names.Peek(2), nullptr);
    names.Announce("later");
    EXPECT_TRUE(names.IsNext("later"));
}

TEST(NamesAhead, LeaveNamesThatAreNotRelative) {
    const ISFileName* build = Handle("/p/build.xml");
    TNamesAhead names(build);
    for (const char* text : {"/p/a.vhd", ""}) {
        names.Announce(text);
        EXPECT_TRUE(names.IsNext(text));
        EXPECT_EQ(names.FindNext(text, build), nullptr);
        names.DropNext();
    }
}

}  // namespace
