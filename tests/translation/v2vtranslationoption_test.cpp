#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include "tests/support/slots.h"
#include "translation/v2vtranslationoptions.h"
#include <gtest/gtest.h>

namespace {

struct TReadCase {
    const char* Label;
    const char* Elements;
    bool Enabled;
    const char* Position;
    const char* Log;
};

constexpr const char* kMismatch =
    "v2vtranslationoptions(44): Check failed: \"elemI.Current()->Name == optionTag.c_str()\"\n";

const TReadCase kReadCases[] = {
    {"enabled", "START v2v-r Enabled=true\nEND v2v-r\n", true, "END v2v-r", ""},
    {"disabled", "START v2v-r Enabled=false\nEND v2v-r\n", false, "END v2v-r", ""},
    {"no attribute", "START v2v-r\nEND v2v-r\n", false, "END v2v-r", ""},
    {"empty attribute", "START v2v-r Enabled=\nEND v2v-r\n", false, "END v2v-r", ""},
    {"unknown boolean", "START v2v-r Enabled=maybe\nEND v2v-r\n", false, "END v2v-r", ""},
    {"another switch", "START v2v-s Enabled=true\nEND v2v-s\n", true, "END v2v-s", kMismatch},
    {"another case", "START v2v-R Enabled=true\nEND v2v-R\n", true, "END v2v-R", kMismatch},
    {"cut short", "START v2v-r Enabled=true\n", true, "TAIL", ""},
    {"an END", "END v2v-r\nTEXT x\n", false, "TEXT x", ""},
    {"arguments are not its own", "START v2v-r Enabled=true\nSTART AdditionalOptions\n", true,
     "START AdditionalOptions", ""},
};

}  // namespace

TEST(TranslationOption, KeepsTheTextsOfItsConstruction) {
    TV2VTranslationOption option("-ncc", "-No_Component_Check, -ncc", "Does not look", true);
    EXPECT_STREQ(option.GetDashOption(), "-ncc");
    EXPECT_STREQ(option.GetOptionString(), "-No_Component_Check, -ncc");
    EXPECT_STREQ(option.GetDescription(), "Does not look");
    EXPECT_TRUE(option.IsEnabled());
    EXPECT_EQ(option.GetOwningList(), nullptr);
    EXPECT_FALSE(option.HasStringOption());
    EXPECT_STREQ(option.GetListString(), "");
    EXPECT_STREQ(option.GetListDisplayString(), "");
}

TEST(TranslationOption, TakesNullTextsAsEmpty) {
    TV2VTranslationOption option(nullptr, nullptr, nullptr, false);
    EXPECT_STREQ(option.GetDashOption(), "");
    EXPECT_STREQ(option.GetOptionString(), "");
    EXPECT_STREQ(option.GetDescription(), "");
    EXPECT_TRUE(option.IsMatch(nullptr));
    EXPECT_TRUE(option.IsMatch(""));
}

TEST(TranslationOption, MatchesItsExactSwitchOnly) {
    const TV2VTranslationOption option("-ncc", "", "", false);
    EXPECT_TRUE(option.IsMatch("-ncc"));
    for (const char* other : {"-NCC", "-nc", "-ncc ", "ncc", "", static_cast<const char*>(nullptr)})
        EXPECT_FALSE(option.IsMatch(other)) << (other ? other : "null");
}

TEST(TranslationOption, EndsItsCommandLineTextInABlankWhenEnabled) {
    TV2VTranslationOption option("-ncc", "", "", true);
    EXPECT_EQ(option.GetCommandLineOption(), "-ncc ");
    option.SetEnabled(false);
    EXPECT_EQ(option.GetCommandLineOption(), "");
}

