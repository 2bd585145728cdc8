#include "settings/projectsimlanguageconfig.h"
#include "settings/directoryresolution.h"
#include "tests/settings/settingstext.h"
#include "tests/support/keptobjects.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>

namespace {

using TConfig = TProjectSimLanguageConfig;
using TTexts = std::vector<std::string>;

/// One kind of directory list, as its operations see it.
struct TDirectoryList {
    const char* Label;
    bool (TConfig::*Add)(const char*, bool);
    bool (TConfig::*Remove)(const char*);
    void (TConfig::*Clear)();
    const TTexts& (TConfig::*Get)() const;
    void (TConfig::*Update)();
};
const TDirectoryList kDirectoryLists[] = {
    {"include", &TConfig::AddIncludeDirectory, &TConfig::RemoveIncludeDirectoy,
     &TConfig::ClearIncludeDirectory, &TConfig::GetIncludeDirectories,
     &TConfig::UpdateIncludeDirectoriesToCustom},
    {"library", &TConfig::AddLibraryDirectory, &TConfig::RemoveLibraryDirectory,
     &TConfig::ClearLibraryDirectory, &TConfig::GetLibraryDirectories,
     &TConfig::UpdateLibraryDirectoriesToCustom},
};

constexpr const char* kDirectoryCheck =
    "projectsettingsconfigurationsdata(131): Check failed: "
    "\"directory && relativeToDirectory && relativeToDirectory[0]\"\n";

}  // namespace

TEST(ProjectSimLanguageConfig, BeginsWithTheDefaults) {
    EXPECT_EQ(TextOf(TConfig()), kLanguageDefaults);
    EXPECT_EQ(TextOf(TConfig(0)), kLanguageDefaults);
}

TEST(ProjectSimLanguageConfig, GivesBackWhatEachSetterTook) {
    TConfig settings;
    FillLanguageConfig(settings);
    EXPECT_EQ(TextOf(settings), kFullLanguageConfig);
    EXPECT_TRUE(settings.IsPliDriven());
}

TEST(ProjectSimLanguageConfig, EachFlagHasAGetterAndASetterOfItsOwn) {
    struct TRow {
        const char* Label;
        bool (TConfig::*Get)() const;
        void (TConfig::*Set)(bool);
        bool Default;
    };
    const TRow rows[] = {
        {"top-level settings", &TConfig::IsUseTopLevelProjectSettings,
         &TConfig::SetUseTopLevelProjectSettings, true},
        {"VHDL-93", &TConfig::IsVhdl93DefaultSettingsEnabled,
         &TConfig::SetVhdl93DefaultSettingsEnabled, true},
        {"PLI", &TConfig::GetPliDriven, &TConfig::SetPliDriven, false},
        {"VCD", &TConfig::GetVcdExport, &TConfig::SetVcdExport, false},
        {"run", &TConfig::IsRunOutputFileExecutable, &TConfig::SetRunOutputFileExecutable, false},
        {"force", &TConfig::IsForceTopLevel, &TConfig::SetForceTopLevel, false},
    };
    for (const TRow& changed : rows) {
        TConfig settings;
        (settings.*changed.Set)(!changed.Default);
        for (const TRow& row : rows)
            EXPECT_EQ((settings.*row.Get)(), row.Default != (row.Label == changed.Label))
                << changed.Label << " changes " << row.Label;
    }
}

TEST(ProjectSimLanguageConfig, EachTextHasAGetterAndASetterOfItsOwn) {
    struct TRow {
        const char* Label;
        std::string (*Get)(const TConfig&);
        void (TConfig::*Set)(const char*);
    };
    const TRow rows[] = {
        {"output", [](const TConfig& c) { return std::string(c.GetOutputFileName()); },
         &TConfig::SetOutputFileName},
        {"extensions", [](const TConfig& c) { return std::string(c.GetAdditionalExtensions()); },
         &TConfig::SetAdditionalExtensions},
        {"snapshot", [](const TConfig& c) { return c.GetActiveSnapshotName().Str(); },
         &TConfig::SetActiveSnapshotName},
        {"library", [](const TConfig& c) { return std::string(c.GetDestinationLibraryName()); },
         &TConfig::SetDestinationLibraryName},
        {"build", [](const TConfig& c) { return std::string(c.GetBuildOptions()); },
         &TConfig::SetBuildOptions},
        {"linker", [](const TConfig& c) { return std::string(c.GetLinkerOptions()); },
         &TConfig::SetLinkerOptions},
        {"runtime", [](const TConfig& c) { return std::string(c.GetRuntimeOptions()); },
         &TConfig::SetRuntimeOptions},
    };
    for (const TRow& changed : rows) {
        TConfig settings;
        const TConfig untouched;
        const std::string text = "a text that is too long to be kept in a string itself";
        (settings.*changed.Set)(text.c_str());
        for (const TRow& row : rows)
            EXPECT_EQ(row.Get(settings), row.Label == changed.Label ? text : row.Get(untouched))
                << changed.Label << " changes " << row.Label;
        (settings.*changed.Set)(nullptr);
        EXPECT_EQ(changed.Get(settings), "") << changed.Label;
    }
}

