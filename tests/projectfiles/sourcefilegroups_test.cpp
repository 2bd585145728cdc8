#include "projectfiles/sourcefilegroups.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/projectfiles/sourcefakes.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

TEST(SourceFileGroups, MakesAGroupOfTheLanguageOnce) {
    TSourceFileGroups groups(nullptr);
    EXPECT_EQ(groups.FindGroup(LANGUAGE_VHDL), nullptr);
    TIHdlSourceFileList* group = groups.GetOrCreateGroup(LANGUAGE_VHDL);
    EXPECT_EQ(groups.GetOrCreateGroup(LANGUAGE_VHDL), group);
    EXPECT_EQ(groups.FindGroup(LANGUAGE_VHDL), group);
    EXPECT_EQ(std::as_const(groups).FindGroup(LANGUAGE_VHDL), group);
    EXPECT_EQ(group->GetLanguage(), LANGUAGE_VHDL);
    EXPECT_EQ(GroupsOf(groups), "VHDL:\n");
}

TEST(SourceFileGroups, CountALookedUpGroupAsMissingUntilItIsFilled) {
    Sources made;
    TSourceFileGroups groups(nullptr);
    TIHdlSourceFileList* group = groups.LookUpGroup(LANGUAGE_VHDL);
    EXPECT_EQ(GroupsOf(groups), "");
    EXPECT_EQ(std::as_const(groups).FindGroup(LANGUAGE_VHDL), nullptr);
    group->AddSourceFile(made.Make("/p/a.vhd"), false);
    EXPECT_EQ(GroupsOf(groups), "VHDL: a.vhd\n");
    group->Flush();
    EXPECT_EQ(GroupsOf(groups), "VHDL:\n") << "a group that was filled once stays one";
    EXPECT_EQ(groups.GetOrCreateGroup(LANGUAGE_VHDL), group);
}

TEST(SourceFileGroups, FileSourcesUnderTheirLanguageInNumericOrder) {
    Sources made;
    TSourceFileGroups groups(nullptr);
    EXPECT_TRUE(groups.AddSourceFile(made.Make("/p/x.txt"), false));
    EXPECT_TRUE(groups.AddSourceFile(made.Make("/p/b.vhd"), false));
    EXPECT_TRUE(groups.AddSourceFile(made.Make("/p/a.vhd"), true));
    EXPECT_TRUE(groups.AddSourceFile(made.Make("/p/t.v"), false));
    EXPECT_FALSE(groups.AddSourceFile(made.Make("/p/T.v"), false));
    EXPECT_FALSE(groups.AddSourceFile(nullptr, false));
    EXPECT_EQ(GroupsOf(groups), "Verilog: t.v\nVHDL: a.vhd b.vhd\nNone: x.txt\n");
}

TEST(SourceFileGroups, FlushEmptiesTheListsInPlace) {
    Sources made;
    TSourceFileGroups groups(nullptr);
    groups.AddSourceFile(made.Make("/p/a.vhd"), false);
    TIHdlSourceFileList* group = groups.GetOrCreateGroup(LANGUAGE_VHDL);
    groups.Flush();
    EXPECT_EQ(GroupsOf(groups), "");
    EXPECT_EQ(NamesOf(*group), "");
    EXPECT_EQ(groups.GetOrCreateGroup(LANGUAGE_VHDL), group);
}

TEST(SourceFileGroups, GiveTheSourceOfTheLowestLanguageThatHasTheName) {
    const struct {
        THdlLanguage Added;
        THdlLanguage Given;
    } rows[] = {{LANGUAGE_NONE, LANGUAGE_NONE},
                {LANGUAGE_VHDL, LANGUAGE_VHDL},
                {LANGUAGE_TESTBUILDER, LANGUAGE_VHDL},
                {LANGUAGE_VERILOG, LANGUAGE_VERILOG}};
    Sources made;
    TSourceFileGroups groups(nullptr);
    const ISFileName* name = Handle("/p/a.vhd");
    for (const auto& row : rows) {
        groups.GetOrCreateGroup(row.Added)->AddSourceFile(made.Make("/p/a.vhd"), false);
        const IHdlSourceFile* given = *groups.GetOrCreateGroup(row.Given)->begin();
        EXPECT_EQ(groups.GetSourceFile(name), given) << row.Added;
        EXPECT_EQ(std::as_const(groups).GetSourceFile(name), given) << row.Added;
    }
}

/// A source that notes when its name is asked for, and whether it is modified.
class AskedSource : public THdlSourceFile {
public:
    AskedSource(const std::string& name, std::string* asked)
        : THdlSourceFile(name.c_str()), Asked(asked) {}
    using THdlSourceFile::GetFileName;
    const ISFileName* GetFileName() const override {
        const ISFileName* name = THdlSourceFile::GetFileName();
        if (name) *Asked += name->GetNameAndExt() + std::string(" ");
        return name;
    }

private:
    std::string* Asked;
};

