#include "projectfiles/projectfileindex.h"
#include "projectfiles/hdlusersourcefilelist.h"
#include "tests/projectfiles/projectfilefakes.h"
#include "tests/services/names/hostform.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include <ctime>
#include <gtest/gtest.h>
#include <memory>

// Finding names in lists that are too long to walk.

namespace {

using TList = THdlProjectFileList;

class ProjectFileIndex : public testing::Test {
protected:
    ProjectFileIndex() { AddManyFiles(List); }
    THdlProjectFile* Find(const std::string& name) {
        const auto place = List.FindFromISFileName(Name(name));
        return place == List.end() ? nullptr : *place;
    }
    THdlProjectFile* At(int number) { return *std::next(List.begin(), number); }

    TList List{TList::LIST_TYPE_FILE_INPUT, nullptr};
};

TEST_F(ProjectFileIndex, FindsEveryFileAndNothingElse) {
    int number = 0;
    for (THdlProjectFile* file : List) EXPECT_EQ(Find("F" + std::to_string(number++) + ".V"), file);
    EXPECT_EQ(Find("f40.v"), nullptr);
}

TEST_F(ProjectFileIndex, FollowsAddsAndRemovals) {
    EXPECT_EQ(Find("x.v"), nullptr);
    THdlProjectFile* added = List.AddAtHeadAndSetOwner(Name("x.v")).first;
    EXPECT_EQ(Find("X.v"), added);
    EXPECT_TRUE(List.Remove(Name("x.v"), true));
    EXPECT_EQ(Find("x.v"), nullptr);
    EXPECT_TRUE(List.Remove(Name("f7.v"), true));
    EXPECT_FALSE(List.Remove(Name("f7.v"), true));
    EXPECT_EQ(Find("f8.v"), At(7));
    List.Flush(true);
    EXPECT_EQ(Find("f8.v"), nullptr);
}

TEST_F(ProjectFileIndex, FollowsAnAssignmentToAListedFile) {
    EXPECT_EQ(Find("f3.v"), At(3));
    *At(3) = THdlProjectFile(Name("x.v"), nullptr, false);
    EXPECT_EQ(Find("f3.v"), nullptr);
    EXPECT_EQ(Find("x.v"), At(3));
}

TEST_F(ProjectFileIndex, FollowsAnAssignmentToAListedFileAsATrackedName) {
    EXPECT_EQ(Find("f3.v"), At(3));
    static_cast<THdbSFileName&>(*At(3)) = THdbSFileName(Name("x.v"));
    EXPECT_EQ(Find("f3.v"), nullptr);
    EXPECT_EQ(Find("x.v"), At(3));
    EXPECT_FALSE(List.AddAtTailAndSetOwner(Name("x.v")).second);
}

TEST_F(ProjectFileIndex, GivesTheFirstOfTwoFilesThatCameToShareAName) {
    EXPECT_EQ(Find("f9.v"), At(9));
    *At(20) = THdlProjectFile(Name("f9.v"), nullptr, false);
    *At(5) = THdlProjectFile(Name("F9.v"), nullptr, false);
    EXPECT_EQ(Find("f9.v"), At(5));
    EXPECT_TRUE(List.Remove(Name("f9.v"), true));
    EXPECT_EQ(Find("f9.v"), At(8));
    EXPECT_TRUE(List.Remove(Name("f9.v"), true));
    EXPECT_EQ(Find("f9.v"), At(18));
    EXPECT_TRUE(List.Remove(Name("f9.v"), true));
    EXPECT_EQ(Find("f9.v"), nullptr);
}

TEST_F(ProjectFileIndex, GivesTheFirstOfTwoFilesAddedUnderOneName) {
    EXPECT_EQ(Find("f9.v"), At(9));
    auto* earlier = new THdlProjectFile(Name("f9.v"), nullptr, false);
    auto* later = new THdlProjectFile(Name("f9.v"), nullptr, false);
    List.push_back(later);
    List.push_front(earlier);
    EXPECT_EQ(Find("f9.v"), earlier);
    List.erase(std::prev(List.end()));
    delete later;
    EXPECT_EQ(Find("f9.v"), earlier);
    List.Remove(Name("f9.v"), true);
    EXPECT_EQ(Find("f9.v"), At(9));
}

TEST_F(ProjectFileIndex, NoticesAFilePutInAnothersPlace) {
    THdlProjectFile* displaced = Find("f3.v");
    *List.FindFromISFileName(Name("f3.v")) = new THdlProjectFile(Name("x.v"), nullptr, false);
    EXPECT_EQ(Find("f3.v"), nullptr);
    EXPECT_EQ(Find("x.v"), At(3));
    delete displaced;
}

TEST_F(ProjectFileIndex, NoticesFilesThatCameThroughTheStandardList) {
    EXPECT_EQ(Find("x.v"), nullptr);
    std::list<THdlProjectFile*>& standard = List;
    standard.push_back(new THdlProjectFile(Name("x.v"), nullptr, false));
    EXPECT_EQ(Find("x.v"), List.GetTail());
}

TEST_F(ProjectFileIndex, NoticesAFileTakenOutAndAnotherPutInBehindItsBack) {
    EXPECT_EQ(Find("f39.v"), At(39));
    const std::unique_ptr<THdlProjectFile> takenOut(List.GetTail());
    List.pop_back();
    std::list<THdlProjectFile*>& standard = List;
    standard.push_back(new THdlProjectFile(Name("x.v"), nullptr, false));
    EXPECT_EQ(Find("f39.v"), nullptr);
    EXPECT_EQ(Find("x.v"), At(39));
}

TEST_F(ProjectFileIndex, FollowsAnAssignmentAndASwapOfLists) {
    TList other(TList::LIST_TYPE_FILE_INPUT, nullptr);
    for (int number = 0; number < kManyFiles; ++number)
        other.AddAtTailAndSetOwner(Name("g" + std::to_string(number) + ".v"));
    EXPECT_EQ(Find("f0.v"), At(0));
    EXPECT_FALSE(other.Contains(Name("f0.v")));
    List.swap(other);
    EXPECT_EQ(Find("f0.v"), nullptr);
    EXPECT_EQ(Find("g0.v"), At(0));
    EXPECT_TRUE(other.Contains(Name("f0.v")));
    EXPECT_FALSE(other.Contains(Name("g0.v")));
    const TList holder(List);
    List = other;
    EXPECT_EQ(Find("f0.v"), At(0));
    EXPECT_EQ(Find("g0.v"), nullptr);
}

TEST_F(ProjectFileIndex, FollowsAChangeOfOrderAmongFilesOfOneName) {
    auto* later = new THdlProjectFile(Name("f0.v"), nullptr, false);
    THdlProjectFile* earlier = At(0);
    List.push_back(later);
    EXPECT_EQ(Find("f0.v"), earlier);
    List.reverse();
    EXPECT_EQ(Find("f0.v"), later);
    List.sort([&](auto* a, auto* b) { return a == earlier && b != earlier; });
    EXPECT_EQ(Find("f0.v"), earlier);
    TList other(TList::LIST_TYPE_FILE_INPUT, nullptr);
    other.splice(other.end(), List, List.begin());
    List.merge(other, [&](auto* a, auto*) { return a == earlier; });
    EXPECT_EQ(Find("f0.v"), List.front());
}

TEST_F(ProjectFileIndex, ServesListsThatAreLongAndHaveAllHandles) {
    TProjectFileIndex index;
    THdlProjectFile file(Name("a.v"), nullptr, false);
    THdlProjectFile handleless(&HandlelessName(), nullptr, false);
    std::list<THdlProjectFile*> files(16, &file);
    EXPECT_FALSE(index.Prepare(files));
    files.push_back(&file);
    EXPECT_TRUE(index.Prepare(files));
    files.push_back(&handleless);
    index.Added(files, std::prev(files.end()));
    EXPECT_FALSE(index.Prepare(files));
    index.Removing(files, std::prev(files.end()));
    files.pop_back();
    EXPECT_TRUE(index.Prepare(files));
    EXPECT_TRUE(index.Find(files, GetFileIdentity(&file)) == files.begin());
}

TEST_F(ProjectFileIndex, IsBuiltAnewForTheSourceOfASplice) {
    TList other(TList::LIST_TYPE_FILE_INPUT, nullptr);
    AddManyFiles(other);
    EXPECT_EQ(Find("f0.v"), At(0));
    EXPECT_TRUE(other.Contains(Name("f0.v")));
    other.splice(other.end(), List, List.begin());
    EXPECT_EQ(Find("f0.v"), nullptr);
    EXPECT_EQ(Find("f1.v"), At(0));
}

TEST_F(ProjectFileIndex, FindsAgainWhenTheLastFileWithoutHandleIsGone) {
    RecordingLog log;
    THdlProjectFile handleless(&HandlelessName(), nullptr, false);
    List.push_front(&handleless);
    EXPECT_EQ(Find("f3.v"), At(4));
    EXPECT_EQ(log.Take(), "hdlprojectfile(53): Check failed: \"currentFileName\"\n");
    List.pop_front();
    EXPECT_EQ(Find("f3.v"), At(3));
    EXPECT_EQ(log.Take(), "");
}

TEST_F(ProjectFileIndex, TellsOfAFileRefusedForItsLetterCaseAsAWalkDoes) {
    const struct {
        const char* Label;
        TList::TAddResult (*Add)(TList& list, const ISFileName* name, THdlProjectFile* file);
    } rows[] = {
        {"name at the head",
         [](auto& list, auto* name, auto*) { return list.AddAtHeadAndSetOwner(name); }},
        {"name at the tail",
         [](auto& list, auto* name, auto*) { return list.AddAtTailAndSetOwner(name); }},
        {"file at the head",
         [](auto& list, auto*, auto* file) { return list.AddAtHeadAndSetOwner(file); }},
        {"file at the tail",
         [](auto& list, auto*, auto* file) { return list.AddAtTailAndSetOwner(file); }},
        {"file inserted",
         [](auto& list, auto*, auto* file) {
             return list.InsertFileAndSetOwner(file, nullptr, true);
         }},
    };
    const MemoryFolder folder;
    const ISFileName* const listed = Name(folder.Write("Fifo.v", ""));
    THdlProjectFile refused(Name(folder.Write("fifo.v", "")), nullptr, false);
    const std::string line = "[Default] File \"" + folder.Path("fifo.v") + "\" is taken for \"" +
                             folder.Path("Fifo.v") + "\"\n";
    TList walked(TList::LIST_TYPE_FILE_INPUT, nullptr);
    RecordingLog log(1);
    for (TList* list : {&List, &walked}) {
        THdlProjectFile* const file = list->AddAtTailAndSetOwner(listed).first;
        for (const auto& row : rows) {
            const TList::TAddResult expected(file, false);
            EXPECT_EQ(row.Add(*list, listed, file), expected) << row.Label;
            EXPECT_EQ(log.Take(), "") << row.Label;
            EXPECT_EQ(row.Add(*list, refused.GetFileName(), &refused), expected) << row.Label;
            EXPECT_EQ(log.Take(), kOnWindows ? "" : line) << row.Label;
        }
    }
}

// Walks would take 5,000,000,000 steps for each loop.
TEST(ProjectFileIndexSpeed, AddsFindsAndRemovesAHundredThousandFilesByName) {
    constexpr int kCount = 100000;
    std::vector<const ISFileName*> names;
    for (int number = 0; number < kCount; ++number)
        names.push_back(Name("speed/" + std::to_string(number) + ".v"));
    THdlUserSourceFileList list(nullptr);
    const std::clock_t start = std::clock();
    int added = 0;
    int found = 0;
    int scoped = 0;
    int removed = 0;
    for (const ISFileName* name : names) added += list.AddAtTailAndSetOwner(name).second;
    for (const ISFileName* name : names) added += list.AddAtHeadAndSetOwner(name).second;
    for (const ISFileName* name : names) found += list.Contains(name);
    for (const ISFileName* name : names)
        scoped += list.SetAssociatedFileScope(name) && list.AddAssociatedFileToScopeFile(name);
    for (const ISFileName* name : names) removed += list.Remove(name, true);
    EXPECT_EQ(added, kCount);
    EXPECT_EQ(found, kCount);
    EXPECT_EQ(scoped, kCount);
    EXPECT_EQ(removed, kCount);
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 20);
}

}  // namespace
