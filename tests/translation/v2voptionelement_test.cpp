#include "translation/v2voptionelement.h"
#include "tests/support/elementtext.h"
#include "translation/v2vtranslationoption.h"
#include <gtest/gtest.h>

TEST(V2VOptionElement, FindsTheSwitchFromTheFirstDashOn) {
    const struct {
        const char* Name;
        const char* Switch;
    } rows[] = {
        {"v2v-ncc", "-ncc"}, {"v2v-no-check", "-no-check"}, {"-r", "-r"}, {"v2v", ""}, {"", ""},
    };
    for (const auto& row : rows) EXPECT_EQ(GetSwitchOfTag(row.Name).Str(), row.Switch) << row.Name;
}

TEST(V2VOptionElement, IsNamedBySwitchesWhoseCharactersANameMayHold) {
    const struct {
        const char* Switch;
        const char* Elements;
    } rows[] = {
        {"-AZaz09", "START v2v-AZaz09 Enabled=true\nEND v2v-AZaz09\n"},
        {"-_.:-", "START v2v-_.:- Enabled=true\nEND v2v-_.:-\n"},
        {"-\xC3\x84", "START v2v-\xC3\x84 Enabled=true\nEND v2v-\xC3\x84\n"},
        {"-@", ""},
        {"-[", ""},
        {"-`", ""},
        {"-{", ""},
        {"-/", ""},
        {"-;", ""},
        {"-a b", ""},
        {"r", ""},
        {"", ""},
    };
    for (const auto& row : rows) {
        TXMLList document;
        PushOption(&document, TV2VTranslationOption(row.Switch, "", "", true), {});
        EXPECT_EQ(ElementsOf(document), row.Elements) << row.Switch;
    }
}
