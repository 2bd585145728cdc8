#include "services/xml/xmlstream.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/settings/cutsettings.h"
#include "tests/settings/settingstext.h"
#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

using TConfig = TProjectSimLanguageConfig;

/// The content in the form of a project file that is saved as `path`; null: not saved anywhere.
std::string Written(TConfig& settings, const char* path) {
    TXMLList list;
    if (path) list.SetFileName(path);
    settings.WriteToProjectFile(&list, LANGUAGE_VERILOG, false, false, false);
    return ElementsOf(list);
}

std::string TextElement(const std::string& name, const std::string& text) {
    return "START " + name + "\nTEXT " + text + "\nEND " + name + "\n";
}

std::string Directories(const std::string& list, const std::vector<std::string>& texts) {
    std::string elements = "START " + list + "\n";
    for (const std::string& text : texts) elements += TextElement("Directory", text);
    return elements + "END " + list + "\n";
}

/// Reads `elements` into `settings` with a project file on a drive. Gives the result and the
/// element at which the reader stopped.
std::string Read(TConfig& settings, const std::string& elements) {
    TXMLList list;
    PushElements(&list, elements);
    TElementIterator element(list);
    const bool result = settings.ReadFromFile(element, FileNamed("D:\\p\\x.hpj"));
    return std::string(result ? "true" : "false") + " at " + ElementAt(element);
}

/// The settings after reading a whole element with this content.
std::string TextAfterReading(const std::string& content) {
    TConfig settings;
    EXPECT_EQ(Read(settings, "START LanguageSettings Language=Verilog\n" + content +
                                 "END LanguageSettings\nSTART Next\n"),
              "true at START Next")
        << content;
    return TextOf(settings);
}

/// The default settings as read from the project file, with one text replaced.
std::string DefaultsWith(const std::string& text, const std::string& replacement) {
    std::string defaults = Replaced(kLanguageDefaults, "project=null", "project=D:\\p\\x.hpj");
    if (!text.empty()) defaults = Replaced(defaults, text, replacement);
    return defaults;
}

constexpr const char* kSource = "projectsettingsconfigurationsdata";
const std::string kInvalidElement =
    std::string(kSource) +
    "(602): Check failed: \"(elemI.NotAtTail() && (elemI.Current()->ElemType == TElement::START) "
    "&& !strcmp(elemI.Current()->Name, \\\"LanguageSettings\\\") ) && "
    "\\\"TProjectSimSettings::ReadFromFile was called on an invalid element.\\\"\"\n";
const std::string kOutOfRange =
    std::string(kSource) +
    "(661): Check failed: \"false && \\\"SimTool integer value out of legal range\\\"\"\n";
const std::string kReadNone = std::string(kSource) +
                              "(673): Check failed: \"SimTool != SIM_NONE && "
                              "\\\"Sim None should not be stored in the project file\\\"\"\n";
const std::string kWriteNone = std::string(kSource) +
                               "(517): Check failed: \"SimTool != SIM_NONE && "
                               "\\\"Sim None should not be saved to the hpj file\\\"\"\n";

}  // namespace

