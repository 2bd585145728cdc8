#include "projectfiles/hdlprojectdiagramfile.h"
#include "projectfiles/hdlprojectusersourcefile.h"
#include "projectfiles/hdlsourcefilelist.h"
#include "tests/projectfiles/projectfilefakes.h"
#include <gtest/gtest.h>
#include <memory>

// Files that are in several lists: who deletes them, and when.

namespace {

using TList = THdlProjectFileList;

TList MakeList(std::string& grave) {
    TList list(TList::LIST_TYPE_FILE_INPUT, nullptr);
    list.AddAtTailAndSetOwner(new MortalFile("a.v", grave));
    list.AddAtTailAndSetOwner(new MortalFile("b.v", grave));
    return list;
}

TEST(ProjectFileSharing, CopiesHoldTheSameFilesOwnerTypeAndObservers) {
    std::string grave;
    FakeComponent owner;
    RecordingObserver observer;
    TList list = MakeList(grave);
    list.SetOwningProjectComponent(&owner);
    list.AddObserver(&observer);
    TList copy(list);
    TList assigned(TList::LIST_TYPE_NONE, nullptr);
    assigned = list;
    for (TList* same : {&copy, &assigned}) {
        EXPECT_EQ(NamesOf(*same), "a.v b.v ");
        EXPECT_EQ(same->GetHead(), list.GetHead());
        EXPECT_EQ(same->GetTail(), list.GetTail());
        EXPECT_EQ(same->GetOwningProjectComponent(), &owner);
        EXPECT_EQ(same->GetListType(), 3);
        same->AddAtTailAndSetOwner(Name("c.v"));
        EXPECT_EQ(observer.Take(), "2 ");
        EXPECT_EQ(NamesOf(list), "a.v b.v ");
    }
}

TEST(ProjectFileSharing, CopiesHaveRegistrationsOfTheirOwn) {
    RecordingObserver both;
    RecordingObserver late;
    TList list(TList::LIST_TYPE_FILE_INPUT, nullptr);
    list.AddObserver(&both);
    TList copy(list);
    TList assigned(TList::LIST_TYPE_NONE, nullptr);
    assigned.AddObserver(&late);
    assigned = list;
    for (TList* same : {&copy, &assigned}) {
        same->AddObserver(&late);
        list.AddAtHeadAndSetOwner(Name(same == &copy ? "a.v" : "b.v"));
        EXPECT_EQ(both.Take() + "|" + late.Take(), "0 |") << "a change of the original";
        same->AddAtHeadAndSetOwner(Name("c.v"));
        EXPECT_EQ(both.Take() + "|" + late.Take(), "0 |0 ") << "a change of the copy";
        same->DeleteObserver(&both);
        same->AddAtHeadAndSetOwner(Name("d.v"));
        EXPECT_EQ(both.Take() + "|" + late.Take(), "|0 ") << "of the copy, with one removed";
    }
    list.AddAtHeadAndSetOwner(Name("e.v"));
    EXPECT_EQ(both.Take(), "0 ");
}

TEST(ProjectFileSharing, AssociatedListsOfCopiedFilesHaveRegistrationsOfTheirOwn) {
    RecordingObserver observer;
    RecordingObserver late;
    THdlProjectUserSourceFile source(Name("a.v"), nullptr, false);
    THdlProjectDiagramFile diagram(Name("a.btim"), nullptr);
    source.GetAssociatedFileList()->AddObserver(&observer);
    diagram.GetAssociatedFileList()->AddObserver(&observer);
    THdlProjectUserSourceFile sourceCopy(source);
    THdlProjectDiagramFile diagramCopy(diagram);
    sourceCopy.GetAssociatedFileList()->DeleteObserver(&observer);
    diagramCopy.GetAssociatedFileList()->DeleteObserver(&observer);
    sourceCopy.GetAssociatedFileList()->AddObserver(&late);
    diagramCopy.GetAssociatedFileList()->AddObserver(&late);
    source.AddAssociatedFileAtTail(Name("b.v"));
    diagram.AddAssociatedFileAtTail(Name("b.v"));
    EXPECT_EQ(observer.Take() + "|" + late.Take(), "0 0 |");
}

TEST(ProjectFileSharing, TheLastListDeletesASharedFile) {
    std::string grave;
    auto list = std::make_unique<TList>(MakeList(grave));
    auto copy = std::make_unique<TList>(*list);
    list.reset();
    EXPECT_EQ(grave, "");
    EXPECT_EQ(NamesOf(*copy), "a.v b.v ");
    copy.reset();
    EXPECT_EQ(grave, "a.v b.v ");
}

TEST(ProjectFileSharing, ListsReturnedByValueDeleteNothingEarly) {
    std::string grave;
    {
        const TList list = MakeList(grave);
        const TList another = TList(list);
        EXPECT_EQ(grave, "");
    }
    EXPECT_EQ(grave, "a.v b.v ");
}

TEST(ProjectFileSharing, FlushAndRemoveLeaveFilesThatAnotherListHolds) {
    std::string grave;
    TList list = MakeList(grave);
    TList copy(list);
    EXPECT_TRUE(list.Remove(Name("a.v"), true));
    list.Flush(true);
    EXPECT_EQ(grave, "");
    EXPECT_EQ(NamesOf(copy), "a.v b.v ");
    EXPECT_TRUE(copy.Remove(Name("a.v"), true));
    EXPECT_EQ(grave, "a.v ");
    copy.Flush(true);
    EXPECT_EQ(grave, "a.v b.v ");
}

TEST(ProjectFileSharing, AFileAddedToTwoListsIsDeletedOnce) {
    std::string grave;
    {
        TList first(TList::LIST_TYPE_FILE_INPUT, nullptr);
        TList second(TList::LIST_TYPE_FILE_OUTPUT, nullptr);
        auto* file = new MortalFile("a.v", grave);
        first.AddAtTailAndSetOwner(file);
        second.InsertFileAndSetOwner(file, nullptr, false);
    }
    EXPECT_EQ(grave, "a.v ");
}

TEST(ProjectFileSharing, RemovalWithoutDeletionHandsTheFileOver) {
    std::string grave;
    TList list = MakeList(grave);
    const THdlProjectFile* file = list.GetHead();
    const TList copy(list);
    EXPECT_TRUE(list.Remove(file, false));
    list.Flush(true);
    EXPECT_EQ(grave, "");
    EXPECT_EQ(copy.GetHead(), file);
}

TEST(ProjectFileSharing, AssignmentReplacesTheFilesAndKeepsTheFormerAlive) {
    std::string grave;
    TList list = MakeList(grave);
    THdlProjectFile* former = list.GetHead();
    {
        TList other(TList::LIST_TYPE_FILE_OUTPUT, nullptr);
        other.AddAtTailAndSetOwner(new MortalFile("c.v", grave));
        list = other;
        EXPECT_EQ(NamesOf(list), "c.v ");
        EXPECT_EQ(list.GetListType(), 4);
    }
    EXPECT_EQ(grave, "");
    EXPECT_EQ(std::string(former->ShortName(false)), "a.v");
    delete former;
    EXPECT_EQ(grave, "a.v ");
    list.Flush(true);
    EXPECT_EQ(grave, "a.v c.v ");
}

TEST(ProjectFileSharing, SelfAssignmentChangesNothing) {
    std::string grave;
    TList list = MakeList(grave);
    const TList& itself = list;
    list = itself;
    EXPECT_EQ(NamesOf(list), "a.v b.v ");
    list.Flush(true);
    EXPECT_EQ(grave, "a.v b.v ");
}

TEST(ProjectFileSharing, ACopiedFileIsHeldByNoList) {
    std::string grave;
    TList list = MakeList(grave);
    {
        const MortalFile copy(static_cast<const MortalFile&>(*list.GetHead()));
        TList other(TList::LIST_TYPE_FILE_OUTPUT, nullptr);
        other.AddAtTailAndSetOwner(new MortalFile(copy));
    }
    EXPECT_EQ(grave, "a.v a.v ");
    EXPECT_EQ(NamesOf(list), "a.v b.v ");
}

TEST(ProjectFileSharing, AnAssignedFileStaysHeldByItsLists) {
    std::string grave;
    {
        TList list = MakeList(grave);
        const TList copy(list);
        *list.GetHead() = THdlProjectFile(Name("c.v"), nullptr, false);
        EXPECT_EQ(NamesOf(copy), "c.v b.v ");
    }
    EXPECT_EQ(grave, "c.v b.v ");
}

TEST(ProjectFileSharing, CopiedFilesShareTheirAssociatedFiles) {
    std::string grave;
    {
        auto original = std::make_unique<THdlProjectUserSourceFile>(Name("top.v"), nullptr, false);
        original->GetAssociatedFileList()->AddAtTailAndSetOwner(new MortalFile("a.v", grave));
        const THdlProjectUserSourceFile copy(*original);
        original.reset();
        EXPECT_EQ(grave, "");
        EXPECT_EQ(NamesOf(*copy.GetAssociatedFileList()), "a.v ");
    }
    EXPECT_EQ(grave, "a.v ");
}

TEST(ProjectFileSharing, DeletesNestedAssociatedFilesOfAnyDepth) {
    std::string grave;
    {
        THdlSourceFileList list(nullptr);
        THdlProjectFileList* innermost = &list;
        for (int depth = 0; depth < 100000; ++depth) {
            auto* file = new THdlProjectUserSourceFile(Name("a.v"), nullptr, false);
            innermost->AddAtTailAndSetOwner(static_cast<THdlProjectFile*>(file));
            innermost = file->GetAssociatedFileList();
        }
        innermost->AddAtTailAndSetOwner(new MortalFile("b.v", grave));
    }
    EXPECT_EQ(grave, "b.v ");
}

TEST(ProjectFileSharing, FilesThatCameThroughTheStandardListBelongToTheirList) {
    std::string grave;
    {
        TList list(TList::LIST_TYPE_FILE_INPUT, nullptr);
        std::list<THdlProjectFile*>& standard = list;
        standard.push_back(new MortalFile("a.v", grave));
        EXPECT_TRUE(list.Contains(Name("a.v")));
    }
    EXPECT_EQ(grave, "a.v ");
}

}  // namespace
