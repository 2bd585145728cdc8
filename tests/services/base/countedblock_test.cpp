#include "services/base/countedblock.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

// The leak checker of the sanitizer builds tells a block that is not freed, their address checker
// one that is freed too early.

namespace {

constexpr std::size_t kPartSize = 32;

// A block of which `parts` parts are given away.
struct GivenBlock {
    explicit GivenBlock(std::uint32_t parts) : Block(TCountedBlock::Make(parts * kPartSize)) {
        for (std::uint32_t i = 0; i < parts; ++i) {
            std::byte* const part = Block->GetRoom() + i * kPartSize;
            Parts.push_back(new (part) TCountedBlock::TDistance(Block->GetDistance(part)));
        }
    }
    TCountedBlock* Block;
    std::vector<TCountedBlock::TDistance*> Parts;
};

}  // namespace

TEST(CountedBlock, IsFoundFromEachOfItsParts) {
    const GivenBlock given(3);
    for (const auto* part : given.Parts) {
        EXPECT_NE(*part, 0);
        EXPECT_EQ(TCountedBlock::Of(part), given.Block);
    }
    given.Block->Close(3);
    given.Block->GiveBack(3);
}

TEST(CountedBlock, LivesAsLongAsItIsOpenOrAPartIsOut) {
    const GivenBlock given(3);
    TCountedBlock::Of(given.Parts[0])->GiveBack(1);
    TCountedBlock::Of(given.Parts[2])->GiveBack(1);
    given.Block->Close(3);
    EXPECT_EQ(TCountedBlock::Of(given.Parts[1]), given.Block);
    TCountedBlock::Of(given.Parts[1])->GiveBack(1);

    const GivenBlock emptied(1);
    emptied.Block->GiveBack(1);
    EXPECT_EQ(TCountedBlock::Of(emptied.Parts[0]), emptied.Block);
    emptied.Block->Close(1);
}

TEST(CountedBlock, TakesPartsOfSeveralBlocksBackAtOneStroke) {
    const GivenBlock first(4), second(2);
    {
        TReturnedParts returned;
        for (const auto* part : {first.Parts[0], first.Parts[1], second.Parts[0], first.Parts[2]})
            returned.Add(part);
    }
    first.Block->Close(4);
    second.Block->Close(2);
    EXPECT_EQ(TCountedBlock::Of(first.Parts[3]), first.Block);
    EXPECT_EQ(TCountedBlock::Of(second.Parts[1]), second.Block);
    first.Block->GiveBack(1);
    second.Block->GiveBack(1);
}

TEST(CountedBlock, TakesPartsBackFromSeveralThreads) {
    constexpr std::uint32_t kParts = 1000;
    const GivenBlock given(2 * kParts);
    const auto giveBack = [&](std::uint32_t first) {
        for (std::uint32_t i = first; i < 2 * kParts; i += 2)
            TCountedBlock::Of(given.Parts[i])->GiveBack(1);
    };
    std::thread other(giveBack, 1);
    given.Block->Close(2 * kParts);
    giveBack(0);
    other.join();
}
