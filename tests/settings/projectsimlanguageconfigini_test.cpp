#include "settings/projectsimlanguageconfig.h"
#include "tests/settings/cutsettings.h"
#include "tests/settings/settingstext.h"
#include "tests/support/growth.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

using TConfig = TProjectSimLanguageConfig;
using TTexts = std::vector<std::string>;

/// What a fresh object holds after reading section "S" of an INI file with these lines.
std::string TextAfterReading(const IniFiles& ini, const std::string& lines, THdlLanguage language,
                             bool bareKeys) {
    ini.Give("[S]\n" + lines);
    TConfig settings;
    settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    settings.ReadFromINI("S", language, bareKeys);
    return TextOf(settings);
}

/// The same for Verilog with bare keys, as its three lists.
std::string ListsAfterReading(const IniFiles& ini, const std::string& lines, bool bareKeys) {
    ini.Give("[S]\n" + lines);
    TConfig settings;
    settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    settings.AddIncludeDirectory("D:\\old\\", true);
    settings.AddLibraryExtension(".old");
    settings.ReadFromINI("S", LANGUAGE_VERILOG, bareKeys);
    return Joined(settings.GetIncludeDirectories()) + " " +
           Joined(settings.GetLibraryDirectories()) + " " + Joined(settings.GetLibraryExtensions());
}

/// `lines` with every key but the first one prefixed.
std::string Prefixed(const std::string& lines, const std::string& prefix) {
    std::string result;
    for (std::size_t begin = 0; begin < lines.size();) {
        const std::size_t end = lines.find('\n', begin) + 1;
        if (begin > 0) result += prefix;
        result += lines.substr(begin, end - begin);
        begin = end;
    }
    return result;
}

std::string NameOf(TSimulatorType tool) {
    return GetSimulatorNameFromType(tool);
}

const std::string kVerilogLines = "SimTool=" + NameOf(SIM_NC_VERILOG) +
                                  "\n"
                                  "IncludeDirectory Count=2\n"
                                  "IncludeDirectory0=inc\n"
                                  "IncludeDirectory1=${IP}/inc\n"
                                  "LibraryDirectory Count=1\n"
                                  "LibraryDirectory0=E:\\lib\\\n"
                                  "LibraryExtension Count=2\n"
                                  "LibraryExtension0=.v\n"
                                  "LibraryExtension1=.vo\n"
                                  "UseVhdl93Defaults=false\n"
                                  "DelayType=max\n"
                                  "PliDriven=true\n"
                                  "ActiveSnapshotName=snap\n"
                                  "DestinationLibraryName=gates\n"
                                  "AdditionalExtensions=.svp\n"
                                  "BuildOptions=-b 1\n"
                                  "LinkerOptions=\" -l 2\"\n"
                                  "RuntimeOptions=-r 3\n";
const std::string kOtherLines = "SimTool=" + NameOf(SIM_NC_VERILOG) +
                                "\n"
                                "ActiveSnapshotName=snap\n"
                                "DestinationLibraryName=gates\n"
                                "AdditionalExtensions=.svp\n"
                                "BuildOptions=-b 1\n"
                                "LinkerOptions=\" -l 2\"\n"
                                "RuntimeOptions=-r 3\n";
const std::string kTestBuilderLines = "SimTool=" + NameOf(SIM_NC_VERILOG) +
                                      "\n"
                                      "ActiveSnapshotName=snap\n"
                                      "DestinationLibraryName=gates\n"
                                      "IncludeDirectory Count=2\n"
                                      "IncludeDirectory0=inc\n"
                                      "IncludeDirectory1=${IP}/inc\n"
                                      "LibraryDirectory Count=1\n"
                                      "LibraryDirectory0=E:\\lib\\\n"
                                      "RunOutputFileExecutable=true\n"
                                      "OutputFileName=bench.exe\n"
                                      "AdditionalExtensions=.svp\n"
                                      "BuildOptions=-b 1\n"
                                      "LinkerOptions=\" -l 2\"\n"
                                      "RuntimeOptions=-r 3\n";