TEST(ProjectSimLanguageConfig, TakesItsOwnTexts) {
    const std::string text = "a text that is too long to be kept in a string itself";
    TConfig settings;
    settings.SetBuildOptions(text.c_str());
    settings.SetBuildOptions(settings.GetBuildOptions());
    settings.SetOutputFileName(text.c_str());
    settings.SetOutputFileName(settings.GetOutputFileName() + 2);
    settings.SetDestinationLibraryName(settings.GetDestinationLibraryName() + 1);
    EXPECT_EQ(settings.GetBuildOptions(), text);
    EXPECT_EQ(settings.GetOutputFileName(), text.substr(2));
    EXPECT_STREQ(settings.GetDestinationLibraryName(), "ork");
}

TEST(ProjectSimLanguageConfig, ListOperationsTakeTheListsOwnTexts) {
    const std::string text = "an extension that is too long to be kept in a string itself";
    TConfig settings;
    settings.AddLibraryExtension(text.c_str());
    EXPECT_FALSE(settings.AddLibraryExtension(settings.GetLibraryExtensions()[0].c_str()));
    EXPECT_TRUE(settings.AddLibraryExtension(settings.GetLibraryExtensions()[0].c_str() + 3));
    EXPECT_TRUE(settings.RemoveLibraryExtension(settings.GetLibraryExtensions()[0].c_str()));
    EXPECT_EQ(settings.GetLibraryExtensions(), TTexts{text.substr(3)});
}

TEST(ProjectSimLanguageConfig, SnapshotNameIsACopy) {
    TConfig settings;
    settings.SetActiveSnapshotName("first");
    const TMyString name = settings.GetActiveSnapshotName();
    settings.SetActiveSnapshotName("second");
    EXPECT_EQ(name, "first");
}

TEST(ProjectSimLanguageConfig, CopiesEverythingButTheVcdFileNameAndTheProxy) {
    TConfig settings;
    FillLanguageConfig(settings);
    ICorbaProxy proxy;
    settings.SetCorbaProxy(&proxy);
    const std::string expected = Replaced(kFullLanguageConfig, "D:\\p\\dump.vcd", "null");
    const TConfig copy(settings);
    const TConfig flagged(settings, 1);
    const TConfig pointed(&settings, 1);
    TConfig assigned;
    assigned.SetVcdFileName(FileNamed("D:\\other.vcd"));
    assigned = settings;
    const TConfig* copies[] = {&copy, &flagged, &pointed, &assigned};
    for (const TConfig* each : copies) {
        EXPECT_EQ(TextOf(*each), expected);
        EXPECT_EQ(each->GetCorbaProxy(), nullptr);
    }
    EXPECT_EQ(settings.GetCorbaProxy(), &proxy);
    EXPECT_EQ(TextOf(TConfig(nullptr, 1)), kLanguageDefaults);
}

TEST(ProjectSimLanguageConfig, SelfAssignmentDoesNothing) {
    TConfig settings;
    FillLanguageConfig(settings);
    const TConfig& same = settings;
    settings = same;
    EXPECT_EQ(TextOf(settings), kFullLanguageConfig);
}

TEST(ProjectSimLanguageConfig, AnswersRemoteClientsThroughItsInterface) {
    TConfig settings;
    FillLanguageConfig(settings);
    const ICorbaProjectSimLanguageSettingsImpl& remote = settings;
    EXPECT_EQ(remote.GetCorbaSimulatorName(), GetSimulatorNameFromType(SIM_NC_VERILOG));
    EXPECT_EQ(remote.GetCorbaIncludeDirectories(), (TTexts{"D:\\p\\inc", "${IP}/inc"}));
    EXPECT_EQ(remote.GetCorbaLibraryDirectories(), TTexts{"E:\\lib\\"});
    EXPECT_EQ(remote.GetCorbaLibraryExtensions(), (TTexts{".v", ".vo"}));
    EXPECT_EQ(remote.GetCorbaBuildOptionsString(), "-b 1");
    EXPECT_EQ(remote.GetCorbaLinkerOptionsString(), " -l 2");
    EXPECT_EQ(remote.GetCorbaRuntimeOptionsString(), "-r 3");
}

