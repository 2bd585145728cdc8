#include "services/names/isfilename.h"
#include "services/base/fold.h"
#include "services/files/filestatus.h"
#include "services/files/pathtext.h"
#include "tests/services/names/hostform.h"
#include "tests/support/recorders.h"
#include "tests/support/slots.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>
#include <memory>

namespace {

const ISFileName* Handle(const std::string& name) {
    return ISFileName::NewISFileName(name.c_str());
}

/// A name that wraps a handle, as tracked file names do, and answers nothing itself.
class WrappingName : public ISFileName {
public:
    explicit WrappingName(const ISFileName* wrapped) : Wrapped(wrapped) {}
    void SetDateAndTimeFlag(const char*) const override {}
    void UpdateTimeFileLastLoaded(const char*) const override { Calls += "loaded "; }
    void UpdateTimeFileLastCompiled(const char*) const override {}
    bool IsFileModifiedSinceLastLoaded(const char*, bool) const override { return false; }
    bool IsFileModifiedSinceLastCompiled(const char*, bool) const override { return false; }
    unsigned long GetLastCompiledTimestamp(unsigned long*) const override { return 0; }
    bool IsFileModifiedSinceTimestamp(const unsigned long*) const override { return false; }
    unsigned long GetFileModificationTime(unsigned long*) const override { return 0; }
    bool CompareModificationTimeTo(unsigned long, unsigned long) const override { return false; }
    bool IsEquivalent(const ISFileName&) const override { return false; }
    const ISFileName* GetFileName() const override { return Wrapped == kItself ? this : Wrapped; }

    void Release() const override {}
    IFileName* CloneFileName() const override { return nullptr; }
    const char* CanonicalWithExpandedLinks() const override { return ""; }
    void FormCanonicalName() override {}
    const char* Canonical(bool) const override { return Text; }
    const char* CanonicalWithoutFinalSlash() const override { return ""; }
    const char* ShortName(bool) const override { return ""; }
    TMyString OsFriendlyCanonical(bool) const override { return {}; }
    const char* Squeezed(int, bool) const override { return ""; }
    const char* GetParts(unsigned int) const override { return ""; }
    bool HasParts(unsigned int) const override { return false; }
    void SetPart(unsigned int, const std::string&) override {}
    void StripParts(unsigned int) override {}
    bool IsValid() const override { return false; }
    bool IsUNC() const override { return false; }
    bool Exists() const override {
        Calls += "exists ";
        return true;
    }
    bool IsReadable() const override { return false; }
    bool IsWritable() const override { return false; }
    bool IsAutoSaveTempFile() const override { return false; }
    bool Remove() const override { return false; }
    int ChangeDir() const override { return -1; }
    int CreateDir() const override { return -1; }
    std::string GetRelativeFileNameString(const IFileName*, bool, bool) const override {
        return {};
    }
    const char* GetFileNameRelativeTo(const char*, TMyString*) const override { return ""; }
    const char* GetDisplayFileName(int, bool) const override { return ""; }
    void Pop() override {}
    void PushFileName(const char*) override {}
    void PushDirectory(const char*) override {}
    void SetAsVirtualFile() override {}
    bool IsVirtualFile() const override { return false; }
    bool ConvertVirtualFileToTempFile() override { return false; }
    void StripVirtualState() override {}
    char* GetNameNoExt() const override { return nullptr; }
    char* GetNameAndExt() const override { return nullptr; }
    char* GetFullFileName() const override { return nullptr; }
    char* GetFullFileNameNoExt() const override { return nullptr; }
    char* GetPathOnly() const override { return nullptr; }
    char* GetExtOnly() const override { return nullptr; }
    char* GetNameOnly() const override { return nullptr; }

