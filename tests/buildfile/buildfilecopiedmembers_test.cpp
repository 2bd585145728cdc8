#include "tests/buildfile/filledbuild.h"

namespace {

class BuildFileCopiedMembers : public FilledBuild {
protected:
    /// A copy made by the constructor, and one by assignment to a fresh build.
    template <class Check>
    void OnEachCopy(Check check) {
        OpenBuild made(Build);
        check(&made, "copy constructor");
        OpenBuild assigned;
        assigned = Build;
        check(&assigned, "assignment");
    }
};

TEST_F(BuildFileCopiedMembers, AreAllThoseOfTheOriginal) {
    OnEachCopy([this](THdlBuildFile* copy, const char* label) {
        EXPECT_EQ(TextOf(*copy), kFilled) << label;
        EXPECT_EQ(copy->GetFileName(), Name) << label;
        EXPECT_EQ(copy->GetSugarEngineDll(), Sugar) << label;
        EXPECT_EQ(copy->GetGeneralConfiguration(), &General) << label;
        EXPECT_EQ(copy->GetV2VOptions(), &Options) << label;
        EXPECT_EQ(copy->GetReadError().File, Folder.Path("build.hbf")) << label;
        EXPECT_EQ(copy->GetReadError().Line, 1) << label;
        EXPECT_EQ(copy->GetReadError().Column, 17) << label;
        EXPECT_NE(copy->GetPseudoEnvironmentVariables(), Build.GetPseudoEnvironmentVariables())
            << label;
    });
}

TEST_F(BuildFileCopiedMembers, AreAlsoThoseWithoutAGetter) {
    OnEachCopy([](THdlBuildFile* copy, const char* label) {
        EXPECT_EQ(TextOfMembersWithoutGetter(copy), kFilledWithoutGetter) << label;
    });
}

TEST_F(BuildFileCopiedMembers, TellWhichLibrariesAreNamedAlready) {
    OnEachCopy([](OpenBuild* copy, const char* label) {
        copy->AddPrecompiledLibraryGroupNoDup("lib");
        copy->AddPrecompiledLibraryGroupNoDup("more");
        EXPECT_EQ(copy->GetPrecompiledLibraryGroups(), (std::vector<std::string>{"lib", "more"}))
            << label;
    });
    EXPECT_EQ(Build.GetPrecompiledLibraryGroups(), std::vector<std::string>{"lib"});
}

TEST_F(BuildFileCopiedMembers, TakeThePlaceOfAllThatTheTargetHad) {
    const OpenBuild fresh;
    Build = fresh;
    EXPECT_EQ(TextOf(Build), kFresh);
    EXPECT_EQ(Build.GetReadError().File, "");
    EXPECT_EQ(TextOfMembersWithoutGetter(&Build), kFreshWithoutGetter);
}

TEST_F(BuildFileCopiedMembers, GoTheirOwnWayWhereTheyAreNoSubObjects) {
    OpenBuild copy(Build);
    copy.SetTopLanguage(LANGUAGE_NONE);
    copy.SetDestinationLibrary("other");
    copy.SetGeneralConfiguration(nullptr);
    copy.GetPseudoEnvironmentVariables()->clear();
    EXPECT_EQ(TextOf(Build), kFilled);
    TextOfMembersWithoutGetter(&copy);
    EXPECT_EQ(TextOfMembersWithoutGetter(&Build), kFilledWithoutGetter)
        << "the copy's command line takes the copy's flag only";
}

}  // namespace
