#include "services/xml/xmlstream.h"
#include "settings/projectsimconfig.h"
#include "tests/settings/configurationtext.h"
#include "tests/settings/cutsettings.h"
#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

using TConfig = TProjectSimConfig;

constexpr const char* kInvalidElement =
    "projectsettingsconfigurations(318): Check failed: \"(elemI.NotAtTail() && "
    "(elemI.Current()->ElemType == TElement::START) && "
    "!strcmp(elemI.Current()->Name, \\\"ProjectSettingsConfiguration\\\") ) && "
    "\\\"TProjectSimConfig::ReadFromFile was called on an invalid element.\\\"\"\n";

const THdlLanguage kStored[] = {LANGUAGE_VERILOG, LANGUAGE_VHDL, LANGUAGE_BLUESPECVERILOG,
                                LANGUAGE_CPLUSPLUS, LANGUAGE_TESTBUILDER};

/// Reads `elements` into `configuration` with a project file on a drive. Gives the result and the
/// element at which the reader stopped.
std::string Read(TConfig& configuration, const std::string& elements) {
    TXMLList list;
    PushElements(&list, elements);
    TElementIterator element(list);
    const bool result = configuration.ReadFromFile(element, FileNamed("D:\\p\\x.hpj"));
    return std::string(result ? "true" : "false") + " at " + ElementAt(element);
}

std::string Language(const std::string& name, const std::string& content) {
    return "START LanguageSettings Language=" + name + "\n" + content + "END LanguageSettings\n";
}

std::string Element(const std::string& name, const std::string& text) {
    return "START " + name + "\nTEXT " + text + "\nEND " + name + "\n";
}

std::string Tool(TSimulatorType tool) {
    return Element("SimTool", GetSimulatorNameFromType(tool));
}

}  // namespace

TEST(ProjectSimConfigXml, WritesGeneralAndLanguageSettingsInOrder) {
    TConfig configuration(false);
    configuration.SetName("Release");
    EXPECT_EQ(
        WithoutUnknown(
            ElementsWrittenBy([&](TXMLList* list) { configuration.WriteToProjectFile(list); })),
        "START ProjectSettingsConfiguration ConfigurationName=Release\n" + GeneralElements() +
            LanguageElements("Verilog", {{"SimTool", "SimZorvik Verilog"},
                                         {"IncludeDirectories", "./"},
                                         {"LibraryDirectories", "lib/verilog, lib"},
                                         {"LibraryExtensions", ".v, .vo"}}) +
            LanguageElements("VHDL",
                             {{"SimTool", "SimZorvik VHDL"}, {"IncludeDirectories", "./"}}) +
            LanguageElements("Bluespec", {{"SimTool", "Bluespec"}, {"IncludeDirectories", "./"}}) +
            LanguageElements("C++",
                             {{"SimTool", "Microsoft C++"},
                              {"BuildOptions", "/MD /W3 /GR /GX /D NDEBUG /c"},
                              {"LinkerOptions", " /dll /machine:I386 /PDB:NONE kernel32.lib"}}) +
            LanguageElements("TestBuilder", {{"SimTool", "Microsoft C++"}}) +
            "END ProjectSettingsConfiguration\n");
}

TEST(ProjectSimConfigXml, WritesOnlyTheLanguagesItHolds) {
    TConfig configuration(nullptr);
    TXMLList list;
    configuration.WriteToProjectFile(&list);
    EXPECT_EQ(WithoutUnknown(ElementsOf(list)),
              "START ProjectSettingsConfiguration ConfigurationName=\n" + GeneralElements() +
                  "END ProjectSettingsConfiguration\n");
    configuration.WriteToProjectFile(nullptr);
}

TEST(ProjectSimConfigXml, ReadsBackWhatItWrote) {
    TConfig configuration(true);
    configuration.SetName("Release");
    configuration.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    configuration.GetGeneralConfiguration()->SetDumpWatchSignals(true);
    for (const THdlLanguage language : kStored)
        configuration.GetProjectLanguageConfig(language)->AddIncludeDirectory("inc", true);
    TXMLList list;
    list.SetFileName("D:\\p\\x.hpj");
    configuration.WriteToProjectFile(&list);
    TElementIterator element(list);
    TConfig read(nullptr);
    EXPECT_TRUE(read.ReadFromFile(element, FileNamed("D:\\p\\x.hpj")));
    EXPECT_FALSE(element.NotAtTail());
    std::string expected =
        Replaced(ConfigurationDefaultsInProject("Release", true), "top", "show", "show dump");
    for (const char* section : {"[0]", "[1]", "[2]"})
        expected = Replaced(expected, section, "<D:\\p>", "<D:\\p><D:\\p\\inc>");
    for (const char* section : {"[4]", "[7]"})
        expected = Replaced(expected, section, "include=", "include=<D:\\p\\inc>");
    EXPECT_EQ(TextOf(read), expected);
}

