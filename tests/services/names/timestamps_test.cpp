#include "services/names/timestamps.h"
#include "services/files/filestatus.h"
#include "services/names/isfilename.h"
#include "services/names/recordedstatus.h"
#include "tests/services/names/hostform.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>
#ifdef _WIN32
#include <windows.h>
#else
#include <chrono>
#endif

namespace {

/// A file of known content and time, and its handle.
class TimedFile {
public:
    TimedFile()
        : Path(Folder.Write("a.v", "some text")), Name(ISFileName::NewISFileName(Path.c_str())) {
        SetTime(kStart);
    }
    void Write(const std::string& bytes) { Folder.Write("a.v", bytes); }
    /// Nanoseconds after the beginning of 2020.
    void SetTime(std::int64_t nanoseconds) {
#ifdef _WIN32
        // The standard library of this compiler sets whole seconds only there.
        constexpr std::int64_t kSecondsFrom1601 = 11'644'473'600;
        const auto steps = static_cast<std::uint64_t>(
            (kSecondsTo2020 + kSecondsFrom1601) * 10'000'000 + nanoseconds / 100);
        const FILETIME time = {static_cast<DWORD>(steps), static_cast<DWORD>(steps >> 32U)};
        const HANDLE file = CreateFileW(Native().c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                        OPEN_EXISTING, 0, nullptr);
        SetFileTime(file, nullptr, nullptr, &time);
        CloseHandle(file);
#else
        using namespace std::chrono;
        const sys_time<std::chrono::nanoseconds> time(seconds(kSecondsTo2020) +
                                                      std::chrono::nanoseconds(nanoseconds));
        std::filesystem::last_write_time(Native(), file_clock::from_sys(time));
#endif
    }
    void Remove() {
        std::filesystem::remove(Native());
    }

    static constexpr std::int64_t kSecondsTo2020 = 1'577'836'800;
    static constexpr std::int64_t kStart = 1'000;

