#include "projectfiles/hdlprojectfilelist.h"
#include "tests/projectfiles/projectfilefakes.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>

namespace {

using TList = THdlProjectFileList;
using TResult = TList::TAddResult;

constexpr auto kFolder = TList::LIST_TYPE_COMMAND_LINE_SOURCE_FILES;

THdlProjectFile* NewFile(const std::string& name) {
    return new THdlProjectFile(Name(name), nullptr, false);
}

THdlProjectFile* NewHandlelessFile() {
    return new THdlProjectFile(&HandlelessName(), nullptr, false);
}

TEST(HdlProjectFileList, NamesItsFolderByType) {
    const char* const names[] = {"",
                                 "User Source Files",
                                 "Command-Line Source Files",
                                 "File Input",
                                 "File Output",
                                 "Initialized Variables",
                                 "Transaction Diagrams",
                                 "Template Diagram",
                                 "Stimulus & Results Archive",
                                 "Associated Files",
                                 "Utilities Files",
                                 "Source Code Library Files",
                                 ""};
    for (int type = 0; type <= 12; ++type) {
        const auto listType = static_cast<TList::TFileListType>(type);
        TList list(listType, nullptr);
        EXPECT_STREQ(TList::GetListTypeToString(listType), names[type]) << type;
        EXPECT_STREQ(list.GetName(), names[type]) << type;
        EXPECT_EQ(list.GetFullName(), TRope(names[type])) << type;
        EXPECT_EQ(list.GetListType(), type);
        EXPECT_EQ(TList::GetListTypeFromString(names[type]), type == 12 ? 0 : type);
    }
    EXPECT_STREQ(TList::GetListTypeToString(static_cast<TList::TFileListType>(-1)), "");
}

TEST(HdlProjectFileList, FindsNoTypeForOtherTexts) {
    const char* const texts[] = {
        "user source files",   "USER SOURCE FILES",     "User Source Files ",
        "Simulated Models",    "Stimulus & Results",    "Transaction-Level Model",
        "Component Instances", "Diagram Library Files", "Compiled Libraries",
        "Simulation Snapshot", "Include Files",         "Test Vector Files",
        "nothing of that sort"};
    for (const char* text : texts) EXPECT_EQ(TList::GetListTypeFromString(text), 0) << text;
    EXPECT_EQ(TList::GetListTypeFromString(nullptr), 0);
}

TEST(HdlProjectFileList, AnswersAsAnItemOfTheDesignDatabase) {
    TList list(kFolder, nullptr);
    EXPECT_EQ(list.GetHDBItemKind(), 0);
    EXPECT_EQ(list.GetLanguage(), 9);
    EXPECT_EQ(list.GetSourceParent(true), nullptr);
    EXPECT_FALSE(list.IsProtected());
    EXPECT_EQ(list.dump(), TRope("Command-Line Source Files"));
}

TEST(HdlProjectFileList, IsEmptyAtFirst) {
    FakeComponent owner;
    TList list(kFolder, &owner);
    EXPECT_EQ(list.GetHead(), nullptr);
    EXPECT_EQ(list.GetTail(), nullptr);
    EXPECT_EQ(std::as_const(list).GetHead(), nullptr);
    EXPECT_EQ(std::as_const(list).GetTail(), nullptr);
    EXPECT_EQ(list.GetOwningProjectComponent(), &owner);
    EXPECT_TRUE(list.FindFromISFileName(Name("a.v")) == list.end());
}

TEST(HdlProjectFileList, MakesProjectFilesWhenAddingByName) {
    FakeComponent owner;
    TList list(kFolder, &owner);
    const TResult tail = list.AddAtTailAndSetOwner(Name("a.hpj"));
    const TResult head = list.AddAtHeadAndSetOwner(Name("b.log"));
    EXPECT_EQ(NamesOf(list), "b.log a.hpj ");
    EXPECT_EQ(tail, TResult(list.GetTail(), true));
    EXPECT_EQ(head, TResult(list.GetHead(), true));
    EXPECT_EQ(tail.first->GetProjectFileType(), 4);
    EXPECT_EQ(head.first->GetProjectFileType(), 5);
    EXPECT_EQ(tail.first->GetOwningProjectComponent(), &owner);
    EXPECT_EQ(head.first->GetOwningProjectComponent(), &owner);
}

TEST(HdlProjectFileList, RefusesANameThatIsListedInAnotherCase) {
    TList list(kFolder, nullptr);
    THdlProjectFile* listed = list.AddAtTailAndSetOwner(Name("a.v")).first;
    EXPECT_EQ(list.AddAtTailAndSetOwner(Name("A.v")), TResult(listed, false));
    EXPECT_EQ(list.AddAtHeadAndSetOwner(Name("sub/../A.V")), TResult(listed, false));
    EXPECT_EQ(NamesOf(list), "a.v ");
}

TEST(HdlProjectFileList, RefusesListedNamesInLongLists) {
    TList list(kFolder, nullptr);
    AddManyFiles(list);
    const TResult again = list.AddAtTailAndSetOwner(Name("F39.V"));
    EXPECT_EQ(again, TResult(list.GetTail(), false));
    EXPECT_EQ(list.AddAtHeadAndSetOwner(Name("F0.V")), TResult(list.GetHead(), false));
    EXPECT_EQ(list.size(), static_cast<std::size_t>(kManyFiles));
}

TEST(HdlProjectFileList, SetsTheOwnerOfAGivenFileEvenIfItRefusesIt) {
    FakeComponent owner;
    FakeComponent other;
    TList list(kFolder, &owner);
    THdlProjectFile* listed = list.AddAtTailAndSetOwner(Name("a.v")).first;
    THdlProjectFile again(Name("A.V"), &other, false);
    EXPECT_EQ(list.AddAtTailAndSetOwner(&again), TResult(listed, false));
    EXPECT_EQ(again.GetOwningProjectComponent(), &owner);
    again.SetOwningProjectComponent(&other);
    EXPECT_EQ(list.AddAtHeadAndSetOwner(&again), TResult(listed, false));
    EXPECT_EQ(again.GetOwningProjectComponent(), &owner);
    again.SetOwningProjectComponent(&other);
    EXPECT_EQ(list.InsertFileAndSetOwner(&again, listed, true), TResult(listed, false));
    EXPECT_EQ(again.GetOwningProjectComponent(), &owner);
    EXPECT_EQ(NamesOf(list), "a.v ");
}

TEST(HdlProjectFileList, GivesTheVeryFileThatIsAddedAgain) {
    TList list(kFolder, nullptr);
    THdlProjectFile* file = NewFile("a.v");
    EXPECT_EQ(list.AddAtTailAndSetOwner(file), TResult(file, true));
    EXPECT_EQ(list.AddAtTailAndSetOwner(file), TResult(file, false));
    EXPECT_EQ(NamesOf(list), "a.v ");
}

TEST(HdlProjectFileList, InsertsRelativeToAFile) {
    struct {
        const char* Label;
        const char* RelativeTo;
        bool Before;
        const char* Names;
        const char* Index;
    } const rows[] = {
        {"before the first", "A.v", true, "x.v a.v b.v c.v ", "0 "},
        {"before the middle", "b.v", true, "a.v x.v b.v c.v ", "1 "},
        {"before the last", "c.v", true, "a.v b.v x.v c.v ", "2 "},
        {"after the first", "a.v", false, "a.v x.v b.v c.v ", "1 "},
        {"after the middle", "B.v", false, "a.v b.v x.v c.v ", "2 "},
        {"after the last", "c.v", false, "a.v b.v c.v x.v ", "3 "},
        {"before one not listed", "d.v", true, "a.v b.v c.v x.v ", "3 "},
        {"after one not listed", "d.v", false, "a.v b.v c.v x.v ", "3 "},
        {"before itself", "x.v", true, "a.v b.v c.v x.v ", "3 "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Label);
        FakeComponent owner;
        RecordingObserver observer;
        TList list(kFolder, &owner);
        for (const char* name : {"a.v", "b.v", "c.v"}) list.AddAtTailAndSetOwner(Name(name));
        list.AddObserver(&observer);
        THdlProjectFile* file = NewFile("x.v");
        const THdlProjectFile relativeTo(Name(row.RelativeTo), nullptr, false);
        EXPECT_EQ(list.InsertFileAndSetOwner(file, &relativeTo, row.Before), TResult(file, true));
        EXPECT_EQ(NamesOf(list), row.Names);
        EXPECT_EQ(observer.Take(), row.Index);
        EXPECT_EQ(file->GetOwningProjectComponent(), &owner);
    }
}

TEST(HdlProjectFileList, InsertsIntoLongListsAndFindsWhatItInserted) {
    RecordingObserver observer;
    TList list(kFolder, nullptr);
    AddManyFiles(list);
    list.AddObserver(&observer);
    THdlProjectFile* file = NewFile("x.v");
    const THdlProjectFile relativeTo(Name("f20.v"), nullptr, false);
    EXPECT_EQ(list.InsertFileAndSetOwner(file, &relativeTo, true), TResult(file, true));
    EXPECT_EQ(observer.Take(), "20 ");
    EXPECT_EQ(*std::next(list.begin(), 20), file);
    EXPECT_EQ(*list.FindFromISFileName(Name("X.V")), file);
}

TEST(HdlProjectFileList, AppendsAFileInsertedRelativeToNothing) {
    TList list(kFolder, nullptr);
    const THdlProjectFile handleless(&HandlelessName(), nullptr, false);
    list.InsertFileAndSetOwner(NewFile("a.v"), nullptr, true);
    list.InsertFileAndSetOwner(NewFile("b.v"), nullptr, false);
    list.InsertFileAndSetOwner(NewFile("c.v"), &handleless, true);
    EXPECT_EQ(NamesOf(list), "a.v b.v c.v ");
}

TEST(HdlProjectFileList, TellsObserversTheIndexOfEachNewFile) {
    RecordingObserver first;
    RecordingObserver second;
    TList list(kFolder, nullptr);
    list.AddObserver(&first);
    list.AddObserver(&first);
    list.AddObserver(&second);
    list.AddAtTailAndSetOwner(Name("a.v"));
    list.AddAtTailAndSetOwner(NewFile("b.v"));
    list.AddAtHeadAndSetOwner(Name("c.v"));
    list.AddAtHeadAndSetOwner(NewFile("d.v"));
    list.AddAtTailAndSetOwner(Name("A.v"));
    EXPECT_EQ(first.Take(), "0 1 0 0 ");
    EXPECT_EQ(second.Take(), "0 1 0 0 ");
    list.DeleteObserver(&second);
    list.Remove(Name("a.v"), true);
    list.AddAtTailAndSetOwner(Name("a.v"));
    list.Flush(true);
    EXPECT_EQ(first.Take(), "3 ");
    EXPECT_EQ(second.Take(), "");
}

class CompanionObserver : public AHdbObjectObserver {
public:
    explicit CompanionObserver(TList& list) : List(list) {}
    void FileInserted(int) override { List.AddAtTailAndSetOwner(Name("companion.v")); }

private:
    TList& List;
};

TEST(HdlProjectFileList, LetsAnObserverAddFiles) {
    TList list(kFolder, nullptr);
    CompanionObserver observer(list);
    list.AddObserver(&observer);
    const TResult result = list.AddAtTailAndSetOwner(Name("a.v"));
    EXPECT_EQ(result, TResult(list.GetHead(), true));
    EXPECT_EQ(NamesOf(list), "a.v companion.v ");
}

TEST(HdlProjectFileList, RemovesByNameAndTellsTheOwner) {
    std::string grave;
    FakeComponent owner;
    TList list(kFolder, &owner);
    list.AddAtTailAndSetOwner(new MortalFile("a.v", grave));
    list.AddAtTailAndSetOwner(new MortalFile("b.v", grave));
    MortalFile* kept = new MortalFile("c.v", grave);
    list.AddAtTailAndSetOwner(kept);
    EXPECT_TRUE(list.Remove(Name("A.V"), true));
    EXPECT_EQ(grave, "a.v ");
    EXPECT_EQ(owner.Take(), "modified true\n");
    const THdlProjectFile sameName(Name("B.v"), nullptr, false);
    EXPECT_TRUE(list.Remove(&sameName, true));
    EXPECT_EQ(grave, "a.v b.v ");
    EXPECT_EQ(owner.Take(), "modified true\n");
    EXPECT_TRUE(list.Remove(kept, false));
    EXPECT_EQ(grave, "a.v b.v ");
    EXPECT_EQ(owner.Take(), "modified true\n");
    EXPECT_TRUE(list.empty());
    delete kept;
}

TEST(HdlProjectFileList, TellsTheOwnerOnceTheFileIsDeleted) {
    std::string record;
    class Owner : public FakeComponent {
    public:
        explicit Owner(std::string* record) : Record(record) {}
        void SetProjectModified(bool) override { *Record += "told "; }

    private:
        std::string* Record;
    } owner(&record);
    TList list(kFolder, &owner);
    list.AddAtTailAndSetOwner(new MortalFile("a.v", record));
    record.clear();
    EXPECT_TRUE(list.Remove(Name("a.v"), true));
    EXPECT_EQ(record, "a.v told ");
}

TEST(HdlProjectFileList, HasItsBasesInOrder) {
    TList list(kFolder, nullptr);
    const auto offset = [&list](const void* base) {
        return static_cast<const char*>(base) - reinterpret_cast<const char*>(&list);
    };
    const std::list<THdlProjectFile*>& files = list;
    const hdb::IHDBBase* item = &list;
    const AEmbeddedObserverMgr* observers = &list;
    // The first base with virtual operations goes to the front, as everywhere in this ABI.
    EXPECT_EQ(offset(item), 0);
    EXPECT_LT(offset(item), offset(&files));
    EXPECT_LT(offset(&files), offset(observers));
}

TEST(HdlProjectFileList, RemovesNothingThatIsNotListed) {
    FakeComponent owner;
    TList list(kFolder, &owner);
    list.AddAtTailAndSetOwner(Name("a.v"));
    const THdlProjectFile other(Name("b.v"), nullptr, false);
    const THdlProjectFile handleless(&HandlelessName(), nullptr, false);
    EXPECT_FALSE(list.Remove(Name("b.v"), true));
    EXPECT_FALSE(list.Remove(&other, true));
    EXPECT_FALSE(list.Remove(&handleless, true));
    EXPECT_FALSE(list.Remove(static_cast<const ISFileName*>(nullptr), true));
    EXPECT_FALSE(list.Remove(static_cast<const THdlProjectFile*>(nullptr), true));
    EXPECT_EQ(owner.Take(), "");
    EXPECT_EQ(NamesOf(list), "a.v ");
}

TEST(HdlProjectFileList, TellsOfRemovalsFromEveryFolderButTheUtilities) {
    for (int type = 0; type <= 12; ++type) {
        FakeComponent owner;
        TList list(static_cast<TList::TFileListType>(type), &owner);
        list.AddAtTailAndSetOwner(Name("a.v"));
        EXPECT_TRUE(list.Remove(Name("a.v"), true)) << type;
        EXPECT_EQ(owner.Take(), type == 10 ? "" : "modified true\n") << type;
    }
}

TEST(HdlProjectFileList, RemovesWithoutAnOwnerToTell) {
    TList list(kFolder, nullptr);
    list.AddAtTailAndSetOwner(Name("a.v"));
    EXPECT_TRUE(list.Remove(Name("a.v"), true));
    EXPECT_EQ(NamesOf(list), "");
}

TEST(HdlProjectFileList, FlushesWithoutNotice) {
    std::string grave;
    FakeComponent owner;
    RecordingObserver observer;
    TList list(kFolder, &owner);
    for (const char* name : {"a.v", "b.v"}) list.AddAtTailAndSetOwner(new MortalFile(name, grave));
    MortalFile* kept = new MortalFile("c.v", grave);
    list.AddObserver(&observer);
    list.Flush(true);
    EXPECT_EQ(grave, "a.v b.v ");
    EXPECT_EQ(owner.Take() + observer.Take(), "");
    list.AddAtTailAndSetOwner(kept);
    list.Flush(false);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(grave, "a.v b.v ");
    delete kept;
}

TEST(HdlProjectFileList, DeletesItsFilesWithItself) {
    std::string grave;
    {
        TList list(kFolder, nullptr);
        for (const char* name : {"a.v", "b.v"})
            list.AddAtTailAndSetOwner(new MortalFile(name, grave));
    }
    EXPECT_EQ(grave, "a.v b.v ");
}

TEST(HdlProjectFileList, FindsByName) {
    for (const bool isLong : {false, true}) {
        TList list(kFolder, nullptr);
        if (isLong) AddManyFiles(list);
        THdlProjectFile* file = list.AddAtTailAndSetOwner(Name("sub/Some.v")).first;
        THdlProjectFile same(Name("SUB/some.V"), nullptr, false);
        THdlProjectFile other(Name("some.v"), nullptr, false);
        EXPECT_EQ(*list.FindFromISFileName(Name("SUB/some.V")), file);
        EXPECT_EQ(*std::as_const(list).FindFromISFileName(Name("sub/x/../Some.v")), file);
        EXPECT_TRUE(list.FindFromISFileName(Name("some.v")) == list.end());
        EXPECT_TRUE(std::as_const(list).FindFromISFileName(Name("some.v")) == list.end());
        EXPECT_TRUE(list.Contains(Name("sub/some.v")));
        EXPECT_FALSE(list.Contains(Name("some.v")));
        EXPECT_TRUE(list.Contains(&same));
        EXPECT_FALSE(list.Contains(&other));
    }
}

TEST(HdlProjectFileList, TreatsNullAsNoNameAndNoFile) {
    TList list(kFolder, nullptr);
    list.AddAtTailAndSetOwner(Name("a.v"));
    const ISFileName* noName = nullptr;
    THdlProjectFile* noFile = nullptr;
    EXPECT_TRUE(list.FindFromISFileName(noName) == list.end());
    EXPECT_TRUE(std::as_const(list).FindFromISFileName(noName) == list.end());
    EXPECT_FALSE(list.Contains(noName));
    EXPECT_FALSE(list.Contains(noFile));
    EXPECT_EQ(list.AddAtTailAndSetOwner(noFile), TResult(nullptr, false));
    EXPECT_EQ(list.AddAtHeadAndSetOwner(noFile), TResult(nullptr, false));
    EXPECT_EQ(list.InsertFileAndSetOwner(noFile, list.GetHead(), true), TResult(nullptr, false));
    EXPECT_EQ(NamesOf(list), "a.v ");
}

TEST(HdlProjectFileList, AddsTheFileOfTheEmptyNameOnceForNull) {
    TList list(kFolder, nullptr);
    const ISFileName* noName = nullptr;
    const TResult result = list.AddAtTailAndSetOwner(noName);
    EXPECT_EQ(result, TResult(list.GetHead(), true));
    EXPECT_EQ(result.first->GetProjectFileType(), 0);
    EXPECT_EQ(list.AddAtHeadAndSetOwner(noName), TResult(result.first, false));
    EXPECT_EQ(list.AddAtHeadAndSetOwner(Name("")), TResult(result.first, false));
    EXPECT_EQ(list.size(), 1U);
}

constexpr const char* kNameless38 = "hdlprojectfile(38): Check failed: \"currentFileName\"\n";
constexpr const char* kNameless53 = "hdlprojectfile(53): Check failed: \"currentFileName\"\n";
constexpr const char* kNameless208 = "hdlprojectfile(208): Check failed: \"currentFileName\"\n";

TEST(HdlProjectFileList, ReportsFilesWithoutHandleUpToTheOneFound) {
    for (const bool isLong : {false, true}) {
        SCOPED_TRACE(isLong);
        RecordingLog log;
        TList list(kFolder, nullptr);
        list.AddAtTailAndSetOwner(NewHandlelessFile());
        EXPECT_EQ(log.Take(), "");
        list.push_back(NewFile("a.v"));
        list.push_back(NewHandlelessFile());
        for (int number = 0; isLong && number < kManyFiles; ++number)
            list.push_back(NewFile("f" + std::to_string(number)));
        const std::string both53 = std::string(kNameless53) + kNameless53;
        const std::string both38 = std::string(kNameless38) + kNameless38;
        THdlProjectFile listed(Name("a.v"), nullptr, false);

        EXPECT_EQ(*list.FindFromISFileName(Name("a.v")), *std::next(list.begin()));
        EXPECT_EQ(log.Take(), kNameless53);
        EXPECT_TRUE(list.FindFromISFileName(Name("x.v")) == list.end());
        EXPECT_EQ(log.Take(), both53);
        EXPECT_TRUE(std::as_const(list).FindFromISFileName(Name("x.v")) == list.end());
        EXPECT_EQ(log.Take(), both38);
        EXPECT_FALSE(list.Contains(Name("x.v")));
        EXPECT_EQ(log.Take(), both38);
        EXPECT_TRUE(list.Contains(&listed));
        EXPECT_EQ(log.Take(), kNameless38);
        EXPECT_FALSE(list.Remove(Name("x.v"), true));
        EXPECT_EQ(log.Take(), both53);
        EXPECT_FALSE(list.AddAtTailAndSetOwner(Name("A.v")).second);
        EXPECT_EQ(log.Take(), kNameless53);
        EXPECT_FALSE(list.AddAtHeadAndSetOwner(&listed).second);
        EXPECT_EQ(log.Take(), kNameless53);
        EXPECT_TRUE(list.AddAtTailAndSetOwner(Name("b.v")).second);
        EXPECT_EQ(log.Take(), both53);
        EXPECT_TRUE(list.InsertFileAndSetOwner(NewFile("c.v"), &listed, true).second);
        EXPECT_EQ(log.Take(), both53 + kNameless208);
        EXPECT_TRUE(list.InsertFileAndSetOwner(NewFile("d.v"), nullptr, true).second);
        EXPECT_EQ(log.Take(), both53);
        EXPECT_TRUE(list.Remove(Name("a.v"), true));
        EXPECT_EQ(log.Take(), kNameless53);
    }
}

TEST(HdlProjectFileList, AddsAnyNumberOfFilesWithoutHandle) {
    RecordingLog log;
    TList list(kFolder, nullptr);
    EXPECT_TRUE(list.AddAtTailAndSetOwner(NewHandlelessFile()).second);
    EXPECT_TRUE(list.AddAtTailAndSetOwner(NewHandlelessFile()).second);
    EXPECT_EQ(log.Take(), kNameless53);
    EXPECT_FALSE(list.Contains(list.GetHead()));
    EXPECT_EQ(log.Take(), std::string(kNameless38) + kNameless38);
    EXPECT_EQ(NamesOf(list), "- - ");
}

TEST(HdlProjectFileList, IsModifiedWhenOneOfItsFilesIs) {
    const MemoryFolder folder;
    TList list(kFolder, nullptr);
    EXPECT_FALSE(list.IsModified(true));
    const THdlProjectFile* first = list.AddAtTailAndSetOwner(Name(folder.Write("a.v", "1"))).first;
    EXPECT_TRUE(list.IsModified(true));
    EXPECT_FALSE(list.IsModified(false));
    const THdlProjectFile* last = list.AddAtTailAndSetOwner(Name(folder.Write("b.v", "1"))).first;
    first->UpdateTimeFileLastLoaded(kDefaultTimeStampKey);
    last->UpdateTimeFileLastLoaded(kDefaultTimeStampKey);
    EXPECT_FALSE(list.IsModified(true));
    folder.Write("b.v", "longer");
    EXPECT_TRUE(list.IsModified(false));
}

TEST(HdlProjectFileList, AsksEveryFileWhetherItIsModified) {
    RecordingLog log;
    const MemoryFolder folder;
    TList list(kFolder, nullptr);
    list.push_back(NewHandlelessFile());
    list.push_back(NewFile(folder.Write("never-loaded.v", "")));
    list.push_back(NewHandlelessFile());
    EXPECT_TRUE(list.IsModified(true));
    const std::string once = "hdbsfilename(62): Check failed: \"FileName\"\n";
    EXPECT_EQ(log.Take(), once + once);
}

TEST(HdlProjectFileList, IsCompatibleOnlyWithTheSameOfTheFirstSixTypes) {
    for (int type = -1; type <= 13; ++type)
        for (int other = -1; other <= 13; ++other)
            EXPECT_EQ(TList(static_cast<TList::TFileListType>(type), nullptr)
                          .IsCopyOrMoveCompatibleType(static_cast<TList::TFileListType>(other)),
                      type == other && type >= 1 && type <= 6)
                << type << " with " << other;
}

TEST(HdlProjectFileList, GivesANewOwnerToFilesAddedLaterOnly) {
    FakeComponent first;
    FakeComponent second;
    TList list(kFolder, &first);
    list.AddAtTailAndSetOwner(Name("a.v"));
    list.SetOwningProjectComponent(&second);
    list.AddAtTailAndSetOwner(Name("b.v"));
    EXPECT_EQ(list.GetHead()->GetOwningProjectComponent(), &first);
    EXPECT_EQ(list.GetTail()->GetOwningProjectComponent(), &second);
}

}  // namespace