TEST(ProjectSimLanguageConfigXml, WritesEverySettingInOrder) {
    const char* const expected =
        "START SimTool\nTEXT NCSim Verilog\nEND SimTool\n"
        "START IncludeDirectories\n"
        "START Directory\nTEXT inc\nEND Directory\n"
        "START Directory\nTEXT ${IP}/inc\nEND Directory\n"
        "END IncludeDirectories\n"
        "START LibraryDirectories\n"
        "START Directory\nTEXT E:\\lib\\\nEND Directory\n"
        "END LibraryDirectories\n"
        "START LibraryExtensions\n"
        "START Extension\nTEXT .v\nEND Extension\n"
        "START Extension\nTEXT .vo\nEND Extension\n"
        "END LibraryExtensions\n"
        "START UseVhdl93Defaults\nTEXT false\nEND UseVhdl93Defaults\n"
        "START DelayType\nTEXT 2\nEND DelayType\n"
        "START PliDriven\nTEXT true\nEND PliDriven\n"
        "START ActiveSnapshotName\nTEXT snap\nEND ActiveSnapshotName\n"
        "START DestinationLibraryName\nTEXT gates\nEND DestinationLibraryName\n"
        "START AdditionalExtensions\nTEXT .svp\nEND AdditionalExtensions\n"
        "START BuildOptions\nTEXT -b 1\nEND BuildOptions\n"
        "START LinkerOptions\nTEXT  -l 2\nEND LinkerOptions\n"
        "START RuntimeOptions\nTEXT -r 3\nEND RuntimeOptions\n"
        "START OutputFileName\nTEXT bench.exe\nEND OutputFileName\n"
        "START RunOutputFileExecutable\nTEXT true\nEND RunOutputFileExecutable\n"
        "START ForceTopLevel\nTEXT true\nEND ForceTopLevel\n";
    TConfig settings;
    FillLanguageConfig(settings);
    EXPECT_EQ(Written(settings, "D:\\p\\design.hpj"), expected);
    EXPECT_EQ(TextOf(settings), kFullLanguageConfig);
    EXPECT_EQ(LanguageContent(FullLanguageValues()), expected);
}

TEST(ProjectSimLanguageConfigXml, LeavesOutEmptyListsAndOutputFile) {
    TConfig settings;
    settings.SetTool(SIM_ZORVIK_VERILOG);
    EXPECT_EQ(Written(settings, "D:\\p\\x.hpj"),
              LanguageContent({{"SimTool", "SimZorvik Verilog"}}));
}

TEST(ProjectSimLanguageConfigXml, WritesNoSimulatorAfterLoggingIt) {
    RecordingLog log;
    TConfig settings;
    EXPECT_EQ(Written(settings, nullptr), LanguageContent({}));
    EXPECT_EQ(log.Take(), kWriteNone);
}

TEST(ProjectSimLanguageConfigXml, WritesNothingWithoutADocument) {
    RecordingLog log;
    TConfig settings;
    settings.WriteToProjectFile(nullptr, LANGUAGE_VERILOG, true, true, true);
    EXPECT_EQ(TextOf(settings), kLanguageDefaults);
    EXPECT_EQ(log.Take(), "");
}

TEST(ProjectSimLanguageConfigXml, WritesDirectoriesRelativeToTheDocument) {
    struct TRow {
        const char* Label;
        const char* Document;
        std::vector<std::string> Expected;
    };
    const TRow rows[] = {
        {"same directory",
         "D:\\p\\x.hpj",
         {"inc", ".", "../q", "C:\\c\\", "C:/a/", "C:/b/../c\\", "./", "%IP%", "D:\\p\\$IP"}},
        {"deeper",
         "D:\\p\\build\\x.hbf",
         {"../inc", "../", "../../q", "C:\\c\\", "C:/a/", "C:/b/../c\\", "./", "%IP%",
          "D:\\p\\$IP"}},
        {"no file",
         nullptr,
         {"D:\\p\\inc", "D:\\p\\", "D:\\q", "C:\\c\\", "C:/a/", "C:/b/../c\\", "./", "%IP%",
          "D:\\p\\$IP"}},
    };
    for (const TRow& row : rows) {
        TConfig settings;
        settings.SetTool(SIM_ZORVIK_VERILOG);
        for (const char* directory : {"D:\\p\\inc", "D:\\p\\", "D:\\q", "C:\\c\\", "C:/a/",
                                      "C:/b/../c\\", "./", "%IP%", "D:\\p\\$IP"})
            settings.AddIncludeDirectory(directory, false);
        std::string directories;
        for (const std::string& directory : row.Expected)
            directories += (directories.empty() ? "" : ", ") + directory;
        EXPECT_EQ(Written(settings, row.Document),
                  LanguageContent(
                      {{"SimTool", "SimZorvik Verilog"}, {"IncludeDirectories", directories}}))
            << row.Label;
    }
}

