#include "services/files/filesave.h"
#include "services/base/fold.h"
#include "services/files/filereplace.h"
#include "tests/services/names/hostform.h"
#include "tests/support/lockfilename.h"
#include "tests/support/memoryfilesystem.h"
#include <gtest/gtest.h>
#include <thread>

namespace {

constexpr const char* kPath = "/p/a.xml";
const TFileResult kBroken = {TFileFault::Other, "the disk is broken"};

/// What a save of `kPath` answered: "done" or the reason.
std::string Saved(const char* bytes = "new bytes") {
    std::string reason = "no reason";
    return SaveFile(HostForm(kPath), bytes, "", &reason) ? "done" : reason;
}

/// What a save of `kPath` in parts answered.
std::string SavedInParts(const std::vector<std::string_view>& parts) {
    TFileSave save(HostForm(kPath), "");
    for (const std::string_view part : parts) save.Write(part);
    return save.Finish() ? "done" : save.GetReason();
}

std::string Lines(const std::vector<std::string>& words) {
    std::string lines;
    for (const std::string& word : words) lines += word + "\n";
    return lines;
}

/// The steps of a save between those that lock the file and those that let it go.
std::string Locked(const std::string& steps) {
    return "ReadLink\nOpenLock\nLock\nCheckNames\n" + steps + "Remove\nClose\n";
}

/// The name of a temporary file of `name` in /p/, as a process of that mark makes it.
std::string TemporaryOf(const std::string& name, const std::string& mark) {
    return "/p/.hdlbuildfile-" + std::to_string(HashIgnoringCase(name)) + "-" + mark +
           "-1000-7.tmp";
}

/// The situations that a save can find, and what the disk then holds before and after it.
struct TScene {
    const char* Label;
    void (*Make)(MemoryFileSystem&);
    const char* Written;  // the file that is written
    const char* Old;      // its bytes
    const char* Before;
    const char* After;
    const char* Folder;  // of the file that is written
    const char* Name;
    int Failures;  // how many steps, failing, make the save fail
};

const TScene kScenes[] = {
    {"a file", [](MemoryFileSystem& disk) { disk.Put(kPath, "old bytes"); }, kPath, "old bytes",
     "/p/a.xml\n", "/p/a.xml\n", "/p/", "a.xml", 14},
    {"no file", [](MemoryFileSystem& disk) { disk.PutFolder("/p"); }, kPath, "<missing>", "",
     "/p/a.xml\n", "/p/", "a.xml", 13},
    {"a link",
     [](MemoryFileSystem& disk) {
         disk.Put("/q/real.xml", "old bytes");
         disk.PutLink(kPath, "/q/real.xml");
     },
     "/q/real.xml", "old bytes", "/p/a.xml -> /q/real.xml\n/q/real.xml\n",
     "/p/a.xml -> /q/real.xml\n/q/real.xml\n", "/q/", "real.xml", 15},
    {"a link to nothing",
     [](MemoryFileSystem& disk) {
         disk.PutFolder("/q");
         disk.PutLink(kPath, "/q/real.xml");
     },
     "/q/real.xml", "<missing>", "/p/a.xml -> /q/real.xml\n",
     "/p/a.xml -> /q/real.xml\n/q/real.xml\n", "/q/", "real.xml", 14},
};

}  // namespace

TEST(FileSave, TakesTheSameStepsEveryTime) {
    MemoryFileSystem disk;
    disk.PutFolder("/p");
    EXPECT_EQ(Saved(), "done");
    EXPECT_EQ(Lines(disk.GetOperations()),
              Locked("CheckReplaceable\nListFolder\nCreate\nWrite\nFlush\nClose\nRename\n"
                     "FlushFolder\n"));
    disk.Mend();
    EXPECT_EQ(Saved("newer bytes"), "done");
    EXPECT_EQ(Lines(disk.GetOperations()),
              Locked("CheckReplaceable\nListFolder\nCreate\nWrite\nTakeOver\nFlush\nClose\n"
                     "Link\nRename\nFlushFolder\nRemove\n"));
    EXPECT_EQ(disk.Text(kPath), "newer bytes");
    EXPECT_EQ(disk.List(), "/p/a.xml\n");
}