    TemporaryFolder Folder;
    std::string Path;
    const ISFileName* Name;

private:
    std::filesystem::path Native() const {
        return std::filesystem::path(std::u8string(Path.begin(), Path.end()));
    }
};

TEST(TimeStamps, TellEveryChangeSinceLoading) {
    const struct {
        const char* Label;
        void (*Change)(TimedFile&);
        bool IsModified;
    } rows[] = {
        {"nothing", [](TimedFile&) {}, false},
        {"newer", [](TimedFile& file) { file.SetTime(3'000'000'000); }, true},
        {"older", [](TimedFile& file) { file.SetTime(-5'000'000'000); }, true},
        {"within the same second", [](TimedFile& file) { file.SetTime(TimedFile::kStart + 500); },
         true},
        {"same time, other size",
         [](TimedFile& file) {
             file.Write("some text more");
             file.SetTime(TimedFile::kStart);
         },
         true},
        {"same time, same size",
         [](TimedFile& file) {
             file.Write("SOME TEXT");
             file.SetTime(TimedFile::kStart);
         },
         false},
        {"gone", [](TimedFile& file) { file.Remove(); }, true},
    };
    for (const auto& row : rows) {
        TimedFile file;
        file.Name->UpdateTimeFileLastLoaded("key");
        row.Change(file);
        EXPECT_EQ(file.Name->IsFileModifiedSinceLastLoaded("key", !row.IsModified), row.IsModified)
            << row.Label;
        EXPECT_EQ(file.Name->IsFileModifiedSinceLastCompiled("key", !row.IsModified),
                  row.IsModified)
            << row.Label << ", never compiled";
    }
}

// Programs around the library pass the text itself.
TEST(TimeStamps, HaveADefaultKeyThatStays) {
    EXPECT_STREQ(kDefaultTimeStampKey, "DEFAULT_TIME_STAMP_KEY");
}

TEST(TimeStamps, TellAFileThatCameLater) {
    TimedFile file;
    file.Remove();
    file.Name->UpdateTimeFileLastLoaded("key");
    EXPECT_FALSE(file.Name->IsFileModifiedSinceLastLoaded("key", true));
    file.Write("here");
    EXPECT_TRUE(file.Name->IsFileModifiedSinceLastLoaded("key", false));
}

TEST(TimeStamps, AnswerTheGivenBoolWithoutARecord) {
    const TimedFile file;
    for (const bool whenUnknown : {false, true}) {
        EXPECT_EQ(file.Name->IsFileModifiedSinceLastLoaded("key", whenUnknown), whenUnknown);
        EXPECT_EQ(file.Name->IsFileModifiedSinceLastCompiled("key", whenUnknown), whenUnknown);
    }
    file.Name->UpdateTimeFileLastCompiled("key");
    EXPECT_TRUE(file.Name->IsFileModifiedSinceLastLoaded("key", true));
    EXPECT_FALSE(file.Name->IsFileModifiedSinceLastCompiled("key", true));
}

TEST(TimeStamps, KeepLoadedAndCompiledApart) {
    TimedFile file;
    file.Name->UpdateTimeFileLastLoaded("key");
    file.SetTime(3'000'000'000);
    file.Name->UpdateTimeFileLastCompiled("key");
    EXPECT_TRUE(file.Name->IsFileModifiedSinceLastLoaded("key", false));
    EXPECT_FALSE(file.Name->IsFileModifiedSinceLastCompiled("key", true));
    file.SetTime(TimedFile::kStart);
    EXPECT_FALSE(file.Name->IsFileModifiedSinceLastLoaded("key", true));
    EXPECT_TRUE(file.Name->IsFileModifiedSinceLastCompiled("key", false));
    file.Name->SetDateAndTimeFlag("key");
    EXPECT_FALSE(file.Name->IsFileModifiedSinceLastLoaded("key", true));
    EXPECT_FALSE(file.Name->IsFileModifiedSinceLastCompiled("key", true));
}

TEST(TimeStamps, KeepKeysApart) {
    TimedFile file;
    file.Name->UpdateTimeFileLastLoaded(nullptr);
    file.SetTime(3'000'000'000);
    file.Name->UpdateTimeFileLastLoaded("second");
    EXPECT_TRUE(file.Name->IsFileModifiedSinceLastLoaded("", false));
    EXPECT_TRUE(file.Name->IsFileModifiedSinceLastLoaded(nullptr, false));
    EXPECT_FALSE(file.Name->IsFileModifiedSinceLastLoaded("second", true));
    EXPECT_TRUE(file.Name->IsFileModifiedSinceLastLoaded("third", true));
}

TEST(TimeStamps, AreSharedByAllWhoNameTheFile) {
    const TimedFile file;
    const std::string again = file.Folder.Path("x") + HostForm("/../a.v");
    ISFileName::NewISFileName(again.c_str())->UpdateTimeFileLastCompiled("key");
    EXPECT_FALSE(file.Name->IsFileModifiedSinceLastCompiled("key", true));
}

TEST(TimeStamps, AreSharedByAllSpellingsOnlyWhereCaseMakesNoDifference) {
    const TimedFile file;
    const std::string upper = file.Folder.Path("A.V");
    ISFileName::NewISFileName(upper.c_str())->UpdateTimeFileLastLoaded("key");
    EXPECT_EQ(file.Name->IsFileModifiedSinceLastLoaded("key", true), !kOnWindows);
}

TEST(TimeStamps, PassTimesAsOneWord) {
    TimedFile file;
    const bool isWide = sizeof(unsigned long) == 8;
    const auto seconds = static_cast<unsigned long>(TimedFile::kSecondsTo2020);
    const unsigned long expected =
        isWide ? static_cast<unsigned long>(TimedFile::kSecondsTo2020 * 1'000'000'000 + 1'000)
               : seconds;
    unsigned long guarded[3] = {11, 0, 33};
    EXPECT_EQ(file.Name->GetFileModificationTime(&guarded[1]), expected);
    EXPECT_EQ(guarded[1], expected);
    EXPECT_EQ(file.Name->GetFileModificationTime(nullptr), expected);
    EXPECT_EQ(file.Name->GetLastCompiledTimestamp(&guarded[1]), 0u);
    EXPECT_EQ(guarded[1], 0u);
    file.Name->UpdateTimeFileLastCompiled("any key");
    file.SetTime(9'000'000'000);
    EXPECT_EQ(file.Name->GetLastCompiledTimestamp(&guarded[1]), expected);
    EXPECT_EQ(guarded[1], expected);
    EXPECT_EQ(file.Name->GetLastCompiledTimestamp(nullptr), expected);
    EXPECT_EQ(guarded[0], 11u);
    EXPECT_EQ(guarded[2], 33u);
    file.Remove();
    EXPECT_EQ(file.Name->GetFileModificationTime(&guarded[1]), 0u);
    EXPECT_EQ(guarded[1], 0u);
}

TEST(TimeStamps, CompareWithTimesOfTheCaller) {
    TimedFile file;
    unsigned long time = file.Name->GetFileModificationTime(nullptr);
    EXPECT_FALSE(file.Name->IsFileModifiedSinceTimestamp(&time));
    EXPECT_TRUE(file.Name->IsFileModifiedSinceTimestamp(nullptr));
    EXPECT_TRUE(file.Name->CompareModificationTimeTo(time, 0));
    EXPECT_FALSE(file.Name->CompareModificationTimeTo(time, 1));
    EXPECT_FALSE(file.Name->CompareModificationTimeTo(time + 1, 0));
    file.SetTime(-5'000'000'000);
    EXPECT_TRUE(file.Name->IsFileModifiedSinceTimestamp(&time));
    EXPECT_FALSE(file.Name->CompareModificationTimeTo(time, 0));
    file.Remove();
    time = 0;
    EXPECT_FALSE(file.Name->IsFileModifiedSinceTimestamp(&time));
    EXPECT_TRUE(file.Name->CompareModificationTimeTo(0, 0));
}

TEST(TimeStamps, NeverTakeAFileOfTime0ForAMissingOne) {
    TimedFile file;
    file.SetTime(-TimedFile::kSecondsTo2020 * 1'000'000'000);
    EXPECT_EQ(file.Name->GetFileModificationTime(nullptr), 1u);
}

class RecordingObserver : public ASFileNameObserver {
public:
    void FileNameChanged(const ISFileName* file) override {
        Heard += file->ShortName(false) + std::string(" ");
    }
    std::string Heard;
};

TEST(TimeStamps, TellObserversOfEachRecord) {
    const TimedFile file;
    RecordingObserver observer;
    file.Name->AddObserver(&observer);
    file.Name->UpdateTimeFileLastLoaded("key");
    file.Name->UpdateTimeFileLastCompiled("key");
    file.Name->SetDateAndTimeFlag("key");
    MarkLoadedAndTestExists(file.Name, "key");
    file.Name->IsFileModifiedSinceLastLoaded("key", true);
    file.Name->DeleteObserver(&observer);
    file.Name->UpdateTimeFileLastLoaded("key");
    EXPECT_EQ(observer.Heard, "a.v a.v a.v a.v ");
}

TEST(FileLooks, AreNeverNeededToMakeHandles) {
    const TimedFile file;
    const std::uint64_t before = CountOfFileLooks();
    for (int i = 0; i < 100; ++i) {
        const std::string path = file.Folder.Path("f" + std::to_string(i) + ".v");
        GetFileIdentity(ISFileName::NewISFileName(path.c_str()));
    }
    file.Name->GetPathOnly();
    file.Name->GetFileNameRelativeTo("/", nullptr);
    EXPECT_EQ(CountOfFileLooks() - before, 0u);
}

TEST(FileLooks, AreOneForMarkingAndTesting) {
    const TimedFile file;
    const std::uint64_t before = CountOfFileLooks();
    EXPECT_TRUE(MarkLoadedAndTestExists(file.Name, "key"));
    EXPECT_EQ(CountOfFileLooks() - before, 1u);
    EXPECT_FALSE(file.Name->IsFileModifiedSinceLastLoaded("key", true));
    EXPECT_EQ(CountOfFileLooks() - before, 2u);
    EXPECT_TRUE(file.Name->Exists());
    EXPECT_EQ(CountOfFileLooks() - before, 3u);
    file.Name->SetDateAndTimeFlag("key");
    EXPECT_EQ(CountOfFileLooks() - before, 4u);
}

TEST(MarkLoadedAndTestExists, RecordsAMissingFile) {
    TimedFile file;
    file.Remove();
    EXPECT_FALSE(MarkLoadedAndTestExists(file.Name, "key"));
    EXPECT_FALSE(file.Name->IsFileModifiedSinceLastLoaded("key", true));
    file.Write("here");
    EXPECT_TRUE(file.Name->IsFileModifiedSinceLastLoaded("key", false));
    EXPECT_FALSE(MarkLoadedAndTestExists(nullptr, "key"));
    EXPECT_FALSE(MarkLoadedAndTestExists(ISFileName::BlankFileName, "key"));
}

TEST(FileStamps, KeepKindsAndKeysApart) {
    static auto& stamps = *new TFileStamps;  // what is recorded stays until the process ends
    const auto sizeOf = [&](TFileStamps::TKind kind, const char* key) {
        const auto status = stamps.Find(kind, key);
        return status ? status->Size : -1;
    };
    EXPECT_EQ(sizeOf(TFileStamps::LOADED, "a"), -1);
    EXPECT_FALSE(stamps.FindLastCompiled());
    TFileStatus status;
    const auto record = [&](TFileStamps::TKind kind, const char* key, int size) {
        status.Size = size;
        stamps.Record(kind, key, status);
    };
    record(TFileStamps::LOADED, "a", 1);
    EXPECT_FALSE(stamps.FindLastCompiled()) << "loaded is not compiled";
    record(TFileStamps::COMPILED, "a", 2);
    record(TFileStamps::COMPILED, "b", 3);
    record(TFileStamps::LOADED, "b", 4);
    EXPECT_EQ(stamps.FindLastCompiled()->Size, 3);
    record(TFileStamps::COMPILED, std::string("a").c_str(), 5);
    EXPECT_EQ(sizeOf(TFileStamps::LOADED, "a"), 1);
    EXPECT_EQ(sizeOf(TFileStamps::COMPILED, std::string("a").c_str()), 5);
    EXPECT_EQ(sizeOf(TFileStamps::COMPILED, "b"), 3);
    EXPECT_EQ(sizeOf(TFileStamps::LOADED, "b"), 4);
    EXPECT_EQ(sizeOf(TFileStamps::LOADED, "c"), -1);
    EXPECT_EQ(stamps.FindLastCompiled()->Size, 5);
}

TEST(FileStamps, GiveBackWhatTellsAFileFromItsLaterSelf) {
    static auto& stamps = *new TFileStamps;  // what is recorded stays until the process ends
    for (const bool exists : {true, false}) {
        const TFileStatus status{exists, false, 7, 9};
        stamps.Record(TFileStamps::LOADED, "key", status);
        EXPECT_TRUE(*stamps.Find(TFileStamps::LOADED, "key") == status);
        EXPECT_FALSE(*stamps.Find(TFileStamps::LOADED, "key") ==
                     (TFileStatus{!exists, false, 7, 9}));
        EXPECT_FALSE(*stamps.Find(TFileStamps::LOADED, "key") ==
                     (TFileStatus{exists, false, 8, 9}));
    }
}

}  // namespace

TEST(FindStatusWhenLoaded, TellsWhatWasThereWithoutALook) {
    TimedFile file;
    const ISFileName* folder = ISFileName::NewISFileName(file.Folder.Path().c_str());
    EXPECT_EQ(FindStatusWhenLoaded(file.Name, "key"), std::nullopt);
    file.Name->UpdateTimeFileLastLoaded("key");
    folder->UpdateTimeFileLastLoaded("key");
    file.Remove();
    const std::uint64_t before = CountOfFileLooks();
    const auto status = FindStatusWhenLoaded(file.Name, "key");
    ASSERT_TRUE(status);
    EXPECT_TRUE(status->Exists);
    EXPECT_FALSE(status->IsDirectory);
    EXPECT_EQ(status->Size, 9);
    EXPECT_TRUE(FindStatusWhenLoaded(folder, "key").value_or(TFileStatus()).IsDirectory);
    EXPECT_EQ(FindStatusWhenLoaded(file.Name, "other"), std::nullopt);
    EXPECT_EQ(FindStatusWhenLoaded(nullptr, "key"), std::nullopt);
    EXPECT_EQ(CountOfFileLooks() - before, 0u);
    file.Name->UpdateTimeFileLastLoaded("key");
    EXPECT_FALSE(FindStatusWhenLoaded(file.Name, "key").value_or(*status).Exists);
}

TEST(RecordsTrusted, SpareTheLookAtWhatIsRecorded) {
    TimedFile file;
    TimedFile other;
    EXPECT_TRUE(MarkLoadedAndTestExists(file.Name, "key"));
    file.Remove();
    {
        const TRecordsTrusted trusted;
        const std::uint64_t before = CountOfFileLooks();
        {
            const TRecordsTrusted inner;
            EXPECT_TRUE(MarkLoadedAndTestExists(file.Name, "key"));
        }
        EXPECT_TRUE(MarkLoadedAndTestExists(file.Name, "key"));
        EXPECT_EQ(CountOfFileLooks() - before, 0u);
        EXPECT_FALSE(MarkLoadedAndTestExists(file.Name, "other"));
        EXPECT_TRUE(MarkLoadedAndTestExists(other.Name, "key"));
        EXPECT_EQ(CountOfFileLooks() - before, 2u);
    }
    EXPECT_FALSE(MarkLoadedAndTestExists(file.Name, "key"));
}
