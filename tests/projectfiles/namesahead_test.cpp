#include "projectfiles/namesahead.h"
#include "projectfiles/hdlsourcefile.h"
#include "tests/projectfiles/sourcefakes.h"
#include <gtest/gtest.h>
#include <vector>

namespace {

TEST(NamesAhead, GiveTheHandlesOfRelativeNamesInTheirOrder) {
    const ISFileName* build = Handle("/p/build.xml");
    TSourceNotes notes;
    TNamesAhead names(build, &notes);
    EXPECT_EQ(names.FindHandle("a.vhd", build), nullptr);
    std::vector<std::string> texts;
    for (int i = 0; !names.IsFull(); ++i) {
        texts.push_back("ahead/../sub/f" + std::to_string(i) + ".vhd");
        names.Announce(texts.back(), i % 2 == 0);
    }
    ASSERT_GT(texts.size(), 10u);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        ASSERT_TRUE(names.IsNext(texts[i]));
        EXPECT_FALSE(names.IsNext("other.vhd"));
        EXPECT_EQ(names.FindHandle("other.vhd", build), nullptr);
        EXPECT_EQ(names.FindHandle(texts[i], Handle("/q/build.xml")), nullptr);
        const ISFileName* handle = Handle("/p/sub/f" + std::to_string(i) + ".vhd");
        EXPECT_EQ(names.FindHandle(texts[i], build), handle);
        EXPECT_EQ(names.FindHandle(texts[i], build), handle) << "again";
        names.DropNext();
    }
    EXPECT_FALSE(names.IsNext(texts.back()));
    EXPECT_EQ(names.FindHandle(texts.back(), build), nullptr);
}

TEST(NamesAhead, GiveTheNoteThatSpellsTheNameSo) {
    const ISFileName* build = Handle("/p/build.xml");
    TSourceNotes notes;
    THdlSourceFile source(Handle("/p/Noted.vhd"));
    TNamesAhead names(build, &notes);
    for (const char* text : {"Noted.vhd", "noted.vhd", "unknown.vhd"}) names.Announce(text, true);
    // What is noted after a name was announced is found as well.
    TSourceNote* const note = notes.FindOrAdd(source.GetFileName());
    note->Source = &source;
    EXPECT_EQ(names.FindNote("noted.vhd"), nullptr) << "not the next one";
    EXPECT_EQ(names.FindNote("Noted.vhd"), note);
    names.DropNext();
    EXPECT_EQ(names.FindNote("noted.vhd"), nullptr);
    EXPECT_EQ(names.FindHandle("noted.vhd", build), Handle("/p/noted.vhd"));
    names.DropNext();
    EXPECT_EQ(names.FindNote("unknown.vhd"), nullptr);
}

TEST(NamesAhead, DropThoseThatAreNotAskedFor) {
    TSourceNotes notes;
    TNamesAhead names(Handle("/p/build.xml"), &notes);
    for (int i = 0; !names.IsFull(); ++i) names.Announce("soon" + std::to_string(i), false);
    for (int i = 0; i < 5; ++i) names.DropNext();
    EXPECT_TRUE(names.IsNext("soon5"));
    names.DropAll();
    EXPECT_FALSE(names.IsNext("soon5"));
    names.Announce("later", false);
    EXPECT_TRUE(names.IsNext("later"));
}

TEST(NamesAhead, LeaveNamesThatAreNotRelative) {
    const ISFileName* build = Handle("/p/build.xml");
    TSourceNotes notes;
    notes.FindOrAdd(Handle("/p/a.vhd"));
    TNamesAhead names(build, &notes);
    for (const char* text : {"/p/a.vhd", ""}) {
        names.Announce(text, true);
        EXPECT_TRUE(names.IsNext(text));
        EXPECT_EQ(names.FindHandle(text, build), nullptr);
        EXPECT_EQ(names.FindNote(text), nullptr);
        names.DropNext();
    }
}

}  // namespace
