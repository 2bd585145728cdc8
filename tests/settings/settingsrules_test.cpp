// Rules of the settings in project files and build files, each seen in a whole document or object.
#include "services/xml/xmlstream.h"
#include "tests/settings/configurationtext.h"
#include "tests/settings/writtenoptions.h"
#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>
#include <set>

namespace {

using TConfig = TProjectSimConfig;

std::string Element(const std::string& name, const std::string& text) {
    return "START " + name + "\nTEXT " + text + "\nEND " + name + "\n";
}

/// The settings as pushed into the document D:\b\out\y.hbf.
std::string WrittenInOtherFolder(TProjectSimLanguageConfig& settings, THdlLanguage language,
                                 bool buildFileForm) {
    TXMLList list;
    list.SetFileName("D:\\b\\out\\y.hbf");
    settings.WriteToProjectFile(&list, language, buildFileForm, false, false);
    return ElementsOf(list);
}

/// What FillLanguageConfig gives, as written into that document for `tool`.
std::string FullDocument(TSimulatorType tool) {
    return Element("SimTool", GetSimulatorNameFromType(tool)) + "START IncludeDirectories\n" +
           Element("Directory", "../../p/inc") + Element("Directory", "${IP}/inc") +
           "END IncludeDirectories\nSTART LibraryDirectories\n" +
           Element("Directory", "E:\\lib\\") + Element("Directory", "../lib") +
           "END LibraryDirectories\nSTART LibraryExtensions\n" + Element("Extension", ".v") +
           Element("Extension", ".vo") + "END LibraryExtensions\n" +
           Element("UseVhdl93Defaults", "false") + Element("DelayType", "2") +
           Element("PliDriven", "true") + Element("ActiveSnapshotName", "snap") +
           Element("DestinationLibraryName", "gates") + Element("AdditionalExtensions", ".svp") +
           Element("BuildOptions", "-b 1") + Element("LinkerOptions", " -l 2") +
           Element("RuntimeOptions", "-r 3") + Element("OutputFileName", "bench.exe") +
           Element("RunOutputFileExecutable", "true") + Element("ForceTopLevel", "true");
}

/// What TextOf gives for a configuration of one VHDL language that was read from D:\p\x.hpj.
std::string VhdlRead(const std::string& general) {
    return "name=N\n" + general +
           "[1] project=D:\\p\\x.hpj vcd=null\n"
           "tool=18 delay=1 toplevel vhdl93\n"
           "include=<D:\\p\\>\nlibrary=\nextensions=\n"
           "output=<> additional=<> snapshot=<> destination=<work>\n"
           "build=<> linker=<> runtime=<>\n";
}

}  // namespace

TEST(SettingsRules, GeneralSettingsAreReadWhereverTheyAreInTheConfiguration) {
    const std::string start = "START ProjectSettingsConfiguration ConfigurationName=N\n";
    const std::string vhdl = "START LanguageSettings Language=VHDL\n" +
                             Element("SimTool", GetSimulatorNameFromType(SIM_NC_VHDL)) +
                             "END LanguageSettings\n";
    const auto general = [](const std::string& log) {
        return "START GeneralConfiguration LogFileName=" + log + "\nEND GeneralConfiguration\n";
    };
    struct TRow {
        const char* Label;
        std::string Content;
        const char* Log;
    };
    const TRow rows[] = {
        {"before", general("a.log") + vhdl, "a.log"},
        {"after", vhdl + general("a.log"), "a.log"},
        {"between", vhdl + general("a.log") + vhdl, "a.log"},
        {"on both sides", general("a.log") + vhdl + general("b.log"), "b.log"},
    };
    for (const TRow& row : rows) {
        TXMLList list;
        PushElements(&list, start + row.Content + "END ProjectSettingsConfiguration\n");
        TElementIterator element(list);
        TConfig configuration(nullptr);
        EXPECT_TRUE(configuration.ReadFromFile(element, FileNamed("D:\\p\\x.hpj"))) << row.Label;
        EXPECT_EQ(ElementAt(element), "TAIL") << row.Label;
        EXPECT_EQ(TextOf(configuration),
                  VhdlRead("log=" + std::string(row.Log) +
                           "\ntop show dump break clear parse bench constants debugging size=0\n"))
            << row.Label;
    }
}

TEST(SettingsRules, DirectoriesAreRelativeToTheFolderOfTheDocumentNotOfTheProject) {
    for (const bool buildFileForm : {false, true}) {
        TProjectSimLanguageConfig settings;
        FillLanguageConfig(settings);  // with the project D:\p\design.hpj
        settings.AddLibraryDirectory("D:\\b\\lib", false);
        settings.SetTool(SIM_VCS);
        EXPECT_EQ(WrittenInOtherFolder(settings, LANGUAGE_VERILOG, buildFileForm),
                  FullDocument(SIM_VCS))
            << buildFileForm;
    }
}

