#include "projectfiles/dependencyindex.h"
#include "tests/projectfiles/sourcesintwogroups.h"
#include <gtest/gtest.h>

// The index is asked through the groups, each of which has one.

namespace {

class DependencyIndex : public SourcesInTwoGroups {};

TEST_F(DependencyIndex, DependenciesThatComeAndGoAfterTheFirstSearch) {
    const ISFileName* name = Handle("/p/late.vhd");
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr);
    THdlSourceFile* late = Made.Make("/p/late.vhd");
    V->AddDependency(late);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), late) << "added to an entry";
    V->RemoveDependency(late);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr) << "removed again";
    V->AddDependency(late);
    V->FlushDependencies();
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr) << "flushed";

    THdlSourceFile* user = Made.Make("/p/user.vhd");
    user->AddDependency(late);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr) << "of a source in no group";
    Groups.AddSourceFile(user, false);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), late) << "of a new entry";
    Groups.GetOrCreateGroup(LANGUAGE_VHDL)->RemoveSourceFile(user);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr) << "of a removed entry";
    user->FlushDependencies();
    user->AddDependency(late);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr) << "changed out of the group";
}

TEST_F(DependencyIndex, TheFirstOfSeveralDependenciesOfOneName) {
    const ISFileName* name = Handle("/p/s.vhd");
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr);
    THdlSourceFile* first = Made.Make("/p/s.vhd");
    THdlSourceFile* second = Made.Make("/p/s.vhd");
    THdlSourceFile* user = Made.Make("/p/user.vhd");
    Groups.AddSourceFile(user, false);
    user->AddDependency(second);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), second);
    P->AddDependency(first);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), first);
    P->RemoveDependency(first);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), second);
    P->AddDependency(first);
    user->RemoveDependency(second);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), first);
    P->RemoveDependency(first);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr);
}

TEST_F(DependencyIndex, SharedDependenciesAsLongAsOneEntryHasThem) {
    const ISFileName* name = Handle("/p/r.vhd");
    V->AddDependency(R);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), R);
    V->RemoveDependency(R);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), R);
    P->RemoveDependency(R);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr);
}

TEST_F(DependencyIndex, DependenciesThatAreAssignedAnotherName) {
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/r.vhd")), R);
    *R = *Made.Make("/p/new.vhd");
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/r.vhd")), nullptr);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/new.vhd")), R);
}

TEST_F(DependencyIndex, DependenciesOfSourcesWithoutAName) {
    const ISFileName* name = Handle("/p/hidden.vhd");
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr);
    THdlSourceFile* nameless = Made.MakeNameless();
    THdlSourceFile* hidden = Made.Make("/p/hidden.vhd");
    nameless->AddDependency(hidden);
    Groups.GetOrCreateGroup(LANGUAGE_VHDL)->AddSourceFile(nameless, false);
    Groups.GetOrCreateGroup(LANGUAGE_VHDL)->AddSourceFile(nameless, false);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), hidden);
    Groups.GetOrCreateGroup(LANGUAGE_VHDL)->Flush();
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr);
}

/// A source of a caller's own class that keeps its dependency elsewhere than in a list.
class SourceWithoutList : public THdlSourceFile {
public:
    SourceWithoutList(const char* name, IHdlSourceFile* dependency)
        : THdlSourceFile(name), Dependency(dependency) {}
    TIHdlSourceFileList* GetDependencyList() override { return nullptr; }
    const TIHdlSourceFileList* GetDependencyList() const override { return nullptr; }
    IHdlSourceFile* GetDependency(const ISFileName* name) override {
        return name == Dependency->GetFileName() ? Dependency : nullptr;
    }
    const IHdlSourceFile* GetDependency(const ISFileName* name) const override {
        return name == Dependency->GetFileName() ? Dependency : nullptr;
    }

private:
    IHdlSourceFile* Dependency;
};

TEST_F(DependencyIndex, DependenciesOfSourcesThatGiveNoList) {
    const ISFileName* name = Handle("/p/kept.vhd");
    THdlSourceFile* kept = Made.Make("/p/kept.vhd");
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr);
    SourceWithoutList user("/p/user.vhd", kept);
    Groups.AddSourceFile(&user, false);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), kept);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/r.vhd")), R);
    THdlSourceFile* listed = Made.Make("/p/kept.vhd");
    P->AddDependency(listed);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), listed) << "of the entry before";
    P->RemoveDependency(listed);
    Groups.GetOrCreateGroup(LANGUAGE_VHDL)->RemoveSourceFile(&user);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/r.vhd")), R);
}

TEST_F(DependencyIndex, DependenciesOfSourcesInTwoGroups) {
    TSourceFileGroups others(nullptr);
    others.AddSourceFile(P, false);
    EXPECT_EQ(others.GetSourceFileOrDependency(Handle("/p/r.vhd")), R);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/r.vhd")), R);
    others.Flush();
    EXPECT_EQ(others.GetSourceFileOrDependency(Handle("/p/r.vhd")), nullptr);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/r.vhd")), R);
    P->FlushDependencies();
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/r.vhd")), nullptr);
}

TEST(SourceFileGroupsLifetime, DependencyListsMayGoBeforeOrAfterTheGroups) {
    Sources made;
    const ISFileName* name = Handle("/p/dep.vhd");
    auto groups = std::make_unique<TSourceFileGroups>(nullptr);
    auto* first = new THdlSourceFile("/p/first.vhd");
    first->AddDependency(made.Make("/p/dep.vhd"));
    groups->AddSourceFile(first, false);
    groups->AddSourceFile(made.Make("/p/second.vhd"), false);
    EXPECT_NE(groups->GetSourceFileOrDependency(name), nullptr);
    TIHdlSourceFileList* dependencies = first->GetDependencyList();
    delete dependencies;
    EXPECT_EQ(groups->GetSourceFileOrDependency(name), nullptr);
    groups->GetOrCreateGroup(LANGUAGE_VHDL)->RemoveSourceFile(first->GetFileName());
    delete first;
    EXPECT_EQ(GroupsOf(*groups), "VHDL: second.vhd\n");
    groups.reset();
}

TEST(SourceFileGroupsOfManyEntries, AreSearchedAndLinkedInTurn) {
    Sources made;
    TSourceFileGroups groups(nullptr);
    THdlSourceFile* user = nullptr;
    for (int i = 0; i < 10000; ++i) {
        const std::string number = std::to_string(i);
        const ISFileName* dependency = Handle("/p/d" + number + ".vhd");
        ASSERT_EQ(groups.GetSourceFileOrDependency(dependency), nullptr);
        user = made.Make("/p/u" + number + ".vhd");
        groups.AddSourceFile(user, false);
        user->AddDependency(made.Make("/p/d" + number + ".vhd"));
        ASSERT_NE(groups.GetSourceFileOrDependency(dependency), nullptr);
    }
}

}  // namespace