TEST(ProjectSimLanguageConfig, KeepsTheOrderOfItsVirtualOperations) {
    const std::vector<std::ptrdiff_t> entries = {
        TableEntryOf(&TConfig::GetCorbaSimulatorName),
        TableEntryOf(&TConfig::GetCorbaIncludeDirectories),
        TableEntryOf(&TConfig::GetCorbaLibraryDirectories),
        TableEntryOf(&TConfig::GetCorbaLibraryExtensions),
        TableEntryOf(&TConfig::GetCorbaBuildOptionsString),
        TableEntryOf(&TConfig::GetCorbaLinkerOptionsString),
        TableEntryOf(&TConfig::GetCorbaRuntimeOptionsString),
    };
    for (std::size_t i = 1; i < entries.size(); ++i) EXPECT_EQ(entries[i] - entries[i - 1], 1) << i;
}

TEST(ProjectSimLanguageConfig, AddsDirectoriesByTheRule) {
    const IniFiles ini;
    struct TRow {
        const char* Label;
        const char* ProjectFile;  // null: none
        const char* Directory;
        bool Resolve;
        const char* Expected;
    };
    const TRow rows[] = {
        {"relative", "D:\\p\\x.hpj", "inc", true, "D:\\p\\inc"},
        {"relative with delimiter", "D:\\p\\x.hpj", "inc/", true, "D:\\p\\inc"},
        {"dot", "D:\\p\\x.hpj", "./", true, "D:\\p"},
        {"parent", "D:\\p\\x.hpj", "../q", true, "D:\\q"},
        {"empty", "D:\\p\\x.hpj", "", true, "D:\\p"},
        {"relative not resolved", "D:\\p\\x.hpj", "inc", false, "inc"},
        {"relative without project", nullptr, "inc", true, "inc"},
        {"absolute with delimiter", "D:\\p\\x.hpj", "C:\\a\\", true, "C:\\a\\"},
        {"absolute with slash", "D:\\p\\x.hpj", "C:/a/", true, "C:/a/"},
        {"absolute without delimiter", "D:\\p\\x.hpj", "C:\\a", true, "C:\\a\\"},
        {"absolute, not canonical", "D:\\p\\x.hpj", "C:/a/../b", true, "C:/a/../b\\"},
        {"rooted", "D:\\p\\x.hpj", "/usr/inc", true, "/usr/inc\\"},
        {"host", "D:\\p\\x.hpj", "\\\\h\\s\\inc", true, "\\\\h\\s\\inc\\"},
        {"absolute not resolved", "D:\\p\\x.hpj", "C:\\a", false, "C:\\a"},
        {"absolute without project", nullptr, "C:\\a", true, "C:\\a"},
        {"environment", "D:\\p\\x.hpj", "${IP}/inc", true, "${IP}/inc"},
        {"environment inside", "D:\\p\\x.hpj", "a/%IP%", true, "a/%IP%"},
    };
    for (const TDirectoryList& list : kDirectoryLists)
        for (const TRow& row : rows) {
            TConfig settings;
            if (row.ProjectFile) settings.SetProjectFileName(FileNamed(row.ProjectFile));
            EXPECT_TRUE((settings.*list.Add)(row.Directory, row.Resolve))
                << list.Label << row.Label;
            EXPECT_EQ((settings.*list.Get)(), TTexts{row.Expected}) << list.Label << row.Label;
        }
}

TEST(ProjectSimLanguageConfig, ResolvesAgainstTheInstallationInTheSettingsOfAnIniFile) {
    const IniFiles ini;
    SetIniFile("D:\\data\\user.ini");
    SetSystemIniFile("E:\\data\\system.ini");
    for (const char* file : {"d:\\DATA\\User.ini", "e:\\data\\SYSTEM.INI"}) {
        TConfig settings;
        settings.SetProjectFileName(FileNamed(file));
        settings.AddIncludeDirectory("inc", true);
        EXPECT_EQ(settings.GetIncludeDirectories(), TTexts{"H:\\home\\inc"}) << file;
    }
}