struct TLanguageLines {
    THdlLanguage Language;
    const std::string& Lines;
};
const TLanguageLines kLines[] = {
    {LANGUAGE_VERILOG, kVerilogLines},         {LANGUAGE_VHDL, kOtherLines},
    {LANGUAGE_BLUESPECVERILOG, kOtherLines},   {LANGUAGE_CPLUSPLUS, kOtherLines},
    {LANGUAGE_TESTBUILDER, kTestBuilderLines},
};

}  // namespace

TEST(ProjectSimLanguageConfigIni, RendersTheKeysOfEachLanguage) {
    TSettingValues values = FullLanguageValues();
    // INI files quote a text that begins with a blank.
    values["LinkerOptions"] = "\" -l 2\"";
    EXPECT_EQ(LanguageIni("Verilog", "", values), kVerilogLines);
    for (const char* language : {"VHDL", "Bluespec", "C++"})
        EXPECT_EQ(LanguageIni(language, "", values), kOtherLines) << language;
}

TEST(ProjectSimLanguageConfigIni, WritesTheKeysOfEachLanguageInOrder) {
    for (const TLanguageLines& row : kLines)
        for (const bool bareKeys : {true, false}) {
            const IniFiles ini;
            TConfig settings;
            FillLanguageConfig(settings);
            settings.WriteToINI("S", row.Language, bareKeys);
            const std::string prefix = bareKeys ? "" : NameOf(SIM_NC_VERILOG) + "_";
            EXPECT_EQ(ini.Saved(), "[S]\n" + Prefixed(row.Lines, prefix))
                << row.Language << bareKeys;
        }
}

TEST(ProjectSimLanguageConfigIni, ReadsBackWhatItWroteWithBareKeys) {
    for (const TLanguageLines& row : kLines) {
        const IniFiles ini;
        const std::string text = TextAfterReading(ini, row.Lines, row.Language, true);
        const bool isVerilog = row.Language == LANGUAGE_VERILOG;
        const bool isTestBuilder = row.Language == LANGUAGE_TESTBUILDER;
        EXPECT_EQ(text, std::string("project=D:\\p\\x.hpj vcd=null\n") +
                            (isVerilog       ? "tool=20 delay=2 toplevel pli\n"
                             : isTestBuilder ? "tool=20 delay=1 toplevel vhdl93 run\n"
                                             : "tool=20 delay=1 toplevel vhdl93\n") +
                            (isVerilog ? "include=<D:\\p\\inc><${IP}/inc>\n"
                                         "library=<E:\\lib\\>\nextensions=<.v><.vo>\n"
                                       : "include=\nlibrary=\nextensions=\n") +
                            (isTestBuilder ? "output=<bench.exe>" : "output=<>") +
                            " additional=<.svp> snapshot=<snap> destination=<gates>\n"
                            "build=<-b 1> linker=< -l 2> runtime=<-r 3>\n")
            << row.Language;
    }
}

TEST(ProjectSimLanguageConfigIni, ReadsPrefixedDirectoriesAsTheyStand) {
    const IniFiles ini;
    EXPECT_EQ(TextAfterReading(ini, Prefixed(kVerilogLines, NameOf(SIM_NC_VERILOG) + "_"),
                               LANGUAGE_VERILOG, false),
              "project=D:\\p\\x.hpj vcd=null\n"
              "tool=20 delay=2 toplevel pli\n"
              "include=<inc><${IP}/inc>\nlibrary=<E:\\lib\\>\nextensions=<.v><.vo>\n"
              "output=<> additional=<.svp> snapshot=<snap> destination=<gates>\n"
              "build=<-b 1> linker=< -l 2> runtime=<-r 3>\n");
}

