#include "projectfiles/hdlprojectfile.h"
#include "tests/projectfiles/projectfilefakes.h"
#include "tests/support/keptobjects.h"
#include "tests/support/recorders.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>

namespace {

TEST(HdlProjectFile, TakesItsTypeFromTheExtensionWithCase) {
    struct {
        const char* FileName;
        int Type;
    } const rows[] = {
        {"a.hpj", 4},     {"a.HPJ", 7},     {"run.log", 5}, {"run.Log", 7},
        {"notes.txt", 6}, {"notes.TXT", 7}, {"a.v", 7},     {"a.fp", 7},
        {"a", 7},         {".log", 5},      {"a.hpj.v", 7}, {"", 7},
    };
    for (const auto& row : rows)
        EXPECT_EQ(THdlProjectFile(Name(row.FileName), nullptr, false).GetProjectFileType(),
                  row.Type)
            << row.FileName;
}

TEST(HdlProjectFile, StartsWithoutATypeWhenTheCallerGivesIt) {
    THdlProjectFile file(Name("a.hpj"), nullptr, true);
    EXPECT_EQ(file.GetProjectFileType(), 0);
    file.SetProjectFileType(THdlProjectFile::FILE_TYPE_LOG);
    EXPECT_EQ(file.GetProjectFileType(), 5);
}

TEST(HdlProjectFile, WrapsTheEmptyNameWhenMadeFromNull) {
    const THdlProjectFile file(nullptr, nullptr, false);
    EXPECT_EQ(file.GetFileName(), Name(""));
    EXPECT_EQ(file.GetProjectFileType(), 0);
    EXPECT_STREQ(file.GetHashKey(), "");
}

TEST(HdlProjectFile, WrapsTheHandleInsideATrackedName) {
    const THdbSFileName inner(Name("a.hpj"));
    const THdbSFileName outer(static_cast<const ISFileName*>(&inner));
    const THdlProjectFile file(&outer, nullptr, false);
    EXPECT_EQ(file.GetFileName(), Name("a.hpj"));
    EXPECT_EQ(file.GetProjectFileType(), 4);
}

TEST(HdlProjectFile, StaysWithoutHandleWhenMadeFromANameWithout) {
    RecordingLog log;
    const THdlProjectFile file(&HandlelessName(), nullptr, false);
    EXPECT_EQ(file.GetFileName(), nullptr);
    EXPECT_EQ(file.GetProjectFileType(), 0);
    EXPECT_STREQ(file.GetHashKey(), "");
    EXPECT_EQ(log.Take(), "");
}

TEST(HdlProjectFile, IsKeyedByItsCanonicalNameInItsLetterCase) {
    const THdlProjectFile file(Name("Q:/Sub/../Dir/Mixed.V"), nullptr, false);
    EXPECT_STREQ(file.GetHashKey(), "Q:\\Dir\\Mixed.V");
    EXPECT_STREQ(file.GetName(), "Q:\\Dir\\Mixed.V");
}

TEST(HdlProjectFile, KeepsItsOwner) {
    FakeComponent first;
    FakeComponent second;
    THdlProjectFile file(Name("a.v"), &first, false);
    EXPECT_EQ(file.GetOwningProjectComponent(), &first);
    file.SetOwningProjectComponent(&second);
    EXPECT_EQ(file.GetOwningProjectComponent(), &second);
    file.SetOwningProjectComponent(nullptr);
    EXPECT_EQ(file.GetOwningProjectComponent(), nullptr);
}

TEST(HdlProjectFile, CopiesHandleOwnerAndType) {
    FakeComponent owner;
    THdlProjectFile file(Name("a.hpj"), &owner, false);
    file.SetProjectFileType(THdlProjectFile::FILE_TYPE_TEXT);
    const THdlProjectFile copy(file);
    EXPECT_EQ(copy.GetFileName(), Name("a.hpj"));
    EXPECT_EQ(copy.GetOwningProjectComponent(), &owner);
    EXPECT_EQ(copy.GetProjectFileType(), 6);
    THdlProjectFile assigned(Name("b.v"), nullptr, false);
    assigned = file;
    EXPECT_EQ(assigned.GetFileName(), Name("a.hpj"));
    EXPECT_EQ(assigned.GetOwningProjectComponent(), &owner);
    EXPECT_EQ(assigned.GetProjectFileType(), 6);
}

TEST(HdlProjectFile, CountsTheAssignmentsThatChangeAHandle) {
    THdlProjectFile file(Name("a.v"), nullptr, false);
    const THdlProjectFile same(Name("a.v"), nullptr, false);
    const THdlProjectFile other(Name("b.v"), nullptr, false);
    const auto before = THdlProjectFile::GetHandleChangeCount();
    file = same;
    EXPECT_EQ(THdlProjectFile::GetHandleChangeCount(), before);
    file = other;
    EXPECT_EQ(THdlProjectFile::GetHandleChangeCount(), before + 1);
}

TEST(HdlProjectFile, AppendsItsOperationsInOrder) {
    const auto first = TableEntryOf(&THdlProjectFile::IsLibrary);
    using TConstList = const THdlProjectFileList* (THdlProjectFile::*)() const;
    using TList = THdlProjectFileList* (THdlProjectFile::*)();
    EXPECT_EQ(TableEntryOf(&THdlProjectFile::GetPrecompiledLibraryGroupName), first + 1);
    EXPECT_EQ(TableEntryOf(&THdlProjectFile::IsTemplateFile), first + 2);
    EXPECT_EQ(TableEntryOf(&THdlProjectFile::AddAssociatedFileAtTail), first + 3);
    EXPECT_EQ(TableEntryOf(&THdlProjectFile::AddAssociatedFileAtHead), first + 4);
    EXPECT_EQ(TableEntryOf(TConstList(&THdlProjectFile::GetAssociatedFileList)), first + 5);
    EXPECT_EQ(TableEntryOf(TList(&THdlProjectFile::GetAssociatedFileList)), first + 6);
    EXPECT_GT(first, TableEntryOf(&ISFileName::IsEquivalent));
}

TEST(HdlProjectFile, IsForgottenWhenDeleted) {
    EXPECT_TRUE(IsForgottenWhenDeleted(new THdlProjectFile(Name("a.hpj"), nullptr, false)));
}

}  // namespace
