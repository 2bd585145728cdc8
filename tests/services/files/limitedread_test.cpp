#include "services/files/limitedread.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

/// A file that gives `step` bytes at a time, and fails after that many of them.
struct TFile {
    std::string Bytes;
    std::size_t Step = 1'000;
    std::size_t FailsAt = SIZE_MAX;
    std::size_t Given = 0;

    TFileResult operator()(char* place, std::size_t room, std::size_t* count) {
        if (Given >= FailsAt) return {TFileFault::Other, "broken"};
        *count = std::min({room, Step, Bytes.size() - Given});
        Bytes.copy(place, *count, Given);
        Given += *count;
        return {};
    }
};

/// The bytes that were read, or why they were not.
std::string ReadFile(TFile file, std::uint64_t size, std::uint64_t limit) {
    std::string bytes = "before";
    const TFileResult result = ReadLimited(size, limit, file, &bytes);
    return result.IsDone() ? "read " + bytes : result.Reason + ", then " + bytes;
}

TEST(LimitedRead, TakesTheWholeFileWhateverItsSizeWas) {
    const struct {
        const char* Label;
        std::uint64_t Size;
        std::uint64_t Limit;
    } rows[] = {
        {"its size", 10, 100}, {"as many as it may have", 10, 10}, {"it shrinks", 90, 100},
        {"it grows", 3, 100},  {"it grows to the limit", 3, 10},   {"its size is not known", 0, 10},
    };
    for (const auto& row : rows)
        for (const std::size_t step : {1U, 3U, 1'000U})
            EXPECT_EQ(ReadFile({"0123456789", step}, row.Size, row.Limit), "read 0123456789")
                << row.Label << step;
    EXPECT_EQ(ReadFile({""}, 0, 0), "read ");
}

TEST(LimitedRead, RefusesWhatIsLargerBeforeItReads) {
    TFile file{"0123456789"};
    std::string bytes = "before";
    const auto read = [&file](char* place, std::size_t room, std::size_t* count) {
        return file(place, room, count);
    };
    const TFileResult result = ReadLimited(10, 9, read, &bytes);
    EXPECT_EQ(result.Reason, "the file is too large: 10 bytes, the limit is 9");
    EXPECT_EQ(bytes, "");
    EXPECT_EQ(file.Given, 0U);
    EXPECT_EQ(ReadFile({""}, UINT64_MAX, 1'000),
              "the file is too large: 18446744073709551615 bytes, the limit is 1000, then ");
}

TEST(LimitedRead, StopsWhereAFileGrowsBeyondTheLimit) {
    for (const std::size_t step : {1U, 3U, 1'000U})
        for (const std::uint64_t size : {0U, 3U, 9U})
            EXPECT_EQ(ReadFile({"0123456789", step}, size, 9),
                      "the file is too large: it grows to more than 9 bytes, the limit is 9, then ")
                << step << " " << size;
    TFile endless{std::string(1'000'000, 'x')};
    std::string bytes;
    const auto read = [&endless](char* place, std::size_t room, std::size_t* count) {
        return endless(place, room, count);
    };
    EXPECT_FALSE(ReadLimited(0, 5'000, read, &bytes).IsDone());
    EXPECT_EQ(endless.Given, 5'001U);
}

TEST(LimitedRead, KeepsNothingOfAFileThatFails) {
    EXPECT_EQ(ReadFile({"0123456789", 2, 4}, 10, 100), "broken, then ");
}

}  // namespace
