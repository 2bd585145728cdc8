#include "flows/imports/listdialects.h"
#include "flows/plan/toolwords.h"
#include <gtest/gtest.h>

TEST(ListDialects, KnowTheirOptions) {
    const struct {
        const char* Word;
        TListTool Tool;
        const char* Name;  // of the row; null: none
        TListMeaning Meaning;
    } rows[] = {
        {"+incdir+a+b", LIST_COMMON, "+incdir+", MEANS_INCLUDE_FOLDER},
        {"-Iinc", LIST_VERILATOR, "-I", MEANS_INCLUDE_FOLDER},
        {"-Iinc", LIST_ICARUS, nullptr, MEANS_OPTION},
        {"-DA=1", LIST_SLANG, "-D", MEANS_DEFINE},
        {"-DA=1", LIST_VCS, nullptr, MEANS_OPTION},
        {"-ylib", LIST_ICARUS, "-y", MEANS_LIBRARY_FOLDER},
        {"-ylib", LIST_VERILATOR, nullptr, MEANS_OPTION},
        {"-l", LIST_ICARUS, "-l", MEANS_LIBRARY_FILE},
        {"-l", LIST_VCS, "-l", MEANS_OPTION},
        {"-l", LIST_VERILATOR, nullptr, MEANS_OPTION},
        {"--top=x", LIST_SLANG, "--top", MEANS_TOP},
        {"--topmost", LIST_SLANG, nullptr, MEANS_OPTION},
        {"--top-module", LIST_VERILATOR, "--top-module", MEANS_TOP},
        {"-F", LIST_ICARUS, nullptr, MEANS_OPTION},
        {"-file", LIST_VCS, "-file", MEANS_LIST},
        {"-C", LIST_VERILATOR, nullptr, MEANS_OPTION},
        {"-y", LIST_VERIBLE, nullptr, MEANS_OPTION},
        {"a.v", LIST_COMMON, nullptr, MEANS_OPTION},
        {"", LIST_COMMON, nullptr, MEANS_OPTION},
    };
    for (const auto& row : rows) {
        const TListOption* const option = FindListOption(row.Word, row.Tool);
        EXPECT_EQ(option ? option->Name : "none", std::string_view(row.Name ? row.Name : "none"))
            << row.Word << " " << row.Tool;
        if (option) {
            EXPECT_EQ(option->Meaning, row.Meaning) << row.Word;
        }
    }
}

TEST(ListDialects, KnowTheOperandsOfOptions) {
    for (const char* const word : {"-CFLAGS", "-LDFLAGS", "-MAKEFLAGS"}) {
        const TListOption* const option = FindListOption(word, LIST_VERILATOR);
        ASSERT_NE(option, nullptr) << word;
        EXPECT_EQ(option->Form, FORM_OPERAND) << word;
        EXPECT_TRUE(TakesAnyOperand(word)) << word;
    }
}
