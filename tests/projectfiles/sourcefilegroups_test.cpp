#include "projectfiles/sourcefilegroups.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/projectfiles/sourcesintwogroups.h"
#include "tests/support/memoryfolder.h"
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
    MemoryFolder folder;
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

class SourceFileGroupsFind : public SourcesInTwoGroups {};

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

}  // namespace
