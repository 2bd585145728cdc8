#include "buildfile/hdlbuildfile.h"
#include "services/files/filereplace.h"
#include "services/ini/propcache.h"
#include "services/names/isfilename.h"
#include "settings/hpjfile.h"
#include "settings/projectsimsettings.h"
#include "tests/cli/projecttext.h"
#include "tests/support/processes.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include "tests/torture/savecases.h"
#include "tests/torture/tally.h"
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>

// Loads and saves of a process that may open no more files, or one, or two.

namespace {

constexpr const char* kBuild =
    "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"VHDL\" DestinationLibrary=\"work\">"
    "</HdlBuildFile></HdlBuildFileList>\n";

/// The process may open no more than `count` files besides those that are open, for its lifetime.
class TFewDescriptors {
public:
    explicit TFewDescriptors(rlim_t count) {
        getrlimit(RLIMIT_NOFILE, &Former);
        // The numbers are given away from the lowest on.
        const int next = open("/dev/null", O_RDONLY | O_CLOEXEC);
        close(next);
        const rlimit limit = {static_cast<rlim_t>(next) + count, Former.rlim_max};
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~TFewDescriptors() { setrlimit(RLIMIT_NOFILE, &Former); }
    TFewDescriptors(const TFewDescriptors&) = delete;
    TFewDescriptors& operator=(const TFewDescriptors&) = delete;

private:
    rlimit Former = {};
};

std::ptrdiff_t CountOpen() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::distance(begin(all), end(all));
}

bool LoadBuild(const std::string& path, rlim_t count) {
    const TFewDescriptors few(count);
    const THdlBuildFile build(ISFileName::NewISFileName(path.c_str()));
    return build.HasBuildElement();
}

bool SaveBuild(const std::string& path, rlim_t count) {
    THdlBuildFile build(ISFileName::NewISFileName(path.c_str()));
    build.SetDestinationLibrary("lib");
    const TFewDescriptors few(count);
    return build.WriteToFile();
}

bool LoadProject(const std::string& path, rlim_t count) {
    THpjFile file(ISFileName::NewISFileName(path.c_str()));
    TProjectSimSettings settings;
    const TFewDescriptors few(count);
    return file.Read(&settings) == HPJ_FILE_DONE;
}

bool SaveProject(const std::string& path, rlim_t count) {
    THpjFile file(ISFileName::NewISFileName(path.c_str()));
    TProjectSimSettings settings;
    if (file.Read(&settings) != HPJ_FILE_DONE) return false;
    settings.GetConfiguration("Default")->GetGeneralConfiguration()->SetLogFileName("new.log");
    const TFewDescriptors few(count);
    return file.Save(&settings) == HPJ_FILE_DONE;
}

bool SaveIni(const std::string& path, rlim_t count) {
    // Its end would try again what failed.
    TPropCache& cache = *new TPropCache(path.c_str(), nullptr);
    cache.WritePrivatePropString("a", "b", "d");
    const TFewDescriptors few(count);
    return cache.Flush();
}

bool IsWrongReason = false;

/// Always false.
bool Told(const std::string& reason) {
    IsWrongReason = reason != "Too many open files";
    return false;
}

bool LoadBytes(const std::string& path, rlim_t count) {
    const TFewDescriptors few(count);
    std::string bytes;
    std::string reason;
    if (ReadWholeFile(path.c_str(), &bytes, &reason) == FILE_READ_DONE) return true;
    return Told(reason);
}

bool SaveBytes(const std::string& path, rlim_t count) {
    const TFewDescriptors few(count);
    std::string reason;
    if (ReplaceWholeFile(path.c_str(), "new", &reason)) return true;
    return Told(reason);
}

bool BackUp(const std::string& path, rlim_t count) {
    const TFewDescriptors few(count);
    std::string reason;
    return KeepBackup(path.c_str(), &reason) || Told(reason);
}

struct TAction {
    const char* Label;
    bool (*Do)(const std::string& path, rlim_t count);
    std::string Bytes;
    bool IsSave;
};

const TAction kActions[] = {
    {"a build file is read", LoadBuild, kBuild, false},
    {"a build file is saved", SaveBuild, kBuild, true},
    {"a project file is read", LoadProject, ProjectText(), false},
    {"a project file is saved", SaveProject, ProjectText(), true},
    {"an INI file is saved", SaveIni, "[a]\nb=c\n", true},
    {"bytes are read", LoadBytes, "old", false},
    {"bytes are saved", SaveBytes, "old", true},
    {"a backup is made", BackUp, "old", false},
};

enum TEnd : int { END_DONE, END_FAILED, END_LEAKS, END_NEVER_AGAIN, END_WRONG_REASON };

/// In a process of its own: the files that a failure leaves open would be lost for good.
TEnd EndOf(const TAction& action, const std::string& path, rlim_t count) {
    const pid_t child = fork();
    if (child == 0) {
        const RecordingLog log;
        action.Do(path + ".other", 100);  // what is opened once
        const std::ptrdiff_t before = CountOpen();
        const bool isDone = action.Do(path, count);
        if (IsWrongReason) _exit(END_WRONG_REASON);
        if (CountOpen() != before) _exit(END_LEAKS);
        if (!isDone) _exit(action.Do(path + ".other", 100) ? END_FAILED : END_NEVER_AGAIN);
        _exit(END_DONE);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return static_cast<TEnd>(WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status));
}

/// What a program needs more than the loader: the number of files until a save works.
constexpr int kMostFiles = 24;

}  // namespace

