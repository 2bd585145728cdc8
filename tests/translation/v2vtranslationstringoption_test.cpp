#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include "tests/support/slots.h"
#include "translation/v2vtranslationoptions.h"
#include <gtest/gtest.h>

namespace {

struct TReadCase {
    const char* Label;
    const char* Elements;
    const char* List;
    const char* Position;
};

const TReadCase kReadCases[] = {
    {"no argument", "START v2v-e Enabled=true\nEND v2v-e\n", "old", "END v2v-e"},
    {"one argument",
     "START v2v-e Enabled=true\nSTART AdditionalOptions\nTEXT m\nEND AdditionalOptions\nEND "
     "v2v-e\n",
     "old m", "END v2v-e"},
    {"untrimmed arguments",
     "START v2v-e Enabled=true\nSTART AdditionalOptions\nTEXT  m \nEND AdditionalOptions\n"
     "START AdditionalOptions\nTEXT s\nEND AdditionalOptions\nEND v2v-e\n",
     "old  m  s", "END v2v-e"},
    {"an argument without text",
     "START v2v-e Enabled=true\nSTART AdditionalOptions\nEND AdditionalOptions\n"
     "START AdditionalOptions\nTEXT s\nEND AdditionalOptions\nEND v2v-e\n",
     "old  s", "END v2v-e"},
    {"an element inside an argument",
     "START v2v-e Enabled=true\nSTART AdditionalOptions\nTEXT m\nSTART X\nTEXT y\nEND X\n"
     "END AdditionalOptions\nEND v2v-e\n",
     "old m", "END v2v-e"},
    {"an argument that begins with an element",
     "START v2v-e Enabled=true\nSTART AdditionalOptions\nSTART X\nTEXT y\nEND X\n"
     "END AdditionalOptions\nEND v2v-e\n",
     "old ", "END v2v-e"},
    {"another child first",
     "START v2v-e Enabled=true\nSTART X\nEND X\nSTART AdditionalOptions\nTEXT m\n"
     "END AdditionalOptions\nEND v2v-e\n",
     "old", "START X"},
    {"cut short in an argument", "START v2v-e Enabled=true\nSTART AdditionalOptions\nTEXT m\n",
     "old m", "TAIL"},
    {"cut short before the text", "START v2v-e Enabled=true\nSTART AdditionalOptions\n", "old ",
     "TAIL"},
    {"cut short before the arguments", "START v2v-e Enabled=true\n", "old", "TAIL"},
};

}  // namespace

TEST(TranslationStringOption, IsBuiltWithoutArguments) {
    TV2VTranslationStringOption option("-e", "-Environment {m|s|g}", "Prints VHDL", false);
    EXPECT_TRUE(option.HasStringOption());
    EXPECT_STREQ(option.GetDashOption(), "-e");
    EXPECT_STREQ(option.GetOptionString(), "-Environment {m|s|g}");
    EXPECT_STREQ(option.GetDescription(), "Prints VHDL");
    EXPECT_FALSE(option.IsEnabled());
    EXPECT_STREQ(option.GetListString(), "");
}

TEST(TranslationStringOption, ListsArgumentsInTheOrderAddedEvenTwice) {
    TV2VTranslationStringOption option("-e", "", "", true);
    for (const char* text : {"m", "a b", "m", "", static_cast<const char*>(nullptr)})
        option.AddAnOption(text);
    EXPECT_STREQ(option.GetListString(), "m a b m  ");
    EXPECT_STREQ(option.GetListDisplayString(), "m a b m  ");
    EXPECT_EQ(option.GetCommandLineOption(), "-e m a b m  ");
    option.ClearList();
    EXPECT_STREQ(option.GetListString(), "");
    EXPECT_EQ(option.GetCommandLineOption(), "-e ");
}

TEST(TranslationStringOption, FindsArgumentsThatAreEqualByteForByte) {
    TV2VTranslationStringOption option("-e", "", "", true);
    EXPECT_FALSE(option.FindString(""));
    option.AddAnOption("Mentor");
    EXPECT_TRUE(option.FindString("Mentor"));
    for (const char* other : {"mentor", "Ment", "Mentor ", "", static_cast<const char*>(nullptr)})
        EXPECT_FALSE(option.FindString(other)) << (other ? other : "null");
    option.AddAnOption("");
    EXPECT_TRUE(option.FindString(nullptr));
}

TEST(TranslationStringOption, SplitsATypedTextAtBlanks) {
    TV2VTranslationStringOption option("-np", "", "", true);
    option.AddAnOption("former");
    option.ParseAndPopulateList("  ieee  std\tlogic my_pack ");
    EXPECT_STREQ(option.GetListString(), "ieee std\tlogic my_pack");
    EXPECT_TRUE(option.FindString("std\tlogic"));
    option.ParseAndPopulateList("");
    EXPECT_STREQ(option.GetListString(), "");
    option.AddAnOption("former");
    option.ParseAndPopulateList(nullptr);
    EXPECT_STREQ(option.GetListString(), "");
}

