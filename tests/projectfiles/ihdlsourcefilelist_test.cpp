#include "projectfiles/ihdlsourcefilelist.h"
#include "projectfiles/hdlprojectusersourcefile.h"
#include "tests/projectfiles/sourcefakes.h"
#include "tests/services/names/hostform.h"
#include "tests/support/keptobjects.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>

namespace {

/// A list of a.vhd, b.vhd and c.vhd.
class IHdlSourceFileList : public testing::Test {
protected:
    THdlSourceFile* MakeListed(const char* name) {
        THdlSourceFile* source = Made.Make(name);
        List.AddSourceFile(source, false);
        return source;
    }
    Sources Made;
    TIHdlSourceFileList List;
    THdlSourceFile* A = MakeListed("/p/a.vhd");
    THdlSourceFile* B = MakeListed("/p/b.vhd");
    THdlSourceFile* C = MakeListed("/p/c.vhd");
};

TEST(IHdlSourceFileListMade, IsEmptyAndOfNoLanguage) {
    TIHdlSourceFileList list;
    EXPECT_EQ(NamesOf(list), "");
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.GetLanguage(), LANGUAGE_NONE);
    list.SetLanguage(LANGUAGE_VHDL);
    EXPECT_EQ(list.GetLanguage(), LANGUAGE_VHDL);
}

TEST_F(IHdlSourceFileList, AddsAtTailOrHead) {
    EXPECT_TRUE(List.AddSourceFile(Made.Make("/p/tail.vhd"), false));
    EXPECT_TRUE(List.AddSourceFile(Made.Make("/p/head.vhd"), true));
    EXPECT_EQ(NamesOf(List), "head.vhd a.vhd b.vhd c.vhd tail.vhd ");
    EXPECT_EQ(List.size(), 5u);
}

TEST_F(IHdlSourceFileList, RefusesNullAndANameListedInAnyLetterCase) {
    EXPECT_FALSE(List.AddSourceFile(nullptr, false));
    EXPECT_FALSE(List.AddSourceFile(A, false));
    EXPECT_FALSE(List.AddSourceFile(Made.Make("/p/A.VHD"), false));
    EXPECT_FALSE(List.AddSourceFile(Made.Make("/p/x/../a.vhd"), true));
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd ");
}

TEST_F(IHdlSourceFileList, TellsOfAFileRefusedForItsLetterCase) {
    const MemoryFolder folder;
    THdlSourceFile* listed = Made.Make(folder.Write("D.vhd", ""));
    THdlSourceFile* refused = Made.Make(folder.Write("d.vhd", ""));
    RecordingLog log(1);
    EXPECT_TRUE(List.AddSourceFile(listed, false));
    EXPECT_FALSE(List.AddSourceFile(listed, false));
    EXPECT_EQ(log.Take(), "");
    EXPECT_FALSE(List.AddSourceFile(refused, false));
    EXPECT_EQ(log.Take(), kOnWindows ? ""
                                     : "[Default] File \"" + folder.Path("d.vhd") +
                                           "\" is taken for \"" + folder.Path("D.vhd") + "\"\n");
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd D.vhd ");
}

TEST_F(IHdlSourceFileList, FindsByCanonicalNameIgnoringCase) {
    EXPECT_EQ(List.GetSourceFile(Handle("/p/B.VHD")), B);
    EXPECT_EQ(std::as_const(List).GetSourceFile(Handle("/p/./c.vhd")), C);
    EXPECT_EQ(List.GetSourceFile(Handle("/q/b.vhd")), nullptr);
    EXPECT_EQ(List.GetSourceFile(nullptr), nullptr);
    EXPECT_EQ(std::as_const(List).GetSourceFile(nullptr), nullptr);
}

TEST_F(IHdlSourceFileList, AcceptsNamelessSourcesAndNeverFindsThem) {
    THdlSourceFile* nameless = Made.MakeNameless();
    EXPECT_TRUE(List.AddSourceFile(nameless, false));
    EXPECT_TRUE(List.AddSourceFile(nameless, false));
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd <nameless> <nameless> ");
    EXPECT_EQ(List.GetSourceFile(Handle("")), nullptr);
    EXPECT_FALSE(List.RemoveSourceFile(nameless));
    EXPECT_EQ(List.size(), 5u);
}

TEST_F(IHdlSourceFileList, FindsDependenciesOneLevelDeepInTheOrderOfTheEntries) {
    THdlSourceFile* shared1 = Made.Make("/p/shared.vhd");
    THdlSourceFile* shared2 = Made.Make("/p/shared.vhd");
    THdlSourceFile* deep = Made.Make("/p/deep.vhd");
    THdlSourceFile* otherA = Made.Make("/p/a.vhd");
    B->AddDependency(shared1);
    C->AddDependency(shared2);
    C->AddDependency(otherA);
    shared1->AddDependency(deep);
    EXPECT_EQ(List.GetSourceFileOrDependency(Handle("/p/SHARED.vhd")), shared1);
    EXPECT_EQ(std::as_const(List).GetSourceFileOrDependency(Handle("/p/shared.vhd")), shared1);
    EXPECT_EQ(List.GetSourceFileOrDependency(Handle("/p/a.vhd")), A) << "entries come first";
    EXPECT_EQ(List.GetSourceFileOrDependency(Handle("/p/deep.vhd")), nullptr);
    EXPECT_EQ(List.GetSourceFileOrDependency(nullptr), nullptr);
}