TEST(ProjectSimLanguageConfigXml, ReadsBackWhatItWrote) {
    TConfig settings;
    FillLanguageConfig(settings);
    settings.SetBuildOptions(" a <b> & \"c\" ");
    TConfig read;
    EXPECT_EQ(Read(read, "START LanguageSettings\n" + Written(settings, "D:\\p\\x.hpj") +
                             "END LanguageSettings\n"),
              "true at TAIL");
    // The flags for top-level settings and VCD are not stored.
    EXPECT_EQ(TextOf(read),
              "project=D:\\p\\x.hpj vcd=null\n"
              "tool=20 delay=2 toplevel pli run force\n"
              "include=<D:\\p\\inc><${IP}/inc>\nlibrary=<E:\\lib\\>\nextensions=<.v><.vo>\n"
              "output=<bench.exe> additional=<.svp> snapshot=<snap> destination=<gates>\n"
              "build=< a <b> & \"c\" > linker=< -l 2> runtime=<-r 3>\n");
}

TEST(ProjectSimLanguageConfigXml, AnEmptyElementChangesOnlyTheProjectFile) {
    EXPECT_EQ(TextAfterReading(""), DefaultsWith("", ""));
}

TEST(ProjectSimLanguageConfigXml, ReadsEachElementIntoItsSetting) {
    struct TRow {
        const char* Element;
        const char* Text;
        const char* Default;
        const char* Expected;
    };
    const TRow rows[] = {
        {"SimTool", "12", "tool=0", "tool=12"},
        {"SimTool", " 30\t", "tool=0", "tool=30"},
        {"SimTool", "0007", "tool=0", "tool=7"},
        {"UseVhdl93Defaults", "false", " vhdl93", ""},
        {"PliDriven", " TRUE ", "vhdl93", "vhdl93 pli"},
        {"RunOutputFileExecutable", "true", "vhdl93", "vhdl93 run"},
        {"ForceTopLevel", "true", "vhdl93", "vhdl93 force"},
        {"ForceTopLevel", "perhaps", "", ""},
        {"DelayType", "2", "delay=1", "delay=2"},
        {"DelayType", " 0 ", "delay=1", "delay=0"},
        {"DelayType", "7x", "delay=1", "delay=7"},
        {"DelayType", "max", "delay=1", "delay=0"},
        {"DelayType", "99999999999", "delay=1", "delay=2147483647"},
        {"ActiveSnapshotName", " s ", "snapshot=<>", "snapshot=< s >"},
        {"DestinationLibraryName", "gates", "<work>", "<gates>"},
        {"DestinationLibraryName", "", "<work>", "<>"},
        {"AdditionalExtensions", ".x", "additional=<>", "additional=<.x>"},
        {"OutputFileName", "a.exe", "output=<>", "output=<a.exe>"},
        {"BuildOptions", " -b", "build=<>", "build=< -b>"},
        {"SimulatorOptions", "-b", "build=<>", "build=<-b>"},
        {"CompilerOptions", "-b", "build=<>", "build=<-b>"},
        {"LinkerOptions", "-l ", "linker=<>", "linker=<-l >"},
        {"RuntimeOptions", "-r", "runtime=<>", "runtime=<-r>"},
        {"Simtool", "12", "", ""},
        {"VcdExport", "true", "", ""},
    };
    for (const TRow& row : rows)
        EXPECT_EQ(TextAfterReading(TextElement(row.Element, row.Text)),
                  DefaultsWith(row.Default, row.Expected))
            << row.Element << "=" << row.Text;
}

TEST(ProjectSimLanguageConfigXml, ReadsSimulatorNames) {
    for (int number = 1; number <= 30; ++number) {
        const std::string name = GetSimulatorNameFromType(static_cast<TSimulatorType>(number));
        for (const std::string& text : {name, " " + name + "  "})
            EXPECT_EQ(TextAfterReading(TextElement("SimTool", text)),
                      DefaultsWith("tool=0", "tool=" + std::to_string(number)))
                << text;
    }
}