TEST(TranslationStringOption, SplitsItsOwnListText) {
    TV2VTranslationStringOption option("-np", "", "", true);
    option.AddAnOption("a b");
    option.ParseAndPopulateList(option.GetListString());
    EXPECT_STREQ(option.GetListString(), "a b");
    EXPECT_TRUE(option.FindString("a"));
}

TEST(TranslationStringOption, KeepsTheResultsOfTheTwoListTextsApart) {
    TV2VTranslationStringOption first("-e", "", "", true);
    TV2VTranslationStringOption second("-rip", "", "", true);
    first.AddAnOption("first");
    second.AddAnOption("second");
    const char* display = first.GetListDisplayString();
    EXPECT_STREQ(second.GetListString(), "second");
    EXPECT_STREQ(display, "first");
    EXPECT_STREQ(second.GetListDisplayString(), "second");
    EXPECT_STREQ(display, "second");
}

TEST(TranslationStringOption, CopiesItsArguments) {
    TV2VTranslationStringOption source("-e", "", "", true);
    source.AddAnOption("m");
    TV2VTranslationStringOption copy(source);
    TV2VTranslationStringOption assigned("-rip", "", "", false);
    assigned = source;
    source.AddAnOption("s");
    EXPECT_EQ(copy.GetCommandLineOption(), "-e m");
    EXPECT_EQ(assigned.GetCommandLineOption(), "-e m");
}

TEST(TranslationStringOption, WritesAnElementForEachArgument) {
    TV2VTranslationStringOption option("-rip", "", "", true);
    const auto write = [&](TXMLList* list) { option.WriteToFile(list); };
    EXPECT_EQ(ElementsWrittenBy(write),
              "START v2v-rip Enabled=true\n"
              "END v2v-rip\n");
    option.AddAnOption("a<b>&\"c\"");
    option.AddAnOption("");
    option.SetEnabled(false);
    EXPECT_EQ(ElementsWrittenBy(write),
              "START v2v-rip Enabled=false\n"
              "START AdditionalOptions\n"
              "TEXT a<b>&\"c\"\n"
              "END AdditionalOptions\n"
              "START AdditionalOptions\n"
              "TEXT \n"
              "END AdditionalOptions\n"
              "END v2v-rip\n");
}

TEST(TranslationStringOption, AddsTheArgumentsOfItsElement) {
    for (const TReadCase& row : kReadCases) {
        RecordingLog log;
        TXMLList list;
        PushElements(&list, row.Elements);
        DListIterator<TElement*> position(list);
        TV2VTranslationStringOption option("-e", "", "", false);
        option.AddAnOption("old");
        EXPECT_TRUE(option.ReadFromFile(position)) << row.Label;
        EXPECT_TRUE(option.IsEnabled()) << row.Label;
        EXPECT_STREQ(option.GetListString(), row.List) << row.Label;
        EXPECT_EQ(ElementAt(position), row.Position) << row.Label;
        EXPECT_EQ(log.Take(), "") << row.Label;
    }
}

TEST(TranslationStringOption, HoldsEachArgumentTwiceWhenReadTwice) {
    TXMLList list;
    PushElements(
        &list,
        "START v2v-e Enabled=true\nSTART AdditionalOptions\nTEXT m\nEND AdditionalOptions\n"
        "START AdditionalOptions\nTEXT s\nEND AdditionalOptions\nEND v2v-e\n");
    TV2VTranslationStringOption option("-e", "", "", false);
    for (int i = 0; i < 2; ++i) {
        DListIterator<TElement*> position(list);
        EXPECT_TRUE(option.ReadFromFile(position));
    }
    EXPECT_STREQ(option.GetListString(), "m s m s");
}

TEST(TranslationStringOption, ReadsTheElementOfAnotherSwitchAfterAFailedCheck) {
    RecordingLog log;
    TXMLList list;
    PushElements(
        &list,
        "START v2v-x Enabled=true\nSTART AdditionalOptions\nTEXT m\nEND AdditionalOptions\n"
        "END v2v-x\n");
    DListIterator<TElement*> position(list);
    TV2VTranslationStringOption option("-e", "", "", false);
    EXPECT_TRUE(option.ReadFromFile(position));
    EXPECT_EQ(option.GetCommandLineOption(), "-e m");
    EXPECT_EQ(log.Take(),
              "v2vtranslationoptions(135): Check failed: "
              "\"elemI.Current()->Name == optionTag.c_str()\"\n");
}

TEST(TranslationStringOption, AddsItsOperationsAfterThoseOfItsBase) {
    EXPECT_EQ(TableEntryOf(&TV2VTranslationStringOption::HasStringOption), 0);
    EXPECT_EQ(TableEntryOf(&TV2VTranslationStringOption::GetListString), 4);
    EXPECT_EQ(TableEntryOf(&TV2VTranslationStringOption::FindString), 5);
    EXPECT_EQ(TableEntryOf(&TV2VTranslationStringOption::ClearList), 6);
    EXPECT_EQ(TableEntryOf(&TV2VTranslationStringOption::AddAnOption), 7);
}
