#include "projectfiles/hdlprojecttemplatefile.h"
#include "projectfiles/hdlprojectusersourcefile.h"
#include "tests/projectfiles/projectfilefakes.h"
#include <gtest/gtest.h>

// What copies of the kinds of project sources take over.

namespace {

/// Both ways to copy a source of one kind with every member set.
template <class TSource>
class ProjectSourceCopies : public testing::Test {
protected:
    ProjectSourceCopies() {
        Original.SetOwningProjectComponent(&Owner);
        Original.SetLibraryFlag(true);
        Original.SetExcludeFromBuild(true);
        Original.SetPrecompiledLibraryGroupName("unisim");
        Original.SetStreamScope(&Scope);
        Original.AddDependency(&Package);
        Original.GetDependencyList()->SetLanguage(LANGUAGE_VHDL);
        Original.SetProjectFileType(THdlProjectFile::FILE_TYPE_LOG);
    }
    static TSource Make(const char* name) {
        if constexpr (std::is_same_v<TSource, THdlProjectTemplateFile>)
            return TSource(Name(name), nullptr);
        else
            return TSource(Name(name), nullptr, false);
    }
    void ExpectEverythingIn(TSource& copy, const char* label) {
        SCOPED_TRACE(label);
        EXPECT_EQ(static_cast<const THdlProjectFile&>(copy).GetFileName(), Name("top.vhd"));
        EXPECT_EQ(copy.GetOwningProjectComponent(), &Owner);
        EXPECT_EQ(copy.GetProjectFileType(), THdlProjectFile::FILE_TYPE_LOG);
        EXPECT_TRUE(copy.IsLibrary());
        EXPECT_TRUE(copy.IsExcludeFromBuild());
        EXPECT_STREQ(copy.GetPrecompiledLibraryGroupName(), "unisim");
        EXPECT_EQ(copy.GetStreamScope(), &Scope);
        EXPECT_EQ(copy.GetDependencyList()->size(), 1u);
        EXPECT_EQ(copy.GetDependency(Name("pkg.vhd")), static_cast<IHdlSourceFile*>(&Package));
        EXPECT_EQ(copy.GetDependencyList()->GetLanguage(), LANGUAGE_VHDL);
        EXPECT_NE(copy.GetDependencyList(), Original.GetDependencyList());
    }
    FakeComponent Owner;
    hdb::IStreamScope Scope;
    THdlProjectSourceFile Package{Name("pkg.vhd"), nullptr, false};
    TSource Original = Make("top.vhd");
};

using TKinds =
    testing::Types<THdlProjectSourceFile, THdlProjectUserSourceFile, THdlProjectTemplateFile>;
TYPED_TEST_SUITE(ProjectSourceCopies, TKinds);

TYPED_TEST(ProjectSourceCopies, HaveEverythingOfTheOriginal) {
    TypeParam copy(this->Original);
    TypeParam assigned = this->Make("x.v");
    THdlProjectSourceFile former(Name("former.v"), nullptr, false);
    assigned.AddDependency(&former);
    assigned = this->Original;
    this->Original.FlushDependencies();
    this->ExpectEverythingIn(copy, "copy constructor");
    this->ExpectEverythingIn(assigned, "assignment");
}

TYPED_TEST(ProjectSourceCopies, TakeThePlaceOfEverythingInTheTarget) {
    const TypeParam fresh = this->Make("x.v");
    TypeParam& target = this->Original;
    target = fresh;
    EXPECT_EQ(static_cast<const THdlProjectFile&>(target).GetFileName(), Name("x.v"));
    EXPECT_EQ(target.GetOwningProjectComponent(), nullptr);
    EXPECT_EQ(target.GetProjectFileType(), THdlProjectFile::FILE_TYPE_SOURCE);
    EXPECT_FALSE(target.IsLibrary());
    EXPECT_FALSE(target.IsExcludeFromBuild());
    EXPECT_STREQ(target.GetPrecompiledLibraryGroupName(), "");
    EXPECT_EQ(target.GetStreamScope(), nullptr);
    EXPECT_TRUE(target.GetDependencyList()->empty());
    EXPECT_EQ(target.GetDependencyList()->GetLanguage(), LANGUAGE_NONE);
}

}  // namespace
