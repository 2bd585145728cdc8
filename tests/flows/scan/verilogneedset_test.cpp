#include "flows/scan/verilogneedset.h"
#include <gtest/gtest.h>
#include <string>

TEST(VerilogNeedSet, NumbersEqualTextsAlike) {
    TVerilogNeedSet set;
    const std::string again = "abc";
    const std::uint32_t number = set.NumberOf("abc");
    EXPECT_NE(set.NumberOf(""), number);
    EXPECT_NE(set.NumberOf("ab"), number);
    EXPECT_EQ(set.NumberOf(again), number);
}

TEST(VerilogNeedSet, HoldsEachKeyThatDiffers) {
    TVerilogNeedSet set;
    constexpr std::uint32_t kUnits = 40;
    const auto keyOf = [](std::uint32_t unit, std::uint32_t kind, std::uint32_t library,
                          std::uint32_t name) {
        TVerilogNeedSet::TKey key;
        key.Unit = unit == 0 ? static_cast<std::uint32_t>(-1) : unit;
        key.Kind = kind;
        key.Library = library;
        key.Name = name;
        return key;
    };
    for (std::uint32_t unit = 0; unit < kUnits; ++unit)
        for (std::uint32_t kind = 0; kind < 4; ++kind)
            for (std::uint32_t library = 0; library < 3; ++library)
                for (std::uint32_t name = 0; name < 5; ++name) {
                    const auto key = keyOf(unit, kind, library, name);
                    ASSERT_FALSE(set.Contains(key));
                    set.Insert(key);
                    ASSERT_TRUE(set.Contains(key));
                }
    EXPECT_TRUE(set.Contains(keyOf(0, 0, 0, 0)));
    EXPECT_FALSE(set.Contains(keyOf(kUnits, 0, 0, 0)));
    EXPECT_FALSE(set.Contains(keyOf(0, 4, 0, 0)));
}
