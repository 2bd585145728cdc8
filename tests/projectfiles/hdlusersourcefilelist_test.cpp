#include "projectfiles/hdlusersourcefilelist.h"
#include "projectfiles/hdlprojectusersourcefile.h"
#include "tests/projectfiles/projectfilefakes.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>

namespace {

constexpr const char* kNoScope =
    "hdlprojectfile(609): Check failed: \"AssociatedFileScopeFileName\"\n";

std::string AssociatedFilesOf(const THdlProjectFile* file) {
    return NamesOf(*file->GetAssociatedFileList());
}

/// The scope of lists shorter and longer than those that are walked.
class HdlUserSourceFileList : public testing::TestWithParam<bool> {
protected:
    HdlUserSourceFileList() {
        if (GetParam()) AddManyFiles(List);
        A = List.AddAtTailAndSetOwner(Name("a.v")).first;
        B = List.AddAtTailAndSetOwner(Name("b.v")).first;
    }

    RecordingLog Log;
    FakeComponent Owner;
    THdlUserSourceFileList List{&Owner};
    THdlProjectFile* A;
    THdlProjectFile* B;
};

TEST_P(HdlUserSourceFileList, AddsAssociatedFilesToItsScope) {
    EXPECT_TRUE(List.SetAssociatedFileScope(Name("A.v")));
    EXPECT_TRUE(List.AddAssociatedFileToScopeFile(Name("x.v")));
    EXPECT_TRUE(List.AddAssociatedFileToScopeFile(Name("y.v")));
    EXPECT_FALSE(List.AddAssociatedFileToScopeFile(Name("X.v")));
    EXPECT_TRUE(List.SetAssociatedFileScope(Name("b.v")));
    EXPECT_TRUE(List.AddAssociatedFileToScopeFile(Name("x.v")));
    EXPECT_EQ(AssociatedFilesOf(A), "x.v y.v ");
    EXPECT_EQ(AssociatedFilesOf(B), "x.v ");
    EXPECT_EQ(A->GetAssociatedFileList()->GetHead()->GetOwningProjectComponent(), &Owner);
    EXPECT_EQ(Log.Take(), "");
}

TEST_P(HdlUserSourceFileList, HasNoScopeAtFirst) {
    EXPECT_FALSE(List.AddAssociatedFileToScopeFile(Name("x.v")));
    EXPECT_EQ(Log.Take(), kNoScope);
    EXPECT_EQ(AssociatedFilesOf(A) + AssociatedFilesOf(B), "");
}

TEST_P(HdlUserSourceFileList, LosesItsScopeToANameThatIsNone) {
    List.AddAtTailAndSetOwner(
        static_cast<THdlProjectFile*>(new THdlProjectSourceFile(Name("plain.v"), nullptr, false)));
    for (const ISFileName* none :
         {Name("plain.v"), Name("missing.v"), static_cast<const ISFileName*>(nullptr)}) {
        EXPECT_TRUE(List.SetAssociatedFileScope(Name("a.v")));
        EXPECT_FALSE(List.SetAssociatedFileScope(none));
        EXPECT_FALSE(List.AddAssociatedFileToScopeFile(Name("x.v")));
        EXPECT_EQ(Log.Take(), kNoScope);
    }
    EXPECT_EQ(AssociatedFilesOf(A), "");
}

TEST_P(HdlUserSourceFileList, ReportsFilesWithoutANameOnTheWayToItsScope) {
    List.AddAtHeadAndSetOwner(static_cast<THdlProjectFile*>(
        new THdlProjectSourceFile(&HandlelessName(), nullptr, false)));
    Log.Take();
    EXPECT_TRUE(List.SetAssociatedFileScope(Name("b.v")));
    EXPECT_EQ(Log.Take(), "hdlprojectfile(53): Check failed: \"currentFileName\"\n");
}

TEST_P(HdlUserSourceFileList, LosesItsScopeWithTheFile) {
    EXPECT_TRUE(List.SetAssociatedFileScope(Name("a.v")));
    EXPECT_TRUE(List.Remove(Name("a.v"), true));
    EXPECT_FALSE(List.AddAssociatedFileToScopeFile(Name("x.v")));
    EXPECT_FALSE(List.AddAssociatedFileToScopeFile(Name("x.v")));
    EXPECT_EQ(Log.Take(), std::string(kNoScope) + kNoScope);
}

TEST_P(HdlUserSourceFileList, DoesNotTakeALaterFileForItsScope) {
    EXPECT_TRUE(List.SetAssociatedFileScope(Name("a.v")));
    EXPECT_TRUE(List.Remove(Name("a.v"), true));
    // The allocator may well put a new file where the old one was.
    for (int number = 0; number < 100; ++number)
        List.AddAtTailAndSetOwner(Name(number == 0 ? "a.v" : "n" + std::to_string(number) + ".v"));
    EXPECT_FALSE(List.AddAssociatedFileToScopeFile(Name("x.v")));
    EXPECT_EQ(Log.Take(), kNoScope);
}

TEST_P(HdlUserSourceFileList, LosesItsScopeInAFlush) {
    EXPECT_TRUE(List.SetAssociatedFileScope(Name("a.v")));
    List.Flush(true);
    EXPECT_FALSE(List.AddAssociatedFileToScopeFile(Name("x.v")));
    EXPECT_EQ(Log.Take(), kNoScope);
}

TEST_P(HdlUserSourceFileList, LosesItsScopeInAnAssignment) {
    THdlUserSourceFileList other(nullptr);
    other.AddAtTailAndSetOwner(Name("c.v"));
    EXPECT_TRUE(List.SetAssociatedFileScope(Name("a.v")));
    List = other;
    EXPECT_FALSE(List.AddAssociatedFileToScopeFile(Name("x.v")));
    EXPECT_EQ(Log.Take(), kNoScope);
    delete A;
}

TEST_P(HdlUserSourceFileList, KeepsAScopeThatGotAnotherName) {
    EXPECT_TRUE(List.SetAssociatedFileScope(Name("a.v")));
    static_cast<THdlProjectFile&>(*A) = THdlProjectFile(Name("renamed.v"), nullptr, true);
    EXPECT_TRUE(List.AddAssociatedFileToScopeFile(Name("x.v")));
    EXPECT_TRUE(List.AddAssociatedFileToScopeFile(Name("y.v")));
    EXPECT_EQ(AssociatedFilesOf(A), "x.v y.v ");
}

TEST_P(HdlUserSourceFileList, KeepsAScopeWhoseNameAnotherFileGot) {
    EXPECT_TRUE(List.SetAssociatedFileScope(Name("a.v")));
    static_cast<THdlProjectFile&>(*A) = THdlProjectFile(Name("renamed.v"), nullptr, true);
    const THdlProjectFile* successor = List.AddAtTailAndSetOwner(Name("a.v")).first;
    EXPECT_TRUE(List.AddAssociatedFileToScopeFile(Name("x.v")));
    EXPECT_EQ(AssociatedFilesOf(A), "x.v ");
    EXPECT_EQ(AssociatedFilesOf(successor), "");
}

TEST_P(HdlUserSourceFileList, SharesScopeAndFilesWithACopy) {
    EXPECT_TRUE(List.SetAssociatedFileScope(Name("a.v")));
    THdlUserSourceFileList copy(List);
    EXPECT_TRUE(copy.AddAssociatedFileToScopeFile(Name("x.v")));
    EXPECT_EQ(AssociatedFilesOf(A), "x.v ");
    EXPECT_TRUE(List.Remove(Name("a.v"), true));
    EXPECT_TRUE(copy.AddAssociatedFileToScopeFile(Name("y.v")));
    EXPECT_FALSE(List.AddAssociatedFileToScopeFile(Name("z.v")));
    EXPECT_EQ(AssociatedFilesOf(A), "x.v y.v ");
    EXPECT_EQ(Log.Take(), kNoScope);
}

TEST_P(HdlUserSourceFileList, AddsTheFileOfTheEmptyNameToItsScopeForNull) {
    EXPECT_TRUE(List.SetAssociatedFileScope(Name("a.v")));
    EXPECT_TRUE(List.AddAssociatedFileToScopeFile(nullptr));
    EXPECT_FALSE(List.AddAssociatedFileToScopeFile(nullptr));
    EXPECT_EQ(A->GetAssociatedFileList()->size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Lengths, HdlUserSourceFileList, testing::Bool(),
                         [](const auto& length) { return length.param ? "Long" : "Short"; });

}  // namespace