TEST(SourceFileGroups, AskForModifiedSourcesUpToTheFirstAndForNoDependency) {
    TemporaryFolder folder;
    std::string asked;
    AskedSource clean(folder.Write("clean.v", ""), &asked);
    AskedSource modified(folder.Write("modified.v", ""), &asked);
    AskedSource later(folder.Write("later.v", ""), &asked);
    AskedSource vhdl(folder.Write("vhdl.vhd", ""), &asked);
    AskedSource dependency(folder.Write("dependency.v", ""), &asked);
    clean.AddDependency(&dependency);
    TSourceFileGroups groups(nullptr);
    for (AskedSource* source : {&vhdl, &clean, &modified, &later}) {
        groups.AddSourceFile(source, false);
        source->GetFileName()->UpdateTimeFileLastCompiled(kDefaultTimeStampKey);
    }
    dependency.GetFileName()->UpdateTimeFileLastCompiled(kDefaultTimeStampKey);
    folder.Write("dependency.v", "modified");
    asked.clear();
    EXPECT_FALSE(groups.IsAnySourceFileModifiedSinceLastCompiled());
    EXPECT_EQ(asked, "clean.v modified.v later.v vhdl.vhd ");
    folder.Write("modified.v", "modified");
    folder.Write("vhdl.vhd", "modified");
    asked.clear();
    EXPECT_TRUE(groups.IsAnySourceFileModifiedSinceLastCompiled());
    EXPECT_EQ(asked, "clean.v modified.v ");
}

/// Verilog: v.v needs p.vhd (one object) and q.v. VHDL: p.vhd (another object), which needs r.vhd.
class SourceFileGroupsFind : public testing::Test {
protected:
    SourceFileGroupsFind() {
        V->AddDependency(PStub);
        V->AddDependency(Q);
        P->AddDependency(R);
        Groups.AddSourceFile(V, false);
        Groups.AddSourceFile(P, false);
    }
    Sources Made;
    THdlSourceFile* V = Made.Make("/p/v.v");
    THdlSourceFile* PStub = Made.Make("/p/p.vhd");
    THdlSourceFile* Q = Made.Make("/p/q.v");
    THdlSourceFile* P = Made.Make("/p/p.vhd");
    THdlSourceFile* R = Made.Make("/p/r.vhd");
    TSourceFileGroups Groups{nullptr};
};

TEST_F(SourceFileGroupsFind, EntriesByName) {
    EXPECT_EQ(Groups.GetSourceFile(Handle("/p/V.v")), V);
    EXPECT_EQ(std::as_const(Groups).GetSourceFile(Handle("/p/p.vhd")), P);
    EXPECT_EQ(Groups.GetSourceFile(Handle("/p/q.v")), nullptr);
    EXPECT_EQ(Groups.GetSourceFile(nullptr), nullptr);
}

TEST_F(SourceFileGroupsFind, DependenciesOfALowerLanguageBeforeEntriesOfAHigher) {
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/p.vhd")), PStub);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/R.vhd")), R);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/v.v")), V);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/none.v")), nullptr);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(nullptr), nullptr);
}

TEST_F(SourceFileGroupsFind, DependenciesAlone) {
    EXPECT_EQ(Groups.GetDependency(Handle("/p/q.v")), Q);
    EXPECT_EQ(Groups.GetDependency(Handle("/p/R.vhd")), R);
    EXPECT_EQ(Groups.GetDependency(Handle("/p/none.v")), nullptr);
    EXPECT_EQ(Groups.GetDependency(nullptr), nullptr);
}

TEST_F(SourceFileGroupsFind, DependenciesThatComeAndGoAfterTheFirstSearch) {
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

TEST_F(SourceFileGroupsFind, TheFirstOfSeveralDependenciesOfOneName) {
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

TEST_F(SourceFileGroupsFind, SharedDependenciesAsLongAsOneEntryHasThem) {
    const ISFileName* name = Handle("/p/r.vhd");
    V->AddDependency(R);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), R);
    V->RemoveDependency(R);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), R);
    P->RemoveDependency(R);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(name), nullptr);
}

TEST_F(SourceFileGroupsFind, DependenciesThatAreAssignedAnotherName) {
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/r.vhd")), R);
    *R = *Made.Make("/p/new.vhd");
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/r.vhd")), nullptr);
    EXPECT_EQ(Groups.GetSourceFileOrDependency(Handle("/p/new.vhd")), R);
}

TEST_F(SourceFileGroupsFind, DependenciesOfSourcesWithoutAName) {
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

TEST_F(SourceFileGroupsFind, DependenciesOfSourcesThatGiveNoList) {
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

TEST_F(SourceFileGroupsFind, DependenciesOfSourcesInTwoGroups) {
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
