#include "services/ini/propcache.h"
#include "services/files/directories.h"
#include "services/files/filelock.h"
#include "services/ini/inifilenames.h"
#include "tests/support/filesizelimit.h"
#include "tests/support/growth.h"
#include "tests/support/lockfilename.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

namespace {

/// What GetPrivatePropString writes into a buffer of `size` bytes filled with '?', and its result.
std::string Buffered(const TPropCache& cache, const char* section, const char* key,
                     const char* missing, int size) {
    std::string buffer(static_cast<std::size_t>(size) + 2, '?');
    const bool found = cache.GetPrivatePropString(section, key, missing, buffer.data(), size);
    EXPECT_EQ(buffer.substr(static_cast<std::size_t>(size)), "??") << "written beyond the end";
    return std::string(buffer.c_str()) + (found ? " found" : " missing");
}

/// Shows, for a process of its own, what the user's file holds after its end.
[[noreturn]] void WriteAPropertyAndEnd() {
    static const TemporaryFolder folder;
    // What is registered first runs last.
    std::atexit([] {
        auto saved = folder.Read("user.ini");
        std::replace(saved.begin(), saved.end(), '\n', ';');
        std::fprintf(stderr, "saved: %s\n", saved.c_str());
    });
    SetIniFile(folder.Path("user.ini").c_str());
    GetSystemPropCache()->WritePrivatePropString("A", "k", "v");
    std::exit(0);
}

}  // namespace

TEST(PropCache, ReadsTheUsersFileFirstThenTheSystems) {
    const MemoryFolder folder;
    const auto user = folder.Write("user.ini", "[A]\nboth=user\nuser=1\nempty=\n");
    const auto system =
        folder.Write("system.ini", "[A]\nboth=system\nsystem=2\nempty=full\n[B]\nb=3\n");
    const TPropCache cache(user.c_str(), system.c_str());
    EXPECT_EQ(cache.GetPrivatePropText("A", "both", "-"), "user");
    EXPECT_EQ(cache.GetPrivatePropText("A", "user", "-"), "1");
    EXPECT_EQ(cache.GetPrivatePropText("A", "system", "-"), "2");
    EXPECT_EQ(cache.GetPrivatePropText("A", "empty", "-"), "");
    EXPECT_EQ(cache.GetPrivatePropText("B", "b", "-"), "3");
    EXPECT_EQ(cache.GetPrivatePropText("B", "c", "-"), "-");
    EXPECT_EQ(cache.GetPrivatePropText("a", "both", "-"), "-");
    EXPECT_EQ(cache.GetPrivatePropText("A", "Both", "-"), "-");
    EXPECT_TRUE(cache.HasPrivateProp("A", "empty"));
    EXPECT_FALSE(cache.HasPrivateProp("A", "none"));
}

TEST(PropCache, TakesNothingFromAFileThatIsNoText) {
    RecordingLog log(1);
    const MemoryFolder folder;
    const auto user = folder.Write("user.ini", std::string("[A]\nk=v\n\0", 9));
    const TPropCache cache(user.c_str(), nullptr);
    EXPECT_EQ(cache.GetPrivatePropText("A", "k", "-"), "-");
    EXPECT_EQ(log.Take(), "Cannot read \"" + user + "\": it is not a text file\n");
}

TEST(PropCache, LosesNothingWhicheverStepOfASaveFails) {
    const std::string before = "[A]\nk=v\n";
    const std::string after = "[A]\nk=v\nl=w\n";
    const std::string path = HostForm("/p/user.ini");
    int failures = 0;
    for (int number = 1;; ++number) {
        RecordingLog log;
        MemoryFileSystem disk;
        disk.Put("/p/user.ini", before);
        TPropCache cache(path.c_str(), nullptr);
        cache.WritePrivatePropString("A", "l", "w");
        disk.FailAt(number, {TFileFault::Other, "broken"});
        const bool isSaved = cache.Flush();
        if (static_cast<int>(disk.GetOperations().size()) < number) break;
        const std::string label = disk.GetOperations()[static_cast<std::size_t>(number) - 1];
        EXPECT_EQ(disk.Text("/p/user.ini"), isSaved ? after : before) << label;
        EXPECT_EQ(log.Take().empty(), isSaved) << label;
        disk.Mend();
        EXPECT_TRUE(cache.Flush()) << label;
        EXPECT_EQ(disk.Text("/p/user.ini"), after) << label;
        failures += isSaved ? 0 : 1;
    }
    EXPECT_EQ(failures, 14);
}

