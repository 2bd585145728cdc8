#include "settings/projectsimsettings.h"
#include "services/xml/xmlstream.h"
#include "tests/settings/configurationtext.h"
#include "tests/settings/cutsettings.h"
#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>

namespace {

using TSettings = TProjectSimSettings;

void Fill(TSettings& settings, std::initializer_list<const char*> names) {
    for (const char* name : names) settings.AddConfiguration(NewConfiguration(name));
}

/// Reads `elements` into `settings` with a project file on a drive. Gives the result and the
/// element at which the reader stopped.
std::string Read(TSettings& settings, const std::string& elements) {
    TXMLList list;
    PushElements(&list, elements);
    TElementIterator element(list);
    const bool result = settings.ReadFromFile(element, FileNamed("D:\\p\\x.hpj"));
    return std::string(result ? "true" : "false") + " at " + ElementAt(element);
}

std::string Configuration(const std::string& name, const std::string& content = "") {
    return "START ProjectSettingsConfiguration ConfigurationName=" + name + "\n" + content +
           "END ProjectSettingsConfiguration\n";
}

constexpr const char* kMissingSource =
    "projectsettings(97): Check failed: \"sourceConfiguration\"\n";
constexpr const char* kInvalidElement =
    "projectsettings(158): Check failed: \"(elemI.NotAtTail() && "
    "(elemI.Current()->ElemType == TElement::START) && "
    "!strcmp(elemI.Current()->Name, \\\"ProjectSettings\\\") ) && "
    "\\\"TProjectSimSettings::ReadFromFile was called on an invalid element.\\\"\"\n";

}  // namespace

TEST(ProjectSimSettings, DefaultDenotesTheFirstConfiguration) {
    TSettings settings;
    EXPECT_EQ(settings.GetConfiguration("Default"), nullptr);
    Fill(settings, {"Release", "Default", "Debug"});
    const auto& all = settings.GetConfigurations();
    EXPECT_EQ(settings.GetConfiguration("Default"), all[0]);
    EXPECT_EQ(std::as_const(settings).GetConfiguration("Default"), all[0]);
    EXPECT_EQ(settings.GetConfiguration("Debug"), all[2]);
    EXPECT_EQ(std::as_const(settings).GetConfiguration("Release"), all[0]);
    EXPECT_EQ(settings.GetConfiguration("default"), nullptr);
    EXPECT_EQ(settings.GetConfiguration(nullptr), nullptr);
    EXPECT_EQ(settings.Find("Default"), all[1]);
}

TEST(ProjectSimSettings, AppendsACopyUnderItsNewName) {
    TSettings settings;
    Fill(settings, {"Release", "Debug"});
    settings.SelectCurrentConfig("Debug");
    settings.GetConfigurations()[1]->GetGeneralConfiguration()->SetLogFileName("x.log");
    settings.CopyConfiguration("Debug", "Fast");
    settings.CopyConfiguration("Default", "Fast");
    settings.CopyConfiguration(settings.GetConfigurations()[0]->GetName(),
                               settings.GetConfigurations()[0]->GetName());
    settings.CopyConfiguration("Release", nullptr);
    EXPECT_EQ(NamesIn(settings), "<Release><Debug*><Fast><Fast><Release><>");
    EXPECT_STREQ(
        settings.GetConfigurations()[2]->GetGeneralConfiguration()->GetSimulationLogFileName(),
        "x.log");
    EXPECT_STREQ(
        settings.GetConfigurations()[3]->GetGeneralConfiguration()->GetSimulationLogFileName(),
        "simulation.log");
}

TEST(ProjectSimSettings, AMissingSourceIsACheckAndAddsNothing) {
    RecordingLog log;
    TSettings settings;
    settings.CopyConfiguration("Default", "a");
    EXPECT_EQ(log.Take(), kMissingSource);
    Fill(settings, {"a"});
    settings.CopyConfiguration("b", "c");
    settings.CopyConfiguration(nullptr, "c");
    EXPECT_EQ(log.Take(), std::string(kMissingSource) + kMissingSource);
    EXPECT_EQ(NamesIn(settings), "<a>");
}

