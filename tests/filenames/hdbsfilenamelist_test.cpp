#include "filenames/hdbsfilenamelist.h"

#include "services/designdatabase/visitor.h"
#include "tests/support/slots.h"
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace {

// The list's name, and the canonical names of its elements, one a line.
std::string TextOf(const THdbSFileNameList& list) {
    std::string lines = std::string("[") + list.GetName() + "]\n";
    for (DListIterator<THdbSFileName*> file(list); file.NotAtTail(); ++file)
        lines += std::string(file.Current()->Canonical(false)) + "\n";
    return lines;
}

std::vector<THdbSFileName*> ElementsOf(const THdbSFileNameList& list) {
    std::vector<THdbSFileName*> files;
    for (DListIterator<THdbSFileName*> file(list); file.NotAtTail(); ++file)
        files.push_back(file.Current());
    return files;
}

// Appends its name to a record when it is deleted.
class WitnessedName : public THdbSFileName {
public:
    WitnessedName(const char* name, std::string* deletions)
        : THdbSFileName(name), Deletions(deletions) {}
    ~WitnessedName() override { *Deletions += std::string(GetName()) + "\n"; }

private:
    std::string* Deletions;
};

class NotifiedList : public THdbSFileNameList {
public:
    void ObjectAdded(THdbSFileName* file) override { Log("added", file); }
    void ObjectRemoved(THdbSFileName* file) override { Log("removed", file); }
    std::string Notifications;

private:
    void Log(const char* what, THdbSFileName* file) {
        Notifications += std::string(what) + " " + file->GetName() + "\n";
    }
};

}  // namespace

TEST(HdbSFileNameList, StartsEmptyAndWithoutAName) {
    THdbSFileNameList list;
    EXPECT_EQ(TextOf(list), "[]\n");
    list.SetListName("sources");
    EXPECT_EQ(TextOf(list), "[sources]\n");
    list.SetListName(nullptr);
    EXPECT_EQ(TextOf(list), "[]\n");
}

TEST(HdbSFileNameList, AddsNamesAtBothEnds) {
    THdbSFileNameList list;
    list.AddAtTail("C:/b.v");
    list.AddAtTail("C:/c.v");
    list.AddAtHead("C:/a.v");
    list.AddAtTail(static_cast<const char*>(nullptr));
    EXPECT_EQ(TextOf(list), "[]\nC:\\a.v\nC:\\b.v\nC:\\c.v\n\n");
}

TEST(HdbSFileNameList, NeverFindsANewElementListed) {
    THdbSFileNameList list;
    EXPECT_EQ(list.AddAtTailNoDup("C:/a.v"), 1);
    EXPECT_EQ(list.AddAtTailNoDup("C:/a.v"), 1);
    EXPECT_EQ(list.AddAtHeadNoDup("C:/b.v"), 1);
    EXPECT_EQ(list.AddAtHeadNoDup("C:/b.v"), 1);
    EXPECT_EQ(TextOf(list), "[]\nC:\\b.v\nC:\\b.v\nC:\\a.v\nC:\\a.v\n");
    THdbSFileName* listed = ElementsOf(list).front();
    EXPECT_EQ(list.AddAtTailNoDup(listed), 0);
    EXPECT_EQ(list.AddAtHeadNoDup(listed), 0);
    EXPECT_EQ(list.GetCount(), 4U);
}

TEST(HdbSFileNameList, AddsManyNamesInLinearTime) {
    const auto start = std::chrono::steady_clock::now();
    THdbSFileNameList list;
    int added = 0;
    for (int i = 0; i < 300000; ++i) added += list.AddAtTailNoDup("") + list.AddAtHeadNoDup("");
    EXPECT_EQ(added, 600000);
    EXPECT_EQ(list.GetCount(), 600000U);
    // A fraction of a second; a search for each new element takes many minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::minutes(1));
}

TEST(HdbSFileNameList, NotifiesOfEveryElementThatComesOrGoes) {
    NotifiedList list;
    list.AddAtTail("C:/a.v");
    list.AddAtHead("C:/b.v");
    list.AddAtTailNoDup("C:/c.v");
    list.AddAtHeadNoDup("C:/d.v");
    const std::unique_ptr<THdbSFileName> removed(ElementsOf(list).front());
    EXPECT_TRUE(list.Remove(removed.get()));
    list.Flush(1);
    EXPECT_EQ(list.Notifications,
              "added C:\\a.v\nadded C:\\b.v\nadded C:\\c.v\nadded C:\\d.v\n"
              "removed C:\\d.v\nremoved C:\\b.v\nremoved C:\\a.v\nremoved C:\\c.v\n");
}