TEST(PropCache, KeepsItsChangesWhileTheFileIsLocked) {
    RecordingLog log;
    MemoryFileSystem disk;
    const std::string path = HostForm(disk.Put("/p/user.ini", "[A]\nk=v\n"));
    TPropCache cache(path.c_str(), nullptr);
    cache.WritePrivatePropString("A", "k", "w");
    {
        const TFileLock lock(path.c_str());
        std::thread([&] { EXPECT_FALSE(cache.Flush()); }).join();
        EXPECT_EQ(log.Take(), "Cannot write \"" + path + "\": " +
                                  LockedReason(HostForm("/p/" + LockFileName("user.ini"))) + "\n");
        disk.Put("/p/user.ini", "[A]\nk=v\nl=of another\n");
    }
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(disk.Text("/p/user.ini"), "[A]\nk=w\nl=of another\n");
    EXPECT_EQ(cache.GetPrivatePropText("A", "l", "-"), "of another");
    EXPECT_EQ(log.Take(), "");
}

TEST(PropCache, IsLockedFromTheReadingOfASaveToItsEnd) {
    /// Another program saves as soon as the file was read, if it can.
    class TBusyDisk : public MemoryFileSystem {
    public:
        TFileResult Read(const std::string& path, std::uint64_t limit,
                         std::string* bytes) override {
            const TFileResult result = MemoryFileSystem::Read(path, limit, bytes);
            std::thread([&] {
                Answers += TFileLock(path.c_str()).IsHeld() ? "free " : "locked ";
            }).join();
            return result;
        }
        std::string Answers;
    };
    TBusyDisk disk;
    TPropCache cache(HostForm(disk.Put("/p/user.ini", "[A]\nk=v\n")).c_str(), nullptr);
    cache.WritePrivatePropString("A", "k", "w");
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(disk.Answers, "free locked ");
}

TEST(PropCache, MakesNothingForKeysThatAreGone) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("user.ini", "[A]\nk=v\n");
    TPropCache cache(path.c_str(), nullptr);
    std::filesystem::remove(path);
    cache.DeletePrivateProp("A", "k");
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(folder.List(), "");
    EXPECT_EQ(cache.GetPrivatePropText("A", "k", "-"), "-");
}

TEST(PropCache, LeavesAFileAloneThatHoldsAllAlready) {
    const TemporaryFolder folder;
    const auto user = folder.Write("user.ini", "[A]\nk=v\n");
    const auto old = std::filesystem::last_write_time(user) - std::chrono::hours(1);
    std::filesystem::last_write_time(user, old);
    TPropCache cache(user.c_str(), nullptr);
    cache.WritePrivatePropString("A", "k", "w");
    cache.WritePrivatePropString("A", "k", "v");
    EXPECT_TRUE(cache.Flush());
    EXPECT_TRUE(std::filesystem::last_write_time(user) == old);
}

TEST(PropCache, WorksWithoutFiles) {
    RecordingLog log(1);
    {
        TPropCache cache(nullptr, "");
        EXPECT_FALSE(cache.HasPrivateProp("A", "k"));
        cache.WritePrivatePropString("A", "k", "v");
        EXPECT_EQ(cache.GetPrivatePropText("A", "k", "-"), "v");
        EXPECT_TRUE(cache.Flush());
        EXPECT_EQ(cache.GetPrivatePropText("A", "k", "-"), "v");
    }
    EXPECT_EQ(log.Take(), "");
}

TEST(PropCache, TakesNullsAsEmpty) {
    TPropCache cache(nullptr, nullptr);
    EXPECT_EQ(cache.GetPrivatePropText(nullptr, nullptr, nullptr), "");
    cache.WritePrivatePropString(nullptr, nullptr, "v");
    EXPECT_EQ(cache.GetPrivatePropText("", "", "-"), "v");
    EXPECT_FALSE(cache.GetPrivatePropString("A", "k", "-", nullptr, 5));
}