TEST(TranslationOption, CopiesEveryFieldByConstructionAndAssignment) {
    TV2VTranslationOptionsList list(nullptr, "Tag");
    TV2VTranslationOption source("-r", "-Replace, -r", "Replace", true);
    source.SetOwningList(&list);
    TV2VTranslationOption assigned("-s", "-Silent, -s", "Suppress", false);
    assigned = source;
    for (const TV2VTranslationOption& copy : {TV2VTranslationOption(source), assigned}) {
        EXPECT_STREQ(copy.GetDashOption(), "-r");
        EXPECT_STREQ(copy.GetOptionString(), "-Replace, -r");
        EXPECT_STREQ(copy.GetDescription(), "Replace");
        EXPECT_TRUE(copy.IsEnabled());
        EXPECT_EQ(copy.GetOwningList(), &list);
    }
}

TEST(TranslationOption, WritesItsStateUnderTheNameOfItsSwitch) {
    TV2VTranslationOption option("-do_macro_substitution", "", "", true);
    const auto write = [&](TXMLList* list) { option.WriteToFile(list); };
    EXPECT_EQ(ElementsWrittenBy(write),
              "START v2v-do_macro_substitution Enabled=true\n"
              "END v2v-do_macro_substitution\n");
    option.SetEnabled(false);
    EXPECT_EQ(ElementsWrittenBy(write),
              "START v2v-do_macro_substitution Enabled=false\n"
              "END v2v-do_macro_substitution\n");
    option.WriteToFile(nullptr);
}

TEST(TranslationOption, WritesNothingForASwitchThatCannotNameAnElement) {
    constexpr const char* kRefused =
        "v2vtranslationoptions(28): Check failed: \"IsFoundInTag(dashOption)\"\n";
    for (const char* dash : {"-a b", "-a+b", "-a=b", "-a<b", "a-b", "87", "--x\n"}) {
        RecordingLog log;
        TV2VTranslationOption option(dash, "", "", true);
        EXPECT_EQ(ElementsWrittenBy([&](TXMLList* list) { option.WriteToFile(list); }), "") << dash;
        EXPECT_EQ(log.Take(), kRefused) << dash;
    }
    RecordingLog log;
    TV2VTranslationOption nameless("", "", "", true);
    EXPECT_EQ(ElementsWrittenBy([&](TXMLList* list) { nameless.WriteToFile(list); }), "");
    EXPECT_EQ(log.Take(), "");
}

TEST(TranslationOption, ReadsItsStateAndMovesInside) {
    for (const TReadCase& row : kReadCases) {
        RecordingLog log;
        TXMLList list;
        PushElements(&list, row.Elements);
        DListIterator<TElement*> position(list);
        TV2VTranslationOption option("-r", "", "", !row.Enabled);
        EXPECT_TRUE(option.ReadFromFile(position)) << row.Label;
        EXPECT_EQ(option.IsEnabled(), row.Enabled) << row.Label;
        EXPECT_EQ(ElementAt(position), row.Position) << row.Label;
        EXPECT_EQ(log.Take(), row.Log) << row.Label;
    }
}

TEST(TranslationOption, KeepsItsStateWhenReadAtTheTail) {
    RecordingLog log;
    DListIterator<TElement*> tail;
    TV2VTranslationOption option("-r", "", "", true);
    EXPECT_TRUE(option.ReadFromFile(tail));
    EXPECT_TRUE(option.IsEnabled());
    EXPECT_EQ(log.Take(), "");
}

TEST(TranslationOption, HasItsOperationsInTheFixedSlotsWithoutADestructor) {
    EXPECT_EQ(TableEntryOf(&TV2VTranslationOption::HasStringOption), 0);
    EXPECT_EQ(TableEntryOf(&TV2VTranslationOption::WriteToFile), 1);
    EXPECT_EQ(TableEntryOf(&TV2VTranslationOption::ReadFromFile), 2);
    EXPECT_EQ(TableEntryOf(&TV2VTranslationOption::GetListDisplayString), 3);
    EXPECT_EQ(TableEntryOf(&TV2VTranslationOption::GetListString), 4);
    EXPECT_FALSE(std::has_virtual_destructor_v<TV2VTranslationOption>);
}