TEST(ProjectSimLanguageConfig, ResolvesAgainstAnInstallationGivenWithoutDelimiter) {
    const IniFiles ini;
    SetOrvaneHomeDirectory("H:\\home");
    TConfig settings;
    settings.SetProjectFileName(GetIniFile());
    settings.AddIncludeDirectory("inc", true);
    EXPECT_EQ(settings.GetIncludeDirectories(), TTexts{"H:\\home\\inc"});
}

TEST(ProjectSimLanguageConfig, RefusesEqualDirectoriesButNotOtherSpellings) {
    for (const TDirectoryList& list : kDirectoryLists) {
        TConfig settings;
        settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
        EXPECT_TRUE((settings.*list.Add)("C:\\a\\", true)) << list.Label;
        EXPECT_FALSE((settings.*list.Add)("C:\\a\\", true)) << list.Label;
        EXPECT_FALSE((settings.*list.Add)("C:\\a", true)) << list.Label;
        EXPECT_TRUE((settings.*list.Add)("c:\\a\\", true)) << list.Label;
        EXPECT_TRUE((settings.*list.Add)("b", true)) << list.Label;
        EXPECT_FALSE((settings.*list.Add)("./b/", true)) << list.Label;
        EXPECT_EQ((settings.*list.Get)(), (TTexts{"C:\\a\\", "c:\\a\\", "D:\\p\\b"})) << list.Label;
    }
}

TEST(ProjectSimLanguageConfig, ListsAreIndependentOfEachOther) {
    TConfig settings;
    EXPECT_TRUE(settings.AddIncludeDirectory("a", false));
    EXPECT_TRUE(settings.AddLibraryDirectory("a", false));
    EXPECT_TRUE(settings.AddLibraryExtension("a"));
    settings.ClearLibraryDirectory();
    EXPECT_EQ(settings.GetIncludeDirectories(), TTexts{"a"});
    EXPECT_EQ(settings.GetLibraryDirectories(), TTexts{});
    EXPECT_EQ(settings.GetLibraryExtensions(), TTexts{"a"});
    settings.ClearIncludeDirectory();
    EXPECT_EQ(settings.GetIncludeDirectories(), TTexts{});
    settings.ClearLibraryExtension();
    EXPECT_EQ(settings.GetLibraryExtensions(), TTexts{});
}

TEST(ProjectSimLanguageConfig, RemovesTheDirectoryThatATextResolvesTo) {
    for (const TDirectoryList& list : kDirectoryLists) {
        TConfig settings;
        settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
        (settings.*list.Add)("a", true);
        (settings.*list.Add)("C:\\b", true);
        (settings.*list.Add)("./", false);
        (settings.*list.Add)("${IP}", true);
        EXPECT_FALSE((settings.*list.Remove)("c")) << list.Label;
        EXPECT_FALSE((settings.*list.Remove)("./")) << list.Label;
        EXPECT_FALSE((settings.*list.Remove)("${IP}")) << list.Label;
        EXPECT_TRUE((settings.*list.Remove)("./a/")) << list.Label;
        EXPECT_FALSE((settings.*list.Remove)("a")) << list.Label;
        EXPECT_TRUE((settings.*list.Remove)("C:\\b")) << list.Label;
        EXPECT_EQ((settings.*list.Get)(), (TTexts{"./", "${IP}"})) << list.Label;
    }
}

TEST(ProjectSimLanguageConfig, RemovesATextAsItIsWithoutProjectFile) {
    for (const TDirectoryList& list : kDirectoryLists) {
        TConfig settings;
        (settings.*list.Add)("./", true);
        (settings.*list.Add)("b", true);
        EXPECT_FALSE((settings.*list.Remove)("./b")) << list.Label;
        EXPECT_FALSE((settings.*list.Remove)(nullptr)) << list.Label;
        EXPECT_TRUE((settings.*list.Remove)("./")) << list.Label;
        EXPECT_EQ((settings.*list.Get)(), TTexts{"b"}) << list.Label;
    }
}