TEST(HdbSFileNameList, DeletesItsElementsAtItsEnd) {
    std::string deletions;
    {
        THdbSFileNameList list;
        list.AddAtTail(new WitnessedName("C:/a.v", &deletions));
        list.AddAtTail(new WitnessedName("C:/b.v", &deletions));
        EXPECT_EQ(deletions, "");
    }
    EXPECT_EQ(deletions, "C:\\a.v\nC:\\b.v\n");
}

TEST(HdbSFileNameList, DeletesItsElementsWhenFlushedWithDeletionOnly) {
    std::string deletions;
    THdbSFileNameList list;
    list.AddAtTail(new WitnessedName("C:/a.v", &deletions));
    const std::unique_ptr<THdbSFileName> kept(ElementsOf(list).front());
    list.Flush(0);
    EXPECT_EQ(TextOf(list) + deletions, "[]\n");
    list.AddAtTail(new WitnessedName("C:/b.v", &deletions));
    list.Flush(1);
    EXPECT_EQ(TextOf(list) + deletions, "[]\nC:\\b.v\n");
}

TEST(HdbSFileNameList, HandsARemovedElementToTheCaller) {
    std::string deletions;
    THdbSFileNameList list;
    list.AddAtTail(new WitnessedName("C:/a.v", &deletions));
    list.AddAtTail(new WitnessedName("C:/b.v", &deletions));
    const std::unique_ptr<THdbSFileName> removed(ElementsOf(list).front());
    EXPECT_TRUE(list.Remove(removed.get()));
    EXPECT_FALSE(list.Remove(removed.get()));
    EXPECT_EQ(TextOf(list) + deletions, "[]\nC:\\b.v\n");
}

TEST(HdbSFileNameList, CopiesShareTheElements) {
    THdbSFileNameList source;
    source.SetListName("sources");
    source.AddAtTail("C:/a.v");
    source.AddAtTail("C:/b.v");
    const THdbSFileNameList copy(source);
    EXPECT_EQ(TextOf(copy), "[sources]\nC:\\a.v\nC:\\b.v\n");
    EXPECT_EQ(ElementsOf(copy), ElementsOf(source));
}

TEST(HdbSFileNameList, LeavesSharedElementsToTheLastHolder) {
    std::string deletions;
    auto source = std::make_unique<THdbSFileNameList>();
    source->AddAtTail(new WitnessedName("C:/a.v", &deletions));
    auto copy = std::make_unique<THdbSFileNameList>(*source);
    auto copyOfCopy = std::make_unique<THdbSFileNameList>(*copy);
    source.reset();
    EXPECT_EQ(deletions, "");
    copy->Flush(1);
    EXPECT_EQ(TextOf(*copy) + TextOf(*copyOfCopy) + deletions, "[]\n[]\nC:\\a.v\n");
    copyOfCopy.reset();
    EXPECT_EQ(deletions, "C:\\a.v\n");
}

TEST(HdbSFileNameList, LetsGoOfASharedElementWhateverTakesItOut) {
    std::string deletions;
    auto source = std::make_unique<THdbSFileNameList>();
    source->AddAtTail(new WitnessedName("C:/a.v", &deletions));
    source->AddAtTail(new WitnessedName("C:/b.v", &deletions));
    THdbSFileNameList copy(*source);
    EXPECT_TRUE(copy.Remove(ElementsOf(copy).front()));
    copy.Flush(0);
    EXPECT_EQ(deletions, "");
    source.reset();
    EXPECT_EQ(deletions, "C:\\a.v\nC:\\b.v\n");
}

TEST(HdbSFileNameList, AssignmentMakesNewElementsFromTheNames) {
    std::string deletions;
    THdbSFileNameList source;
    source.SetListName("source");
    for (const char* name : {"C:/x/../a.v", "C:/b.v", "C:/c.v"}) source.AddAtTail(name);
    const auto sourceElements = ElementsOf(source);
    NotifiedList target;
    target.SetListName("target");
    target.AddAtTail(new WitnessedName("C:/old1.v", &deletions));
    target.AddAtTail(new WitnessedName("C:/old2.v", &deletions));
    target.Notifications.clear();

    static_cast<THdbSFileNameList&>(target) = source;

    EXPECT_EQ(TextOf(target), "[target]\nC:\\a.v\nC:\\b.v\nC:\\c.v\n");
    EXPECT_EQ(deletions, "C:\\old1.v\nC:\\old2.v\n");
    EXPECT_EQ(target.Notifications,
              "removed C:\\old1.v\nremoved C:\\old2.v\n"
              "added C:\\a.v\nadded C:\\b.v\nadded C:\\c.v\n");
    EXPECT_EQ(TextOf(source), "[source]\nC:\\a.v\nC:\\b.v\nC:\\c.v\n");
    EXPECT_EQ(ElementsOf(source), sourceElements);
    for (THdbSFileName* file : ElementsOf(target))
        for (THdbSFileName* original : sourceElements) EXPECT_NE(file, original);
}

