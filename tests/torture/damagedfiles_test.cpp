#include "flows/imports/importformats.h"
#include "tests/support/recorders.h"
#include "tests/torture/filereaders.h"
#include "tests/torture/formatsamples.h"
#include "tests/torture/tally.h"
#include <gtest/gtest.h>
#include <random>

namespace {

/// Messages of what is refused are not shown.
struct TQuiet {
    RecordingLog Log;
    RecordingMessageBox Box;
};

/// Reads bytes; a complaint names the damage.
void Try(TTally* tally, const TFileReader& reader, const std::string& bytes,
         const std::string& damage) {
    const std::string result = reader.Read(reader, bytes);
    EXPECT_TRUE(tally->Count(IsSurvival(result))) << reader.Name << " " << damage << ": " << result;
}

std::string WithFlippedBit(std::string bytes, std::size_t bit) {
    bytes[bit / 8] =
        static_cast<char>(static_cast<unsigned char>(bytes[bit / 8]) ^ (1u << bit % 8));
    return bytes;
}

}  // namespace

TEST(DamagedFiles, HaveASampleOfEachFormat) {
    for (const TImportFormat& format : GetImportFormats())
        EXPECT_NE(FindFileReader(format.Name), nullptr) << format.Name;
    const std::size_t size = FindFileReader("build file")->Sample.size();
    EXPECT_GE(size, 3500u);
    EXPECT_LE(size, 5000u);
}

// An undamaged one is read: else nothing would be shown by the damaged ones.
TEST(DamagedFiles, AreDamagedFromReadableOnes) {
    const TQuiet quiet;
    for (const TFileReader& reader : GetFileReaders())
        EXPECT_EQ(reader.Read(reader, reader.Sample), kWasRead) << reader.Name;
}

TEST(DamagedFiles, AreReadCutAtEveryByte) {
    const TQuiet quiet;
    const std::size_t step = OfTorture(7, 1);
    for (const TFileReader& reader : GetFileReaders()) {
        TTally tally("cut at a byte: " + reader.Name);
        for (std::size_t end = 0; end < reader.Sample.size(); end += step)
            Try(&tally, reader, reader.Sample.substr(0, end), "cut at " + std::to_string(end));
    }
}

TEST(DamagedFiles, AreReadWithEveryBitFlipped) {
    const TQuiet quiet;
    const std::size_t step = OfTorture(31, 1);
    for (const TFileReader& reader : GetFileReaders()) {
        TTally tally("bit flipped: " + reader.Name);
        for (std::size_t bit = 0; bit < 8 * reader.Sample.size(); bit += step)
            Try(&tally, reader, WithFlippedBit(reader.Sample, bit), "bit " + std::to_string(bit));
    }
}

// Ten flips at a time, up to a hundred in one text.
TEST(DamagedFiles, AreReadWithRandomFlips) {
    const TQuiet quiet;
    const TFileReader& reader = *FindFileReader("build file");
    const std::string sample = BuildSample(IsFullTorture() ? 13000 : 500);
    TTally tally("random flips: build file");
    std::mt19937 random(1);
    std::string bytes;
    const std::size_t tries = OfTorture(100, 10000);
    for (std::size_t number = 0; number < tries; ++number) {
        if (number % 10 == 0) bytes = sample;
        for (int flip = 0; flip < 10; ++flip)
            bytes = WithFlippedBit(std::move(bytes), random() % (8 * sample.size()));
        Try(&tally, reader, bytes, "variant " + std::to_string(number));
    }
}
