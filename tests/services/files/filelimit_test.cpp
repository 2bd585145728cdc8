#include "services/files/filelimit.h"
#include "services/files/filereplace.h"
#include "tests/support/filesizelimit.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

/// What reading tells: the reason, or the number of bytes.
std::string ReadThrough(const std::string& path) {
    std::string bytes = "before";
    std::string reason;
    const TFileReadResult result = ReadWholeFile(path.c_str(), &bytes, &reason);
    if (result != FILE_READ_DONE)
        return std::to_string(result) + " " + reason + (bytes.empty() ? "" : ", with bytes");
    return std::to_string(bytes.size()) + " bytes" + reason;
}

TEST(FileLimit, IsOneGibibyteUnlessSetOtherwise) {
    EXPECT_EQ(GetFileSizeLimit(), 1'073'741'824U);
    EXPECT_EQ(SetFileSizeLimit(5), 1'073'741'824U);
    EXPECT_EQ(GetFileSizeLimit(), 5U);
    EXPECT_EQ(SetFileSizeLimit(kUsualFileSizeLimit), 5U);
    EXPECT_EQ(GetFileSizeLimit(), 1'073'741'824U);
}

TEST(FileLimit, HoldsForFilesOfMoreBytes) {
    const TemporaryFolder folder;
    const FileSizeLimit limit(5);
    EXPECT_EQ(ReadThrough(folder.Write("empty", "")), "0 bytes");
    EXPECT_EQ(ReadThrough(folder.Write("at", "12345")), "5 bytes");
    EXPECT_EQ(ReadThrough(folder.Write("over", "123456")),
              "2 the file is too large: 6 bytes, the limit is 5");
}

TEST(FileLimit, RefusesAFileThatHoldsNothingButASize) {
    const TemporaryFolder folder;
    const auto over = WriteSparse(folder, "over", kUsualFileSizeLimit + 1);
    const auto terabyte = WriteSparse(folder, "terabyte", kTerabyte);
    if (!over || !terabyte) GTEST_SKIP() << "the disk takes no such files";
    EXPECT_EQ(ReadThrough(*over),
              "2 the file is too large: 1073741825 bytes, the limit is 1073741824");
    EXPECT_EQ(ReadThrough(*terabyte),
              "2 the file is too large: 1099511627776 bytes, the limit is 1073741824");
}

TEST(FileLimit, MayBeAnyNumber) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", "1");
    {
        const FileSizeLimit none(0);
        EXPECT_EQ(ReadThrough(path), "2 the file is too large: 1 bytes, the limit is 0");
        EXPECT_EQ(ReadThrough(folder.Write("empty", "")), "0 bytes");
    }
    const FileSizeLimit every(UINT64_MAX);
    EXPECT_EQ(ReadThrough(path), "1 bytes");
}

TEST(FileLimit, KeepsAFileOfWhichNoBackupCanBeMade) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.xml", "123456");
    const FileSizeLimit limit(5);
    std::string reason;
    EXPECT_FALSE(KeepBackup(path.c_str(), &reason));
    EXPECT_EQ(reason, "the file is too large: 6 bytes, the limit is 5");
    EXPECT_EQ(folder.List(), "a.xml\n");
}

}  // namespace