TEST(Descriptors, AreMissedWithoutLossByTheLibrary) {
    // It asks by a pipe whether an object is one of its class, and without a descriptor says no.
    if (kHasAddressSanitizer) GTEST_SKIP() << "the sanitizer needs descriptors";
    TTally tally("few descriptors: library");
    for (const TAction& action : kActions) {
        bool isDone = false;
        for (rlim_t count = 0; count < kMostFiles && !isDone; ++count) {
            const TemporaryFolder folder;
            const std::string path = folder.Write("file", action.Bytes);
            folder.Write("file.other", action.Bytes);
            const TEnd end = EndOf(action, path, count);
            isDone = end == END_DONE;
            const bool isOld = folder.Read("file") == action.Bytes;
            const bool isRight = isDone ? isOld != action.IsSave : end == END_FAILED && isOld;
            EXPECT_TRUE(tally.Count(isRight))
                << action.Label << " with " << count << " more: " << end << folder.Read("file");
            const std::string list = folder.List();
            EXPECT_EQ(list.substr(0, 5), "file\n") << action.Label << " leaves\n" << list;
            EXPECT_FALSE(count == 0 && isDone) << action.Label;
        }
        EXPECT_TRUE(isDone) << action.Label;
    }
}

TEST(Descriptors, AreMissedWithoutLossByTheTool) {
    TTally tally("few descriptors: tool");
    std::vector<TSaveCase> cases = SaveCases();
    if (WhyNoRun().empty()) cases.push_back(ReportCase());
    for (const TSaveCase& save : cases) {
        TSavePlace place(save);
        ASSERT_TRUE(place.Saves()) << save.Label;
        int status = 1;
        // With fewer the loader fails.
        for (int count = static_cast<int>(OfTorture(4, 0)); count < kMostFiles && status != 0;
             ++count) {
            place.Restore();
            status = place.Run("prlimit --nofile=" + std::to_string(count));
            const bool isIni = save.Label == std::string("INI file of the library");
            const bool isTold = status == 0 || status == 127 || isIni || !place.Errors().empty();
            const bool isRight = status <= 127 && isTold && place.IsAsTold(status) &&
                                 place.IsCleanBeside() && place.SavesAgain();
            EXPECT_TRUE(tally.Count(isRight))
                << save.Label << " with " << count << ": " << status << "\n"
                << place.Errors() << place.List();
        }
        EXPECT_EQ(status, 0) << save.Label;
    }
}
