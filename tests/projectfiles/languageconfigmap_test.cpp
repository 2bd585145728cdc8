#include "projectfiles/languageconfigmap.h"
#include "tests/support/mortal.h"
#include <gtest/gtest.h>

namespace {

TEST(LanguageConfigMap, DeletesAConfigurationWhenAnotherTakesItsPlace) {
    std::string grave;
    TLanguageConfigMap map;
    EXPECT_EQ(map.Find(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(map.FindSlot(LANGUAGE_VHDL), nullptr);
    auto* first = new MortalLanguage("first", &grave);
    auto* second = new MortalLanguage("second", &grave);
    map.Store(LANGUAGE_VHDL, first);
    EXPECT_EQ(map.Find(LANGUAGE_VHDL), first);
    EXPECT_EQ(map.Find(LANGUAGE_VERILOG), nullptr);
    const auto slot = map.FindSlot(LANGUAGE_VHDL);
    map.Store(LANGUAGE_VHDL, second);
    EXPECT_EQ(grave, "first ");
    EXPECT_EQ(map.Find(LANGUAGE_VHDL), second);
    EXPECT_EQ(slot->Config, second);
    EXPECT_EQ(FindLanguageConfigSlot(second), slot);
    map.DeleteAll();
    EXPECT_EQ(grave, "first second ");
    EXPECT_EQ(map.Find(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(slot->Config, nullptr);
}

TEST(LanguageConfigMap, ForgetsConfigurationsWithoutDeletingThem) {
    std::string grave;
    auto* cleared = new MortalLanguage("cleared", &grave);
    auto* left = new MortalLanguage("left", &grave);
    std::shared_ptr<const TLanguageConfigSlot> slot;
    {
        TLanguageConfigMap map;
        map.Store(LANGUAGE_VHDL, cleared);
        slot = map.FindSlot(LANGUAGE_VHDL);
        map.Clear();
        EXPECT_EQ(map.Find(LANGUAGE_VHDL), nullptr);
        map.Store(LANGUAGE_VHDL, left);
        EXPECT_EQ(slot->Config, cleared);
    }
    EXPECT_EQ(FindLanguageConfigSlot(cleared), slot);
    EXPECT_EQ(grave, "");
    DeleteLanguageConfig(cleared);
    EXPECT_EQ(slot->Config, nullptr);
    EXPECT_EQ(FindLanguageConfigSlot(cleared), nullptr);
    DeleteLanguageConfig(left);
    EXPECT_EQ(grave, "cleared left ");
}

}  // namespace