TEST(ProjectSimConfigXml, ReadsIntoTheSettingsThereAre) {
    TConfig configuration(false);
    EXPECT_EQ(Read(configuration,
                   "START ProjectSettingsConfiguration ConfigurationName=New\n" +
                       Language("Verilog", Tool(SIM_VCS) +
                                               "START LibraryExtensions\nSTART Extension\n"
                                               "TEXT .x\nEND Extension\nEND LibraryExtensions\n") +
                       "END ProjectSettingsConfiguration\nSTART Next\n"),
              "true at START Next");
    std::string expected = ConfigurationDefaults("New", false);
    const auto replace = [&expected](const std::string& from, const std::string& to) {
        expected = Replaced(expected, from, to);
    };
    replace("project=null", "project=D:\\p\\x.hpj");
    replace("tool=1 ", "tool=22 ");
    replace("<.vo>", "<.vo><.x>");
    EXPECT_EQ(TextOf(configuration), expected);
}

TEST(ProjectSimConfigXml, ReplacesASimulatorThatDoesNotSupportItsLanguage) {
    struct TRow {
        const char* Language;
        std::string Content;
        int Expected;
    };
    const TRow rows[] = {
        {"Verilog", Tool(SIM_NC_VERILOG), SIM_NC_VERILOG},
        {"Verilog", Tool(SIM_NC_VHDL), SIM_ZORVIK_VERILOG},
        {"VHDL", Tool(SIM_NC_VHDL), SIM_NC_VHDL},
        {"VHDL", Tool(SIM_NC_VERILOG), SIM_ZORVIK_VHDL},
        {"VHDL", "", SIM_ZORVIK_VHDL},
        {"Bluespec", Tool(SIM_GCC), SIM_BLUESPEC},
        {"C++", Tool(SIM_GCC), SIM_GCC},
        {"C++", Tool(SIM_BLUESPEC), SIM_MICROSOFT_CPP},
        {"TestBuilder", "START SimTool\nTEXT unknown\nEND SimTool\n", SIM_MICROSOFT_CPP},
    };
    for (const TRow& row : rows) {
        RecordingLog log;
        TConfig configuration(nullptr);
        EXPECT_EQ(Read(configuration, "START ProjectSettingsConfiguration\n" +
                                          Language(row.Language, row.Content) +
                                          "END ProjectSettingsConfiguration\n"),
                  "true at TAIL");
        const auto* settings =
            configuration.GetProjectLanguageConfig(GetHdlLanguageFromString(row.Language));
        ASSERT_NE(settings, nullptr) << row.Language << row.Content;
        EXPECT_EQ(settings->GetTool(), row.Expected) << row.Language << row.Content;
        EXPECT_EQ(Joined(settings->GetIncludeDirectories()), "<D:\\p\\>")
            << row.Language << row.Content;
    }
}

TEST(ProjectSimConfigXml, AStoredIncludeListKeepsTheProjectDirectoryOut) {
    TConfig configuration(nullptr);
    EXPECT_EQ(Read(configuration,
                   "START ProjectSettingsConfiguration\n" +
                       Language("VHDL",
                                "START IncludeDirectories\nSTART Directory\nTEXT a\nEND Directory\n"
                                "END IncludeDirectories\n") +
                       "END ProjectSettingsConfiguration\n"),
              "true at TAIL");
    EXPECT_EQ(
        Joined(configuration.GetProjectLanguageConfig(LANGUAGE_VHDL)->GetIncludeDirectories()),
        "<D:\\p\\a>");
}

TEST(ProjectSimConfigXml, ReadsPastLanguagesThatAreNotStored) {
    for (const char* name : {"SystemC", "Language5", "Specman", "Language8", "None", "Unknown"}) {
        TConfig configuration(nullptr);
        EXPECT_EQ(
            Read(configuration,
                 "START ProjectSettingsConfiguration\n" + Language(name, Tool(SIM_GCC)) +
                     Language("VHDL", Tool(SIM_NC_VHDL)) + "END ProjectSettingsConfiguration\n"),
            "true at TAIL")
            << name;
        for (int language = 0; language <= 9; ++language)
            EXPECT_EQ(configuration.GetProjectLanguageConfig(static_cast<THdlLanguage>(language)) !=
                          nullptr,
                      language == LANGUAGE_VHDL)
                << name << language;
    }
}

TEST(ProjectSimConfigXml, ARepeatedLanguageIsReadIntoTheSameSettings) {
    TConfig configuration(nullptr);
    EXPECT_EQ(Read(configuration,
                   "START ProjectSettingsConfiguration\n" + Language("VHDL", Tool(SIM_NC_VHDL)) +
                       Language("VHDL", "START PliDriven\nTEXT true\nEND PliDriven\n") +
                       "END ProjectSettingsConfiguration\n"),
              "true at TAIL");
    const auto* settings = configuration.GetProjectLanguageConfig(LANGUAGE_VHDL);
    EXPECT_EQ(settings->GetTool(), SIM_NC_VHDL);
    EXPECT_TRUE(settings->GetPliDriven());
}

