#include "simtools/simtoolsettings.h"

#include "tests/simtools/tooltext.h"
#include "tests/support/elementtext.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>
#include <string>

namespace {

// Every field of the record, a line each.
std::string AllOf(const TSimToolSettings& settings) {
    return TextOf(settings) + "local " + settings.GetLocalExecutablePath() + "|" +
           settings.GetLocalPliLibrary() + "\nremote " + settings.GetRemoteExecutablePath() + "|" +
           settings.GetRemotePliLibrary() + "\nwrapper " + settings.GetWrapperExecutablePath() +
           "\nOS " + settings.GetTargetOS() + "\nhost " + settings.GetRemoteHostName() + "|" +
           settings.GetRemoteUserName() + "|" + settings.GetRemotePath() + "\n" +
           (settings.GetOnRemoteHost() ? "on remote host" : "local") +
           (settings.GetSkipSourceFileReanalysis() ? ", skips reanalysis\n" : "\n");
}

TSimToolSettings RemoteSettings() {
    TSimToolSettings settings;
    settings.SetLanguage(LANGUAGE_VERILOG);
    settings.SetSimulatorType(SIM_VCS);
    settings.SetLocalExecutablePath("C:/local/sim.exe");
    settings.SetLocalPliLibrary("C:/local//pli.dll");
    settings.SetRemoteExecutablePath("C:/remote/./sim.exe");
    settings.SetRemotePliLibrary("C:/remote//pli.so");
    settings.SetWrapperExecutablePath("C:/remote/x/../wrap");
    settings.SetTargetOS("Linux");
    settings.SetRemoteHostName("farm");
    settings.SetRemoteUserName("eve");
    settings.SetRemotePath("C:/remote//work");
    settings.SetOnRemoteHost(true);
    settings.SetSkipSourceFileReanalysis(true);
    return settings;
}

const char* const kRemoteSettings =
    "VCS|C:\\remote\\sim.exe|C:/remote//pli.so|Verilog\n"
    "local C:\\local\\sim.exe|C:/local//pli.dll\n"
    "remote C:\\remote\\sim.exe|C:/remote//pli.so\n"
    "wrapper C:\\remote\\wrap\n"
    "OS Linux\n"
    "host farm|eve|C:\\remote\\work\n"
    "on remote host, skips reanalysis\n";

// The wrapper path that all local tools share is left empty for the other tests.
class LocalWrapper {
public:
    explicit LocalWrapper(const char* path) {
        TSimToolSettings::SetLocalWrapperExecutablePath(path);
    }
    ~LocalWrapper() { TSimToolSettings::SetLocalWrapperExecutablePath(""); }
};

}  // namespace

TEST(SimToolSettings, StartsLocalAndEmpty) {
    EXPECT_EQ(AllOf(TSimToolSettings()),
              "None|||None\nlocal |\nremote |\nwrapper \nOS \nhost ||\nlocal\n");
}

TEST(SimToolSettings, StoresPathsInCanonicalFormAndOtherTextsAsTyped) {
    EXPECT_EQ(AllOf(RemoteSettings()), kRemoteSettings);
}

TEST(SimToolSettings, TakesNullTextsAsEmpty) {
    TSimToolSettings settings = RemoteSettings();
    settings.SetLocalExecutablePath(nullptr);
    settings.SetLocalPliLibrary(nullptr);
    settings.SetRemoteExecutablePath(nullptr);
    settings.SetRemotePliLibrary(nullptr);
    settings.SetWrapperExecutablePath(nullptr);
    settings.SetTargetOS(nullptr);
    settings.SetRemoteHostName(nullptr);
    settings.SetRemoteUserName(nullptr);
    settings.SetRemotePath(nullptr);
    EXPECT_EQ(AllOf(settings),
              "VCS|||Verilog\nlocal |\nremote |\nwrapper \nOS \nhost ||\n"
              "on remote host, skips reanalysis\n");
}

TEST(SimToolSettings, TheFlagChoosesBetweenLocalAndRemote) {
    TSimToolSettings settings;
    TBaseSimTool& tool = settings;
    settings.SetOnRemoteHost(true);
    tool.SetExecutablePath("C:/remote//sim");
    tool.SetPliLibrary("C:/remote//pli");
    EXPECT_STREQ(tool.GetExecutablePath(), "C:\\remote\\sim");
    EXPECT_STREQ(tool.GetPliLibrary(), "C:/remote//pli");
    EXPECT_EQ(settings.GetLocalExecutablePath() + settings.GetLocalPliLibrary(), "");

    settings.SetOnRemoteHost(false);
    EXPECT_STREQ(tool.GetExecutablePath(), "");
    EXPECT_STREQ(tool.GetPliLibrary(), "");
    tool.SetExecutablePath("C:/local//sim");
    tool.SetPliLibrary("C:/local//pli");
    EXPECT_EQ(AllOf(settings),
              "None|C:\\local\\sim|C:/local//pli|None\n"
              "local C:\\local\\sim|C:/local//pli\n"
              "remote C:\\remote\\sim|C:/remote//pli\n"
              "wrapper \nOS \nhost ||\nlocal\n");
}