TEST(ProjectSimLanguageConfigXml, ReportsSimulatorsThatCannotBe) {
    struct TRow {
        const char* Text;
        int Expected;
        std::string Log;
    };
    const TRow rows[] = {
        {"31", 5, kOutOfRange},
        {"0", 5, kOutOfRange},
        {"", 5, kOutOfRange},
        {"  ", 5, kOutOfRange},
        {"99999999999999999999", 5, kOutOfRange},
        {"-1", 0, kReadNone},
        {"None", 0, kReadNone},
        {"A simulator of tomorrow", 0, kReadNone},
        {"30", 30, ""},
        {"1", 1, ""},
    };
    for (const TRow& row : rows) {
        RecordingLog log;
        TConfig settings;
        settings.SetTool(SIM_ZORVIK_VHDL_32);
        EXPECT_EQ(Read(settings, "START LanguageSettings\n" + TextElement("SimTool", row.Text) +
                                     "END LanguageSettings\n"),
                  "true at TAIL")
            << row.Text;
        EXPECT_EQ(settings.GetTool(), row.Expected) << row.Text;
        EXPECT_EQ(log.Take(), row.Log) << row.Text;
    }
}

TEST(ProjectSimLanguageConfigXml, AnElementWithoutTextKeepsTheSetting) {
    TConfig settings;
    FillLanguageConfig(settings);
    std::string content;
    for (const char* name :
         {"SimTool", "UseVhdl93Defaults", "DelayType", "PliDriven", "ActiveSnapshotName",
          "DestinationLibraryName", "AdditionalExtensions", "BuildOptions", "LinkerOptions",
          "RuntimeOptions", "OutputFileName", "RunOutputFileExecutable", "ForceTopLevel"})
        content += std::string("START ") + name + "\nEND " + name + "\n";
    RecordingLog log;
    EXPECT_EQ(Read(settings, "START LanguageSettings\n" + content + "END LanguageSettings\n"),
              "true at TAIL");
    const std::string expected = Replaced(kFullLanguageConfig, "design.hpj", "x.hpj");
    EXPECT_EQ(TextOf(settings), expected);
    EXPECT_EQ(log.Take(), "");
}

TEST(ProjectSimLanguageConfigXml, TheLastOfTheBuildOptionElementsWins) {
    EXPECT_EQ(
        TextAfterReading(TextElement("CompilerOptions", "c") + TextElement("BuildOptions", "b") +
                         TextElement("SimulatorOptions", "s")),
        DefaultsWith("build=<>", "build=<s>"));
    EXPECT_EQ(
        TextAfterReading(TextElement("SimulatorOptions", "s") +
                         TextElement("CompilerOptions", "c") + TextElement("BuildOptions", "b")),
        DefaultsWith("build=<>", "build=<b>"));
}

TEST(ProjectSimLanguageConfigXml, ReplacesDirectoriesAndJoinsExtensions) {
    TConfig settings;
    settings.AddIncludeDirectory("old", false);
    settings.AddLibraryDirectory("old", false);
    settings.AddLibraryExtension(".old");
    EXPECT_EQ(Read(settings, "START LanguageSettings\n" +
                                 Directories("IncludeDirectories", {"a", "C:\\b", "./a", "$IP"}) +
                                 "START LibraryExtensions\n" + TextElement("Extension", ".v") +
                                 TextElement("Extension", ".old") + "END LibraryExtensions\n" +
                                 "END LanguageSettings\n"),
              "true at TAIL");
    EXPECT_EQ(settings.GetIncludeDirectories(),
              (std::vector<std::string>{"D:\\p\\a", "C:\\b\\", "$IP"}));
    EXPECT_EQ(settings.GetLibraryDirectories(), std::vector<std::string>{"old"});
    EXPECT_EQ(settings.GetLibraryExtensions(), (std::vector<std::string>{".old", ".v"}));
}