TEST(ProjectSimLanguageConfigIni, ReadsOnlyTheKeysOfTheSimulatorNamed) {
    const IniFiles ini;
    const std::string lines = "SimTool=" + NameOf(SIM_VCS) + "\n" + NameOf(SIM_VCS) +
                              "_BuildOptions=v\n" + NameOf(SIM_VCSI) + "_BuildOptions=i\n" +
                              "BuildOptions=bare\n";
    const std::string text = TextAfterReading(ini, lines, LANGUAGE_VERILOG, false);
    EXPECT_EQ(text.substr(text.find("build=")), "build=<v> linker=<> runtime=<>\n");
    const std::string bare = TextAfterReading(ini, lines, LANGUAGE_VERILOG, true);
    EXPECT_EQ(bare.substr(bare.find("build=")), "build=<bare> linker=<> runtime=<>\n");
}

TEST(ProjectSimLanguageConfigIni, WithoutASimulatorKeyKeepsThePresentOne) {
    const IniFiles ini;
    ini.Give("[S]\n" + NameOf(SIM_VCS) + "_BuildOptions=v\n");
    TConfig settings;
    settings.SetTool(SIM_VCS);
    settings.ReadFromINI("S", LANGUAGE_VHDL, false);
    EXPECT_EQ(settings.GetTool(), SIM_VCS);
    EXPECT_STREQ(settings.GetBuildOptions(), "v");
}

TEST(ProjectSimLanguageConfigIni, AnUnknownSimulatorBecomesNone) {
    const IniFiles ini;
    const std::string text =
        TextAfterReading(ini, "SimTool=of tomorrow\nNone_BuildOptions=n\n", LANGUAGE_VHDL, false);
    EXPECT_EQ(text,
              "project=D:\\p\\x.hpj vcd=null\n"
              "tool=0 delay=1 toplevel vhdl93\n"
              "include=\nlibrary=\nextensions=\n"
              "output=<> additional=<> snapshot=<> destination=<work>\n"
              "build=<n> linker=<> runtime=<>\n");
}

TEST(ProjectSimLanguageConfigIni, AnEmptySectionKeepsTextsAndListsAndResetsFlags) {
    const IniFiles ini;
    struct TRow {
        THdlLanguage Language;
        const char* Flags;
    };
    const TRow rows[] = {
        {LANGUAGE_VERILOG, "tool=20 delay=2 vhdl93 vcdexport run force"},
        {LANGUAGE_VHDL, "tool=20 delay=2 pli vcdexport run force"},
        {LANGUAGE_TESTBUILDER, "tool=20 delay=2 pli vcdexport force"},
    };
    for (const TRow& row : rows) {
        ini.Give("");
        TConfig settings;
        FillLanguageConfig(settings);
        settings.ReadFromINI("S", row.Language, true);
        std::string expected = kFullLanguageConfig;
        expected.replace(expected.find("tool="),
                         expected.find("\ninclude") - expected.find("tool="), row.Flags);
        EXPECT_EQ(TextOf(settings), expected) << row.Language;
    }
}

TEST(ProjectSimLanguageConfigIni, ReadingTheTestBuilderWritesItsDirectories) {
    const IniFiles ini;
    ini.Give("[S]\nSimTool=" + NameOf(SIM_GCC) + "\nIncludeDirectory Count=1\n" +
             "IncludeDirectory0=stored\n");
    TConfig settings;
    settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    settings.AddIncludeDirectory("own", true);
    settings.AddIncludeDirectory("D:\\q", true);
    settings.ReadFromINI("S", LANGUAGE_TESTBUILDER, true);
    EXPECT_EQ(settings.GetIncludeDirectories(), (TTexts{"D:\\p\\own", "D:\\q\\"}));
    EXPECT_EQ(ini.Saved(), "[S]\nSimTool=" + NameOf(SIM_GCC) +
                               "\n"
                               "IncludeDirectory Count=2\n"
                               "IncludeDirectory0=own\n"
                               "IncludeDirectory1=D:\\q\\\n");
}

