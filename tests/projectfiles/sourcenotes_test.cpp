#include "projectfiles/sourcenotes.h"
#include "services/base/fold.h"
#include "tests/projectfiles/sourcefakes.h"
#include <gtest/gtest.h>
#include <string>

namespace {

TSourceNote* Find(TSourceNotes* notes, const std::string& path) {
    const std::string_view canonical = GetSharedText(Handle(path.c_str()));
    return notes->Find(canonical, HashIgnoringCase(canonical));
}

TEST(SourceNotes, AreFoundByPathWhateverItsLetterCase) {
    TSourceNotes notes;
    EXPECT_EQ(Find(&notes, "/notes/a.vhd"), nullptr);
    TSourceNote* const note = notes.FindOrAdd(Handle("/notes/a.vhd"));
    EXPECT_EQ(note->Name, Handle("/notes/a.vhd"));
    EXPECT_EQ(note->Source, nullptr);
    EXPECT_FALSE(note->IsListed || note->IsDependency || note->IsMet);
    EXPECT_EQ(Find(&notes, "/notes/a.vhd"), note);
    EXPECT_EQ(Find(&notes, "/NOTES/A.vhd"), note);
    EXPECT_EQ(Find(&notes, "/notes/b.vhd"), nullptr);
}

TEST(SourceNotes, TakeTheSpellingThatTheSourceHasNow) {
    TSourceNotes notes;
    notes.FindOrAdd(Handle("/notes/c.vhd"))->IsMet = true;
    TSourceNote* const note = notes.FindOrAdd(Handle("/notes/C.vhd"));
    EXPECT_TRUE(note->IsMet);
    EXPECT_EQ(note->Name, Handle("/notes/C.vhd"));
    EXPECT_EQ(Find(&notes, "/notes/c.vhd"), note);
}

TEST(SourceNotes, StayWhileTheirNumberGrows) {
    constexpr int kNotes = 3000;
    TSourceNotes notes;
    const auto path = [](int i) { return "/notes/many/" + std::to_string(i) + ".vhd"; };
    for (int i = 0; i < kNotes; ++i)
        notes.FindOrAdd(Handle(path(i).c_str()))->IsListed = i % 3 == 0;
    for (int i = 0; i < kNotes; ++i) {
        const TSourceNote* note = Find(&notes, path(i));
        ASSERT_NE(note, nullptr) << i;
        ASSERT_EQ(note->Name, Handle(path(i).c_str()));
        ASSERT_EQ(note->IsListed, i % 3 == 0) << i;
        ASSERT_TRUE(notes.FetchName(HashIgnoringCase(GetSharedText(Handle(path(i).c_str()))))) << i;
    }
    int others = 0;
    for (int i = kNotes; i < 2 * kNotes; ++i) {
        ASSERT_EQ(Find(&notes, path(i)), nullptr) << i;
        if (!notes.FetchName(HashIgnoringCase(GetSharedText(Handle(path(i).c_str()))))) ++others;
    }
    EXPECT_GT(others, kNotes * 99 / 100);
}

}  // namespace