TEST(FileSave, WritesPartAfterPart) {
    const std::vector<std::string_view> parts = {"new ", "", "bytes", " at last"};
    MemoryFileSystem disk;
    disk.PutFolder("/p");
    EXPECT_EQ(SavedInParts(parts), "done");
    EXPECT_EQ(Lines(disk.GetOperations()),
              Locked("CheckReplaceable\nListFolder\nCreate\nWrite\nWrite\nWrite\nFlush\n"
                     "Close\nRename\nFlushFolder\n"));
    EXPECT_EQ(disk.Text(kPath), "new bytes at last");
    disk.Put(kPath, "old");
    disk.Mend();
    disk.FailAt(9, kBroken);
    EXPECT_EQ(SavedInParts(parts), "the disk is broken");
    EXPECT_EQ(Lines(disk.GetOperations()),
              Locked("CheckReplaceable\nListFolder\nCreate\nWrite\nWrite\nClose\nRemove\n"));
    EXPECT_EQ(disk.Text(kPath), "old");
    EXPECT_EQ(disk.List(), "/p/a.xml\n");
}

TEST(FileSave, KeepsTheOldFileWhicheverStepFails) {
    for (const TScene& scene : kScenes) {
        int failures = 0;
        for (int number = 1;; ++number) {
            MemoryFileSystem disk;
            disk.MostBytesAtOnce = 4;
            scene.Make(disk);
            disk.FailAt(number, kBroken);
            const std::string answer = Saved();
            if (static_cast<int>(disk.GetOperations().size()) < number) break;
            const std::string label = std::string(scene.Label) + ", step " +
                                      std::to_string(number) + " of\n" +
                                      Lines(disk.GetOperations());
            const bool isDone = answer == "done";
            const std::string failed = disk.GetOperations()[static_cast<std::size_t>(number) - 1];
            const bool failedToLock = failed == "Lock" || failed == "CheckNames";
            if (!isDone) {
                ++failures;
                EXPECT_EQ(answer, "the disk is broken") << label;
            }
            EXPECT_EQ(disk.Text(scene.Written), isDone ? "new bytes" : scene.Old) << label;
            disk.Mend();
            // A lock file that could not be locked means nothing, and stays.
            if (failedToLock) {
                EXPECT_TRUE(disk.Remove(scene.Folder + LockFileName(scene.Name)).IsDone()) << label;
            }
            EXPECT_EQ(disk.List(), isDone ? scene.After : scene.Before) << label;
        }
        EXPECT_EQ(failures, scene.Failures) << scene.Label;
    }
}

// As when the process is killed or the disk goes away: nothing can be tidied up any more.
TEST(FileSave, LeavesAWholeFileWhenNothingWorksFromAStepOn) {
    for (const TScene& scene : kScenes) {
        for (int number = 1;; ++number) {
            MemoryFileSystem disk;
            disk.MostBytesAtOnce = 4;
            scene.Make(disk);
            disk.FailAt(number, kBroken, true);
            Saved();
            if (static_cast<int>(disk.GetOperations().size()) < number) break;
            const std::string label =
                std::string(scene.Label) + ", from step " + std::to_string(number) + " on";
            const std::string text = disk.Text(scene.Written);
            EXPECT_TRUE(text == scene.Old || text == "new bytes") << label << ": " << text;
            disk.GoneMarks = {disk.Mark};
            disk.Mark = "here.2";
            disk.Mend();
            EXPECT_EQ(Saved("newest"), "done") << label;
            EXPECT_EQ(disk.Text(scene.Written), "newest") << label;
            EXPECT_EQ(disk.List(), scene.After) << label;
        }
    }
}

TEST(FileSave, RemovesOnlyWhatNobodyWillFinish) {
    MemoryFileSystem disk;
    disk.Put(kPath, "old");
    disk.GoneMarks = {"here.0"};
    disk.Put(TemporaryOf("a.xml", "here.0"), "of a process that is gone");
    disk.Put(TemporaryOf("a.xml", "here.1"), "of this process, whose save has ended");
    const std::string kept[] = {
        disk.Put(TemporaryOf("a.xml", "here.3"), "of a process that is there"),
        disk.Put(TemporaryOf("a.xml", "there.0"), "of another machine's"),
        disk.Put(TemporaryOf("b.xml", "here.0"), "of another file"),
        disk.Put("/p/.hdlbuildfile-here.0.tmp", "of nobody"),
        disk.Put(TemporaryOf("a.xml", "here.0") + "x", "of another kind"),
    };
    EXPECT_EQ(Saved(), "done");
    std::set<std::string> expected = {"/p/a.xml\n"};
    for (const std::string& path : kept) expected.insert(path + "\n");
    std::string lines;
    for (const std::string& line : expected) lines += line;
    EXPECT_EQ(disk.List(), lines);
}

