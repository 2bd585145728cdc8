#include "settings/settingtable.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>
#include <set>

namespace {

std::string OrDash(const char* text) {
    return text ? text : "-";
}

/// "name | missing in an element, in INI files | place | fixed in diagrams".
std::string TextOf(const TGeneralSetting& setting) {
    return std::string(setting.Name) + " | " + OrDash(setting.MissingInElement) + " " +
           OrDash(setting.MissingInIni) + " | " + std::to_string(setting.IniPlace) + " | " +
           OrDash(setting.FixedInDiagrams) + "\n";
}

/// "name kind (older names) | key: place[/language][ written], ... | missing | entries".
std::string TextOf(const TLanguageSetting& setting) {
    std::string text = std::string(setting.Name) + " " + std::to_string(setting.Kind);
    for (const char* older : setting.OlderNames) text += std::string(" (") + older + ")";
    text += " | " + OrDash(setting.IniKey) + ":";
    for (const TIniPlace& place : setting.IniPlaces)
        text += " " + std::to_string(place.Place) +
                (place.Language == LANGUAGE_NONE
                     ? ""
                     : std::string("/") + GetStringFromHdlLanguage(place.Language)) +
                (place.IsRead ? "" : " written");
    return text + " | " + OrDash(setting.MissingInIni) + " | " + OrDash(setting.Entries.Element) +
           (setting.IsWrittenEmpty ? "" : " unless empty") + "\n";
}

template <class TSettings>
std::string TextOf(const std::vector<TSettings>& settings) {
    std::string text;
    for (const TSettings& setting : settings) text += TextOf(setting);
    return text;
}

}  // namespace

TEST(SettingTable, HoldsEveryGeneralSetting) {
    std::string expected;
    for (const TGeneralSettingText& row : GeneralSettingTexts())
        expected += std::string(row.Name) + " | " + OrDash(row.MissingInElement) + " " +
                    OrDash(row.MissingInIni) + " | " + std::to_string(row.IniPlace) + " | " +
                    OrDash(row.FixedInDiagrams) + "\n";
    EXPECT_EQ(TextOf(GetGeneralSettings()), expected);
}

TEST(SettingTable, HoldsEverySettingOfALanguage) {
    EXPECT_EQ(TextOf(GetLanguageSettings()),
              "SimTool 5 | SimTool: | - | -\n"
              "IncludeDirectories 7 | IncludeDirectory: 1/Verilog 9/TestBuilder written | - | "
              "Directory unless empty\n"
              "LibraryDirectories 7 | LibraryDirectory: 2/Verilog 10/TestBuilder written | - | "
              "Directory unless empty\n"
              "LibraryExtensions 6 | LibraryExtension: 3/Verilog | - | Extension unless empty\n"
              "UseVhdl93Defaults 2 | UseVhdl93Defaults: 4/Verilog | true | -\n"
              "DelayType 4 | DelayType: 5/Verilog | - | -\n"
              "PliDriven 2 | PliDriven: 6/Verilog | false | -\n"
              "ActiveSnapshotName 0 | ActiveSnapshotName: 7 | - | -\n"
              "DestinationLibraryName 0 | DestinationLibraryName: 8 | - | -\n"
              "AdditionalExtensions 0 | AdditionalExtensions: 13 | - | -\n"
              "BuildOptions 0 (SimulatorOptions) (CompilerOptions) | BuildOptions: 14 | - | -\n"
              "LinkerOptions 0 | LinkerOptions: 15 | - | -\n"
              "RuntimeOptions 0 | RuntimeOptions: 16 | - | -\n"
              "OutputFileName 0 | OutputFileName: 12/TestBuilder | - | - unless empty\n"
              "RunOutputFileExecutable 2 | RunOutputFileExecutable: 11/TestBuilder | false | -\n"
              "ForceTopLevel 2 | -: | - | -\n");
}

TEST(SettingTable, GivesEveryKeyAPlaceOfItsOwn) {
    std::set<int> places;
    for (const TGeneralSetting& setting : GetGeneralSettings())
        EXPECT_TRUE(places.insert(setting.IniPlace).second) << setting.Name;
    places.clear();
    for (const TLanguageSetting& setting : GetLanguageSettings())
        for (const TIniPlace& place : setting.IniPlaces)
            EXPECT_TRUE(places.insert(place.Place).second) << setting.Name;
}

TEST(SettingTable, FindsSettingsByNameAlsoByOlderOnes) {
    EXPECT_STREQ(FindGeneralSetting("LogFileName")->Name, "LogFileName");
    EXPECT_STREQ(FindLanguageSetting("ForceTopLevel")->Name, "ForceTopLevel");
    EXPECT_STREQ(FindLanguageSetting("SimulatorOptions")->Name, "BuildOptions");
    EXPECT_STREQ(FindLanguageSetting("CompilerOptions")->Name, "BuildOptions");
    for (const char* unknown : {"", "logfilename", "LinkerOption", "IncludeDirectory"}) {
        EXPECT_EQ(FindGeneralSetting(unknown), nullptr) << unknown;
        EXPECT_EQ(FindLanguageSetting(unknown), nullptr) << unknown;
    }
    EXPECT_EQ(FindGeneralSetting("SimTool"), nullptr);
    EXPECT_EQ(FindLanguageSetting("LogFileName"), nullptr);
}