TEST(ProjectSimLanguageConfigXml, DirectoriesStayRelativeWithoutAProjectFile) {
    TXMLList list;
    PushElements(&list, "START LanguageSettings\n" +
                            Directories("LibraryDirectories", {"a", "C:\\b"}) +
                            "END LanguageSettings\n");
    TElementIterator element(list);
    TConfig settings;
    settings.SetProjectFileName(FileNamed("D:\\old.hpj"));
    EXPECT_TRUE(settings.ReadFromFile(element, nullptr));
    EXPECT_EQ(settings.GetLibraryDirectories(), (std::vector<std::string>{"a", "C:\\b"}));
    EXPECT_EQ(settings.GetProjectFileName(), nullptr);
}

TEST(ProjectSimLanguageConfigXml, StoringTheProjectFileUpdatesNoDirectories) {
    TConfig settings;
    settings.AddIncludeDirectory("kept", false);
    EXPECT_EQ(Read(settings, "START LanguageSettings\nEND LanguageSettings\n"), "true at TAIL");
    EXPECT_EQ(settings.GetIncludeDirectories(), std::vector<std::string>{"kept"});
}

TEST(ProjectSimLanguageConfigXml, StepsThroughWhatItDoesNotKnow) {
    EXPECT_EQ(TextAfterReading("TEXT stray\nSTART Unknown a=b\nSTART Deeper\nEND Deeper\n" +
                               TextElement("PliDriven", "true") + "TEXT more\nEND Unknown\n" +
                               TextElement("Other", "true") + "START Empty\nEND Empty\n" +
                               TextElement("LinkerOptions", "-l")),
              "project=D:\\p\\x.hpj vcd=null\n"
              "tool=0 delay=1 toplevel vhdl93 pli\n"
              "include=\nlibrary=\nextensions=\n"
              "output=<> additional=<> snapshot=<> destination=<work>\n"
              "build=<> linker=<-l> runtime=<>\n");
}

TEST(ProjectSimLanguageConfigXml, RefusesAnotherElementWithACheck) {
    struct TRow {
        const char* Elements;
        const char* Position;
    };
    const TRow rows[] = {
        {"", "false at TAIL"},
        {"END LanguageSettings\n", "false at END LanguageSettings"},
        {"TEXT LanguageSettings\n", "false at TEXT LanguageSettings"},
        {"START languageSettings\n", "false at START languageSettings"},
    };
    for (const TRow& row : rows) {
        RecordingLog log;
        TConfig settings;
        EXPECT_EQ(Read(settings, row.Elements), row.Position);
        EXPECT_EQ(TextOf(settings), kLanguageDefaults) << row.Elements;
        EXPECT_EQ(log.Take(), kInvalidElement) << row.Elements;
    }
}