TEST(ProjectSimLanguageConfig, RemovesAgainstTheDirectoryOfAnIniFileItself) {
    const IniFiles ini;
    SetIniFile("D:\\data\\user.ini");
    TConfig settings;
    settings.SetProjectFileName(GetIniFile());
    settings.AddIncludeDirectory("inc", true);
    settings.AddIncludeDirectory("D:\\data\\inc", false);
    EXPECT_TRUE(settings.RemoveIncludeDirectoy("inc"));
    EXPECT_FALSE(settings.RemoveIncludeDirectoy("inc"));
    EXPECT_EQ(settings.GetIncludeDirectories(), TTexts{"H:\\home\\inc"});
}

TEST(ProjectSimLanguageConfig, ExtensionsAreComparedAndKeptAsTyped) {
    TConfig settings;
    settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    EXPECT_TRUE(settings.AddLibraryExtension(".v"));
    EXPECT_FALSE(settings.AddLibraryExtension(".v"));
    EXPECT_TRUE(settings.AddLibraryExtension(".V"));
    EXPECT_TRUE(settings.AddLibraryExtension("sub/x"));
    EXPECT_TRUE(settings.AddLibraryExtension(nullptr));
    EXPECT_EQ(settings.GetLibraryExtensions(), (TTexts{".v", ".V", "sub/x", ""}));
    EXPECT_FALSE(settings.RemoveLibraryExtension(".vo"));
    EXPECT_TRUE(settings.RemoveLibraryExtension(".v"));
    EXPECT_TRUE(settings.RemoveLibraryExtension(nullptr));
    EXPECT_EQ(settings.GetLibraryExtensions(), (TTexts{".V", "sub/x"}));
}

TEST(ProjectSimLanguageConfig, NullDirectoriesAreACheckWhereTheyWouldBeResolved) {
    RecordingLog log;
    for (const TDirectoryList& list : kDirectoryLists) {
        TConfig settings;
        EXPECT_FALSE((settings.*list.Add)(nullptr, false)) << list.Label;
        EXPECT_FALSE((settings.*list.Add)(nullptr, true)) << list.Label;
        EXPECT_EQ(log.Take(), "") << list.Label;
        settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
        EXPECT_FALSE((settings.*list.Add)(nullptr, true)) << list.Label;
        EXPECT_EQ(log.Take(), kDirectoryCheck) << list.Label;
        EXPECT_FALSE((settings.*list.Remove)(nullptr)) << list.Label;
        EXPECT_EQ(log.Take(), kDirectoryCheck) << list.Label;
        EXPECT_EQ((settings.*list.Get)(), TTexts{}) << list.Label;
    }
}

TEST(ProjectSimLanguageConfig, ABlankProjectFileIsACheckAndResolvesNothing) {
    RecordingLog log;
    TConfig settings;
    settings.SetProjectFileName(ISFileName::BlankFileName);
    EXPECT_EQ(log.Take(), "");
    EXPECT_TRUE(settings.AddIncludeDirectory("inc", true));
    EXPECT_EQ(log.Take(), kDirectoryCheck);
    EXPECT_TRUE(settings.AddIncludeDirectory("C:\\c", true));
    EXPECT_EQ(log.Take(), kDirectoryCheck);
    EXPECT_EQ(settings.GetIncludeDirectories(), (TTexts{"inc", "C:\\c\\"}));
}

TEST(ProjectSimLanguageConfig, ResolvesAgainstAFileOrADirectory) {
    const IniFiles ini;
    EXPECT_EQ(ResolveDirectoryAgainst("a", "D:\\p\\x.hpj"), "D:\\p\\a");
    EXPECT_EQ(ResolveDirectoryAgainst("a", "D:\\p\\"), "D:\\p\\a");
    EXPECT_EQ(ResolveDirectoryAgainst("a", "D:\\p"), "D:\\a");
    EXPECT_EQ(ResolveDirectoryAgainst("", "D:\\p\\"), "D:\\p");
    EXPECT_EQ(ResolveDirectoryAgainst("a", GetIniFile()->Canonical(false)), "H:\\home\\a");
    EXPECT_EQ(ResolveDirectoryAgainst("a", GetSystemIniFile()->Canonical(false)), "H:\\home\\a");
    EXPECT_EQ(ResolveDirectoryAgainst("C:\\a", "D:\\p\\"), "C:\\a\\");
    RecordingLog log;
    EXPECT_EQ(ResolveDirectoryAgainst("a", ""), "a");
    EXPECT_EQ(ResolveDirectoryAgainst("a", nullptr), "a");
    EXPECT_EQ(ResolveDirectoryAgainst(nullptr, "D:\\p\\"), "");
    EXPECT_EQ(log.Take(), std::string(kDirectoryCheck) + kDirectoryCheck + kDirectoryCheck);
    EXPECT_EQ(ResolveDirectoryAgainst("/a/b", ""), "/a/b\\");
    EXPECT_EQ(log.Take(), kDirectoryCheck);
}