TEST(PropCache, FillsTheBufferAndTellsWhetherTheKeyExists) {
    TPropCache cache(nullptr, nullptr);
    cache.WritePrivatePropString("A", "k", "value");
    cache.WritePrivatePropString("A", "empty", "");
    EXPECT_EQ(Buffered(cache, "A", "k", "-", 316), "value found");
    EXPECT_EQ(Buffered(cache, "A", "empty", "-", 316), " found");
    EXPECT_EQ(Buffered(cache, "A", "none", "default", 316), "default missing");
    EXPECT_EQ(Buffered(cache, "A", "none", nullptr, 316), " missing");
    EXPECT_EQ(Buffered(cache, "A", "none", "default", 4), "def missing");
    EXPECT_EQ(Buffered(cache, "A", "k", "-", 1), " found");
    EXPECT_EQ(Buffered(cache, "A", "k", "-", 0), "?? found");
    EXPECT_EQ(Buffered(cache, "A", "none", "-", 0), "?? missing");
}

TEST(PropCache, CutsAtAWholeCharacterAndLogsIt) {
    const std::string umlaut = "\xC3\xA4";
    const std::string euro = "\xE2\x82\xAC";
    const std::string clef = "\xF0\x9D\x84\x9E";
    struct Row {
        const char* label;
        std::string value;
        std::size_t kept;
    };
    const Row rows[] = {
        {"fits", std::string(315, 'a'), 315},
        {"one byte too long", std::string(316, 'a'), 315},
        {"character fits", std::string(313, 'a') + umlaut, 315},
        {"before two bytes", std::string(314, 'a') + umlaut, 314},
        {"before three bytes", std::string(313, 'a') + euro, 313},
        {"before four bytes", std::string(312, 'a') + clef, 312},
        {"after four bytes", std::string(311, 'a') + clef + "b", 315},
        {"not UTF-8", std::string(400, '\xA4'), 315},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        RecordingLog log(1);
        TPropCache cache(nullptr, nullptr);
        cache.WritePrivatePropString("A section", "a key", row.value.c_str());
        EXPECT_EQ(Buffered(cache, "A section", "a key", "-", 316),
                  row.value.substr(0, row.kept) + " found");
        EXPECT_EQ(log.Take(), row.kept == row.value.size() ? ""
                                                           : "[Default] INI value cut, section "
                                                             "\"A section\", key \"a key\"\n");
        EXPECT_EQ(cache.GetPrivatePropText("A section", "a key", "-"), row.value);
    }
}

TEST(PropCache, LeavesTheWholeValueAloneWhenTheCutOneIsWrittenBack) {
    const MemoryFolder folder;
    const std::string whole = std::string(400, 'a');
    const auto user = folder.Write("user.ini", "[A]\nk=" + whole + "\n");
    TPropCache cache(user.c_str(), nullptr);
    char buffer[316];
    cache.GetPrivatePropString("A", "k", "", buffer, sizeof buffer);
    cache.WritePrivatePropString("A", "k", buffer);
    EXPECT_EQ(cache.GetPrivatePropText("A", "k", "-"), whole);
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(folder.Read("user.ini"), "[A]\nk=" + whole + "\n");

    const std::string edited = std::string(buffer) + "b";
    cache.WritePrivatePropString("A", "k", edited.c_str());
    EXPECT_EQ(cache.GetPrivatePropText("A", "k", "-"), edited);
    cache.WritePrivatePropString("A", "k", buffer);
    EXPECT_EQ(cache.GetPrivatePropText("A", "k", "-"), buffer) << "nothing was cut since";
}