TEST(ProjectSimLanguageConfigIni, ReadingAFreshTestBuilderLeavesStoredDirectoriesAlone) {
    const IniFiles ini;
    const std::string text = "[S]\nIncludeDirectory Count=1\nIncludeDirectory0=stored\n";
    ini.Give(text);
    TConfig settings;
    settings.ReadFromINI("S", LANGUAGE_TESTBUILDER, true);
    EXPECT_EQ(settings.GetIncludeDirectories(), TTexts{});
    EXPECT_EQ(ini.Saved(), text);
}

TEST(ProjectSimLanguageConfigIni, ReadsListsByTheirCount) {
    const IniFiles ini;
    struct TRow {
        const char* Label;
        const char* Lines;
        const char* Expected;
    };
    const TRow rows[] = {
        {"no count", "IncludeDirectory0=a\n", "<D:\\old\\>  <.old>"},
        {"zero", "IncludeDirectory Count=0\nLibraryExtension Count=0\n", "  "},
        {"no number", "IncludeDirectory Count=two\nIncludeDirectory0=a\n", "  <.old>"},
        {"negative", "IncludeDirectory Count=-2\nIncludeDirectory0=a\n", "<D:\\old\\>  <.old>"},
        {"fewer than there are",
         "IncludeDirectory Count=1\nIncludeDirectory0=a\nIncludeDirectory1=b\n",
         "<D:\\p\\a>  <.old>"},
        {"gaps and more than there are",
         "IncludeDirectory Count=2000000000\nIncludeDirectory10=c\nIncludeDirectory2=b\n"
         "IncludeDirectory0=a\n",
         "<D:\\p\\a><D:\\p\\b><D:\\p\\c>  <.old>"},
        {"other spellings of a number",
         "IncludeDirectory Count=3\nIncludeDirectory00=a\nIncludeDirectory1x=b\n"
         "IncludeDirectory2=c\n",
         "<D:\\p\\c>  <.old>"},
        {"duplicates", "IncludeDirectory Count=2\nIncludeDirectory0=a\nIncludeDirectory1=./a\n",
         "<D:\\p\\a>  <.old>"},
        {"extensions are never resolved",
         "LibraryExtension Count=2\nLibraryExtension0=.v\nLibraryExtension1=b\n",
         "<D:\\old\\>  <.v><b>"},
        {"empty entry", "LibraryExtension Count=1\nLibraryExtension0=\n", "<D:\\old\\>  <>"},
    };
    for (const TRow& row : rows)
        EXPECT_EQ(ListsAfterReading(ini, row.Lines, true), row.Expected) << row.Label;
}

TEST(ProjectSimLanguageConfigIni, ReadsWhatWasWrittenAndNotYetSaved) {
    const IniFiles ini;
    TConfig settings;
    FillLanguageConfig(settings);
    settings.WriteToINI("S", LANGUAGE_VERILOG, true);
    TConfig read;
    read.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    read.ReadFromINI("S", LANGUAGE_VERILOG, true);
    EXPECT_EQ(read.GetIncludeDirectories(), (TTexts{"D:\\p\\inc", "${IP}/inc"}));
    EXPECT_EQ(read.GetLibraryExtensions(), (TTexts{".v", ".vo"}));
}

TEST(ProjectSimLanguageConfigIni, ReadsDelayTypesExactlyButForBlanks) {
    const IniFiles ini;
    struct TRow {
        const char* Text;
        int Expected;
    };
    const TRow rows[] = {{"min", 0}, {"typical", 1}, {"max", 2}, {"\" max \"", 2},
                         {"MAX", 1}, {"2", 1},       {"", 1}};
    for (const TRow& row : rows) {
        ini.Give(std::string("[S]\nDelayType=") + row.Text + "\n");
        TConfig settings;
        settings.SetDelayType(DELAY_TYPE_MINIMUM);
        settings.ReadFromINI("S", LANGUAGE_VERILOG, true);
        EXPECT_EQ(settings.GetDelayType(), row.Expected) << row.Text;
    }
}

