#include "settings/projectsimconfiglist.h"
#include "tests/settings/configurationtext.h"
#include <gtest/gtest.h>

namespace {

using TList = TProjectSimConfigList;

void Fill(TList& list, std::initializer_list<const char*> names) {
    for (const char* name : names) list.AddConfiguration(NewConfiguration(name));
}

}  // namespace

TEST(ProjectSimConfigList, BeginsEmptyWithoutCurrent) {
    const TList list;
    EXPECT_EQ(NamesIn(list), "");
    EXPECT_EQ(list.GetCurrentConfig(), nullptr);
    EXPECT_STREQ(list.GetCurrentConfigName(), "");
}

TEST(ProjectSimConfigList, AppendsInOrderAndIgnoresNull) {
    TList list;
    Fill(list, {"b", "a", "b"});
    list.AddConfiguration(nullptr);
    EXPECT_EQ(NamesIn(list), "<b><a><b>");
    EXPECT_EQ(list.GetCurrentConfig(), nullptr);
}

TEST(ProjectSimConfigList, FindsTheFirstOfANameByteForByte) {
    TList list;
    Fill(list, {"a", "b", "b", ""});
    const auto& all = list.GetConfigurations();
    EXPECT_EQ(list.Find("b"), all[1]);
    EXPECT_EQ(std::as_const(list).Find("a"), all[0]);
    EXPECT_EQ(list.Find("B"), nullptr);
    EXPECT_EQ(list.Find("a "), nullptr);
    EXPECT_EQ(list.Find("Default"), nullptr);
    EXPECT_EQ(list.Find(""), all[3]);
    EXPECT_EQ(list.Find(nullptr), all[3]);
}

TEST(ProjectSimConfigList, SelectsByName) {
    TList list;
    Fill(list, {"a", "b"});
    list.SelectCurrentConfig("b");
    EXPECT_EQ(NamesIn(list), "<a><b*>");
    EXPECT_STREQ(list.GetCurrentConfigName(), "b");
    list.SelectCurrentConfig(list.GetCurrentConfigName());
    EXPECT_EQ(NamesIn(list), "<a><b*>");
    list.SelectCurrentConfig("Default");
    EXPECT_EQ(NamesIn(list), "<a><b>");
}

TEST(ProjectSimConfigList, SelectsByTheNameOfAConfiguration) {
    TList list;
    Fill(list, {"a", "b", "b"});
    const TProjectSimConfig copy(*list.GetConfigurations()[0]);
    list.SelectCurrentConfig(&copy);
    EXPECT_EQ(NamesIn(list), "<a*><b><b>");
    list.SelectCurrentConfig(list.GetConfigurations()[2]);
    EXPECT_EQ(NamesIn(list), "<a><b*><b>");
    list.SelectCurrentConfig(nullptr);
    EXPECT_EQ(NamesIn(list), "<a><b><b>");
    list.SelectCurrentConfig("a");
    list.SelectCurrentConfig(static_cast<const TProjectSimConfig*>(nullptr));
    EXPECT_EQ(NamesIn(list), "<a><b><b>");
}

TEST(ProjectSimConfigList, RemovesTheFirstOfAName) {
    TList list;
    Fill(list, {"a", "b", "c", "b"});
    list.SelectCurrentConfig("c");
    EXPECT_TRUE(list.RemoveConfiguration("b"));
    EXPECT_EQ(NamesIn(list), "<a><c*><b>");
    EXPECT_FALSE(list.RemoveConfiguration("d"));
    EXPECT_FALSE(list.RemoveConfiguration(nullptr));
    EXPECT_TRUE(list.RemoveConfiguration(list.GetCurrentConfigName()));
    EXPECT_EQ(NamesIn(list), "<a><b>");
    EXPECT_EQ(list.GetCurrentConfig(), nullptr);
}

TEST(ProjectSimConfigList, ClearLeavesNothing) {
    TList list;
    Fill(list, {"a", "b"});
    list.SelectCurrentConfig("a");
    list.Clear();
    EXPECT_EQ(NamesIn(list), "");
    EXPECT_EQ(list.GetCurrentConfig(), nullptr);
}

TEST(ProjectSimConfigList, CopiesConfigurationsAndSelectsTheCurrentByPlace) {
    TList list;
    Fill(list, {"b", "a", "c"});
    list.GetConfigurations()[2]->GetGeneralConfiguration()->SetLogFileName("x.log");
    list.SelectCurrentConfig("a");
    list.GetConfigurations()[1]->SetName("b");
    const TList copy(list);
    TList assigned;
    Fill(assigned, {"old"});
    assigned.SelectCurrentConfig("old");
    assigned = list;
    list.GetConfigurations()[0]->SetName("changed");
    const TList* copies[] = {&copy, &assigned};
    for (const TList* each : copies) {
        EXPECT_EQ(NamesIn(*each), "<b><b*><c>");
        EXPECT_EQ(TextOf(*each->GetConfigurations()[2]),
                  "name=c\nlog=x.log\ntop show clear bench constants debugging size=0\n");
    }
}

TEST(ProjectSimConfigList, ACopyWithoutCurrentHasNone) {
    TList list;
    Fill(list, {"a"});
    TList assigned;
    Fill(assigned, {"old"});
    assigned.SelectCurrentConfig("old");
    assigned = list;
    EXPECT_EQ(NamesIn(assigned), "<a>");
}

TEST(ProjectSimConfigList, SelfAssignmentDoesNothing) {
    TList list;
    Fill(list, {"a", "b"});
    list.SelectCurrentConfig("b");
    const TList& same = list;
    list = same;
    EXPECT_EQ(NamesIn(list), "<a><b*>");
}

TEST(ProjectSimConfigList, PassesTheProjectFileToEveryConfiguration) {
    TList list;
    list.AddConfiguration(new TProjectSimConfig(false));
    list.AddConfiguration(new TProjectSimConfig(true));
    list.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    for (const TProjectSimConfig* configuration : list.GetConfigurations()) {
        const auto* settings = configuration->GetProjectLanguageConfig(LANGUAGE_TESTBUILDER);
        EXPECT_EQ(settings->GetProjectFileName(), FileNamed("D:\\p\\x.hpj"));
    }
}
