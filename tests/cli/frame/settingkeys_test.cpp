#include "cli/frame/settingkeys.h"
#include <gtest/gtest.h>

TEST(SettingKeys, TellValuesByTheirKind) {
    const struct {
        TSettingKind Kind;
        const char* Text;
        const char* FileText;
        const char* Value;
        const char* Complaint;
    } rows[] = {
        {SETTING_TEXT, "", "", "\"\"", ""},
        {SETTING_NAME, "a", "a", "\"a\"", ""},
        {SETTING_NAME, "", "", "\"\"", "a text that is not empty is wanted"},
        {SETTING_BOOL, "true", "true", "true", ""},
        {SETTING_BOOL, "maybe", "maybe", "false", "true or false is wanted"},
        {SETTING_NUMBER, "12", "12", "12", ""},
        {SETTING_NUMBER, "12x", "12x", "-1", "a number from 0 on is wanted"},
        {SETTING_DELAY, "typical", "1", "\"typical\"", ""},
        {SETTING_DELAY, "2", "2", "\"max\"", ""},
        {SETTING_DELAY, "3", "3", "\"typical\"", "min, typical or max is wanted"},
        {SETTING_LIST, "x", "x", "\"x\"", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FileTextOf(row.Kind, row.Text), row.FileText) << row.Text;
        EXPECT_EQ(ValueComplaint(row.Kind, row.Text, LANGUAGE_NONE), row.Complaint) << row.Text;
        if (row.Kind != SETTING_DELAY || !*row.Complaint) {
            EXPECT_EQ(ValueOf(row.Kind, row.FileText).Dump(), row.Value) << row.Text;
        }
    }
}