TEST(SimToolSettings, NamedSettersIgnoreTheFlag) {
    for (const bool remote : {false, true}) {
        TSimToolSettings settings;
        settings.SetOnRemoteHost(remote);
        settings.SetLocalExecutablePath("C:/a");
        settings.SetLocalPliLibrary("b");
        settings.SetRemoteExecutablePath("C:/c");
        settings.SetRemotePliLibrary("d");
        EXPECT_EQ(settings.GetLocalExecutablePath() + "|" + settings.GetLocalPliLibrary() + "|" +
                      settings.GetRemoteExecutablePath() + "|" + settings.GetRemotePliLibrary(),
                  "C:\\a|b|C:\\c|d")
            << remote;
    }
}

TEST(SimToolSettings, LocalToolsShareOneWrapper) {
    const LocalWrapper wrapper("C:/local//wrap");
    TSimToolSettings first;
    TSimToolSettings second;
    first.SetWrapperExecutablePath("C:/first");
    EXPECT_EQ(first.GetWrapperExecutablePath(), "C:\\local\\wrap");
    EXPECT_EQ(&first.GetWrapperExecutablePath(), &second.GetWrapperExecutablePath());
    first.SetOnRemoteHost(true);
    EXPECT_EQ(first.GetWrapperExecutablePath(), "C:\\first");
    second.SetOnRemoteHost(true);
    EXPECT_EQ(second.GetWrapperExecutablePath(), "");
}

TEST(SimToolSettings, CopiesEveryField) {
    const TSimToolSettings source = RemoteSettings();
    const TSimToolSettings copy(source);
    TSimToolSettings assigned;
    assigned = source;
    EXPECT_EQ(AllOf(copy), kRemoteSettings);
    EXPECT_EQ(AllOf(assigned), kRemoteSettings);
}

TEST(SimToolSettings, WritesTheSideThatTheFlagChooses) {
    TSimToolSettings settings = RemoteSettings();
    const auto elements = [&] {
        return ElementsWrittenBy([&](TXMLList* document) { settings.WriteToFile(document); });
    };
    EXPECT_EQ(elements(),
              "START Tool Name=VCS Path=C:\\remote\\sim.exe PliLibPath=C:/remote//pli.so\n"
              "TEXT Verilog\nEND Tool\n");
    settings.SetOnRemoteHost(false);
    EXPECT_EQ(elements(),
              "START Tool Name=VCS Path=C:\\local\\sim.exe PliLibPath=C:/local//pli.dll\n"
              "TEXT Verilog\nEND Tool\n");
}

TEST(SimToolSettings, ReadsIntoTheSideThatTheFlagChooses) {
    TXMLList document;
    RemoteSettings().WriteToFile(&document);
    struct {
        bool Remote;
        const char* Read;
    } const rows[] = {
        {false,
         "VCS|C:\\remote\\sim.exe|C:/remote//pli.so|Verilog\n"
         "local C:\\remote\\sim.exe|C:/remote//pli.so\nremote |\n"
         "wrapper \nOS \nhost ||\nlocal\n"},
        {true,
         "VCS|C:\\remote\\sim.exe|C:/remote//pli.so|Verilog\n"
         "local |\nremote C:\\remote\\sim.exe|C:/remote//pli.so\n"
         "wrapper \nOS \nhost ||\non remote host\n"},
    };
    for (const auto& row : rows) {
        TSimToolSettings settings;
        settings.SetOnRemoteHost(row.Remote);
        DListIterator<TElement*> element(document);
        EXPECT_TRUE(settings.ReadFromFile(element)) << row.Remote;
        EXPECT_EQ(AllOf(settings), row.Read) << row.Remote;
    }
}

TEST(SimToolSettings, KnowsTheEnvironmentsOwnSimulators) {
    std::string own;
    for (int type = -1; type <= 31; ++type)
        if (TSimToolSettings::IsOrvaneSimulator(static_cast<TSimulatorType>(type)))
            own += std::to_string(type) + " ";
    EXPECT_EQ(own, "1 2 3 4 5 6 ");
}

TEST(SimToolSettings, KeepsTheSlotOrderOfTheRecord) {
    EXPECT_EQ(SlotOf(&TSimToolSettings::SetExecutablePath), 1);
    EXPECT_EQ(SlotOf(&TSimToolSettings::SetPliLibrary), 2);
    EXPECT_EQ(SlotOf(&TSimToolSettings::GetExecutablePath), 3);
    EXPECT_EQ(SlotOf(&TSimToolSettings::GetPliLibrary), 4);
}
