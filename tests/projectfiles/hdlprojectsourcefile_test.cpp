#include "projectfiles/hdlprojectsourcefile.h"
#include "projectfiles/hdlsourcefile.h"
#include "settings/projectdiagramsimconfig.h"
#include "tests/projectfiles/projectfilefakes.h"
#include "tests/support/recorders.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>

namespace {

std::string DependenciesOf(THdlProjectSourceFile& file) {
    std::string names;
    for (const IHdlSourceFile* source : *file.GetDependencyList())
        names += std::string(source->GetFileName()->ShortName(false)) + " ";
    return names;
}

IHdlSourceFile* AsSource(THdlProjectSourceFile& file) {
    return &file;
}

TEST(HdlProjectSourceFile, HasTheLanguageOfItsExtension) {
    struct {
        const char* FileName;
        int Language;
    } const rows[] = {{"a.v", 0}, {"a.VHD", 1}, {"a.bsv", 2}, {"a.cpp", 4}, {"a.txt", 9}, {"a", 9}};
    for (const auto& row : rows) {
        THdlProjectSourceFile file(Name(row.FileName), nullptr, false);
        EXPECT_EQ(file.GetHdlLanguage(), row.Language) << row.FileName;
        EXPECT_EQ(AsSource(file)->GetLanguage(), row.Language) << row.FileName;
    }
}

TEST(HdlProjectSourceFile, GivesItsHandleAsProjectFileAndAsSource) {
    THdlProjectSourceFile file(Name("a.v"), nullptr, false);
    const IHdlSourceFile* source = &file;
    EXPECT_EQ(source->GetFileName(), Name("a.v"));
    EXPECT_EQ(AsSource(file)->GetFileName(), Name("a.v"));
    EXPECT_EQ(static_cast<const ISFileName&>(file).GetFileName(), Name("a.v"));
}

TEST(HdlProjectSourceFile, KeepsFlagsGroupNameAndScope) {
    THdlProjectSourceFile file(Name("a.v"), nullptr, true);
    EXPECT_TRUE(file.IsLibrary());
    EXPECT_FALSE(file.IsExcludeFromBuild());
    EXPECT_STREQ(file.GetPrecompiledLibraryGroupName(), "");
    EXPECT_EQ(file.GetStreamScope(), nullptr);
    file.SetLibraryFlag(false);
    file.SetExcludeFromBuild(true);
    file.SetPrecompiledLibraryGroupName("unisim");
    hdb::IStreamScope scope;
    file.SetStreamScope(&scope);
    EXPECT_FALSE(file.IsLibrary());
    EXPECT_TRUE(file.IsExcludeFromBuild());
    EXPECT_STREQ(file.GetPrecompiledLibraryGroupName(), "unisim");
    EXPECT_EQ(file.GetStreamScope(), &scope);
}

TEST(HdlProjectSourceFile, TakesNullAndPartsOfItselfAsGroupName) {
    THdlProjectSourceFile file(Name("a.v"), nullptr, false);
    file.SetPrecompiledLibraryGroupName("unisim");
    file.SetPrecompiledLibraryGroupName(file.GetPrecompiledLibraryGroupName() + 3);
    EXPECT_STREQ(file.GetPrecompiledLibraryGroupName(), "sim");
    file.SetPrecompiledLibraryGroupName(nullptr);
    EXPECT_STREQ(file.GetPrecompiledLibraryGroupName(), "");
}

TEST(HdlProjectSourceFile, IsNeverListedForCompile) {
    THdlProjectSourceFile file(Name("a.v"), nullptr, false);
    file.SetIsListedForCompile(true);
    EXPECT_FALSE(file.GetIsListedForCompile());
}

TEST(HdlProjectSourceFile, TakesItsSettingsFromItsOwner) {
    TProjectSimLanguageConfig language;
    TProjectSimGeneralConfig general;
    FakeComponent owner;
    owner.LanguageConfig = &language;
    owner.GeneralConfig = &general;
    THdlProjectSourceFile file(Name("a.vhd"), &owner, false);
    EXPECT_EQ(file.GetProjectLanguageConfig(), &language);
    EXPECT_EQ(std::as_const(file).GetProjectLanguageConfig(), &language);
    EXPECT_EQ(owner.Take(), "language 1\nlanguage 1\n");
    EXPECT_EQ(file.GetGeneralProjectSettings(), &general);
}

TEST(HdlProjectSourceFile, HasNoSettingsWhenItsOwnerHasNone) {
    FakeComponent owner;
    const THdlProjectSourceFile file(Name("a.vhd"), &owner, false);
    EXPECT_EQ(file.GetProjectLanguageConfig(), nullptr);
    EXPECT_EQ(file.GetGeneralProjectSettings(), nullptr);
}

TEST(HdlProjectSourceFile, TakesItsSettingsFromTheDiagramTemplateWithoutAnOwner) {
    TProjectDiagramSimConfig* diagram = HdlBuildFile::GetTemplateDiagramSimConfig();
    THdlProjectSourceFile verilog(Name("a.v"), nullptr, false);
    THdlProjectSourceFile vhdl(Name("a.vhd"), nullptr, false);
    THdlProjectSourceFile text(Name("a.txt"), nullptr, false);
    ASSERT_NE(diagram->GetProjectLanguageConfig(LANGUAGE_VERILOG), nullptr);
    EXPECT_EQ(verilog.GetProjectLanguageConfig(),
              diagram->GetProjectLanguageConfig(LANGUAGE_VERILOG));
    EXPECT_EQ(std::as_const(vhdl).GetProjectLanguageConfig(),
              diagram->GetProjectLanguageConfig(LANGUAGE_VHDL));
    EXPECT_EQ(text.GetProjectLanguageConfig(), nullptr);
    EXPECT_EQ(verilog.GetGeneralProjectSettings(), diagram->GetGeneralConfiguration());
    EXPECT_EQ(verilog.GetProjectLanguageConfig()->GetTool(), SIM_ZORVIK_CL);
}

TEST(HdlProjectSourceFile, FollowsTheDiagramTemplateThroughItsResets) {
    TProjectDiagramSimConfig* diagram = HdlBuildFile::GetTemplateDiagramSimConfig();
    THdlProjectSourceFile file(Name("a.v"), nullptr, false);
    TProjectSimLanguageConfig given;
    given.SetActiveSnapshotName("given");
    file.SetProjectLanguageConfig(&given);
    diagram->GetProjectLanguageConfig(LANGUAGE_VERILOG)->SetActiveSnapshotName("template");
    diagram->GetGeneralConfiguration()->SetLogFileName("x.log");
    EXPECT_STREQ(file.GetProjectLanguageConfig()->GetActiveSnapshotName().c_str(), "template");
    EXPECT_STREQ(file.GetGeneralProjectSettings()->GetSimulationLogFileName(), "x.log");
    diagram->ResetDiagramConfiguration();
    EXPECT_STREQ(file.GetProjectLanguageConfig()->GetActiveSnapshotName().c_str(), "");
    EXPECT_STREQ(file.GetGeneralProjectSettings()->GetSimulationLogFileName(), "simulation.log");
}

TEST(HdlProjectSourceFile, IgnoresASettingsPointerGivenToIt) {
    TProjectSimLanguageConfig given;
    FakeComponent owner;
    THdlProjectSourceFile file(Name("a.vhd"), &owner, false);
    file.SetProjectLanguageConfig(&given);
    EXPECT_EQ(file.GetProjectLanguageConfig(), nullptr);
}

TEST(HdlProjectSourceFile, RefusesDependenciesOnItselfAndRepeatedOnes) {
    THdlProjectSourceFile file(Name("top.vhd"), nullptr, false);
    THdlProjectSourceFile itself(Name("TOP.VHD"), nullptr, false);
    THdlProjectSourceFile package(Name("pkg.vhd"), nullptr, false);
    THdlProjectSourceFile again(Name("PKG.vhd"), nullptr, false);
    THdlProjectSourceFile handleless(&HandlelessName(), nullptr, false);
    THdlSourceFile named(&HandlelessName());
    THdlSourceFile nameless(static_cast<const ISFileName*>(nullptr));
    EXPECT_FALSE(file.AddDependency(&named));
    EXPECT_FALSE(file.AddDependency(&nameless));
    EXPECT_FALSE(file.AddDependency(nullptr));
    EXPECT_FALSE(file.AddDependency(&file));
    EXPECT_FALSE(file.AddDependency(&itself));
    EXPECT_FALSE(file.AddDependency(&handleless));
    EXPECT_TRUE(file.AddDependency(&package));
    EXPECT_FALSE(file.AddDependency(&package));
    EXPECT_FALSE(file.AddDependency(&again));
    EXPECT_EQ(DependenciesOf(file), "pkg.vhd ");
}

TEST(HdlProjectSourceFile, AcceptsNamedDependenciesWithoutANameOfItsOwn) {
    THdlProjectSourceFile file(&HandlelessName(), nullptr, false);
    THdlProjectSourceFile package(Name("pkg.vhd"), nullptr, false);
    THdlProjectSourceFile blank(nullptr, nullptr, false);
    EXPECT_TRUE(file.AddDependency(&package));
    EXPECT_TRUE(file.AddDependency(&blank));
    EXPECT_EQ(DependenciesOf(file), "pkg.vhd  ");
}

TEST(HdlProjectSourceFile, FindsAndRemovesDependencies) {
    THdlProjectSourceFile file(Name("top.vhd"), nullptr, false);
    THdlProjectSourceFile first(Name("a.vhd"), nullptr, false);
    THdlProjectSourceFile second(Name("b.vhd"), nullptr, false);
    THdlProjectSourceFile third(Name("c.vhd"), nullptr, false);
    THdlProjectSourceFile fourth(Name("d.vhd"), nullptr, false);
    for (auto* dependency : {&first, &second, &third, &fourth}) file.AddDependency(dependency);
    EXPECT_EQ(file.GetDependency(Name("B.vhd")), AsSource(second));
    EXPECT_EQ(std::as_const(file).GetDependency(Name("c.vhd")), AsSource(third));
    EXPECT_EQ(file.GetDependency(Name("x.vhd")), nullptr);
    EXPECT_EQ(file.GetDependency(nullptr), nullptr);
    EXPECT_TRUE(file.RemoveDependency(Name("A.vhd")));
    EXPECT_FALSE(file.RemoveDependency(Name("a.vhd")));
    EXPECT_TRUE(file.RemoveDependency(AsSource(second)));
    EXPECT_TRUE(file.RemoveDependency(&third));
    EXPECT_FALSE(file.RemoveDependency(&third));
    EXPECT_FALSE(file.RemoveDependency(static_cast<const ISFileName*>(nullptr)));
    EXPECT_FALSE(file.RemoveDependency(static_cast<IHdlSourceFile*>(nullptr)));
    EXPECT_FALSE(file.RemoveDependency(static_cast<THdlProjectSourceFile*>(nullptr)));
    EXPECT_EQ(DependenciesOf(file), "d.vhd ");
    file.FlushDependencies();
    EXPECT_EQ(DependenciesOf(file), "");
}

TEST(HdlProjectSourceFile, KeepsADependencyWhenAnotherObjectOfItsNameIsRemoved) {
    THdlProjectSourceFile file(Name("top.vhd"), nullptr, false);
    THdlProjectSourceFile listed(Name("a.vhd"), nullptr, false);
    THdlProjectSourceFile other(Name("A.vhd"), nullptr, false);
    THdlSourceFile plain(Name("a.VHD"));
    file.AddDependency(&listed);
    EXPECT_TRUE(file.RemoveDependency(&other));
    EXPECT_TRUE(file.RemoveDependency(AsSource(other)));
    EXPECT_TRUE(file.RemoveDependency(&plain));
    EXPECT_EQ(DependenciesOf(file), "a.vhd ");
    EXPECT_EQ(file.GetDependency(Name("a.vhd")), AsSource(listed));
}

TEST(HdlProjectSourceFile, AppendsItsOperationsToThoseOfAProjectFile) {
    const auto first = TableEntryOf(&THdlProjectFile::IsLibrary);
    EXPECT_EQ(TableEntryOf(&THdlProjectSourceFile::GetHdlLanguage), first + 7);
    EXPECT_EQ(TableEntryOf(&THdlProjectSourceFile::GetGeneralProjectSettings), first + 8);
}

}  // namespace