TEST(PropCache, ReadsBooleansAndNumbers) {
    struct Row {
        const char* value;
        bool asBool;
        int asInt;
    };
    const Row rows[] = {
        {"true", true, 0},
        {"false", false, 0},
        {"1", true, 1},
        {"", false, 0},
        {"42", false, 42},
        {" -7 ", false, -7},
        {"+5", false, 5},
        {"+-5", false, 0},
        {"12abc", false, 12},
        {"abc", false, 0},
        {"YES", true, 0},
        {"0x10", false, 0},
        {"99999999999", false, 2147483647},
        {"2147483647", false, 2147483647},
        {"-99999999999", false, -2147483647 - 1},
        {"3.9", false, 3},
        {"-", false, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        TPropCache cache(nullptr, nullptr);
        cache.WritePrivatePropString("A", "k", row.value);
        EXPECT_EQ(cache.GetPrivatePropBool("A", "k", !row.asBool), row.asBool);
        EXPECT_EQ(cache.GetPrivatePropInt("A", "k", -99), row.asInt);
    }
    const TPropCache empty(nullptr, nullptr);
    EXPECT_TRUE(empty.GetPrivatePropBool("A", "k", true));
    EXPECT_FALSE(empty.GetPrivatePropBool("A", "k", false));
    EXPECT_EQ(empty.GetPrivatePropInt("A", "k", -99), -99);
}

TEST(PropCache, WritesReachReadsAtOnceAndTheUsersFileOnFlush) {
    const MemoryFolder folder;
    const auto user = folder.Path("new/folder/user.ini");
    const auto system = folder.Write("system.ini", "[A]\nk=system\n");
    TPropCache cache(user.c_str(), system.c_str());
    cache.WritePrivatePropString("A", "k", "mine");
    cache.WritePrivatePropBool("A", "on", true);
    cache.WritePrivatePropBool("A", "off", false);
    cache.WritePrivatePropString("A", "linker", " /dll ");
    EXPECT_EQ(cache.GetPrivatePropText("A", "k", "-"), "mine");
    EXPECT_EQ(folder.Read("new/folder/user.ini"), "<missing>");
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(folder.Read("new/folder/user.ini"),
              "[A]\nk=mine\non=true\noff=false\nlinker=\" /dll \"\n");
    EXPECT_EQ(folder.Read("system.ini"), "[A]\nk=system\n");
    EXPECT_EQ(cache.GetPrivatePropText("A", "linker", "-"), " /dll ");
}

TEST(PropCache, SavesWhenDestroyedAndReadsBack) {
    const MemoryFolder folder;
    const auto user = folder.Path("user.ini");
    const std::vector<std::string> values{"",
                                          " ",
                                          "a=b",
                                          "; c",
                                          "\"q\"",
                                          "\"",
                                          "gr\xC3\xB6\xC3\x9F"
                                          "e",
                                          "\t",
                                          "[x]"};
    {
        TPropCache cache(user.c_str(), nullptr);
        for (const auto& value : values)
            cache.WritePrivatePropString("A", ("key " + value).c_str(), value.c_str());
    }
    const TPropCache cache(user.c_str(), nullptr);
    for (const auto& value : values)
        EXPECT_EQ(cache.GetPrivatePropText("A", ("key " + value).c_str(), "<absent>"), value);
}

TEST(PropCache, StoresLineEndsAsBlanksAndLogsIt) {
    struct Row {
        const char* value;
        const char* stored;
    };
    const Row rows[] = {{"a\nb", "a b"},    {"a\r\nb", "a b"},  {"a\rb", "a b"},
                        {"a\n\nb", "a  b"}, {"a\n\rb", "a  b"}, {"\na", " a"}};
    for (const auto& row : rows) {
        RecordingLog log;
        TPropCache cache(nullptr, nullptr);
        cache.WritePrivatePropString("A", "k", row.value);
        EXPECT_EQ(cache.GetPrivatePropText("A", "k", "-"), row.stored);
        EXPECT_EQ(log.Take(),
                  "INI value stored with blanks for line ends, section \"A\", key \"k\"\n");
    }
}

TEST(PropCache, DeletesKeysOfTheUsersFile) {
    const MemoryFolder folder;
    const auto user = folder.Write("user.ini", "[A]\nk=1\nl=2\nm=3\n");
    const auto system = folder.Write("system.ini", "[A]\nm=system\n");
    TPropCache cache(user.c_str(), system.c_str());
    cache.WritePrivatePropString("A", "k", nullptr);
    cache.DeletePrivateProp("A", "m");
    cache.DeletePrivateProp("A", "absent");
    cache.WritePrivatePropString("A", "new", "4");
    cache.DeletePrivateProp("A", "new");
    EXPECT_FALSE(cache.HasPrivateProp("A", "k"));
    EXPECT_FALSE(cache.HasPrivateProp("A", "new"));
    EXPECT_EQ(cache.GetPrivatePropText("A", "m", "-"), "system");
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(folder.Read("user.ini"), "[A]\nl=2\n");
    EXPECT_FALSE(cache.HasPrivateProp("A", "k"));
    cache.WritePrivatePropString("A", "k", "back");
    EXPECT_EQ(cache.GetPrivatePropText("A", "k", "-"), "back");
}

TEST(PropCache, ListsTheKeysOfASectionInBothFilesAndTheChanges) {
    using TKeys = std::vector<std::string>;
    const MemoryFolder folder;
    const auto user = folder.Write("user.ini", "[A]\nb=1\ngone=1\nb=2\n[B]\nx=1\n");
    const auto system = folder.Write("system.ini", "[A]\nb=1\na=1\n");
    TPropCache cache(user.c_str(), system.c_str());
    cache.WritePrivatePropString("A", "c=d", "1");
    cache.WritePrivatePropString("A", ";e", "1");
    cache.WritePrivatePropString("A", "b", "3");
    cache.WritePrivatePropString("C", "y", "1");
    cache.DeletePrivateProp("A", "gone");
    const TKeys expected{";e", "a", "b", "c=d"};
    EXPECT_EQ(cache.GetPrivatePropKeys("A"), expected);
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(cache.GetPrivatePropKeys("A"), expected);
    EXPECT_EQ(cache.GetPrivatePropKeys("C"), TKeys{"y"});
    EXPECT_EQ(cache.GetPrivatePropKeys("a"), TKeys{});
    EXPECT_EQ(cache.GetPrivatePropKeys(nullptr), TKeys{});
}

TEST(PropCache, MergesIntoAFileChangedMeanwhile) {
    const MemoryFolder folder;
    const auto user = folder.Write("user.ini", "[A]\nmine=1\ntheirs=1\nsame=1\ngone=1\n");
    TPropCache cache(user.c_str(), nullptr);
    cache.WritePrivatePropString("A", "mine", "2");
    cache.WritePrivatePropString("A", "same", "1");
    cache.WritePrivatePropString("B", "new", "2");
    folder.Write("user.ini",
                 "; by another\n[Z]\nz=0\n\n[A]\ntheirs=3\nmine=3\nsame=3\n\n[B]\nother=3\n");
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(folder.Read("user.ini"),
              "; by another\n[Z]\nz=0\n\n[A]\ntheirs=3\nmine=2\nsame=3\n\n[B]\nother=3\nnew=2\n");
    EXPECT_EQ(cache.GetPrivatePropText("A", "theirs", "-"), "3");
    EXPECT_EQ(cache.GetPrivatePropText("A", "gone", "-"), "-");
}

TEST(PropCache, SavesAChangeOnce) {
    const MemoryFolder folder;
    const auto user = folder.Path("user.ini");
    TPropCache cache(user.c_str(), nullptr);
    cache.WritePrivatePropString("A", "k", "mine");
    EXPECT_TRUE(cache.Flush());
    folder.Write("user.ini", "[A]\nk=theirs\n");
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(folder.Read("user.ini"), "[A]\nk=theirs\n");
    cache.WritePrivatePropString("A", "l", "mine");
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(folder.Read("user.ini"), "[A]\nk=theirs\nl=mine\n");
}

TEST(PropCache, KeepsForeignContentByteForByte) {
    const MemoryFolder folder;
    const std::string head =
        "\xEF\xBB\xBF# Latin-1: \xE4\r\nstray\r\n\r\n[ Other ]\r\n  a = 1 ; c\r\n[broken\r\n";
    const auto user = folder.Write("user.ini", head + "[A]\r\nk=1");
    TPropCache cache(user.c_str(), nullptr);
    cache.WritePrivatePropString("A", "k", "2");
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(folder.Read("user.ini"), head + "[A]\r\nk=2");
}

TEST(PropCache, WritesNothingWithoutAChange) {
    const MemoryFolder folder;
    const auto user = folder.Path("user.ini");
    TPropCache cache(user.c_str(), nullptr);
    cache.DeletePrivateProp("A", "k");
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(folder.List(), "");
}

TEST(PropCache, LogsAnUnwritableFileAndKeepsTheChanges) {
    const TemporaryFolder folder;
    folder.Write("blocked", "a file where the directory should be");
    const auto user = folder.Path("blocked/user.ini");
    TPropCache cache(user.c_str(), nullptr);
    cache.WritePrivatePropString("A", "k", "v");
    RecordingLog log;
    EXPECT_FALSE(cache.Flush());
    EXPECT_EQ(log.Take(), "Cannot write \"" + user + "\": its directory cannot be made\n");
    EXPECT_EQ(cache.GetPrivatePropText("A", "k", "-"), "v");

    std::filesystem::remove(std::filesystem::u8path(folder.Path("blocked")));
    EXPECT_TRUE(cache.Flush());
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(folder.Read("blocked/user.ini"), "[A]\nk=v\n");
}

TEST(PropCache, NeverMergesIntoAFileThatIsNoText) {
    const MemoryFolder folder;
    const std::string utf16("\xFF\xFE[\0A\0]\0", 8);
    const auto user = folder.Write("user.ini", utf16);
    const std::string complaint = "Cannot read \"" + user + "\": it is not a text file\n";
    RecordingLog log;
    TPropCache cache(user.c_str(), nullptr);
    EXPECT_EQ(log.Take(), complaint);
    cache.WritePrivatePropString("A", "k", "v");
    EXPECT_FALSE(cache.Flush());
    EXPECT_EQ(log.Take(), complaint);
    EXPECT_EQ(folder.Read("user.ini"), utf16);
    folder.Write("user.ini", "");
    EXPECT_TRUE(cache.Flush());
}

TEST(PropCache, NeverReadsNorMergesAFileBeyondTheLimit) {
    const MemoryFolder folder;
    const auto user = folder.Write("user.ini", "[A]\nk=1\n");
    const std::string fault = "Cannot read \"" + user + "\": too large\n";
    RecordingLog log;
    {
        const FileSizeLimit limit(7);
        TPropCache cache(user.c_str(), nullptr);
        EXPECT_EQ(log.Take(), fault);
        cache.WritePrivatePropString("A", "k", "2");
        EXPECT_FALSE(cache.Flush());
        EXPECT_EQ(log.Take(), fault);
        EXPECT_EQ(folder.Read("user.ini"), "[A]\nk=1\n");
        const FileSizeLimit enough(8);
        EXPECT_TRUE(cache.Flush());
    }
    EXPECT_EQ(folder.Read("user.ini"), "[A]\nk=2\n");
}

TEST(PropCache, TellsWhichFileCouldNotBeRead) {
    const RecordingLog log;
    const TemporaryFolder folder;
    const std::string text = folder.Write("text.ini", "[A]\nk=v\n");
    const std::string utf16 = folder.Write("utf16.ini", std::string("\xFF\xFE[\0A\0]\0", 8));
    const std::string missing = folder.Path("missing.ini");
    const struct {
        const char* Label;
        std::string User, System, File;
        const char* Reason;
    } rows[] = {
        {"both read", text, text, "", ""},
        {"both missing", missing, missing, "", ""},
        {"no paths", "", "", "", ""},
        {"user's", utf16, text, utf16, "it is not a text file"},
        {"system's", text, utf16, utf16, "it is not a text file"},
    };
    for (const auto& row : rows) {
        const TPropCache cache(row.User.c_str(), row.System.c_str());
        EXPECT_EQ(cache.GetReadError().File, row.File) << row.Label;
        EXPECT_EQ(cache.GetReadError().Reason, row.Reason) << row.Label;
    }
    // What the reason is, the host says.
    const TPropCache folderInPlace(folder.Path().c_str(), text.c_str());
    EXPECT_EQ(folderInPlace.GetReadError().File, folder.Path());
    EXPECT_NE(folderInPlace.GetReadError().Reason, "");
    EXPECT_EQ(folderInPlace.GetPrivatePropText("A", "k", "-"), "v");
}

TEST(PropCache, TakesLinearTimeForManyKeys) {
    const auto writeTwiceAndRead = [](int keys) {
        const MemoryFolder folder;
        const auto user = folder.Path("user.ini");
        for (int round = 0; round < 2; ++round) {
            TPropCache cache(user.c_str(), nullptr);
            for (int i = 0; i < keys; ++i) {
                const auto number = std::to_string(i);
                const auto section = "Section " + std::to_string(i % (i < 1000 ? 1000 : 7));
                cache.WritePrivatePropString(section.c_str(), number.c_str(),
                                             std::to_string(i + round).c_str());
            }
        }
        const TPropCache cache(user.c_str(), nullptr);
        const int last = keys - 1;
        EXPECT_EQ(cache.GetPrivatePropInt(("Section " + std::to_string(last % 7)).c_str(),
                                          std::to_string(last).c_str(), -1),
                  keys);
    };
    EXPECT_LT(GrowthOf(writeTwiceAndRead, 25000), kLargestLinearGrowth);
}

TEST(SystemPropCache, StandsOverTheEnvironmentsTwoIniFiles) {
    const MemoryFolder folder;
    SetIniFile(folder.Write("user.ini", "[A]\nk=user\n").c_str());
    SetSystemIniFile(folder.Write("system.ini", "[A]\nk=system\nl=system\n").c_str());
    EXPECT_EQ(GetSystemPropCache(), GetSystemPropCache());
    EXPECT_EQ(GetSystemPropCache()->GetPrivatePropText("A", "k", "-"), "user");
    EXPECT_EQ(GetSystemPropCache()->GetPrivatePropText("A", "l", "-"), "system");
    GetSystemPropCache()->WritePrivatePropString("A", "l", "changed");
    ResetSystemPropCache();
    EXPECT_EQ(folder.Read("user.ini"), "[A]\nk=user\nl=changed\n");
    folder.Write("user.ini", "[A]\nk=anew\n");
    EXPECT_EQ(GetSystemPropCache()->GetPrivatePropText("A", "k", "-"), "anew");

    GetSystemPropCache()->WritePrivatePropString("A", "k", "first file");
    SetIniFile(folder.Path("other.ini").c_str());
    EXPECT_EQ(folder.Read("user.ini"), "[A]\nk=first file\n");
    EXPECT_EQ(GetSystemPropCache()->GetPrivatePropText("A", "k", "-"), "system");
    SetIniFile(nullptr);
    SetSystemIniFile(nullptr);
}

TEST(SystemPropCacheDeathTest, SavesWhenTheProcessEnds) {
    EXPECT_EXIT(WriteAPropertyAndEnd(), testing::ExitedWithCode(0), "saved: .A.;k=v;");
}

TEST(SystemPropCache, StaysInItsPlaceWhenItIsDropped) {
    const MemoryFolder folder;
    SetIniFile(folder.Write("user.ini", "[A]\nk=1\n").c_str());
    TPropCache* const cache = GetSystemPropCache();
    ResetSystemPropCache();
    // As another thread would that got the cache before.
    cache->WritePrivatePropString("A", "l", "2");
    SetIniFile(folder.Path("other.ini").c_str());
    EXPECT_EQ(folder.Read("user.ini"), "[A]\nk=1\nl=2\n");
    EXPECT_EQ(GetSystemPropCache(), cache);
    EXPECT_EQ(cache->GetPrivatePropText("A", "l", "-"), "-");
    SetIniFile(nullptr);
}

TEST(SystemPropCache, LosesWhatCouldNotBeSavedWhenItIsDropped) {
    RecordingLog log;
    const MemoryFolder folder;
    const std::string path = folder.Write("user.ini", std::string("[A]\0", 4));
    SetIniFile(path.c_str());
    GetSystemPropCache()->WritePrivatePropString("A", "k", "lost");
    const std::string line = "Cannot read \"" + path + "\": it is not a text file\n";
    EXPECT_EQ(log.Take(), line);
    ResetSystemPropCache();
    EXPECT_EQ(log.Take(), line);
    folder.Write("user.ini", "[A]\n");
    EXPECT_EQ(GetSystemPropCache()->GetPrivatePropText("A", "k", "-"), "-");
    SetIniFile(nullptr);
    EXPECT_EQ(log.Take(), "");
}

TEST(SystemPropCache, ReadsTheFilesThatWereSetLastWhoeverReadsMeanwhile) {
    const TemporaryFolder folder;
    const std::string paths[] = {folder.Write("0.ini", "[A]\nk=0\n"),
                                 folder.Write("1.ini", "[A]\nk=1\n")};
    std::atomic<bool> isOver = false;
    std::thread reader([&isOver] {
        while (!isOver) (void)GetSystemPropCache();
    });
    int stale = 0;
    for (std::size_t i = 0; i < 2000; ++i) {
        SetIniFile(paths[i % 2].c_str());
        if (GetSystemPropCache()->GetPrivatePropText("A", "k", "-") != std::to_string(i % 2))
            ++stale;
    }
    isOver = true;
    reader.join();
    SetIniFile(nullptr);
    EXPECT_EQ(stale, 0);
}