TEST(ProjectSimLanguageConfigIni, WritesEveryDelayTypeAsAText) {
    const char* texts[] = {"min", "typical", "max", "typical"};
    for (int type = 0; type < 4; ++type) {
        const IniFiles ini;
        TConfig settings;
        settings.SetTool(SIM_VCS);
        settings.SetDelayType(static_cast<TSimProjectDelayType>(type));
        settings.WriteToINI("S", LANGUAGE_VERILOG, true);
        EXPECT_EQ(GetSystemPropCache()->GetPrivatePropText("S", "DelayType", "absent"),
                  texts[type]);
    }
}

TEST(ProjectSimLanguageConfigIni, CutsTextsAt315Bytes) {
    const IniFiles ini;
    const std::string text =
        TextAfterReading(ini, "BuildOptions=" + std::string(400, 'b') + "\n", LANGUAGE_VHDL, true);
    EXPECT_EQ(text.substr(text.find("build=")),
              "build=<" + std::string(315, 'b') + "> linker=<> runtime=<>\n");
}

TEST(ProjectSimLanguageConfigIni, AnEmptyListWritesNothing) {
    const IniFiles ini;
    ini.Give("[S]\nLibraryExtension Count=1\nLibraryExtension0=.v\n");
    TConfig settings;
    settings.SetTool(SIM_VCS);
    settings.WriteToINI("S", LANGUAGE_VERILOG, true);
    EXPECT_EQ(ini.Saved(), "[S]\nLibraryExtension Count=1\nLibraryExtension0=.v\n" +
                               LanguageIni("Verilog", "", {{"SimTool", NameOf(SIM_VCS)}}));
}

TEST(ProjectSimLanguageConfigIni, WritesNoSimulatorAfterLoggingIt) {
    const IniFiles ini;
    RecordingLog log;
    TConfig settings;
    settings.WriteToINI("S", LANGUAGE_VHDL, false);
    EXPECT_EQ(log.Take(),
              "projectsettingsconfigurationsdata(854): Check failed: \"SimTool != SIM_NONE\"\n");
    EXPECT_EQ(ini.Saved(), "[S]\n" + LanguageIni("VHDL", "None_", {{"SimTool", "None"}}));
}

TEST(ProjectSimLanguageConfigIni, WritesDirectoriesAsPeopleKnowThem) {
    const IniFiles ini;
    std::string userFile = GetIniFile()->Canonical(false);
    for (char& c : userFile) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    struct TRow {
        const char* Label;
        const ISFileName* ProjectFile;
        TTexts Expected;
    };
    const TTexts stored = {"D:\\p\\a", "D:\\q\\", "H:\\home\\b", "./", "$IP/c", "D:\\p\\$IP"};
    const TRow rows[] = {
        {"project",
         FileNamed("D:\\p\\x.hpj"),
         {"a", "D:\\q\\", "H:\\home\\b", "./", "$IP/c", "D:\\p\\$IP"}},
        {"none", nullptr, stored},
        {"blank", ISFileName::BlankFileName, stored},
        {"user's INI file",
         FileNamed(userFile.c_str()),
         {"D:\\p\\a", "D:\\q\\", "b", "./", "$IP/c", "D:\\p\\$IP"}},
        {"system's INI file", GetSystemIniFile(), stored},
    };
    for (const TRow& row : rows) {
        TConfig settings;
        for (const std::string& directory : stored)
            settings.AddLibraryDirectory(directory.c_str(), false);
        settings.SetProjectFileName(row.ProjectFile, true);
        settings.SetTool(SIM_VCS);
        settings.WriteToINI(row.Label, LANGUAGE_VERILOG, true);
        TTexts written;
        for (std::size_t i = 0; i < stored.size(); ++i)
            written.push_back(GetSystemPropCache()->GetPrivatePropText(
                row.Label, ("LibraryDirectory" + std::to_string(i)).c_str(), "absent"));
        EXPECT_EQ(written, row.Expected) << row.Label;
    }
}

