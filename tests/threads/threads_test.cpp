#include "services/files/directories.h"
#include "services/logging/binarylog.h"
#include "services/logging/messagebox.h"
#include "tests/threads/work.h"
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <tbb/global_control.h>
#include <thread>
#include <vector>

namespace {

constexpr int kThreads = 8;

// Each round does them all; every thread begins at another one.
constexpr TWork kWorks[] = {
    ReadAndOrderABuild,       EditAndSaveABuild, CopyABuild,
    ReplaceABrokenBuildFile,  AskForNames,       RecordTimes,
    RenameListedFiles,        ExpandVariables,   FailACheck,
    SaveAProjectFile,         SaveToTheIniFile,  SaveSimulators,
    SaveTheCommonProjectFile, AskForOptionTexts, SetTheHomeDirectory,
    EditADocumentInPlace,     ScanABuild,        ExportAndImport,
};

/// How long the threads work: the environment tells, else half a second.
std::chrono::duration<double> Duration() {
    const char* const seconds = std::getenv("HDLBUILDFILE_THREADS_SECONDS");
    return std::chrono::duration<double>(seconds ? std::atof(seconds) : 0.5);
}

/// Takes log and message box for its lifetime and counts the complaints that every round
/// makes.
class TCounts : public IBinaryLogSink, public IMessageBox {
public:
    TCounts()
        : FormerSink(TBinaryLogFile::GetInstance()->SetSink(this)),
          FormerBox(Fileservices::SetMessageBox(this)) {}
    ~TCounts() override {
        Fileservices::SetMessageBox(FormerBox);
        TBinaryLogFile::GetInstance()->SetSink(FormerSink);
    }
    // The log's lock is held.
    void Log(const char*, const char* source, int) override {
        if (std::string(source) == "hdbsfilename") ++FailedChecks;
    }
    void ShowMessage(const char*, const char* caption, int) override {
        if (std::string(caption) == "Cannot read file") ++UnreadFiles;
    }

    int FailedChecks = 0;
    std::atomic<int> UnreadFiles = 0;

private:
    IBinaryLogSink* FormerSink;
    IMessageBox* FormerBox;
};

/// Works until the time is over, one round at least; the number of rounds.
int Work(int thread, const TemporaryFolder& shared, std::chrono::steady_clock::time_point end) {
    const TemporaryFolder own;
    TWorkPlace place{shared, own, thread};
    do {
        for (std::size_t i = 0; i < std::size(kWorks); ++i)
            kWorks[(i + static_cast<std::size_t>(thread)) % std::size(kWorks)](place);
        ++place.Round;
    } while (std::chrono::steady_clock::now() < end && !testing::Test::HasFailure());
    return place.Round;
}

}  // namespace

TEST(Threads, WorkOnModelsOfTheirOwnAtTheSameTime) {
    // The thread sanitizer does not see how TBB hands work to threads of its own: each thread scans
    // its sources itself.
    const tbb::global_control alone(tbb::global_control::max_allowed_parallelism, 1);
    const TemporaryFolder shared;
    const TemporaryFolder data;
    for (int i = 0; i < kSharedSources; i += 2) shared.Write(SharedSource(i), "source");
    SetTalveraAppDataDirectory(data.Path().c_str());
    TCounts counts;
    std::atomic<int> rounds = 0;
    const auto end = std::chrono::steady_clock::now() +
                     std::chrono::duration_cast<std::chrono::nanoseconds>(Duration());
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] { rounds += Work(i, shared, end); });
    for (std::thread& thread : threads) thread.join();
    SetTalveraAppDataDirectory(nullptr);
    EXPECT_EQ(counts.FailedChecks, rounds);
    EXPECT_EQ(counts.UnreadFiles, rounds);
    RecordProperty("rounds", rounds);
}
