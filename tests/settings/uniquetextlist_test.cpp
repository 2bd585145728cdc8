#include "settings/uniquetextlist.h"
#include <chrono>
#include <gtest/gtest.h>

namespace {

constexpr int kBeyondTheIndex = 100;

std::vector<std::string> Numbers(int first, int end) {
    std::vector<std::string> numbers;
    for (int i = first; i < end; ++i) numbers.push_back(std::to_string(i));
    return numbers;
}

}  // namespace

TEST(UniqueTextList, KeepsOrderAndRefusesEqualTextsAtAnySize) {
    TUniqueTextList list;
    for (int i = 0; i < kBeyondTheIndex; ++i) {
        EXPECT_TRUE(list.AddStringToVector(std::to_string(i))) << i;
        EXPECT_FALSE(list.AddStringToVector(std::to_string(i))) << i;
        EXPECT_FALSE(list.AddStringToVector("0")) << i;
    }
    EXPECT_EQ(list.GetTexts(), Numbers(0, kBeyondTheIndex));
}

TEST(UniqueTextList, TakesARemovedTextAgainAtAnySize) {
    TUniqueTextList list;
    for (const std::string& number : Numbers(0, kBeyondTheIndex)) list.AddStringToVector(number);
    for (int i = 0; i < kBeyondTheIndex - 1; ++i) {
        EXPECT_TRUE(list.RemoveStringFromVector(list.GetTexts().front())) << i;
        EXPECT_FALSE(list.RemoveStringFromVector(std::to_string(i))) << i;
    }
    EXPECT_EQ(list.GetTexts(), Numbers(kBeyondTheIndex - 1, kBeyondTheIndex));
    EXPECT_FALSE(list.AddStringToVector("99"));
    EXPECT_TRUE(list.AddStringToVector("0"));
    EXPECT_FALSE(list.AddStringToVector("0"));
    EXPECT_EQ(list.GetTexts(), (std::vector<std::string>{"99", "0"}));
}

TEST(UniqueTextList, IsEmptyAfterClear) {
    TUniqueTextList list;
    for (const std::string& number : Numbers(0, kBeyondTheIndex)) list.AddStringToVector(number);
    list.Clear();
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_TRUE(list.AddStringToVector("5"));
    EXPECT_EQ(list.GetTexts(), (std::vector<std::string>{"5"}));
}

TEST(UniqueTextList, AddsManyTextsInLinearTime) {
    constexpr int kMany = 300000;
    TUniqueTextList list;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kMany; ++i) list.AddStringToVector(std::to_string(i));
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(list.GetTexts().size(), static_cast<std::size_t>(kMany));
    // Comparing each with all before it takes minutes.
    EXPECT_LT(taken.count(), 10);
}
