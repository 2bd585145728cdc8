#include "services/logging/binarylog.h"
#include "services/files/directories.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <atomic>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

namespace {

/// Records the address of each text it is handed.
class AddressLog : public IBinaryLogSink {
public:
    AddressLog() : Former(TBinaryLogFile::GetInstance()->SetSink(this)) {}
    ~AddressLog() override { TBinaryLogFile::GetInstance()->SetSink(Former); }
    void Log(const char* text, const char*, int) override { Addresses.push_back(text); }
    std::vector<const char*> Addresses;

private:
    IBinaryLogSink* Former;
};

/// While a line is logged, lets another thread try to take the log's lock.
class LockTryingLog : public IBinaryLogSink {
public:
    LockTryingLog() : Former(TBinaryLogFile::GetInstance()->SetSink(this)) {}
    ~LockTryingLog() override {
        Other.join();
        TBinaryLogFile::GetInstance()->SetSink(Former);
    }
    void Log(const char*, const char*, int) override {
        Other = std::thread([this] {
            gBinaryLogMessageLoggingMutex.Acquire();
            Entered = true;
            gBinaryLogMessageLoggingMutex.Release();
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        EnteredDuringLog = Entered;
    }
    std::atomic<bool> Entered = false;
    bool EnteredDuringLog = true;

private:
    IBinaryLogSink* Former;
    std::thread Other;
};

/// The built-in log in a folder of the test's own.
class BuiltInLog {
public:
    explicit BuiltInLog(const std::string& directory) {
        SetTalveraAppDataDirectory(directory.c_str());
        Former = TBinaryLogFile::GetInstance()->SetSink(nullptr);
    }
    ~BuiltInLog() {
        TBinaryLogFile::GetInstance()->SetSink(Former);
        SetTalveraAppDataDirectory(nullptr);
        __BinaryLogDiagnosticGroupDefault.SetLevel(0);
    }
    BuiltInLog(const BuiltInLog&) = delete;
    BuiltInLog& operator=(const BuiltInLog&) = delete;

private:
    IBinaryLogSink* Former;
};

}  // namespace

TEST(CheckSite, QuotesTheConditionAndEscapesQuotesInIt) {
    struct Row {
        const char* condition;
        const char* logged;
    };
    const Row rows[] = {
        {"FileName", "Check failed: \"FileName\""},
        {"", "Check failed: \"\""},
        {"false && \"Invalid Simulator\"", "Check failed: \"false && \\\"Invalid Simulator\\\"\""},
        {"path == \"C:\\a\"", "Check failed: \"path == \\\"C:\\a\\\"\""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.condition);
        RecordingLog log;
        TCheckSite site(row.condition, "projectsettings", 44);
        site.Report();
        EXPECT_EQ(log.Take(), std::string("projectsettings(44): ") + row.logged + "\n");
    }
}

TEST(CheckSite, LogsEveryFailureButMakesItsMessageOnce) {
    AddressLog log;
    static TCheckSite site("simSetting", "projectsettings", 12);
    static TCheckSite otherSite("simSetting", "projectsettings", 12);
    site.Report();
    site.Report();
    otherSite.Report();
    ASSERT_EQ(log.Addresses.size(), 3u);
    EXPECT_EQ(log.Addresses[0], log.Addresses[1]);
    EXPECT_NE(log.Addresses[0], log.Addresses[2]);
    EXPECT_STREQ(log.Addresses[2], "Check failed: \"simSetting\"");
}

TEST(CheckSite, ReportsWithDiagnosticsTurnedOff) {
    RecordingLog log(0);
    TCheckSite site("false", "hdbsfilename", 20);
    site.Report();
    EXPECT_EQ(log.Take(), "hdbsfilename(20): Check failed: \"false\"\n");
}

TEST(CheckSite, HoldsTheLogsLockWhileLogging) {
    LockTryingLog log;
    TCheckSite site("false", "hdbsfilename", 20);
    site.Report();
    EXPECT_FALSE(log.EnteredDuringLog);
}

TEST(CheckSite, MakesItsMessageUnderTheLogsLock) {
    RecordingLog log;
    char condition[] = "before";
    TCheckSite site(condition, "hdbsfilename", 20);
    gBinaryLogMessageLoggingMutex.Acquire();
    std::thread reporting([&site] { site.Report(); });
    // Time enough for a message that is made without waiting for the lock.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    std::strcpy(condition, "locked");
    gBinaryLogMessageLoggingMutex.Release();
    reporting.join();
    EXPECT_EQ(log.Take(), "hdbsfilename(20): Check failed: \"locked\"\n");
}

TEST(CheckSite, MakesOneMessageForManyThreads) {
    AddressLog log;
    TCheckSite site("simSetting", "projectsettings", 12);
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) threads.emplace_back([&site] { site.Report(); });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(log.Addresses, std::vector<const char*>(8, log.Addresses.at(0)));
}

TEST(BinaryLogMessage, CopiesItsTexts) {
    RecordingLog log;
    std::string text = "Check failed: \"list\"";
    std::string source = "hdlprojectfile";
    gBinaryLogMessageLoggingMutex.Acquire();
    const TBinaryLogMessage* message = AllocateBinaryLogMessage(text.c_str(), source.c_str(), 609);
    text.assign(text.size(), 'x');
    source.assign(source.size(), 'x');
    LogBinaryLogMessage(TBinaryLogFile::GetInstance(), message);
    gBinaryLogMessageLoggingMutex.Release();
    EXPECT_EQ(log.Take(), "hdlprojectfile(609): Check failed: \"list\"\n");
}

TEST(BinaryLogMessage, TakesNullsAsNothing) {
    RecordingLog log;
    gBinaryLogMessageLoggingMutex.Acquire();
    LogBinaryLogMessage(nullptr, AllocateBinaryLogMessage("text", "source", 1));
    LogBinaryLogMessage(TBinaryLogFile::GetInstance(), nullptr);
    LogBinaryLogMessage(TBinaryLogFile::GetInstance(),
                        AllocateBinaryLogMessage(nullptr, nullptr, 1));
    gBinaryLogMessageLoggingMutex.Release();
    EXPECT_EQ(log.Take(), "\n");
}

TEST(BinaryLogFile, GivesBackTheSinkReplaced) {
    RecordingLog first;
    {
        RecordingLog second;
        EXPECT_EQ(TBinaryLogFile::GetInstance()->SetSink(&first), &second);
        EXPECT_EQ(TBinaryLogFile::GetInstance()->SetSink(nullptr), &first);
        EXPECT_EQ(TBinaryLogFile::GetInstance()->SetSink(&second), nullptr);
    }
    EXPECT_EQ(TBinaryLogFile::GetInstance()->SetSink(&first), &first);
}

TEST(Diagnostics, AreWrittenFromLevelOneOnly) {
    struct Row {
        int level;
        const char* logged;
    };
    const Row rows[] = {
        {-1, ""}, {0, ""}, {1, "plain\none a\ntwo a b\n"}, {2, "plain\none a\ntwo a b\n"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.level);
        RecordingLog log(row.level);
        LogDiagnostic("plain");
        LogDiagnostic(TBinaryLogMessageOneArg("one %1%", "a"));
        LogDiagnostic(TBinaryLogMessageTwoArgs("two %1% %2%", "a", "b"));
        EXPECT_EQ(log.Take(), row.logged);
    }
}

TEST(Diagnostics, AreOffAtFirst) {
    EXPECT_FALSE(TBinaryLogDiagnosticGroup().IsEnabled(1));
}

TEST(Diagnostics, FillPlacesOnceAndLeaveArgumentsAlone) {
    struct Row {
        const char* label;
        const char* text;
        const char* first;
        const char* second;
        const char* filled;
    };
    const Row rows[] = {
        {"both", "a %1%, b %2%", "1", "2", "a 1, b 2"},
        {"repeated and reversed", "%2%%1%%2%", "1", "2", "212"},
        {"argument looks like a place", "%1% %2%", "%2%", "%1%", "%2% %1%"},
        {"null argument", "<%1%><%2%>", nullptr, nullptr, "<><>"},
        {"null text", nullptr, "1", "2", ""},
        {"no place", "100% %3% %1", "1", "2", "100% %3% %1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(TBinaryLogMessageTwoArgs(row.text, row.first, row.second).GetText(), row.filled);
    }
    EXPECT_EQ(TBinaryLogMessageOneArg("%1% %2%", "%1%").GetText(), "%1% %2%");
}

TEST(BuiltInLog, AppendsLinesToItsFileAndMakesTheDirectory) {
    const TemporaryFolder folder;
    const BuiltInLog log(folder.Path("config"));
    EXPECT_EQ(folder.List(), "");
    TCheckSite site("FileName", "hdbsfilename", 44);
    site.Report();
    __BinaryLogDiagnosticGroupDefault.SetLevel(1);
    LogDiagnostic(
        "[Default] --> gr\xC3\xB6\xC3\x9F"
        "e");
    EXPECT_EQ(folder.Read("config/hdlbuildfile.log"),
              "hdbsfilename(44): Check failed: \"FileName\"\n[Default] --> gr\xC3\xB6\xC3\x9F"
              "e\n");
}

TEST(BuiltInLog, KeepsWhatItsFileHolds) {
    const TemporaryFolder folder;
    folder.Write("hdlbuildfile.log", "earlier\n");
    const BuiltInLog log(folder.Path());
    TCheckSite site("false", "hdbsfilename", 20);
    site.Report();
    EXPECT_EQ(folder.Read("hdlbuildfile.log"),
              "earlier\nhdbsfilename(20): Check failed: \"false\"\n");
}

TEST(BuiltInLog, StaysSilentWhenItsFileCannotBeOpened) {
    const TemporaryFolder folder;
    folder.Write("blocked", "a file where the directory should be");
    const BuiltInLog log(folder.Path("blocked"));
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    TCheckSite site("false", "hdbsfilename", 20);
    site.Report();
    site.Report();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(folder.List(), "blocked\n");
}

#ifdef __linux__
TEST(BuiltInLog, ClosesItsFileForAnotherSink) {
    const TemporaryFolder folder;
    const BuiltInLog log(folder.Path());
    const auto isOpen = [file = folder.Path("hdlbuildfile.log")] {
        std::error_code gone;  // the descriptor that the listing itself had
        for (const auto& open : std::filesystem::directory_iterator("/proc/self/fd"))
            if (std::filesystem::read_symlink(open.path(), gone) == file) return true;
        return false;
    };
    TCheckSite site("false", "hdbsfilename", 20);
    site.Report();
    EXPECT_TRUE(isOpen());
    const RecordingLog other;
    EXPECT_FALSE(isOpen());
}
#endif