TEST(ProjectSimSettings, PassesItsProjectFileToEveryConfiguration) {
    TSettings settings;
    settings.AddConfiguration(new TProjectSimConfig(false));
    settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    EXPECT_EQ(settings.GetProjectFileName(), FileNamed("D:\\p\\x.hpj"));
    EXPECT_EQ(Joined(settings.GetConfigurations()[0]
                         ->GetProjectLanguageConfig(LANGUAGE_VERILOG)
                         ->GetLibraryDirectories()),
              "<D:\\p\\lib\\verilog><D:\\p\\lib>");
}

TEST(ProjectSimSettings, NamesTheConfigurationGivenAfterTheFile) {
    struct TRow {
        const char* Label;
        const char* Name;
        const char* File;
        const char* Expected;
    };
    const TRow rows[] = {
        {"by name", "Debug", "D:\\p\\my.design.hpj", "<Release><my.design><Debug>"},
        {"Default", "Default", "D:\\p\\x.hpj", "<x><Debug><Debug>"},
        {"unknown", "debug", "D:\\p\\x.hpj", "<Release><Debug><Debug>"},
        {"null", nullptr, "D:\\p\\x.hpj", "<Release><Debug><Debug>"},
        {"no file", "Debug", nullptr, "<Release><Debug><Debug>"},
    };
    for (const TRow& row : rows) {
        TSettings settings;
        Fill(settings, {"Release", "Debug", "Debug"});
        const ISFileName* file = row.File ? FileNamed(row.File) : nullptr;
        settings.SetProjectFileName(file, row.Name);
        EXPECT_EQ(NamesIn(settings), row.Expected) << row.Label;
        EXPECT_EQ(settings.GetProjectFileName(), file) << row.Label;
    }
}

TEST(ProjectSimSettings, RenamingTakesTheConfigurationsOwnName) {
    TSettings settings;
    Fill(settings, {"a"});
    settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"),
                                settings.GetConfigurations()[0]->GetName());
    EXPECT_EQ(NamesIn(settings), "<x>");
}

TEST(ProjectSimSettings, CopiesConfigurationsCurrentAndProjectFile) {
    TSettings settings;
    Fill(settings, {"a", "b"});
    settings.SelectCurrentConfig("b");
    settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    const TSettings copy(settings);
    TSettings assigned;
    assigned = settings;
    settings.Clear();
    EXPECT_EQ(NamesIn(copy), "<a><b*>");
    EXPECT_EQ(NamesIn(assigned), "<a><b*>");
    EXPECT_EQ(copy.GetProjectFileName(), FileNamed("D:\\p\\x.hpj"));
    EXPECT_EQ(assigned.GetProjectFileName(), FileNamed("D:\\p\\x.hpj"));
}

TEST(ProjectSimSettings, WritesTheCurrentNameAndEveryConfiguration) {
    TSettings settings;
    Fill(settings, {"a", "b"});
    settings.SelectCurrentConfig("b");
    const std::string general = ElementsWrittenBy(
        [](TXMLList* list) { TProjectSimGeneralConfig().WriteToProjectFile(list); });
    EXPECT_EQ(ElementsWrittenBy([&](TXMLList* list) { settings.WriteToProjectFile(list); }),
              "START ProjectSettings CurrentConfiguration=b\n" + Configuration("a", general) +
                  Configuration("b", general) + "END ProjectSettings\n");
    settings.WriteToProjectFile(nullptr);
}

TEST(ProjectSimSettings, WithoutCurrentWritesTheTitleOfTheFile) {
    TSettings settings;
    const auto written = [&] {
        return ElementsWrittenBy([&](TXMLList* list) { settings.WriteToProjectFile(list); });
    };
    EXPECT_EQ(written(), "START ProjectSettings CurrentConfiguration=\nEND ProjectSettings\n");
    settings.SetProjectFileName(FileNamed("D:\\p\\design.hpj"));
    EXPECT_EQ(written(),
              "START ProjectSettings CurrentConfiguration=design\nEND ProjectSettings\n");
    settings.SetProjectFileName(ISFileName::BlankFileName);
    EXPECT_EQ(written(), "START ProjectSettings CurrentConfiguration=\nEND ProjectSettings\n");
}