TEST(HdbSFileNameList, AssignmentFromACopyKeepsTheSharedElementsAlive) {
    std::string deletions;
    THdbSFileNameList source;
    source.AddAtTail(new WitnessedName("C:/a.v", &deletions));
    const THdbSFileNameList copy(source);
    source = copy;
    EXPECT_EQ(TextOf(source) + TextOf(copy) + deletions, "[]\nC:\\a.v\n[]\nC:\\a.v\n");
    EXPECT_NE(ElementsOf(source), ElementsOf(copy));
}

TEST(HdbSFileNameList, SelfAssignmentEmptiesTheList) {
    std::string deletions;
    THdbSFileNameList list;
    list.SetListName("sources");
    list.AddAtTail(new WitnessedName("C:/a.v", &deletions));
    const THdbSFileNameList& same = list;
    list = same;
    EXPECT_EQ(TextOf(list) + deletions, "[sources]\nC:\\a.v\n");
    EXPECT_TRUE(list.IsEmpty());
}

TEST(HdbSFileNameList, IsAnItemNamedByItsName) {
    THdbSFileNameList list;
    list.SetListName("sources");
    EXPECT_STREQ(list.GetName(), "sources");
    EXPECT_EQ(list.GetFullName(), TRope("sources"));
    EXPECT_EQ(list.GetHDBItemKind(), 0);
    EXPECT_EQ(list.GetLanguage(), 9);
    EXPECT_EQ(list.GetSourceParent(true), nullptr);
    EXPECT_FALSE(list.IsProtected());
    EXPECT_EQ(list.dump(), TRope("sources"));
}

namespace {

class ListVisitor : public IBaseVisitor, public IVisitor<THdbSFileNameList> {
public:
    void VisitUnhandled() override { ++Unhandled; }
    void Visit(THdbSFileNameList* list) override { Visited = list; }
    THdbSFileNameList* Visited = nullptr;
    int Unhandled = 0;
};

class NameVisitor : public IBaseVisitor, public IVisitor<THdbSFileName> {
public:
    void VisitUnhandled() override { ++Unhandled; }
    void Visit(THdbSFileName*) override { ++Names; }
    int Names = 0;
    int Unhandled = 0;
};

}  // namespace

TEST(HdbSFileNameList, SendsAVisitorToItsTypedHandlerOrTheFallback) {
    THdbSFileNameList list;
    list.AddAtTail("C:/a.v");
    ListVisitor typed;
    const hdb::IAccept& item = list;
    item.Accept(&typed);
    EXPECT_EQ(typed.Visited, &list);
    EXPECT_EQ(typed.Unhandled, 0);
    NameVisitor other;
    item.Accept(&other);
    EXPECT_EQ(other.Names, 0);
    EXPECT_EQ(other.Unhandled, 1);
    item.Accept(nullptr);
}

TEST(HdbSFileNameList, KeepsTheSlotOrderOfTheList) {
    using TList = THdbSFileNameList;
    using TFiles = DList<THdbSFileName*>;
    EXPECT_EQ(SlotOf(&TFiles::ObjectAdded), 1);
    EXPECT_EQ(SlotOf(&TFiles::ObjectRemoved), 2);
    EXPECT_EQ(SlotOf(&TList::ObjectAdded), 1);
    EXPECT_EQ(SlotOf(&TList::ObjectRemoved), 2);
    EXPECT_EQ(SlotOf(&TList::SetListName), 3);
    EXPECT_EQ(SlotOf(static_cast<void (TList::*)(const char*)>(&TList::AddAtTail)), 4);
    EXPECT_EQ(SlotOf(static_cast<int (TList::*)(const char*)>(&TList::AddAtTailNoDup)), 5);
    EXPECT_EQ(SlotOf(static_cast<void (TList::*)(const char*)>(&TList::AddAtHead)), 6);
    EXPECT_EQ(SlotOf(static_cast<int (TList::*)(const char*)>(&TList::AddAtHeadNoDup)), 7);
}

// Callers were built against objects with the parts in this order.
TEST(HdbSFileNameList, IsAListFirstAndAnItemBehindIt) {
    THdbSFileNameList files;
    const void* const list = static_cast<DList<THdbSFileName*>*>(&files);
    const void* const item = static_cast<hdb::IHDBBase*>(&files);
    EXPECT_EQ(list, &files);
    EXPECT_GT(item, list);
}