TEST(FileSave, NeverPutsAFileInThePlaceOfALinkThatItCannotRead) {
    MemoryFileSystem disk;
    disk.Put("/q/real.xml", "old");
    disk.PutLink(kPath, "/q/real.xml");
    disk.FailAt(1, {TFileFault::Other, "Input/output error"});
    EXPECT_EQ(Saved(), "Input/output error");
    EXPECT_EQ(disk.List(), "/p/a.xml -> /q/real.xml\n/q/real.xml\n");
    EXPECT_EQ(disk.Text("/q/real.xml"), "old");
}

TEST(FileSave, GivesUpOnAFileThatTakesNoBytes) {
    MemoryFileSystem disk;
    disk.Put(kPath, "old");
    disk.MostBytesAtOnce = 0;
    EXPECT_EQ(Saved(), "the file takes no more bytes");
    EXPECT_EQ(disk.Text(kPath), "old");
    EXPECT_EQ(disk.List(), "/p/a.xml\n");
}

TEST(FileSave, TakesOverTheRightsOfTheOldFile) {
    MemoryFileSystem disk;
    disk.Put(kPath, "old");
    disk.SetRights(kPath, "of the team");
    EXPECT_EQ(Saved(), "done");
    EXPECT_EQ(disk.GetRights(kPath), "of the team");
    ASSERT_TRUE(KeepBackup(HostForm(kPath).c_str(), nullptr));
    EXPECT_EQ(disk.GetRights("/p/a.xml.bak"), "of the team");
    EXPECT_TRUE(SaveFile(HostForm("/p/b.xml"), "b", "", nullptr));
    EXPECT_EQ(disk.GetRights("/p/b.xml"), "ordinary");
}

TEST(FileSave, TriesAnotherNameWhenTheTemporaryOneIsTaken) {
    MemoryFileSystem disk;
    disk.PutFolder("/p");
    disk.FailAt(7, {TFileFault::NameTaken, "taken"});
    EXPECT_EQ(Saved(), "done");
    EXPECT_EQ(Lines(disk.GetOperations()),
              Locked("CheckReplaceable\nListFolder\nCreate\nCreate\nWrite\nFlush\nClose\n"
                     "Rename\nFlushFolder\n"));
}

TEST(FileSave, KeepsAFileThatMayNotBeReplaced) {
    MemoryFileSystem disk;
    disk.Put(kPath, "old");
    disk.Protect(kPath);
    EXPECT_EQ(Saved(), "write-protected");
    EXPECT_EQ(disk.Text(kPath), "old");
    disk.PutLink("/p/a", "/p/b");
    disk.PutLink("/p/b", "/p/a");
    std::string reason;
    EXPECT_FALSE(SaveFile(HostForm("/p/a"), "new", "", &reason));
    EXPECT_EQ(reason, "Too many levels of symbolic links");
    EXPECT_FALSE(SaveFile(HostForm("/p/a"), "new", "", nullptr));
}

TEST(FileSave, LeavesTheTemporaryFileOfAnotherThreadsSave) {
    /// Knows no locks, and saves the same file once more while the first save waits for it.
    class TWaitingDisk : public MemoryFileSystem {
    public:
        TFileResult Lock(TFileNumber) override { return {TFileFault::Unsupported, "no locks"}; }
        TFileResult Flush(TFileNumber file) override {
            if (!IsWaiting) {
                IsWaiting = true;
                std::thread([this] { Second = Saved("second"); }).join();
                SeenBetween = Text(kPath);
            }
            return MemoryFileSystem::Flush(file);
        }
        bool IsWaiting = false;
        std::string Second;
        std::string SeenBetween;
    };
    TWaitingDisk disk;
    disk.Put(kPath, "old");
    EXPECT_EQ(Saved("first"), "done");
    EXPECT_EQ(disk.Second, "done");
    EXPECT_EQ(disk.SeenBetween, "second");
    EXPECT_EQ(disk.Text(kPath), "first");
    EXPECT_EQ(disk.List(), "/p/a.xml\n");
}
