#include "translation/v2vcatalogues.h"
#include "translation/v2vtranslationoptions.h"
#include <fstream>
#include <gtest/gtest.h>

namespace {

constexpr const char* kTag = "Verilog2VhdlTranslationOptions";

struct TCatalogueCase {
    const char* GoldenFile;
    void (*Populate)(TV2VTranslationOptionsList*);
    std::size_t Count;
    const char* CommandLine;
};

const TCatalogueCase kCatalogues[] = {
    {"verilog2vhdlcatalogue.txt",
     &TV2VTranslationOptionsList::PopulateWithDefaultVerilog2VhdlOptions, 21,
     "        -ncc             "},
    {"vhdl2verilogcatalogue.txt",
     &TV2VTranslationOptionsList::PopulateWithDefaultVhdl2VerilogOptions, 29,
     "       -ncc                      "},
};

std::string ReadGoldenFile(const std::string& name) {
    std::ifstream stream(std::string(HDLBUILDFILE_SOURCE_DIR "/tests/translation/") + name,
                         std::ios::binary);
    EXPECT_TRUE(stream) << name;
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string KindOf(TV2VTranslationOption* option) {
    if (dynamic_cast<TV2VTranslationFileOption*>(option)) return "file";
    return dynamic_cast<TV2VTranslationStringOption*>(option) ? "string" : "plain";
}

std::string TextOf(const TV2VTranslationOptionsList& list) {
    std::string text;
    for (TV2VTranslationOption* option : list)
        text += std::string(option->GetDashOption()) + " " + KindOf(option) +
                (option->IsEnabled() ? " enabled" : "") + "\n    " + option->GetOptionString() +
                "\n    " + option->GetDescription() + "\n";
    return text;
}

}  // namespace

TEST(TranslationCatalogues, HoldTheSwitchesInTheirOrderWithTheirExactTexts) {
    for (const TCatalogueCase& row : kCatalogues) {
        TV2VTranslationOptionsList list(nullptr, kTag);
        row.Populate(&list);
        EXPECT_EQ(TextOf(list), ReadGoldenFile(row.GoldenFile)) << row.GoldenFile;
        EXPECT_EQ(list.size(), row.Count) << row.GoldenFile;
        list.Flush();
    }
}

TEST(TranslationCatalogues, EnableNothingButTheComponentCheckSwitch) {
    for (const TCatalogueCase& row : kCatalogues) {
        TV2VTranslationOptionsList list(nullptr, kTag);
        row.Populate(&list);
        EXPECT_TRUE(list.IsOptionEnabled("-ncc")) << row.GoldenFile;
        EXPECT_FALSE(list.IsOptionEnabled("-r")) << row.GoldenFile;
        EXPECT_STREQ(list.GetCommandLineOptions(), row.CommandLine) << row.GoldenFile;
        list.Flush();
    }
}

TEST(TranslationCatalogues, ReplaceWhatAListHolds) {
    for (const TCatalogueCase& row : kCatalogues) {
        TV2VTranslationOptionsList list(nullptr, kTag);
        list.AddOptionNoDup("-own", "", "", true);
        row.Populate(&list);
        list.FindOption("-ncc")->SetEnabled(false);
        row.Populate(&list);
        EXPECT_EQ(TextOf(list), ReadGoldenFile(row.GoldenFile)) << row.GoldenFile;
        for (TV2VTranslationOption* option : list) EXPECT_EQ(option->GetOwningList(), &list);
        list.Flush();
    }
}

TEST(TranslationCatalogues, TakeTableRowsInOrderAndLeaveOutWhatCannotBeAdded) {
    constexpr TV2VCommandLineOption kTable[] = {
        {"-b", "-Bee, -b", "B", V2V_STRING_OPTION, true},
        {"-a", "-Ay, -a", "A", V2V_FILE_OPTION, false},
        {"-c", "-Cee, -c", "C", 3, true},
        {"-d", "-Dee, -d", "D", -1, true},
        {"-b", "-Again, -b", "B again", V2V_PLAIN_OPTION, false},
        {nullptr, nullptr, nullptr, V2V_PLAIN_OPTION, true},
        {"-z", "-Zed, -z", "Z", V2V_PLAIN_OPTION, false},
    };
    TV2VTranslationOptionsList list(nullptr, kTag);
    TV2VTranslationOptionsList::PopulateWithDefaultOptions(&list, kTable, 7);
    EXPECT_EQ(TextOf(list),
              "-b string enabled\n    -Bee, -b\n    B\n"
              "-a file\n    -Ay, -a\n    A\n"
              " plain enabled\n    \n    \n"
              "-z plain\n    -Zed, -z\n    Z\n");
    TV2VTranslationOptionsList::PopulateWithDefaultOptions(&list, kTable, 1);
    EXPECT_EQ(TextOf(list), "-b string enabled\n    -Bee, -b\n    B\n");
    TV2VTranslationOptionsList::PopulateWithDefaultOptions(&list, kTable, 0);
    EXPECT_EQ(TextOf(list), "");
    list.AddOptionNoDup("-own", "", "", true);
    TV2VTranslationOptionsList::PopulateWithDefaultOptions(&list, kTable, -7);
    EXPECT_EQ(TextOf(list), "");
    list.AddOptionNoDup("-own", "", "", true);
    TV2VTranslationOptionsList::PopulateWithDefaultOptions(&list, nullptr, 7);
    EXPECT_EQ(TextOf(list), "");
    TV2VTranslationOptionsList::PopulateWithDefaultOptions(nullptr, kTable, 7);
}