TEST_F(IHdlSourceFileList, RemovesTheVerySource) {
    EXPECT_TRUE(List.RemoveSourceFile(B));
    EXPECT_EQ(NamesOf(List), "a.vhd c.vhd ");
    EXPECT_EQ(List.GetSourceFile(Handle("/p/b.vhd")), nullptr);
    EXPECT_FALSE(List.RemoveSourceFile(B));
    EXPECT_TRUE(List.AddSourceFile(B, false));
    EXPECT_EQ(NamesOf(List), "a.vhd c.vhd b.vhd ");
}

TEST_F(IHdlSourceFileList, RemovingAnotherSourceOfAListedNameGivesTrueAndRemovesNothing) {
    EXPECT_TRUE(List.RemoveSourceFile(Made.Make("/p/B.vhd")));
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd ");
    EXPECT_FALSE(List.RemoveSourceFile(Made.Make("/p/d.vhd")));
    EXPECT_FALSE(List.RemoveSourceFile(static_cast<IHdlSourceFile*>(nullptr)));
}

TEST_F(IHdlSourceFileList, RemovesAProjectSourceAsASourceNotAsAName) {
    THdlProjectUserSourceFile user(Handle("/p/user.vhd"), nullptr, false);
    THdlProjectSourceFile otherB(Handle("/p/B.vhd"), nullptr, false);
    List.AddSourceFile(&user, false);
    EXPECT_TRUE(List.RemoveSourceFile(&user));
    EXPECT_FALSE(List.RemoveSourceFile(&user));
    EXPECT_TRUE(List.RemoveSourceFile(&otherB));
    EXPECT_FALSE(List.RemoveSourceFile(static_cast<THdlProjectSourceFile*>(nullptr)));
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd ");
}

TEST_F(IHdlSourceFileList, RemovesByName) {
    EXPECT_TRUE(List.RemoveSourceFile(Handle("/p/A.vhd")));
    EXPECT_FALSE(List.RemoveSourceFile(Handle("/p/a.vhd")));
    EXPECT_FALSE(List.RemoveSourceFile(static_cast<const ISFileName*>(nullptr)));
    EXPECT_EQ(NamesOf(List), "b.vhd c.vhd ");
}

TEST_F(IHdlSourceFileList, FlushDropsTheEntriesAndLeavesTheSources) {
    List.Flush();
    EXPECT_EQ(NamesOf(List), "");
    EXPECT_EQ(List.GetSourceFile(Handle("/p/a.vhd")), nullptr);
    EXPECT_EQ(NameOf(A), "a.vhd");
    EXPECT_TRUE(List.AddSourceFile(C, false));
    EXPECT_EQ(List.GetSourceFile(Handle("/p/c.vhd")), C);
}

TEST_F(IHdlSourceFileList, CopiesShareTheSourcesAndTakeTheLanguage) {
    List.SetLanguage(LANGUAGE_VHDL);
    TIHdlSourceFileList copy(List);
    EXPECT_EQ(NamesOf(copy), "a.vhd b.vhd c.vhd ");
    EXPECT_EQ(copy.GetSourceFile(Handle("/p/b.vhd")), B);
    EXPECT_EQ(copy.GetLanguage(), LANGUAGE_VHDL);
    copy.RemoveSourceFile(B);
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd ");

    TIHdlSourceFileList target;
    target.AddSourceFile(Made.Make("/p/old.vhd"), false);
    target = List;
    EXPECT_EQ(NamesOf(target), "a.vhd b.vhd c.vhd ");
    EXPECT_EQ(target.GetSourceFile(Handle("/p/old.vhd")), nullptr);
    const TIHdlSourceFileList& self = target;
    target = self;
    EXPECT_EQ(NamesOf(target), "a.vhd b.vhd c.vhd ");
}

TEST_F(IHdlSourceFileList, FollowsSourcesThatAreAssignedAnotherName) {
    *B = *Made.Make("/p/new.vhd");
    EXPECT_EQ(List.GetSourceFile(Handle("/p/b.vhd")), nullptr);
    EXPECT_EQ(List.GetSourceFile(Handle("/p/new.vhd")), B);
    EXPECT_TRUE(List.RemoveSourceFile(B));
    EXPECT_EQ(NamesOf(List), "a.vhd c.vhd ");
}