TEST(ProjectSimLanguageConfig, ANewProjectFileResolvesBothLists) {
    TConfig settings;
    for (const char* directory : {"b", "./", "a", "./b", "C:\\c", "${IP}"}) {
        settings.AddIncludeDirectory(directory, false);
        settings.AddLibraryDirectory(directory, false);
    }
    settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    const TTexts expected = {"D:\\p\\b", "D:\\p", "D:\\p\\a", "C:\\c\\", "${IP}"};
    EXPECT_EQ(settings.GetIncludeDirectories(), expected);
    EXPECT_EQ(settings.GetLibraryDirectories(), expected);
    // Resolved once more, the absolute ones get their final delimiter.
    settings.SetProjectFileName(FileNamed("E:\\q\\y.hpj"));
    EXPECT_EQ(settings.GetIncludeDirectories(),
              (TTexts{"D:\\p\\b\\", "D:\\p\\", "D:\\p\\a\\", "C:\\c\\", "${IP}"}));
    EXPECT_EQ(settings.GetProjectFileName(), FileNamed("E:\\q\\y.hpj"));
}

TEST(ProjectSimLanguageConfig, KeepsDirectoriesWhenToldToOrWithoutAProjectFile) {
    struct TRow {
        const char* Label;
        const ISFileName* File;
        bool Keep;
    };
    const TRow rows[] = {{"told to", FileNamed("D:\\p\\x.hpj"), true},
                         {"null", nullptr, false},
                         {"blank", ISFileName::BlankFileName, false}};
    for (const TRow& row : rows) {
        TConfig settings;
        settings.AddIncludeDirectory("a", false);
        settings.AddLibraryDirectory("b", false);
        settings.SetProjectFileName(row.File, row.Keep);
        EXPECT_EQ(settings.GetIncludeDirectories(), TTexts{"a"}) << row.Label;
        EXPECT_EQ(settings.GetLibraryDirectories(), TTexts{"b"}) << row.Label;
        EXPECT_EQ(settings.GetProjectFileName(), row.File) << row.Label;
    }
}

TEST(ProjectSimLanguageConfig, UpdatesOneListAtATime) {
    for (const TDirectoryList& list : kDirectoryLists) {
        TConfig settings;
        settings.AddIncludeDirectory("a", false);
        settings.AddLibraryDirectory("a", false);
        settings.SetProjectFileName(FileNamed("D:\\p\\x.hpj"), true);
        (settings.*list.Update)();
        for (const TDirectoryList& other : kDirectoryLists)
            EXPECT_EQ((settings.*other.Get)(), TTexts{other.Label == list.Label ? "D:\\p\\a" : "a"})
                << list.Label << " updates " << other.Label;
    }
}

TEST(ProjectSimLanguageConfig, GivesOnlyAnEmptyIncludeListItsDefault) {
    struct TRow {
        const char* Label;
        const ISFileName* ProjectFile;
        bool Current;
        TTexts Expected;
    };
    const TRow rows[] = {
        {"current", nullptr, true, {"./"}},
        {"current with project", FileNamed("D:\\p\\x.hpj"), true, {"./"}},
        {"project", FileNamed("D:\\p\\x.hpj"), false, {"D:\\p\\"}},
        {"no project", nullptr, false, {}},
        {"blank project", ISFileName::BlankFileName, false, {}},
    };
    for (const TRow& row : rows) {
        RecordingLog log;
        TConfig settings;
        settings.SetProjectFileName(row.ProjectFile);
        settings.InitializeDefaultIncludeDirectory(row.Current);
        EXPECT_EQ(settings.GetIncludeDirectories(), row.Expected) << row.Label;
        settings.ClearIncludeDirectory();
        settings.AddIncludeDirectory("own", false);
        settings.InitializeDefaultIncludeDirectory(row.Current);
        EXPECT_EQ(settings.GetIncludeDirectories(), TTexts{"own"}) << row.Label;
        EXPECT_EQ(log.Take(), "") << row.Label;
    }
}

TEST(ProjectSimLanguageConfig, IsForgottenWhenDeleted) {
    EXPECT_TRUE(IsForgottenWhenDeleted(new TConfig));
}