    /// What a class that keeps its name itself answers instead of a wrapped name.
    static const ISFileName* const kItself;
    const char* Text = "";
    mutable std::string Calls;

private:
    const ISFileName* Wrapped;
};
const ISFileName* const WrappingName::kItself = ISFileName::NewISFileName("/itself");

TEST(SFileName, IsOnePerCanonicalText) {
    const ISFileName* const handle = Handle("/p/A.v");
    EXPECT_EQ(Handle("/p/./q/..//A.v"), handle);
    EXPECT_EQ(Handle("\\p\\A.v"), handle);
    EXPECT_NE(Handle("/p/a.v"), handle);
    EXPECT_NE(Handle("/p/A.v/"), handle);
    EXPECT_EQ(handle->Canonical(false), HostForm("/p/A.v"));
    EXPECT_EQ(handle->GetFileName(), handle);
    handle->Release();
    EXPECT_EQ(Handle("/p/A.v"), handle);
}

TEST(SFileName, IsOnePerTextOfMany) {
    constexpr std::size_t kMany = 3000;
    const auto text = [](std::size_t i) { return "/many/" + std::to_string(i) + ".v"; };
    std::vector<const ISFileName*> handles;
    for (std::size_t i = 0; i < kMany; ++i) handles.push_back(Handle(text(i).c_str()));
    for (std::size_t i = 0; i < kMany; ++i) {
        EXPECT_EQ(Handle(text(i).c_str()), handles[i]);
        EXPECT_EQ(handles[i]->Canonical(false), HostForm(text(i)));
    }
}

TEST(SFileName, IsBlankForEmptyAndNullNames) {
    EXPECT_EQ(Handle(""), ISFileName::BlankFileName);
    EXPECT_EQ(ISFileName::NewISFileName(nullptr), ISFileName::BlankFileName);
    EXPECT_STREQ(ISFileName::BlankFileName->Canonical(false), "");
}

TEST(SFileName, AnswersNothingForTheBlankName) {
    const ISFileName& blank = *ISFileName::BlankFileName;
    blank.SetDateAndTimeFlag(kDefaultTimeStampKey);
    blank.UpdateTimeFileLastLoaded(kDefaultTimeStampKey);
    blank.UpdateTimeFileLastCompiled(kDefaultTimeStampKey);
    unsigned long time = 7;
    const unsigned long zero = 0;
    EXPECT_FALSE(blank.IsFileModifiedSinceLastLoaded(kDefaultTimeStampKey, true));
    EXPECT_FALSE(blank.IsFileModifiedSinceLastCompiled(kDefaultTimeStampKey, true));
    EXPECT_EQ(blank.GetLastCompiledTimestamp(&time), 0u);
    EXPECT_EQ(time, 0u);
    time = 7;
    EXPECT_EQ(blank.GetFileModificationTime(&time), 0u);
    EXPECT_EQ(time, 0u);
    EXPECT_FALSE(blank.IsFileModifiedSinceTimestamp(nullptr));
    EXPECT_FALSE(blank.IsFileModifiedSinceTimestamp(&zero));
    EXPECT_FALSE(blank.CompareModificationTimeTo(0, 0));
    EXPECT_FALSE(blank.Exists() || blank.IsReadable() || blank.IsWritable() || blank.IsValid());
    EXPECT_FALSE(blank.IsAutoSaveTempFile() || blank.IsUNC() || blank.Remove());
    EXPECT_EQ(blank.ChangeDir(), -1);
    EXPECT_EQ(blank.CreateDir(), -1);
    EXPECT_STREQ(blank.GetPathOnly(), "");
    EXPECT_STREQ(blank.CanonicalWithExpandedLinks(), "");
    EXPECT_STREQ(blank.GetFileNameRelativeTo("/p", nullptr), "");
}

TEST(SFileName, KeepsItsTextWhenTheWorkingDirectoryChanges) {
    const TemporaryFolder folder;
    folder.Write("below/x", "");
    const WorkingDirectory here(folder.Path());
    const std::string root = WorkingDirectory::Text() + HostForm("/");
    const ISFileName* const before = Handle("a.v");
    EXPECT_EQ(Handle("below")->ChangeDir(), 0);
    const ISFileName* const after = Handle("a.v");
    EXPECT_EQ(before->Canonical(false), root + "a.v");
    EXPECT_EQ(after->Canonical(false), root + HostForm("below/a.v"));
    EXPECT_EQ(Handle("../a.v"), before);
    EXPECT_EQ(Handle("missing")->ChangeDir(), -1);
}

TEST(SFileName, GivesThePiecesOfItsName) {
    const ISFileName* const handle = Handle("C:\\p\\q\\fifo.tb.vhd");
    EXPECT_STREQ(handle->GetNameNoExt(), "fifo.tb");
    EXPECT_STREQ(handle->GetNameOnly(), "fifo.tb");
    EXPECT_STREQ(handle->GetNameAndExt(), "fifo.tb.vhd");
    EXPECT_STREQ(handle->ShortName(true), "fifo.tb.vhd");
    EXPECT_STREQ(handle->GetFullFileName(), "C:\\p\\q\\fifo.tb.vhd");
    EXPECT_STREQ(handle->GetFullFileNameNoExt(), "C:\\p\\q\\fifo.tb");
    EXPECT_STREQ(handle->GetPathOnly(), "C:\\p\\q\\");
    EXPECT_STREQ(handle->GetExtOnly(), ".vhd");
    EXPECT_STREQ(handle->GetParts(PART_DIRECTORY), "C:\\p\\q\\");
    EXPECT_STREQ(handle->GetParts(PART_EXTENSION), ".vhd");
    EXPECT_STREQ(handle->GetParts(PART_ALL), "C:\\p\\q\\fifo.tb.vhd");
    EXPECT_TRUE(handle->HasParts(PART_DRIVE));
    EXPECT_FALSE(Handle("/p/q")->HasParts(PART_EXTENSION));
    EXPECT_STREQ(Handle("/p/.log")->GetExtOnly(), ".log");
    EXPECT_STREQ(Handle("/p/.log")->GetNameNoExt(), "");
    EXPECT_STREQ(Handle("/p/q")->GetExtOnly(), "");
}

TEST(SFileName, KeepsThePiecesApart) {
    const char* const first = Handle("/p/a.v")->GetExtOnly();
    const char* const second = Handle("/p/b.vhd")->GetExtOnly();
    EXPECT_STREQ(first, ".v");
    EXPECT_STREQ(second, ".vhd");
    const char* const squeezed = Handle("/p/longname.v")->Squeezed(9, false);
    EXPECT_STREQ(Handle("/p/longname.v")->Squeezed(10, false), HostForm("/p/...me.v").c_str());
    EXPECT_STREQ(squeezed, HostForm("/p/...e.v").c_str());
}

TEST(SFileName, HasFormsForDisplay) {
    const ISFileName* const drive = Handle("C:/p/longname.v");
    EXPECT_EQ(drive->OsFriendlyCanonical(false).Str(),
              kOnWindows ? "C:\\p\\longname.v" : "C:/p/longname.v");
    EXPECT_STREQ(drive->GetDisplayFileName(0, false), "C:\\p\\longname.v");
    EXPECT_STREQ(drive->GetDisplayFileName(9, false), "C:\\...e.v");
    EXPECT_STREQ(Handle("D:/p/q/")->CanonicalWithoutFinalSlash(), "D:\\p\\q");
    EXPECT_STREQ(Handle("D:/p/q")->CanonicalWithoutFinalSlash(), "D:\\p\\q");
    EXPECT_STREQ(Handle("D:/")->CanonicalWithoutFinalSlash(), "D:\\");
    EXPECT_TRUE(Handle("\\\\h\\s\\a.v")->IsUNC());
    EXPECT_FALSE(drive->IsUNC());
    EXPECT_TRUE(drive->IsValid());
    EXPECT_TRUE(Handle("/p/#a.v#")->IsAutoSaveTempFile());
    EXPECT_TRUE(Handle("/p/a.v~")->IsAutoSaveTempFile());
    EXPECT_FALSE(Handle("/p~/a.v")->IsAutoSaveTempFile());
}

TEST(SFileName, GivesItsNameRelativeToADirectory) {
    const ISFileName* const handle = Handle("/p/q/a.v");
    TMyString out("before");
    EXPECT_EQ(handle->GetFileNameRelativeTo("/p/", &out), out.c_str());
    EXPECT_EQ(out.Str(), "q/a.v");
    handle->GetFileNameRelativeTo("/p/r", &out);
    EXPECT_EQ(out.Str(), "../q/a.v");
    EXPECT_STREQ(handle->GetFileNameRelativeTo("/p/q", nullptr), "a.v");
    EXPECT_STREQ(handle->GetFileNameRelativeTo("C:\\", nullptr), HostForm("/p/q/a.v").c_str());
    EXPECT_STREQ(handle->GetFileNameRelativeTo("", nullptr), HostForm("/p/q/a.v").c_str());
    EXPECT_STREQ(handle->GetFileNameRelativeTo(nullptr, nullptr), HostForm("/p/q/a.v").c_str());
    EXPECT_EQ(handle->GetRelativeFileNameString(Handle("/p/r/b.v"), false, false), "../q/a.v");
    EXPECT_EQ(handle->GetRelativeFileNameString(Handle("/p/q/"), true, true), "a.v");
    EXPECT_EQ(handle->GetRelativeFileNameString(nullptr, false, false), HostForm("/p/q/a.v"));
}

TEST(SFileName, IsIdentifiedWithoutRegardToCase) {
    const ISFileName* const upper = Handle("/Ident/Fifo.vhd");
    const ISFileName* const lower = Handle("/ident/fifo.vhd");
    const ISFileName* const other = Handle("/ident/fifo.v");
    EXPECT_TRUE(upper->IsEquivalent(*lower));
    EXPECT_TRUE(lower->IsEquivalent(*upper));
    EXPECT_FALSE(upper->IsEquivalent(*other));
    EXPECT_FALSE(upper->IsEquivalent(*ISFileName::BlankFileName));
    EXPECT_TRUE(ISFileName::BlankFileName->IsEquivalent(*ISFileName::BlankFileName));
    // Only ASCII letters fold.
    EXPECT_FALSE(Handle("/\xC3\x89.v")->IsEquivalent(*Handle("/\xC3\xA9.v")));

    const TFileIdentity identity = GetFileIdentity(upper);
    EXPECT_EQ(identity.GetFile(), upper) << "the first of these handles";
    EXPECT_TRUE(identity == GetFileIdentity(lower));
    EXPECT_EQ(identity.GetNumber(), GetFileIdentity(lower).GetNumber());
    EXPECT_NE(identity.GetNumber(), GetFileIdentity(other).GetNumber());
    EXPECT_EQ(GetFileNumber(lower), identity.GetNumber());
    EXPECT_FALSE(identity == GetFileIdentity(other));
    EXPECT_FALSE(identity.IsNone());
    EXPECT_TRUE(TFileIdentity().IsNone());
    EXPECT_FALSE(TFileIdentity() == GetFileIdentity(nullptr));
}

TEST(SFileName, ManySpellingsOfManyFilesKeepTheirHandles) {
    // More than any table holds before it grows.
    std::vector<const ISFileName*> lower;
    std::vector<const ISFileName*> upper;
    for (int i = 0; i < 5000; ++i) {
        lower.push_back(Handle(("/many/file" + std::to_string(i) + ".v").c_str()));
        upper.push_back(Handle(("/MANY/FILE" + std::to_string(i) + ".V").c_str()));
    }
    for (std::size_t i = 0; i < lower.size(); ++i) {
        const std::string number = std::to_string(i);
        ASSERT_EQ(Handle(("/many/file" + number + ".v").c_str()), lower[i]);
        ASSERT_EQ(Handle(("/MANY/FILE" + number + ".V").c_str()), upper[i]);
        ASSERT_EQ(lower[i]->Canonical(false), HostForm(("/many/file" + number + ".v").c_str()));
        ASSERT_EQ(GetFileIdentity(upper[i]).GetFile(), lower[i]);
    }
}

TEST(SFileName, SharedHandlesAreToldFromOtherNames) {
    const ISFileName* const handle = Handle("/shared/a.v");
    const WrappingName wrapper(handle);
    EXPECT_TRUE(IsSharedHandle(handle));
    EXPECT_EQ(GetSharedText(handle), HostForm("/shared/a.v"));
    EXPECT_EQ(GetSharedText(handle).data(), handle->Canonical(false));
    EXPECT_EQ(NewHandleOfCanonicalPath(HostForm("/shared/a.v")), handle);
    EXPECT_FALSE(IsSharedHandle(&wrapper));
    EXPECT_FALSE(IsSharedHandle(nullptr));
}

TEST(FileIdentity, LooksThroughWrappers) {
    const ISFileName* const handle = Handle("/p/Wrapped.v");
    const WrappingName inner(handle);
    const WrappingName outer(&inner);
    EXPECT_TRUE(GetFileIdentity(&outer) == GetFileIdentity(handle));
    EXPECT_EQ(GetFileIdentity(&outer).GetFile(), handle);
    EXPECT_EQ(GetFileIdentity(nullptr).GetFile(), ISFileName::BlankFileName);
    const WrappingName nothing(nullptr);
    EXPECT_EQ(GetFileIdentity(&nothing).GetFile(), ISFileName::BlankFileName);
    WrappingName own(WrappingName::kItself);
    own.Text = "/p/Wrapped.v";
    EXPECT_TRUE(GetFileIdentity(&own) == GetFileIdentity(handle));
    EXPECT_TRUE(handle->IsEquivalent(outer));
}

TEST(ReportNamesake, WritesALineForTwoFilesKnownByCaseAlone) {
    const TemporaryFolder folder;
    const ISFileName* const listed = Handle(folder.Write("Fifo.vhd", ""));
    const ISFileName* const file = Handle(folder.Write("fifo.vhd", ""));
    const WrappingName wrapper(file);
    const std::string line = "[Default] File \"" + folder.Path("fifo.vhd") + "\" is taken for \"" +
                             folder.Path("Fifo.vhd") + "\"\n";
    RecordingLog log(1);
    ReportNamesake(listed, file);
    EXPECT_EQ(log.Take(), kOnWindows ? "" : line);
    ReportNamesake(listed, &wrapper);
    EXPECT_EQ(log.Take(), kOnWindows ? "" : line);
    file->Remove();
    ReportNamesake(listed, file);
    ReportNamesake(file, listed);
    EXPECT_EQ(log.Take(), "");
}

TEST(ReportNamesake, LooksAtTheDiskOnlyWhenItHasTo) {
    const TemporaryFolder folder;
    const ISFileName* const listed = Handle(folder.Write("Fifo.vhd", ""));
    const ISFileName* const file = Handle(folder.Write("fifo.vhd", ""));
    const WrappingName wrapper(listed);
    const std::uint64_t before = CountOfFileLooks();
    RecordingLog log(0);
    ReportNamesake(listed, file);
    __BinaryLogDiagnosticGroupDefault.SetLevel(1);
    ReportNamesake(listed, listed);
    ReportNamesake(listed, &wrapper);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(CountOfFileLooks() - before, 0u);
}

TEST(MarkLoadedAndTestExists, AsksACallersOwnClass) {
    const WrappingName own(WrappingName::kItself);
    EXPECT_TRUE(MarkLoadedAndTestExists(&own, "key"));
    EXPECT_EQ(own.Calls, "loaded exists ");
    const ISFileName* const handle = Handle("/no/such/file.v");
    const WrappingName wrapper(handle);
    EXPECT_FALSE(MarkLoadedAndTestExists(&wrapper, "key"));
    EXPECT_EQ(wrapper.Calls, "");
    EXPECT_FALSE(handle->IsFileModifiedSinceLastLoaded("key", true));
}

TEST(SFileName, IsNotChangedByWhatChangesAName) {
    auto* const handle = const_cast<ISFileName*>(Handle("/p/fixed.v"));
    handle->FormCanonicalName();
    handle->SetPart(PART_NAME, "other");
    handle->StripParts(PART_EXTENSION);
    handle->Pop();
    handle->PushFileName("other.v");
    handle->PushDirectory("other");
    EXPECT_EQ(handle->Canonical(false), HostForm("/p/fixed.v"));
    EXPECT_EQ(Handle("/p/fixed.v"), handle);
}

TEST(SFileName, ClonesToANameOfItsOwn) {
    const std::unique_ptr<IFileName> clone(Handle("/p/q/a.v")->CloneFileName());
    EXPECT_EQ(clone->Canonical(false), HostForm("/p/q/a.v"));
    clone->SetPart(PART_NAME, "b");
    EXPECT_EQ(clone->Canonical(false), HostForm("/p/q/b.v"));
    clone->SetPart(PART_NAME | PART_EXTENSION, "c.vhd");
    EXPECT_EQ(clone->Canonical(false), HostForm("/p/q/c.vhd"));
    clone->SetPart(PART_DIRECTORY, "D:\\r");
    EXPECT_STREQ(clone->Canonical(false), "D:\\r\\c.vhd");
    clone->SetPart(PART_FOLDERS, "s/t");
    EXPECT_STREQ(clone->Canonical(false), "D:\\s\\t\\c.vhd");
    clone->StripParts(PART_EXTENSION);
    EXPECT_STREQ(clone->Canonical(false), "D:\\s\\t\\c");
    clone->Pop();
    EXPECT_STREQ(clone->Canonical(false), "D:\\s\\t\\");
    clone->PushDirectory("u");
    EXPECT_STREQ(clone->Canonical(false), "D:\\s\\t\\u\\");
    clone->PushFileName("../v/d.v");
    EXPECT_STREQ(clone->Canonical(false), "D:\\s\\t\\v\\d.v");
    clone->PushFileName("E:/e.v");
    EXPECT_STREQ(clone->Canonical(false), "E:\\e.v");
    const std::unique_ptr<IFileName> second(clone->CloneFileName());
    clone->SetPart(PART_ALL, "");
    EXPECT_STREQ(clone->Canonical(false), "");
    EXPECT_FALSE(clone->IsValid());
    EXPECT_STREQ(second->Canonical(false), "E:\\e.v");
    EXPECT_EQ(Handle("/p/q/a.v")->Canonical(false), HostForm("/p/q/a.v"));
}

TEST(SFileName, AsksTheDiskAnew) {
    const TemporaryFolder folder;
    const ISFileName* const file = Handle(folder.Path("a.v"));
    EXPECT_FALSE(file->Exists() || file->IsReadable() || file->IsWritable());
    folder.Write("a.v", "x");
    EXPECT_TRUE(file->Exists() && file->IsReadable() && file->IsWritable());
    EXPECT_TRUE(file->Remove());
    EXPECT_FALSE(file->Exists());
    EXPECT_FALSE(file->Remove());
    const ISFileName* const directory = Handle(folder.Path("sub"));
    EXPECT_EQ(directory->CreateDir(), 0);
    EXPECT_TRUE(directory->Exists());
    EXPECT_EQ(directory->CreateDir(), -1);
    EXPECT_EQ(Handle(folder.Path("no/sub"))->CreateDir(), -1);
    EXPECT_TRUE(directory->Remove());
    EXPECT_FALSE(directory->Exists());
}

TEST(SFileName, FindsFilesOfAnyNameAndLength) {
    const TemporaryFolder folder;
    EXPECT_TRUE(Handle(folder.Write("\xC3\xA9t\xC3\xA9 \xE6\xBC\xA2.v", "x"))->Exists());
    std::string path = folder.Path();
    for (int i = 0; i < 12; ++i) {
        path += HostForm("/") + "a-folder-of-some-length-" + std::to_string(i);
        ASSERT_EQ(Handle(path)->CreateDir(), 0) << path;
    }
    EXPECT_GT(path.size(), 300u);
    EXPECT_TRUE(Handle(path)->Exists());
}

TEST(SFileName, NeverTakesAForeignPathForALocalName) {
    if (kOnWindows) GTEST_SKIP() << "drives are not foreign there";
    const TemporaryFolder folder;
    const WorkingDirectory here(folder.Path());
    std::ofstream("C:\\a.v") << "x";
    ASSERT_TRUE(folder.Exists("C:\\a.v"));
    EXPECT_FALSE(Handle("C:\\a.v")->Exists());
    EXPECT_FALSE(Handle("C:\\a.v")->Remove());
}

TEST(SFileName, FollowsLinksOnlyWhenAsked) {
    const TemporaryFolder folder;
    folder.Write("real/a.v", "x");
    std::error_code error;
    std::filesystem::create_directory_symlink(folder.Path("real"), folder.Path("link"), error);
    if (error) GTEST_SKIP() << "no right to make links: " << error.message();
    const ISFileName* const file = Handle(folder.Path("link/a.v"));
    const auto expected = std::filesystem::canonical(folder.Path("real/a.v")).string();
    EXPECT_EQ(file->Canonical(false), folder.Path("link/a.v"));
    EXPECT_EQ(file->CanonicalWithExpandedLinks(), expected);
    const ISFileName* const directory = Handle(folder.Path("link/"));
    EXPECT_EQ(directory->CanonicalWithExpandedLinks(),
              std::filesystem::canonical(folder.Path("real")).string() + HostForm("/"));
    const ISFileName* const missing = Handle(folder.Path("link/b.v"));
    EXPECT_EQ(missing->CanonicalWithExpandedLinks(), folder.Path("link/b.v"));
}

TEST(SFileName, MakesAVirtualFileReal) {
    const TemporaryFolder folder;
    const std::unique_ptr<IFileName> name(Handle(folder.Path("a.v"))->CloneFileName());
    EXPECT_FALSE(name->IsVirtualFile());
    EXPECT_FALSE(name->ConvertVirtualFileToTempFile());
    name->SetAsVirtualFile();
    EXPECT_TRUE(name->IsVirtualFile());
    EXPECT_FALSE(folder.Exists("a.v"));
    EXPECT_TRUE(name->ConvertVirtualFileToTempFile());
    EXPECT_FALSE(name->IsVirtualFile());
    EXPECT_EQ(folder.Read("a.v"), "");
    folder.Write("a.v", "kept");
    name->SetAsVirtualFile();
    EXPECT_TRUE(name->ConvertVirtualFileToTempFile());
    EXPECT_FALSE(name->IsVirtualFile());
    EXPECT_EQ(folder.Read("a.v"), "kept");
    name->SetAsVirtualFile();
    name->StripVirtualState();
    EXPECT_FALSE(name->IsVirtualFile());
    const std::unique_ptr<IFileName> lost(Handle(folder.Path("no/a.v"))->CloneFileName());
    lost->SetAsVirtualFile();
    EXPECT_FALSE(lost->ConvertVirtualFileToTempFile());
    EXPECT_TRUE(lost->IsVirtualFile());
}

TEST(SFileName, HasItsOperationsInTheirSlots) {
    const std::ptrdiff_t slots[] = {
        SlotOf(&ISFileName::SetDateAndTimeFlag),
        SlotOf(&ISFileName::UpdateTimeFileLastLoaded),
        SlotOf(&ISFileName::UpdateTimeFileLastCompiled),
        SlotOf(&ISFileName::IsFileModifiedSinceLastLoaded),
        SlotOf(&ISFileName::IsFileModifiedSinceLastCompiled),
        SlotOf(&ISFileName::GetLastCompiledTimestamp),
        SlotOf(&ISFileName::IsFileModifiedSinceTimestamp),
        SlotOf(&ISFileName::GetFileModificationTime),
        SlotOf(&ISFileName::CompareModificationTimeTo),
        SlotOf(&ISFileName::IsEquivalent),
        SlotOf(&ISFileName::GetFileName),
    };
    std::ptrdiff_t expected = 0;
    for (const std::ptrdiff_t slot : slots) EXPECT_EQ(slot, ++expected);
    EXPECT_EQ(expected, 11);
}

}  // namespace