TEST(ProjectSimSettings, ReadsBackWhatItWrote) {
    TSettings settings;
    for (const char* name : {"Release", "Debug"}) {
        settings.AddConfiguration(new TProjectSimConfig(*name == 'D'));
        settings.GetConfigurations().back()->SetName(name);
    }
    settings.GetConfigurations()[0]->GetProjectLanguageConfig(LANGUAGE_VHDL)->SetTool(SIM_NC_VHDL);
    settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    settings.SelectCurrentConfig("Debug");
    // The reader gives an empty include list the project's directory.
    for (TProjectSimConfig* configuration : settings.GetConfigurations())
        for (const THdlLanguage language : {LANGUAGE_CPLUSPLUS, LANGUAGE_TESTBUILDER})
            configuration->GetProjectLanguageConfig(language)->AddIncludeDirectory("inc", true);
    TXMLList list;
    list.SetFileName("D:\\p\\x.hpj");
    settings.WriteToProjectFile(&list);

    TSettings read;
    Fill(read, {"old", "older"});
    TElementIterator element(list);
    EXPECT_TRUE(read.ReadFromFile(element, FileNamed("D:\\p\\x.hpj")));
    EXPECT_FALSE(element.NotAtTail());
    EXPECT_EQ(NamesIn(read), "<Release><Debug*>");
    std::string release = ConfigurationDefaultsInProject("Release", false);
    std::string debug = ConfigurationDefaultsInProject("Debug", true);
    for (std::string* text : {&release, &debug})
        for (const char* section : {"[4]", "[7]"})
            *text = Replaced(*text, section, "include=", "include=<D:\\p\\inc>");
    EXPECT_EQ(TextOf(*read.GetConfigurations()[0]), Replaced(release, "[1]", "tool=4", "tool=18"));
    EXPECT_EQ(TextOf(*read.GetConfigurations()[1]), debug);
    EXPECT_EQ(read.GetProjectFileName(), FileNamed("D:\\p\\x.hpj"));
}

TEST(ProjectSimSettings, LanguagesOfTheFileStartFromNothingAndOthersFromTheirDefaults) {
    TSettings settings;
    EXPECT_EQ(Read(settings, "START ProjectSettings CurrentConfiguration=N\n" +
                                 Configuration("N",
                                               "START LanguageSettings Language=Verilog\n"
                                               "START LibraryExtensions\nSTART Extension\nTEXT .x\n"
                                               "END Extension\nEND LibraryExtensions\n"
                                               "END LanguageSettings\n") +
                                 "END ProjectSettings\nSTART Next\n"),
              "true at START Next");
    ASSERT_EQ(NamesIn(settings), "<N*>");
    const std::string start = "project=D:\\p\\x.hpj vcd=null\ntool=";
    const std::string flags = " delay=1 toplevel vhdl93\n";
    const std::string texts = "output=<> additional=<> snapshot=<> destination=<work>\n";
    const std::string none = "build=<> linker=<> runtime=<>\n";
    EXPECT_EQ(TextOf(*settings.GetCurrentConfig()),
              std::string("name=N\n") + kGeneralDefaults +  //
                  "[0] " + start + "1" + flags + "include=<D:\\p\\>\nlibrary=\nextensions=<.x>\n" +
                  texts + none +  //
                  "[1] " + start + "4" + flags + "include=<D:\\p>\nlibrary=\nextensions=\n" +
                  texts + none +  //
                  "[2] " + start + "10" + flags + "include=<D:\\p>\nlibrary=\nextensions=\n" +
                  texts + none +  //
                  "[4] " + start + "26" + flags + "include=\nlibrary=\nextensions=\n" + texts +
                  "build=</MD /W3 /GR /GX /D NDEBUG /c> "
                  "linker=< /dll /machine:I386 /PDB:NONE kernel32.lib> runtime=<>\n" +
                  "[7] " + start + "26" + flags + "include=\nlibrary=\nextensions=\n" + texts +
                  none);
}