TEST(SettingsRules, BuildFilesHaveTheOutputFileBehindTheOptionsInEveryLanguage) {
    for (int language = 0; language <= 9; ++language) {
        TProjectSimLanguageConfig settings;
        FillLanguageConfig(settings);
        settings.AddLibraryDirectory("D:\\b\\lib", false);
        settings.SetTool(SIM_GCC);
        EXPECT_EQ(WrittenInOtherFolder(settings, static_cast<THdlLanguage>(language), true),
                  FullDocument(SIM_GCC))
            << language;
    }
}

TEST(SettingsRules, TheOptionForGccIsAppendedInEveryLanguageForTheTwo64BitSimulatorsAlone) {
    const CppCompiler none("");
    const RecordingLog log;  // of the writes without a simulator
    const std::set<int> merging = {8, 9, 11, 12, 13, 14, 15, 16, 17};
    for (int language = 0; language <= 9; ++language)
        for (int simulator = 0; simulator <= 30; ++simulator) {
            TProjectSimLanguageConfig settings;
            settings.SetTool(static_cast<TSimulatorType>(simulator));
            SetOptions(settings, {"b", "l", "r"});
            const bool is64Bit = simulator == 3 || simulator == 6;
            const std::string stored = is64Bit                    ? "<b><l --qdx_usegcc><r>"
                                       : merging.count(simulator) ? "<b l><l><r>"
                                                                  : "<b><l><r>";
            const TOptionTexts written =
                WrittenOptions(settings, static_cast<THdlLanguage>(language), "");
            EXPECT_EQ(TextOf(StoredOptions(settings)), stored) << language << " " << simulator;
            EXPECT_EQ(written.Linker, is64Bit ? "l --qdx_usegcc" : "l")
                << language << " " << simulator;
        }
}

TEST(SettingsRules, AVerilogResetLeavesNoOtherExtensionsAndDirectories) {
    for (const std::vector<std::string>& preset :
         std::vector<std::vector<std::string>>{{".sv"}, {".vo", ".sv"}, {".vo", ".v"}, {}}) {
        TConfig configuration(nullptr);
        configuration.SetName("N");
        auto* settings = new TProjectSimLanguageConfig;
        for (const std::string& extension : preset)
            settings->AddLibraryExtension(extension.c_str());
        settings->AddLibraryDirectory("D:\\old\\", false);
        settings->AddIncludeDirectory("D:\\old\\", false);
        settings->SetTool(SIM_VCS);
        configuration.SetProjectSettings(LANGUAGE_VERILOG, settings);
        configuration.ResetLanguageSettingsToDefaults(LANGUAGE_VERILOG, false);
        EXPECT_EQ(TextOf(configuration),
                  std::string("name=N\n") + kGeneralDefaults +
                      "[0] project=null vcd=null\n"
                      "tool=1 delay=1 toplevel vhdl93\n"
                      "include=<./>\nlibrary=<lib/verilog><lib>\nextensions=<.v><.vo>\n"
                      "output=<> additional=<> snapshot=<> destination=<work>\n"
                      "build=<> linker=<> runtime=<>\n")
            << Joined(preset);
    }
}

TEST(SettingsRules, AConfigurationWritesTheProjectFilesFormAndKeepsItsOptions) {
    const CppCompiler none("");
    TConfig configuration(nullptr);
    configuration.SetName("N");
    for (const auto& [language, tool] : {std::pair(LANGUAGE_VERILOG, SIM_MODELSIM_VERILOG),
                                         std::pair(LANGUAGE_VHDL, SIM_ZORVIK_VHDL_64)}) {
        auto* settings = new TProjectSimLanguageConfig;
        settings->SetTool(tool);
        SetOptions(*settings, {" +define+A  -u", "+maxdelays ", "-s"});
        configuration.SetProjectSettings(language, settings);
    }
    const std::string held = TextOf(configuration);
    const auto language = [](const char* name, TSimulatorType tool) {
        return std::string("START LanguageSettings Language=") + name + "\n" +
               Element("SimTool", GetSimulatorNameFromType(tool)) +
               Element("UseVhdl93Defaults", "true") + Element("DelayType", "1") +
               Element("PliDriven", "false") + Element("ActiveSnapshotName", "") +
               Element("DestinationLibraryName", "work") + Element("AdditionalExtensions", "") +
               Element("BuildOptions", " +define+A  -u") + Element("LinkerOptions", "+maxdelays ") +
               Element("RuntimeOptions", "-s") + Element("RunOutputFileExecutable", "false") +
               Element("ForceTopLevel", "false") + "END LanguageSettings\n";
    };
    const std::string expected = "START ProjectSettingsConfiguration ConfigurationName=N\n" +
                                 GeneralElements() + language("Verilog", SIM_MODELSIM_VERILOG) +
                                 language("VHDL", SIM_ZORVIK_VHDL_64) +
                                 "END ProjectSettingsConfiguration\n";
    for (int times = 1; times <= 2; ++times) {
        EXPECT_EQ(WithoutUnknown(ElementsWrittenBy(
                      [&](TXMLList* list) { configuration.WriteToProjectFile(list); })),
                  expected)
            << times;
        EXPECT_EQ(TextOf(configuration), held) << times;
    }
}
