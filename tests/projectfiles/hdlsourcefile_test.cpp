#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/hdlprojectsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "projectfiles/languageconfigmap.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/projectfiles/sourcefakes.h"
#include "tests/support/keptobjects.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>

/// The library only carries pointers to projects.
class THdlProject {};

namespace {

TEST(HdlSourceFile, TakesItsLanguageFromTheExtension) {
    const struct {
        const char* Name;
        THdlLanguage Language;
    } rows[] = {
        {"/p/a.vhd", LANGUAGE_VHDL},
        {"/p/a.V", LANGUAGE_VERILOG},
        {"/p/a.bsv", LANGUAGE_BLUESPECVERILOG},
        {"/p/a.cpp", LANGUAGE_CPLUSPLUS},
        {"/p/a.tb", LANGUAGE_TESTBUILDER},
        {"/p/a.txt", LANGUAGE_NONE},
        {"/p/vhd", LANGUAGE_NONE},
        {"", LANGUAGE_NONE},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(THdlSourceFile(row.Name).GetLanguage(), row.Language) << row.Name;
        EXPECT_EQ(THdlSourceFile(Handle(row.Name)).GetLanguage(), row.Language) << row.Name;
    }
}

TEST(HdlSourceFile, StartsWithoutFlagsConfigurationProjectAndDependencies) {
    THdlSourceFile file("/p/a.vhd");
    EXPECT_EQ(file.GetFileName(), Handle("/p/a.vhd"));
    EXPECT_EQ(std::as_const(file).GetFileName(), Handle("/p/a.vhd"));
    EXPECT_EQ(file.GetProject(), nullptr);
    EXPECT_EQ(file.GetProjectLanguageConfig(), nullptr);
    EXPECT_FALSE(file.GetIsListedForCompile());
    EXPECT_FALSE(file.IsLibrary());
    EXPECT_FALSE(file.IsExcludeFromBuild());
    EXPECT_STREQ(file.GetPrecompiledLibraryGroupName(), "");
    ASSERT_NE(file.GetDependencyList(), nullptr);
    EXPECT_EQ(NamesOf(*file.GetDependencyList()), "");
}

TEST(HdlSourceFile, MayBeWithoutAName) {
    THdlSourceFile file(static_cast<const ISFileName*>(nullptr));
    EXPECT_EQ(file.GetFileName(), nullptr);
    EXPECT_EQ(file.GetLanguage(), LANGUAGE_NONE);
    THdlSourceFile empty(static_cast<const char*>(nullptr));
    EXPECT_EQ(empty.GetFileName(), Handle(""));
}

TEST(HdlSourceFile, KeepsWhatItsSettersAreGiven) {
    THdlSourceFile file("/p/a.vhd");
    TProjectSimLanguageConfig config;
    THdlProject project;
    file.SetIsListedForCompile(true);
    file.SetLibraryFlag(true);
    file.SetExcludeFromBuild(true);
    file.SetPrecompiledLibraryGroupName("ieee");
    file.SetProjectLanguageConfig(&config);
    file.SetProject(&project);
    EXPECT_TRUE(file.GetIsListedForCompile());
    EXPECT_TRUE(file.IsLibrary());
    EXPECT_TRUE(file.IsExcludeFromBuild());
    EXPECT_STREQ(file.GetPrecompiledLibraryGroupName(), "ieee");
    EXPECT_EQ(file.GetProjectLanguageConfig(), &config);
    EXPECT_EQ(std::as_const(file).GetProjectLanguageConfig(), &config);
    EXPECT_EQ(file.GetProject(), &project);
    file.SetPrecompiledLibraryGroupName(nullptr);
    EXPECT_STREQ(file.GetPrecompiledLibraryGroupName(), "");
}

TEST(HdlSourceFile, KeepsDependenciesInOrderAndMayDependOnItself) {
    Sources made;
    THdlSourceFile* a = made.Make("/p/a.vhd");
    THdlSourceFile* b = made.Make("/p/b.vhd");
    EXPECT_TRUE(a->AddDependency(b));
    EXPECT_TRUE(a->AddDependency(a));
    EXPECT_FALSE(a->AddDependency(made.Make("/p/B.vhd")));
    EXPECT_FALSE(a->AddDependency(nullptr));
    EXPECT_EQ(NamesOf(*a->GetDependencyList()), "b.vhd a.vhd ");
    EXPECT_EQ(a->GetDependency(Handle("/p/B.VHD")), b);
    EXPECT_EQ(std::as_const(*a).GetDependency(Handle("/p/b.vhd")), b);
    EXPECT_EQ(a->GetDependency(Handle("/p/c.vhd")), nullptr);
    EXPECT_EQ(a->GetDependency(nullptr), nullptr);
}

TEST(HdlSourceFile, RemovesAndFlushesDependencies) {
    Sources made;
    THdlSourceFile* a = made.Make("/p/a.vhd");
    THdlSourceFile* b = made.Make("/p/b.vhd");
    THdlSourceFile* c = made.Make("/p/c.vhd");
    for (THdlSourceFile* file : {a, b, c}) a->AddDependency(file);
    EXPECT_TRUE(a->RemoveDependency(b));
    EXPECT_FALSE(a->RemoveDependency(b));
    EXPECT_TRUE(a->RemoveDependency(Handle("/p/a.vhd")));
    EXPECT_FALSE(a->RemoveDependency(static_cast<IHdlSourceFile*>(nullptr)));
    EXPECT_FALSE(a->RemoveDependency(static_cast<const ISFileName*>(nullptr)));
    EXPECT_EQ(NamesOf(*a->GetDependencyList()), "c.vhd ");
    a->FlushDependencies();
    EXPECT_EQ(NamesOf(*a->GetDependencyList()), "");
}

TEST(HdlSourceFile, RemovesAProjectSourceAsASourceNotAsAName) {
    THdlSourceFile plain("/p/a.vhd");
    THdlProjectSourceFile project(Handle("/p/b.vhd"), nullptr, false);
    THdlProjectSourceFile otherObject(Handle("/p/B.vhd"), nullptr, false);
    IHdlSourceFile* source = &plain;
    plain.AddDependency(&project);
    EXPECT_TRUE(plain.RemoveDependency(&otherObject));
    EXPECT_EQ(NamesOf(*plain.GetDependencyList()), "b.vhd ");
    EXPECT_TRUE(plain.RemoveDependency(&project));
    EXPECT_FALSE(source->RemoveDependency(&project));
    plain.AddDependency(&project);
    EXPECT_TRUE(source->RemoveDependency(&project));
    EXPECT_EQ(NamesOf(*plain.GetDependencyList()), "");
}

TEST(HdlSourceFile, CopiesEverythingIntoADependencyListOfItsOwn) {
    Sources made;
    THdlSourceFile original("/p/a.vhd");
    TProjectSimLanguageConfig config;
    THdlProject project;
    original.SetProject(&project);
    original.SetIsListedForCompile(true);
    original.SetLibraryFlag(true);
    original.SetExcludeFromBuild(true);
    original.SetPrecompiledLibraryGroupName("ieee");
    original.SetProjectLanguageConfig(&config);
    original.GetDependencyList()->SetLanguage(LANGUAGE_VHDL);
    original.AddDependency(made.Make("/p/b.vhd"));

    THdlSourceFile assigned("/p/other.v");
    assigned.AddDependency(made.Make("/p/former.v"));
    const TIHdlSourceFileList* list = assigned.GetDependencyList();
    assigned = original;
    EXPECT_EQ(assigned.GetDependencyList(), list);
    THdlSourceFile copied(original);
    for (THdlSourceFile* file : {&copied, &assigned}) {
        EXPECT_EQ(NameOf(file), "a.vhd");
        EXPECT_EQ(file->GetLanguage(), LANGUAGE_VHDL);
        EXPECT_EQ(file->GetProject(), &project);
        EXPECT_TRUE(file->GetIsListedForCompile());
        EXPECT_TRUE(file->IsLibrary());
        EXPECT_TRUE(file->IsExcludeFromBuild());
        EXPECT_STREQ(file->GetPrecompiledLibraryGroupName(), "ieee");
        EXPECT_EQ(file->GetProjectLanguageConfig(), &config);
        EXPECT_EQ(NamesOf(*file->GetDependencyList()), "b.vhd ");
        EXPECT_EQ(file->GetDependencyList()->GetLanguage(), LANGUAGE_VHDL);
    }
    original.AddDependency(made.Make("/p/later.vhd"));
    EXPECT_EQ(NamesOf(*copied.GetDependencyList()), "b.vhd ");
    EXPECT_EQ(NamesOf(*assigned.GetDependencyList()), "b.vhd ");
}

TEST(HdlSourceFile, KeepsEverythingWhenAssignedToItself) {
    Sources made;
    THdlSourceFile file("/p/a.vhd");
    file.AddDependency(made.Make("/p/b.vhd"));
    const THdlSourceFile& self = file;
    file = self;
    EXPECT_EQ(NamesOf(*file.GetDependencyList()), "b.vhd ");
}

TEST(HdlSourceFile, LeavesItsDependencyListBehind) {
    Sources made;
    auto file = std::make_unique<THdlSourceFile>("/p/a.vhd");
    file->AddDependency(made.Make("/p/b.vhd"));
    TIHdlSourceFileList* dependencies = file->GetDependencyList();
    file.reset();
    EXPECT_EQ(NamesOf(*dependencies), "b.vhd ");
    delete dependencies;
}

TEST(HdlSourceFile, InitializeStartsAfreshButForTheNames) {
    Sources made;
    THdlSourceFile file("/p/a.vhd");
    TProjectSimLanguageConfig config;
    file.SetIsListedForCompile(true);
    file.SetLibraryFlag(true);
    file.SetExcludeFromBuild(true);
    file.SetPrecompiledLibraryGroupName("ieee");
    file.SetProjectLanguageConfig(&config);
    file.AddDependency(made.Make("/p/b.vhd"));
    TIHdlSourceFileList* former = file.GetDependencyList();
    file.Initialize();
    EXPECT_FALSE(file.GetIsListedForCompile());
    EXPECT_FALSE(file.IsLibrary());
    EXPECT_FALSE(file.IsExcludeFromBuild());
    EXPECT_EQ(file.GetProjectLanguageConfig(), nullptr);
    EXPECT_EQ(NamesOf(*file.GetDependencyList()), "");
    EXPECT_EQ(NamesOf(*former), "b.vhd ");
    EXPECT_STREQ(file.GetPrecompiledLibraryGroupName(), "ieee");
    EXPECT_EQ(file.GetLanguage(), LANGUAGE_VHDL);
}

TEST(HdlSourceFile, FollowsAConfigurationThatItsBuildReplaces) {
    TLanguageConfigMap build;
    build.Store(LANGUAGE_VHDL, new TProjectSimLanguageConfig);
    THdlSourceFile file("/p/a.vhd");
    file.SetProjectLanguageConfig(build.Find(LANGUAGE_VHDL));
    THdlSourceFile copy(file);
    TProjectSimLanguageConfig own;
    THdlSourceFile other("/p/b.vhd");
    other.SetProjectLanguageConfig(&own);
    auto* next = new TProjectSimLanguageConfig;
    build.Store(LANGUAGE_VHDL, next);
    EXPECT_EQ(file.GetProjectLanguageConfig(), next);
    EXPECT_EQ(std::as_const(copy).GetProjectLanguageConfig(), next);
    EXPECT_EQ(other.GetProjectLanguageConfig(), &own);
    file.SetProjectLanguageConfig(nullptr);
    EXPECT_EQ(file.GetProjectLanguageConfig(), nullptr);
    build.DeleteAll();
    EXPECT_EQ(copy.GetProjectLanguageConfig(), nullptr);
}

using TConfig = TProjectSimLanguageConfig;
using TList = TIHdlSourceFileList;
using TSource = IHdlSourceFile;
using TName = const ISFileName;

TEST(IHdlSourceFileTable, HasItsOperationsInOrder) {
    EXPECT_EQ(SlotOf(&TSource::GetLanguage), 1);
    EXPECT_EQ(SlotOf(static_cast<TName* (TSource::*)() const>(&TSource::GetFileName)), 2);
    EXPECT_EQ(SlotOf(static_cast<TName* (TSource::*)()>(&TSource::GetFileName)), 3);
    EXPECT_EQ(SlotOf(&TSource::SetIsListedForCompile), 4);
    EXPECT_EQ(SlotOf(&TSource::GetIsListedForCompile), 5);
    EXPECT_EQ(SlotOf(&TSource::IsLibrary), 6);
    EXPECT_EQ(SlotOf(&TSource::SetLibraryFlag), 7);
    EXPECT_EQ(SlotOf(&TSource::IsExcludeFromBuild), 8);
    EXPECT_EQ(SlotOf(&TSource::SetExcludeFromBuild), 9);
    EXPECT_EQ(SlotOf(&TSource::GetPrecompiledLibraryGroupName), 10);
    EXPECT_EQ(SlotOf(&TSource::SetPrecompiledLibraryGroupName), 11);
    EXPECT_EQ(SlotOf(&TSource::SetProjectLanguageConfig), 12);
    EXPECT_EQ(SlotOf(static_cast<TConfig* (TSource::*)()>(&TSource::GetProjectLanguageConfig)), 13);
    EXPECT_EQ(SlotOf(static_cast<const TConfig* (TSource::*)() const>(
                  &TSource::GetProjectLanguageConfig)),
              14);
    EXPECT_EQ(SlotOf(static_cast<TList* (TSource::*)()>(&TSource::GetDependencyList)), 15);
    EXPECT_EQ(SlotOf(static_cast<const TList* (TSource::*)() const>(&TSource::GetDependencyList)),
              16);
    EXPECT_EQ(SlotOf(&TSource::AddDependency), 17);
    EXPECT_EQ(SlotOf(static_cast<TSource* (TSource::*)(TName*)>(&TSource::GetDependency)), 18);
    EXPECT_EQ(
        SlotOf(static_cast<const TSource* (TSource::*)(TName*) const>(&TSource::GetDependency)),
        19);
    EXPECT_EQ(SlotOf(static_cast<bool (TSource::*)(TSource*)>(&TSource::RemoveDependency)), 20);
    EXPECT_EQ(SlotOf(static_cast<bool (TSource::*)(TName*)>(&TSource::RemoveDependency)), 21);
    EXPECT_EQ(SlotOf(&TSource::FlushDependencies), 22);
}

TEST(IBuildManagerTable, HasItsOperationsInOrder) {
    EXPECT_EQ(SlotOf(&IBuildManager::CreateOrGetSourceFile), 1);
    EXPECT_EQ(SlotOf(&IBuildManager::GetProjectLanguageConfigForFileRead), 2);
    EXPECT_EQ(SlotOf(&IBuildManager::GetProjectLanguageConfig), 3);
    EXPECT_EQ(SlotOf(&IBuildManager::GetCompileOptions), 4);
    EXPECT_EQ(SlotOf(&IBuildManager::GetElaboratorOptions), 5);
    EXPECT_EQ(SlotOf(&IBuildManager::GetRuntimeOptions), 6);
}

TEST(HdlSourceFile, IsForgottenWhenDeleted) {
    EXPECT_TRUE(IsForgottenWhenDeleted(new THdlSourceFile("/p/a.vhd")));
}

}  // namespace