TEST(ProjectSimSettings, ReadsListAndCurrentByTheRules) {
    struct TRow {
        const char* Label;
        std::string Elements;
        const char* Result;
        const char* Names;
        std::string Log;
    };
    const std::string start = "START ProjectSettings CurrentConfiguration=b\n";
    const std::string end = "END ProjectSettings\n";
    const std::string broken =
        "START ProjectSettingsConfiguration ConfigurationName=c\nSTART LanguageSettings\n";
    const TRow rows[] = {
        {"replaces the list", start + Configuration("c") + Configuration("b") + end, "true at TAIL",
         "<c><b*>", ""},
        {"unknown current", start + Configuration("c") + end, "true at TAIL", "<c>", ""},
        {"Default is a name here",
         "START ProjectSettings CurrentConfiguration=Default\n" + Configuration("c") + end,
         "true at TAIL", "<c>", ""},
        {"no configurations", start + end, "true at TAIL", "<a><b*>", ""},
        {"no current", "START ProjectSettings\n" + end, "true at TAIL", "<a><b>", ""},
        {"what it does not know",
         start + "TEXT x\nSTART Unknown\n" + Configuration("b") + "END Unknown\n" +
             "END ProjectSettingsConfiguration\n" + end + "TEXT after\n",
         "true at TEXT after", "<b*>", ""},
        {"duplicates", start + Configuration("b") + Configuration("b") + end, "true at TAIL",
         "<b*><b>", ""},
        {"cut after the start", start, "false at TAIL", "<a><b*>", ""},
        {"cut after a configuration", start + Configuration("b"), "false at TAIL", "<b*>", ""},
        {"first broken", start + broken + end, "false at START LanguageSettings", "<a*><b>", ""},
        {"second broken", start + Configuration("b") + broken + end,
         "false at START LanguageSettings", "<b>", ""},
        {"nothing", "", "false at TAIL", "<a*><b>", kInvalidElement},
        {"another element", "START Other\n", "false at START Other", "<a*><b>", kInvalidElement},
        {"its end", end, "false at END ProjectSettings", "<a*><b>", kInvalidElement},
    };
    for (const TRow& row : rows) {
        RecordingLog log;
        TSettings settings;
        Fill(settings, {"a", "b"});
        settings.SelectCurrentConfig("a");
        EXPECT_EQ(Read(settings, row.Elements), row.Result) << row.Label;
        EXPECT_EQ(NamesIn(settings), row.Names) << row.Label;
        EXPECT_EQ(log.Take(), row.Log) << row.Label;
        EXPECT_EQ(settings.GetProjectFileName() != nullptr, row.Log.empty()) << row.Label;
    }
}

TEST(ProjectSimSettings, KeptConfigurationsLearnTheNewProjectFile) {
    TSettings settings;
    settings.AddConfiguration(new TProjectSimConfig(false));
    EXPECT_EQ(Read(settings, "START ProjectSettings\nEND ProjectSettings\n"), "true at TAIL");
    EXPECT_EQ(Joined(settings.GetConfigurations()[0]
                         ->GetProjectLanguageConfig(LANGUAGE_VHDL)
                         ->GetIncludeDirectories()),
              "<D:\\p>");
}

TEST(ProjectSimSettings, HoldsWhatStandsBeforeACutAtAnyElement) {
    const std::vector<TReadStep> steps = {
        {"START ProjectSettings CurrentConfiguration=b", "<a*><b>", "<a><b*>"},
        // A configuration that is not whole is dropped, and the current one stays.
        {"START ProjectSettingsConfiguration ConfigurationName=c", "<a><b*>", "<a*><b>"},
        {"START GeneralConfiguration LogFileName=x.log"},
        {"END GeneralConfiguration"},
        {"START LanguageSettings Language=VHDL"},
        {"START IncludeDirectories"},
        {"START Directory"},
        {"TEXT inc"},
        {"END Directory"},
        {"END IncludeDirectories"},
        {"END LanguageSettings"},
        {"END ProjectSettingsConfiguration", "<a*><b>", "<c>"},
        {"START ProjectSettingsConfiguration ConfigurationName=b"},
        {"START LanguageSettings Language=Verilog"},
        {"END LanguageSettings"},
        {"END ProjectSettingsConfiguration", "<c>", "<c><b*>"},
        {"END ProjectSettings", "false", "true"},
    };
    ExpectAfterEachCut(steps, "false at TAIL\n<a*><b>", [](const std::string& elements) {
        TSettings settings;
        Fill(settings, {"a", "b"});
        settings.SelectCurrentConfig("a");
        const std::string result = Read(settings, elements);
        return result + "\n" + NamesIn(settings);
    });
}
