#include "projectfiles/hdllibrarysourcefilelist.h"
#include "projectfiles/hdlprojectdiagramfile.h"
#include "projectfiles/hdlprojectusersourcefile.h"
#include "projectfiles/hdltimingdiagramtemplatefilelist.h"
#include "projectfiles/hdlusersourcefilelist.h"
#include "projectfiles/hdlutilitiessourcefilelist.h"
#include "tests/projectfiles/projectfilefakes.h"
#include "tests/services/names/hostform.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>
#include <memory>
#include <typeinfo>

// What the kinds of folders make of names and files.

namespace {

using TListPointer = std::unique_ptr<THdlProjectFileList>;
using TResult = THdlProjectFileList::TAddResult;

template <class T>
TListPointer Make(IProjectComponent* owner) {
    return std::make_unique<T>(owner);
}

struct TFolder {
    const char* Label;
    TListPointer (*Make)(IProjectComponent* owner);
    int Type;
    const std::type_info& FileClass;  // of files added by name
    bool IsLibrary;
};

const TFolder kFolders[] = {
    {"project files",
     [](IProjectComponent* owner) {
         return std::make_unique<THdlProjectFileList>(THdlProjectFileList::LIST_TYPE_FILE_INPUT,
                                                      owner);
     },
     3, typeid(THdlProjectFile), false},
    {"sources", Make<THdlSourceFileList>, 9, typeid(THdlProjectSourceFile), false},
    {"command-line sources",
     [](IProjectComponent* owner) -> TListPointer {
         return std::make_unique<THdlSourceFileList>(
             THdlProjectFileList::LIST_TYPE_COMMAND_LINE_SOURCE_FILES, owner);
     },
     2, typeid(THdlProjectSourceFile), false},
    {"library sources", Make<THdlLibrarySourceFileList>, 11, typeid(THdlProjectSourceFile), true},
    {"utilities", Make<THdlUtilitiesSourceFileList>, 10, typeid(THdlProjectSourceFile), false},
    {"user sources", Make<THdlUserSourceFileList>, 1, typeid(THdlProjectUserSourceFile), false},
    {"diagrams", Make<THdlTimingDiagramFileList>, 6, typeid(THdlProjectDiagramFile), false},
    {"template diagrams", Make<THdlTimingDiagramTemplateFileList>, 7,
     typeid(THdlProjectDiagramFile), false},
};

TEST(ProjectFolders, MakeFilesOfTheirKindWithTheirOwner) {
    for (const TFolder& folder : kFolders) {
        SCOPED_TRACE(folder.Label);
        FakeComponent owner;
        const TListPointer list = folder.Make(&owner);
        EXPECT_EQ(list->GetListType(), folder.Type);
        const TResult tail = list->AddAtTailAndSetOwner(Name("a.v"));
        const TResult head = list->AddAtHeadAndSetOwner(Name("b.v"));
        EXPECT_EQ(tail, TResult(list->GetTail(), true));
        EXPECT_EQ(head, TResult(list->GetHead(), true));
        EXPECT_EQ(NamesOf(*list), "b.v a.v ");
        for (const THdlProjectFile* file : *list) {
            EXPECT_EQ(typeid(*file), folder.FileClass);
            EXPECT_EQ(file->GetOwningProjectComponent(), &owner);
            EXPECT_EQ(file->IsLibrary(), folder.IsLibrary);
        }
    }
}

TEST(ProjectFolders, RefuseAListedName) {
    for (const TFolder& folder : kFolders) {
        SCOPED_TRACE(folder.Label);
        const TListPointer list = folder.Make(nullptr);
        THdlProjectFile* listed = list->AddAtTailAndSetOwner(Name("a.v")).first;
        EXPECT_EQ(list->AddAtTailAndSetOwner(Name("A.v")), TResult(listed, false));
        EXPECT_EQ(list->AddAtHeadAndSetOwner(Name("A.V")), TResult(listed, false));
        AddManyFiles(*list);
        EXPECT_EQ(list->AddAtTailAndSetOwner(Name("a.V")), TResult(listed, false));
        EXPECT_EQ(list->AddAtHeadAndSetOwner(Name("A.V")), TResult(listed, false));
        EXPECT_EQ(list->size(), static_cast<std::size_t>(kManyFiles) + 1);
    }
}

TEST(ProjectFolders, TellOfAFileRefusedForItsLetterCase) {
    const MemoryFolder files;
    const ISFileName* const listed = Name(files.Write("Fifo.v", ""));
    const ISFileName* const refused = Name(files.Write("fifo.v", ""));
    const std::string line = kOnWindows ? ""
                                        : "[Default] File \"" + files.Path("fifo.v") +
                                              "\" is taken for \"" + files.Path("Fifo.v") + "\"\n";
    for (const TFolder& folder : kFolders) {
        SCOPED_TRACE(folder.Label);
        const TListPointer list = folder.Make(nullptr);
        AddManyFiles(*list);
        list->AddAtTailAndSetOwner(listed);
        RecordingLog log(1);
        list->AddAtTailAndSetOwner(refused);
        EXPECT_EQ(log.Take(), line);
        list->AddAtHeadAndSetOwner(refused);
        EXPECT_EQ(log.Take(), line);
    }
}

TEST(ProjectFolders, TakeAFileThatMayNotBeChangedForItsName) {
    for (const TFolder& folder : kFolders) {
        SCOPED_TRACE(folder.Label);
        const TListPointer list = folder.Make(nullptr);
        const THdlProjectFile file(Name("a.v"), nullptr, false);
        const TResult added = list->AddAtTailAndSetOwner(&file);
        EXPECT_TRUE(added.second);
        EXPECT_NE(added.first, &file);
        EXPECT_EQ(typeid(*added.first), folder.FileClass);
    }
}

TEST(ProjectFolders, TellObserversOfFilesAddedByName) {
    for (const TFolder& folder : kFolders) {
        SCOPED_TRACE(folder.Label);
        RecordingObserver observer;
        const TListPointer list = folder.Make(nullptr);
        list->AddObserver(&observer);
        list->AddAtTailAndSetOwner(Name("a.v"));
        list->AddAtTailAndSetOwner(Name("b.v"));
        list->AddAtHeadAndSetOwner(Name("c.v"));
        list->AddAtHeadAndSetOwner(Name("A.v"));
        EXPECT_EQ(observer.Take(), "0 1 0 ");
    }
}

TEST(ProjectFolders, SetTheOwnerOfAFileAddedAsAProjectFile) {
    for (const TFolder& folder : kFolders) {
        SCOPED_TRACE(folder.Label);
        FakeComponent owner;
        FakeComponent other;
        const TListPointer list = folder.Make(&owner);
        THdlProjectFile* tail = new THdlProjectUserSourceFile(Name("a.v"), &other, false);
        THdlProjectFile* head = new THdlProjectFile(Name("b.v"), &other, false);
        EXPECT_EQ(list->AddAtTailAndSetOwner(tail), TResult(tail, true));
        EXPECT_EQ(list->AddAtHeadAndSetOwner(head), TResult(head, true));
        EXPECT_EQ(tail->GetOwningProjectComponent(), &owner);
        EXPECT_EQ(tail->GetAssociatedFileList()->GetOwningProjectComponent(), &owner);
        EXPECT_EQ(head->GetOwningProjectComponent(), &owner);
    }
}

/// Adds files of class File through the typed operations of `List`, which leave the owner alone.
template <class List, class File, class... More>
void ExpectTypedAddsLeaveTheOwner(More... more) {
    FakeComponent owner;
    FakeComponent other;
    RecordingObserver observer;
    List list(&owner);
    list.AddObserver(&observer);
    auto* tail = new File(Name("a.v"), &other, more...);
    auto* head = new File(Name("b.v"), &other, more...);
    File again(Name("A.v"), &other, more...);
    EXPECT_EQ(list.AddAtTailAndSetOwner(tail), TResult(tail, true));
    EXPECT_EQ(list.AddAtHeadAndSetOwner(head), TResult(head, true));
    EXPECT_EQ(list.AddAtTailAndSetOwner(&again), TResult(tail, false));
    EXPECT_EQ(list.AddAtHeadAndSetOwner(&again), TResult(tail, false));
    EXPECT_EQ(NamesOf(list), "b.v a.v ");
    EXPECT_EQ(observer.Take(), "0 0 ");
    for (const File* file : {tail, head, &again})
        EXPECT_EQ(file->GetOwningProjectComponent(), &other);
    File* none = nullptr;
    EXPECT_EQ(list.AddAtTailAndSetOwner(none), TResult(nullptr, false));
    EXPECT_EQ(list.AddAtHeadAndSetOwner(none), TResult(nullptr, false));
}

TEST(ProjectFolders, LeaveTheOwnerOfAFileAddedAsTheirKind) {
    ExpectTypedAddsLeaveTheOwner<THdlSourceFileList, THdlProjectSourceFile>(false);
    ExpectTypedAddsLeaveTheOwner<THdlLibrarySourceFileList, THdlProjectSourceFile>(false);
    ExpectTypedAddsLeaveTheOwner<THdlUtilitiesSourceFileList, THdlProjectSourceFile>(false);
    ExpectTypedAddsLeaveTheOwner<THdlTimingDiagramFileList, THdlProjectDiagramFile>();
    ExpectTypedAddsLeaveTheOwner<THdlTimingDiagramTemplateFileList, THdlProjectDiagramFile>();
    ExpectTypedAddsLeaveTheOwner<THdlUserSourceFileList, THdlProjectUserSourceFile>(false);
}

TEST(ProjectFolders, LeaveTheLibraryFlagOfAGivenSource) {
    THdlLibrarySourceFileList list(nullptr);
    list.AddAtTailAndSetOwner(new THdlProjectSourceFile(Name("a.v"), nullptr, false));
    EXPECT_FALSE(list.GetHead()->IsLibrary());
}

template <class List>
void ExpectCopiesShareFiles(const List& list) {
    const List copy(list);
    EXPECT_EQ(copy.GetListType(), list.GetListType());
    EXPECT_EQ(copy.GetHead(), list.GetHead());
    List assigned(nullptr);
    assigned = list;
    EXPECT_EQ(assigned.GetHead(), list.GetHead());
    EXPECT_EQ(assigned.GetOwningProjectComponent(), list.GetOwningProjectComponent());
}

TEST(ProjectFolders, ShareTheirFilesWithCopiesOfEveryKind) {
    FakeComponent owner;
    const auto expect = [&owner](auto list) {
        list.SetOwningProjectComponent(&owner);
        list.AddAtTailAndSetOwner(Name("a.v"));
        ExpectCopiesShareFiles(list);
    };
    expect(THdlSourceFileList(nullptr));
    expect(THdlLibrarySourceFileList(nullptr));
    expect(THdlUtilitiesSourceFileList(nullptr));
    expect(THdlUserSourceFileList(nullptr));
    expect(THdlTimingDiagramFileList(nullptr));
    expect(THdlTimingDiagramTemplateFileList(nullptr));
}

TEST(ProjectFolders, RemoveUtilitiesWithoutANoticeToTheOwner) {
    FakeComponent owner;
    THdlUtilitiesSourceFileList list(&owner);
    THdlProjectFile* file = list.AddAtTailAndSetOwner(Name("a.v")).first;
    EXPECT_TRUE(list.Remove(file, false));
    EXPECT_EQ(owner.Take(), "");
    delete file;
}

/// Opens the protected operation to the test.
class OpenSourceFileList : public THdlSourceFileList {
public:
    using THdlSourceFileList::SourceFileIsLibrary;
    using THdlSourceFileList::THdlSourceFileList;
};

TEST(HdlProjectFileList, HasNoAssociatedFileScope) {
    RecordingLog log;
    THdlProjectFileList list(THdlProjectFileList::LIST_TYPE_FILE_INPUT, nullptr);
    list.AddAtTailAndSetOwner(Name("a.v"));
    EXPECT_FALSE(list.SetAssociatedFileScope(Name("a.v")));
    EXPECT_FALSE(list.AddAssociatedFileToScopeFile(Name("b.v")));
    EXPECT_EQ(log.Take(), "");
}

TEST(HdlProjectFileList, KeepsTheOrderOfItsOperations) {
    using TList = THdlProjectFileList;
    using TByName = TResult (TList::*)(const ISFileName*);
    using TByFile = TResult (TList::*)(THdlProjectFile*);
    EXPECT_EQ(SlotOf(&TList::Accept), 1);
    EXPECT_EQ(SlotOf(&TList::GetName), 2);
    EXPECT_EQ(SlotOf(&TList::GetFullName), 3);
    EXPECT_EQ(SlotOf(&TList::GetHDBItemKind), 4);
    EXPECT_EQ(SlotOf(&TList::GetLanguage), 5);
    EXPECT_EQ(SlotOf(&TList::GetSourceParent), 6);
    EXPECT_EQ(SlotOf(&TList::IsProtected), 7);
    EXPECT_EQ(SlotOf(&TList::dump), 8);
    EXPECT_EQ(SlotOf(TByName(&TList::AddAtHeadAndSetOwner)), 9);
    EXPECT_EQ(SlotOf(TByFile(&TList::AddAtHeadAndSetOwner)), 10);
    EXPECT_EQ(SlotOf(TByName(&TList::AddAtTailAndSetOwner)), 11);
    EXPECT_EQ(SlotOf(TByFile(&TList::AddAtTailAndSetOwner)), 12);
    EXPECT_EQ(SlotOf(&TList::InsertFileAndSetOwner), 13);
    EXPECT_EQ(SlotOf(&TList::SetAssociatedFileScope), 14);
    EXPECT_EQ(SlotOf(&TList::AddAssociatedFileToScopeFile), 15);
}

TEST(ProjectFolders, AppendTheirOperationsInOrder) {
    using TSource = TResult (THdlSourceFileList::*)(THdlProjectSourceFile*);
    using TDiagram = TResult (THdlTimingDiagramFileList::*)(THdlProjectDiagramFile*);
    using TUser = TResult (THdlUserSourceFileList::*)(THdlProjectUserSourceFile*);
    EXPECT_EQ(SlotOf(&OpenSourceFileList::SourceFileIsLibrary), 16);
    EXPECT_EQ(SlotOf(TSource(&THdlSourceFileList::AddAtHeadAndSetOwner)), 17);
    EXPECT_EQ(SlotOf(TSource(&THdlSourceFileList::AddAtTailAndSetOwner)), 18);
    EXPECT_EQ(SlotOf(TDiagram(&THdlTimingDiagramFileList::AddAtHeadAndSetOwner)), 16);
    EXPECT_EQ(SlotOf(TDiagram(&THdlTimingDiagramFileList::AddAtTailAndSetOwner)), 17);
    EXPECT_EQ(SlotOf(TUser(&THdlUserSourceFileList::AddAtHeadAndSetOwner)), 16);
    EXPECT_EQ(SlotOf(TUser(&THdlUserSourceFileList::AddAtTailAndSetOwner)), 17);
}

}  // namespace