TEST(ProjectSimLanguageConfigXml, KeepsWhatItReadBeforeABreak) {
    const std::string pli = TextElement("PliDriven", "true");
    const std::string directory = TextElement("Directory", "a");
    const std::string extension = TextElement("Extension", ".v");
    struct TRow {
        const char* Label;
        std::string Content;
        const char* Result;
        const char* Lists;
    };
    const TRow rows[] = {
        {"cut after the start", "", "false at TAIL", "include=<old>\nlibrary=\nextensions="},
        {"cut in an item", "START BuildOptions\n", "false at TAIL",
         "include=<old>\nlibrary=\nextensions="},
        {"empty include list", "START IncludeDirectories\nEND IncludeDirectories\n",
         "false at END IncludeDirectories", "include=<old>\nlibrary=\nextensions="},
        {"empty extension list", "START LibraryExtensions\nEND LibraryExtensions\n",
         "false at END LibraryExtensions", "include=<old>\nlibrary=\nextensions="},
        {"text for a directory", "START IncludeDirectories\nTEXT a\nEND IncludeDirectories\n",
         "false at TEXT a", "include=<old>\nlibrary=\nextensions="},
        {"another element in a list",
         "START IncludeDirectories\n" + directory + "START Extension\n", "false at START Extension",
         "include=<old>\nlibrary=\nextensions="},
        {"list ended by another",
         "START LibraryDirectories\n" + directory + "END IncludeDirectories\n",
         "false at END IncludeDirectories", "include=<old>\nlibrary=\nextensions="},
        {"cut in a directory", "START IncludeDirectories\nSTART Directory\nTEXT a\n",
         "false at TAIL", "include=<old>\nlibrary=\nextensions="},
        {"cut in an extension list", "START LibraryExtensions\n" + extension, "false at TAIL",
         "include=<old>\nlibrary=\nextensions=<.v>"},
        {"directory without text",
         "START IncludeDirectories\nSTART Directory\nEND Directory\nEND IncludeDirectories\n",
         "false at TAIL", "include=\nlibrary=\nextensions="},
        {"end of an item missing", "START Unknown\nTEXT x\nEND LanguageSettings\n", "false at TAIL",
         "include=<old>\nlibrary=\nextensions="},
        {"end of a list missing",
         "START IncludeDirectories\n" + directory + "END LanguageSettings\n",
         "false at END LanguageSettings", "include=<old>\nlibrary=\nextensions="},
    };
    for (const TRow& row : rows) {
        TConfig settings;
        settings.AddIncludeDirectory("old", false);
        EXPECT_EQ(Read(settings, "START LanguageSettings\n" + pli + row.Content), row.Result)
            << row.Label;
        EXPECT_EQ(TextOf(settings), DefaultsWith("vhdl93\ninclude=\nlibrary=\nextensions=",
                                                 std::string("vhdl93 pli\n") + row.Lists))
            << row.Label;
    }
}

TEST(ProjectSimLanguageConfigXml, HoldsWhatStandsBeforeACutAtAnyElement) {
    const std::vector<TReadStep> steps = {
        {"START LanguageSettings Language=Verilog", "false at TAIL\nproject=null",
         "false at TAIL\nproject=D:\\p\\x.hpj"},
        {"START SimTool"},
        {"TEXT 20", "tool=0", "tool=20"},
        {"END SimTool"},
        {"START IncludeDirectories"},
        {"START Directory"},
        {"TEXT inc"},
        {"END Directory"},
        {"START Directory"},
        {"TEXT ${IP}/inc"},
        {"END Directory"},
        // A list is taken whole or not at all; extensions join one by one.
        {"END IncludeDirectories", "include=", "include=<D:\\p\\inc><${IP}/inc>"},
        {"START LibraryDirectories"},
        {"START Directory"},
        {"TEXT E:\\lib"},
        {"END Directory"},
        {"END LibraryDirectories", "library=", "library=<E:\\lib\\>"},
        {"START LibraryExtensions"},
        {"START Extension"},
        {"TEXT .v", "extensions=", "extensions=<.v>"},
        {"END Extension"},
        {"START Extension"},
        {"TEXT .vo", "<.v>", "<.v><.vo>"},
        {"END Extension"},
        {"END LibraryExtensions"},
        {"START UseVhdl93Defaults"},
        {"TEXT false", " vhdl93"},
        {"END UseVhdl93Defaults"},
        {"START DelayType"},
        {"TEXT 2", "delay=1", "delay=2"},
        {"END DelayType"},
        {"START DestinationLibraryName"},
        {"TEXT gates", "<work>", "<gates>"},
        {"END DestinationLibraryName"},
        {"START BuildOptions"},
        {"TEXT -b 1", "build=<>", "build=<-b 1>"},
        {"END BuildOptions"},
        {"START ForceTopLevel"},
        {"TEXT true", "toplevel", "toplevel force"},
        {"END ForceTopLevel"},
        {"END LanguageSettings", "false", "true"},
    };
    ExpectAfterEachCut(steps, std::string("false at TAIL\n") + kLanguageDefaults,
                       [](const std::string& elements) {
                           RecordingLog log;
                           TConfig settings;
                           const std::string result = Read(settings, elements);
                           EXPECT_EQ(log.Take(), elements.empty() ? kInvalidElement : "");
                           return result + "\n" + TextOf(settings);
                       });
}