TEST(ProjectSimLanguageConfigIni, HoldsWhatStandsBeforeACutAtAnyLine) {
    const IniFiles ini;
    const std::vector<TReadStep> steps = {
        {"[S]"},
        {"SimTool=" + NameOf(SIM_NC_VERILOG), "tool=0", "tool=20"},
        {"IncludeDirectory Count=2"},
        {"IncludeDirectory0=inc", "include=", "include=<D:\\p\\inc>"},
        {"IncludeDirectory1=${IP}/inc", "inc>", "inc><${IP}/inc>"},
        {"LibraryDirectory Count=1"},
        {"LibraryDirectory0=E:\\lib", "library=", "library=<E:\\lib\\>"},
        {"LibraryExtension Count=1"},
        {"LibraryExtension0=.v", "extensions=", "extensions=<.v>"},
        {"UseVhdl93Defaults=false", " vhdl93"},
        {"DelayType=max", "delay=1", "delay=2"},
        {"PliDriven=true", "toplevel", "toplevel pli"},
        {"ActiveSnapshotName=snap", "snapshot=<>", "snapshot=<snap>"},
        {"DestinationLibraryName=gates", "<work>", "<gates>"},
        {"AdditionalExtensions=.svp", "additional=<>", "additional=<.svp>"},
        {"BuildOptions=-b 1", "build=<>", "build=<-b 1>"},
        {"LinkerOptions=\" -l 2\"", "linker=<>", "linker=< -l 2>"},
        {"RuntimeOptions=-r 3", "runtime=<>", "runtime=<-r 3>"},
    };
    const std::string held = Replaced(kLanguageDefaults, "project=null", "project=D:\\p\\x.hpj");
    ExpectAfterEachCut(steps, held, [&ini](const std::string& lines) {
        ini.Give(lines);
        TConfig settings;
        settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
        settings.ReadFromINI("S", LANGUAGE_VERILOG, true);
        return TextOf(settings);
    });
}

TEST(ProjectSimLanguageConfigIni, ReadsAndWritesLongListsInLinearTime) {
    const auto readWriteAndRead = [](int entries) {
        const IniFiles ini;
        std::string text = "[S]\nLibraryExtension Count=" + std::to_string(entries) + "\n";
        for (int i = 0; i < entries; ++i)
            text += "LibraryExtension" + std::to_string(i) + "=." + std::to_string(i) + "\n";
        ini.Give(text);
        TConfig settings;
        settings.SetTool(SIM_VCS);
        settings.ReadFromINI("S", LANGUAGE_VERILOG, true);
        settings.WriteToINI("T", LANGUAGE_VERILOG, true);
        ini.Saved();
        ResetSystemPropCache();
        TConfig read;
        read.ReadFromINI("T", LANGUAGE_VERILOG, true);
        EXPECT_EQ(read.GetLibraryExtensions().size(), static_cast<std::size_t>(entries));
        EXPECT_EQ(read.GetLibraryExtensions().back(), "." + std::to_string(entries - 1));
    };
    EXPECT_LT(GrowthOf(readWriteAndRead, 25000), kLargestLinearGrowth);
}

TEST(ProjectSimLanguageConfigIni, TakesNoSectionForTheOneWithoutAName) {
    const IniFiles ini;
    TConfig settings;
    settings.SetTool(SIM_VCS);
    settings.SetRuntimeOptions("-r");
    settings.WriteToINI(nullptr, LANGUAGE_VERILOG, true);
    for (const char* section : {static_cast<const char*>(nullptr), ""}) {
        TConfig read;
        read.ReadFromINI(section, LANGUAGE_VERILOG, true);
        EXPECT_STREQ(read.GetRuntimeOptions(), "-r");
    }
}