TEST_F(IHdlSourceFileList, GivesTheFirstOfSourcesThatCameToShareAName) {
    *C = *A;
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd a.vhd ");
    EXPECT_EQ(List.GetSourceFile(Handle("/p/a.vhd")), A);
    EXPECT_TRUE(List.RemoveSourceFile(C));
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd ");
    EXPECT_EQ(List.GetSourceFile(Handle("/p/a.vhd")), A);
}

TEST_F(IHdlSourceFileList, GivesTheNextOfSourcesThatShareANameAfterTheFirstIsGone) {
    *C = *A;
    EXPECT_TRUE(List.RemoveSourceFile(Handle("/p/a.vhd")));
    EXPECT_EQ(List.GetSourceFile(Handle("/p/a.vhd")), C);
    EXPECT_EQ(NamesOf(List), "b.vhd a.vhd ");
}

TEST_F(IHdlSourceFileList, RemovesEveryOccurrenceOfASource) {
    THdlSourceFile* source = Made.MakeNameless();
    List.AddSourceFile(source, true);
    List.AddSourceFile(source, false);
    *source = *Made.Make("/p/named.vhd");
    EXPECT_EQ(NamesOf(List), "named.vhd a.vhd b.vhd c.vhd named.vhd ");
    EXPECT_TRUE(List.RemoveSourceFile(source));
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd ");
}

TEST(IHdlSourceFileListEntries, AreNotTouchedBySearchingAndDestroying) {
    Sources made;
    auto list = std::make_unique<TIHdlSourceFileList>();
    auto gone = std::make_unique<THdlSourceFile>("/p/gone.vhd");
    list->AddSourceFile(gone.get(), false);
    THdlSourceFile* kept = made.Make("/p/kept.vhd");
    list->AddSourceFile(kept, false);
    gone.reset();
    EXPECT_EQ(list->GetSourceFile(Handle("/p/kept.vhd")), kept);
    EXPECT_TRUE(list->RemoveSourceFile(Handle("/p/gone.vhd")));
    EXPECT_EQ(NamesOf(*list), "kept.vhd ");
    list.reset();
}

TEST(IHdlSourceFileListOfManyEntries, IsTheSameForFewAndForMany) {
    // Few names are compared one by one, more are looked up.
    for (const std::size_t count : {1U, 2U, 7U, 8U, 9U, 10U, 30U}) {
        SCOPED_TRACE(count);
        Sources made;
        TIHdlSourceFileList list;
        std::vector<THdlSourceFile*> files;
        for (std::size_t i = 0; i < count; ++i) {
            files.push_back(made.Make("/p/f" + std::to_string(i) + ".vhd"));
            ASSERT_TRUE(list.AddSourceFile(files.back(), false));
        }
        for (std::size_t i = 0; i < count; ++i) {
            const std::string name = "/p/F" + std::to_string(i) + ".vhd";
            ASSERT_EQ(list.GetSourceFile(Handle(name)), files[i]);
            ASSERT_FALSE(list.AddSourceFile(made.Make(name), false));
        }
        EXPECT_EQ(list.GetSourceFile(Handle("/p/g.vhd")), nullptr);
        const TIHdlSourceFileList copy(list);
        EXPECT_TRUE(list.RemoveSourceFile(files[0]));
        EXPECT_EQ(list.GetSourceFile(Handle("/p/f0.vhd")), nullptr);
        EXPECT_TRUE(list.AddSourceFile(files[0], true));
        EXPECT_EQ(NamesOf(list), NamesOf(copy)) << "at the head again";
        EXPECT_EQ(*--list.end(), files.back());
        EXPECT_EQ(std::distance(list.begin(), list.end()), static_cast<std::ptrdiff_t>(count));
        list.Flush();
        EXPECT_TRUE(list.empty());
        EXPECT_EQ(list.GetSourceFile(Handle("/p/f0.vhd")), nullptr);
        EXPECT_EQ(copy.size(), count);
        EXPECT_EQ(copy.GetSourceFile(Handle("/p/f0.vhd")), files[0]);
    }
}

TEST(IHdlSourceFileListOfManyEntries, ManySourcesAreAddedFoundAndRemoved) {
    Sources made;
    TIHdlSourceFileList list;
    constexpr int kCount = 20000;
    for (int i = 0; i < kCount; ++i)
        ASSERT_TRUE(list.AddSourceFile(made.Make("/p/f" + std::to_string(i) + ".vhd"), false));
    EXPECT_EQ(list.size(), static_cast<std::size_t>(kCount));
    for (int i = kCount; i-- > 0;)
        ASSERT_TRUE(list.RemoveSourceFile(Handle("/P/F" + std::to_string(i) + ".vhd")));
    EXPECT_TRUE(list.empty());
}

TEST(IHdlSourceFileListMade, IsForgottenWhenDeleted) {
    EXPECT_TRUE(IsForgottenWhenDeleted(new TIHdlSourceFileList));
}

}  // namespace
