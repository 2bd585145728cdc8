#include "services/files/steadyread.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace {

const TFileResult kBroken = {TFileFault::Other, "broken"};

/// A file that gives four bytes at a time, and becomes the next of its texts behind a certain
/// number of reads.
class TChangingFile : public IOpenFile {
public:
    explicit TChangingFile(std::vector<std::string> texts, std::size_t readsBetween = 1)
        : Texts(std::move(texts)), ReadsBetween(readsBetween) {}

    TFileResult Look(TFileState* state) override {
        if (++Looks == FailingLook) return kBroken;
        *state = {HasSize ? Texts[Number].size() : 0, static_cast<std::int64_t>(Number)};
        return {};
    }
    TFileResult ReadSome(char* place, std::size_t room, std::size_t* count) override {
        const std::string& text = Texts[Number];
        *count = std::min({room, std::size_t{4}, text.size() - std::min(Place, text.size())});
        if (*count > 0) text.copy(place, *count, Place);
        Place += *count;
        if (++Reads % ReadsBetween == 0 && Number + 1 < Texts.size()) ++Number;
        return {};
    }
    TFileResult Rewind() override {
        if (!MayRewind) return kBroken;
        Place = 0;
        return {};
    }

    bool HasSize = true;
    bool MayRewind = true;
    int FailingLook = 0;

private:
    const std::vector<std::string> Texts;
    const std::size_t ReadsBetween;
    std::size_t Number = 0;
    std::size_t Place = 0;
    std::size_t Reads = 0;
    int Looks = 0;
};

/// The bytes that were read, or why they were not.
std::string ReadOf(TChangingFile file, std::uint64_t limit = 1'000) {
    std::string bytes = "before";
    const TFileResult result = ReadSteadily(file, limit, &bytes);
    return result.IsDone() ? "read " + bytes : result.Reason + ", then " + bytes;
}

}  // namespace

TEST(SteadyRead, TakesAFileAsItIs) {
    EXPECT_EQ(ReadOf(TChangingFile({""})), "read ");
    EXPECT_EQ(ReadOf(TChangingFile({"0123456789"})), "read 0123456789");
}

TEST(SteadyRead, ReadsAgainWhatChangesMeanwhile) {
    EXPECT_EQ(ReadOf(TChangingFile({"0123456789", "abcdefghij"})), "read abcdefghij");
    EXPECT_EQ(ReadOf(TChangingFile({"0123456789", "ab"})), "read ab");
    EXPECT_EQ(ReadOf(TChangingFile({"0123456789", ""})), "read ");
    EXPECT_EQ(ReadOf(TChangingFile({"01", "abcdefghij"})), "read abcdefghij");
    EXPECT_EQ(ReadOf(TChangingFile({"0123456789", "abcdefghij", "ABCDEFGHIJ"}, 4)),
              "read ABCDEFGHIJ");
}

TEST(SteadyRead, GivesUpOnAFileThatChangesAgainAndAgain) {
    const std::vector<std::string> texts(100, "0123456789");
    EXPECT_EQ(ReadOf(TChangingFile(texts)), "the file changes while it is read, then ");
}

TEST(SteadyRead, TakesNoPartForTheWhole) {
    /// Ends before its size.
    class TCutFile : public TChangingFile {
    public:
        TCutFile() : TChangingFile({"0123456789"}) {}
        TFileResult ReadSome(char*, std::size_t, std::size_t* count) override {
            *count = 0;
            return {};
        }
    };
    TCutFile file;
    std::string bytes = "before";
    EXPECT_EQ(ReadSteadily(file, 1'000, &bytes).Reason, "the file changes while it is read");
    EXPECT_EQ(bytes, "");
}

TEST(SteadyRead, TakesAFileThatDoesNotTellItsSize) {
    TChangingFile file({"0123456789"});
    file.HasSize = false;
    EXPECT_EQ(ReadOf(file), "read 0123456789");
}

TEST(SteadyRead, HoldsTheLimit) {
    EXPECT_EQ(ReadOf(TChangingFile({"0123456789"}), 9),
              "the file is too large: 10 bytes, the limit is 9, then ");
    EXPECT_EQ(ReadOf(TChangingFile({"01", "0123456789"}), 9),
              "the file is too large: it grows to more than 9 bytes, the limit is 9, then ");
}

TEST(SteadyRead, FailsWhereAnyStepFails) {
    for (const int look : {1, 2}) {
        TChangingFile file({"0123456789"});
        file.FailingLook = look;
        EXPECT_EQ(ReadOf(file), "broken, then ") << look;
    }
    TChangingFile file({"0123456789", "abcdefghij"});
    file.MayRewind = false;
    EXPECT_EQ(ReadOf(file), "broken, then ");
}