TEST(ProjectSimConfigXml, StepsThroughWhatItDoesNotKnow) {
    TConfig configuration(nullptr);
    EXPECT_EQ(Read(configuration,
                   "START ProjectSettingsConfiguration ConfigurationName=N\nTEXT stray\n"
                   "START Unknown\nSTART GeneralConfiguration LogFileName=x.log\n"
                   "END GeneralConfiguration\nEND Unknown\nEND Other\n"
                   "END ProjectSettingsConfiguration\nEND Outer\n"),
              "true at END Outer");
    EXPECT_EQ(TextOf(configuration),
              "name=N\nlog=x.log\n"
              "top show dump break clear parse bench constants debugging size=0\n");
}

TEST(ProjectSimConfigXml, KeepsWhatItReadBeforeABreak) {
    struct TRow {
        const char* Label;
        std::string Elements;
        const char* Result;
        const char* Name;
        std::string Log;
        bool HasVhdl;
    };
    const std::string start = "START ProjectSettingsConfiguration ConfigurationName=N\n";
    const std::string vhdl = Language("VHDL", Tool(SIM_NC_VHDL));
    const TRow rows[] = {
        {"nothing", "", "false at TAIL", "old", kInvalidElement, false},
        {"another element", "START ProjectSettings\n", "false at START ProjectSettings", "old",
         kInvalidElement, false},
        {"its end", "END ProjectSettingsConfiguration\n",
         "false at END ProjectSettingsConfiguration", "old", kInvalidElement, false},
        {"cut after the start", start, "false at TAIL", "N", "", false},
        {"cut after a language", start + vhdl, "false at TAIL", "N", "", true},
        {"cut in a language", start + "START LanguageSettings Language=VHDL\n", "false at TAIL",
         "N", "", true},
        {"language missing", start + vhdl + "START LanguageSettings\nEND LanguageSettings\n",
         "false at START LanguageSettings", "N", "", true},
        {"language empty", start + "START LanguageSettings Language=\n",
         "false at START LanguageSettings Language=", "N", "", false},
        {"broken list",
         start + Language("VHDL", "START IncludeDirectories\nEND IncludeDirectories\n") + vhdl,
         "false at END IncludeDirectories", "N", "", true},
        {"name missing", "START ProjectSettingsConfiguration\nEND ProjectSettingsConfiguration\n",
         "true at TAIL", "", "", false},
    };
    for (const TRow& row : rows) {
        RecordingLog log;
        TConfig configuration(nullptr);
        configuration.SetName("old");
        EXPECT_EQ(Read(configuration, row.Elements), row.Result) << row.Label;
        EXPECT_STREQ(configuration.GetName(), row.Name) << row.Label;
        EXPECT_EQ(configuration.GetProjectLanguageConfig(LANGUAGE_VHDL) != nullptr, row.HasVhdl)
            << row.Label;
        EXPECT_EQ(log.Take(), row.Log) << row.Label;
    }
}

TEST(ProjectSimConfigXml, HoldsWhatStandsBeforeACutAtAnyElement) {
    const std::string vhdl =
        "[1] project=D:\\p\\x.hpj vcd=null\n"
        "tool=0 delay=1 toplevel vhdl93\n"
        "include=\nlibrary=\nextensions=\n"
        "output=<> additional=<> snapshot=<> destination=<work>\n"
        "build=<> linker=<> runtime=<>\n";
    const std::vector<TReadStep> steps = {
        {"START ProjectSettingsConfiguration ConfigurationName=N", "name=old", "name=N"},
        {"START GeneralConfiguration LogFileName=x.log",
         "log=simulation.log\ntop show clear bench constants debugging size=0\n",
         "log=x.log\ntop show dump break clear parse bench constants debugging size=0\n"},
        {"END GeneralConfiguration"},
        {"START LanguageSettings Language=VHDL", "size=0\n", "size=0\n" + vhdl},
        {"START SimTool"},
        {std::string("TEXT ") + GetSimulatorNameFromType(SIM_NC_VERILOG), "tool=0", "tool=20"},
        {"END SimTool"},
        {"START IncludeDirectories"},
        {"START Directory"},
        {"TEXT inc"},
        {"END Directory"},
        {"END IncludeDirectories", "include=", "include=<D:\\p\\inc>"},
        // Only settings read to their end are checked against the language.
        {"END LanguageSettings", "tool=20", "tool=4"},
        {"START LanguageSettings Language=VHDL"},
        {"START SimTool"},
        {std::string("TEXT ") + GetSimulatorNameFromType(SIM_NC_VHDL), "tool=4", "tool=18"},
        {"END SimTool"},
        {"END LanguageSettings"},
        {"END ProjectSettingsConfiguration", "false", "true"},
    };
    ExpectAfterEachCut(steps, std::string("false at TAIL\nname=old\n") + kGeneralDefaults,
                       [](const std::string& elements) {
                           RecordingLog log;
                           TConfig configuration(nullptr);
                           configuration.SetName("old");
                           const std::string result = Read(configuration, elements);
                           EXPECT_EQ(log.Take(), elements.empty() ? kInvalidElement : "");
                           return result + "\n" + TextOf(configuration);
                       });
}
