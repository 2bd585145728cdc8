#include "simtools/simtoolserverclientcourier.h"

#include "simtools/simtoolsettings.h"
#include "tests/simtools/recordingobserver.h"
#include "tests/simtools/tooltext.h"
#include "tests/support/recorders.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

using TCourier = TBaseSimToolServerClientCourier;

// Every listed server with its tools; the current one's name last.
std::string TextOf(TCourier& courier) {
    std::string lines;
    for (const TRope& server : courier.GetServerNameList())
        lines += "[" + server.Str() + "]\n" + TextOf(courier.GetSimToolList(server));
    return lines + "current " + courier.GetCurrentServerNameString() + "\n";
}

TBaseSimTool ToolOf(TSimulatorType type, const char* path = "") {
    TBaseSimTool tool;
    tool.SetSimulatorType(type);
    tool.SetExecutablePath(path);
    return tool;
}

const char* const kNewCourier = "[localhost]\nSimZorvik CL|||Verilog\ncurrent \n";

const char* const kUnknownServer =
    "simtoolserverclientcourier(176): Check failed: \"ServerToToolMap.find(serverName) != "
    "ServerToToolMap.end() && \\\"Error: Server doesn't exist\\\"\"\n";

}  // namespace

TEST(SimToolServerClientCourier, StartsWithTheLocalServer) {
    TCourier courier;
    EXPECT_EQ(TextOf(courier), kNewCourier);
    EXPECT_EQ(courier.GetCurrentServerName(), TRope(""));
    EXPECT_EQ(courier.GetCurrentSimToolList(), nullptr);
    EXPECT_EQ(courier.GetSimToolList("Localhost"), nullptr);
}

TEST(SimToolServerClientCourier, AddsOneRecordForEachLanguageOfTheSimulator) {
    TCourier courier;
    TBaseSimTool gcc = ToolOf(SIM_GCC, "C:/gcc");
    TBaseSimTool vcs = ToolOf(SIM_VCS, "C:/vcs");
    TBaseSimTool* added = courier.AddServerAndTool("farm", &gcc);
    EXPECT_EQ(added, &courier.GetSimToolList("farm")->back());
    added = courier.AddServerAndTool("farm", &vcs);
    EXPECT_EQ(added, &courier.GetSimToolList("farm")->back());
    EXPECT_EQ(TextOf(courier),
              "[localhost]\nSimZorvik CL|||Verilog\n"
              "[farm]\nGCC|C:\\gcc||C++\nGCC|C:\\gcc||TestBuilder\nVCS|C:\\vcs||Verilog\n"
              "current \n");
}

TEST(SimToolServerClientCourier, AddsNoSimulatorTwice) {
    TCourier courier;
    TBaseSimTool first = ToolOf(SIM_GCC, "C:/first");
    TBaseSimTool second = ToolOf(SIM_GCC, "C:/second");
    courier.AddServerAndTool("farm", &first);
    EXPECT_EQ(courier.AddServerAndTool("farm", &second), &courier.GetSimToolList("farm")->front());
    EXPECT_EQ(courier.CreateOrGetSimTool("farm", SIM_GCC),
              &courier.GetSimToolList("farm")->front());
    EXPECT_EQ(TextOf(courier.GetSimToolList("farm")),
              "GCC|C:\\first||C++\nGCC|C:\\first||TestBuilder\n");
}

TEST(SimToolServerClientCourier, ComparesServerNamesByteForByte) {
    TCourier courier;
    for (const char* server : {"farm", "Farm", "farm ", "", "farm"})
        courier.CreateOrGetSimTool(server, SIM_VCS);
    courier.CreateOrGetSimTool(nullptr, SIM_SPECMAN);
    EXPECT_EQ(TextOf(courier),
              "[localhost]\nSimZorvik CL|||Verilog\n[farm]\nVCS|||Verilog\n[Farm]\nVCS|||Verilog\n"
              "[farm ]\nVCS|||Verilog\n[]\nVCS|||Verilog\nSpecman|||Specman\ncurrent \n");
}

TEST(SimToolServerClientCourier, AddsOnlyTheBasePartOfSettings) {
    TSimToolSettings settings;
    settings.SetSimulatorType(SIM_VCS);
    settings.SetOnRemoteHost(true);
    settings.SetRemoteExecutablePath("C:/remote");
    settings.SetLocalExecutablePath("C:/local");
    settings.SetLocalPliLibrary("pli");
    TCourier courier;
    courier.AddServerAndTool("farm", &settings);
    EXPECT_EQ(TextOf(courier.GetSimToolList("farm")), "VCS|C:\\local|pli|Verilog\n");
}

TEST(SimToolServerClientCourier, AddsNothingForASimulatorWithoutLanguages) {
    TCourier courier;
    EXPECT_EQ(courier.CreateOrGetSimTool("farm", SIM_NONE), nullptr);
    EXPECT_EQ(TextOf(courier), "[localhost]\nSimZorvik CL|||Verilog\n[farm]\ncurrent \n");
    EXPECT_EQ(courier.CreateOrGetSimTool("localhost", SIM_SIMULATOR30),
              &courier.GetSimToolList("localhost")->back());
    EXPECT_EQ(TextOf(courier.GetSimToolList("localhost")), "SimZorvik CL|||Verilog\n");
}

TEST(SimToolServerClientCourier, IgnoresANullTool) {
    TCourier courier;
    EXPECT_EQ(courier.AddServerAndTool("farm", nullptr), nullptr);
    EXPECT_FALSE(courier.RemoveServerAndTool("localhost", nullptr));
    EXPECT_EQ(TextOf(courier), kNewCourier);
}

TEST(SimToolServerClientCourier, RemovesTheRecordsOfASimulator) {
    TCourier courier;
    courier.CreateOrGetSimTool("localhost", SIM_GCC);
    courier.CreateOrGetSimTool("localhost", SIM_VCS);
    TBaseSimTool gcc = ToolOf(SIM_GCC);
    EXPECT_TRUE(courier.RemoveServerAndTool("localhost", &gcc));
    EXPECT_EQ(TextOf(courier.GetSimToolList("localhost")),
              "SimZorvik CL|||Verilog\nVCS|||Verilog\n");
    EXPECT_FALSE(courier.RemoveServerAndTool("localhost", &gcc));
    EXPECT_FALSE(courier.RemoveServerAndTool("farm", &gcc));
}

TEST(SimToolServerClientCourier, RemovesARecordThatIsItsOwnArgument) {
    TCourier courier;
    courier.CreateOrGetSimTool("localhost", SIM_GCC);
    courier.CreateOrGetSimTool("localhost", SIM_VCS);
    EXPECT_TRUE(
        courier.RemoveServerAndTool("localhost", &courier.GetSimToolList("localhost")->at(1)));
    EXPECT_EQ(TextOf(courier.GetSimToolList("localhost")),
              "SimZorvik CL|||Verilog\nVCS|||Verilog\n");
}

TEST(SimToolServerClientCourier, KeepsOnlyTheLocalServerWithoutTools) {
    TCourier courier;
    TBaseSimTool gcc = ToolOf(SIM_GCC);
    TBaseSimTool own = ToolOf(SIM_ZORVIK_CL);
    courier.AddServerAndTool("farm", &gcc);
    courier.AddServerAndTool("LOCALHOST", &gcc);
    ASSERT_TRUE(courier.SetCurrentServerName("farm"));
    EXPECT_TRUE(courier.RemoveServerAndTool("farm", &gcc));
    EXPECT_TRUE(courier.RemoveServerAndTool("LOCALHOST", &gcc));
    EXPECT_TRUE(courier.RemoveServerAndTool("localhost", &own));
    EXPECT_EQ(TextOf(courier), "[localhost]\ncurrent farm\n");
    EXPECT_EQ(courier.GetSimToolList("farm"), nullptr);
    EXPECT_EQ(courier.GetCurrentSimToolList(), nullptr);
}

// Callers may set another simulator in a record, which breaks up its block.
TEST(SimToolServerClientCourier, RemovesConsecutiveRecordsOfTheSimulatorOnly) {
    TBaseSimTool gcc = ToolOf(SIM_GCC);
    struct {
        const char* Label;
        std::size_t Retyped;
        const char* Left;
    } const rows[] = {
        {"second record of the block", 2, "SimZorvik CL|||Verilog\nSpecman|||TestBuilder\n"},
        {"first record, so that the block ends the list", 1,
         "SimZorvik CL|||Verilog\nSpecman|||C++\n"},
    };
    for (const auto& row : rows) {
        TCourier courier;
        courier.AddServerAndTool("localhost", &gcc);
        courier.GetSimToolList("localhost")->at(row.Retyped).SetSimulatorType(SIM_SPECMAN);
        EXPECT_TRUE(courier.RemoveServerAndTool("localhost", &gcc)) << row.Label;
        EXPECT_EQ(TextOf(courier.GetSimToolList("localhost")), row.Left) << row.Label;
    }
}

TEST(SimToolServerClientCourier, RemovesNoMoreRecordsThanTheSimulatorHasLanguages) {
    TBaseSimTool vcs = ToolOf(SIM_VCS);
    TCourier courier;
    courier.AddServerAndTool("localhost", &vcs);
    courier.CreateOrGetSimTool("localhost", SIM_SPECMAN)->SetSimulatorType(SIM_VCS);
    EXPECT_TRUE(courier.RemoveServerAndTool("localhost", &vcs));
    EXPECT_EQ(TextOf(courier.GetSimToolList("localhost")),
              "SimZorvik CL|||Verilog\nVCS|||Specman\n");
}

TEST(SimToolServerClientCourier, SetsOnlyAKnownServerAsCurrent) {
    RecordingLog log;
    TCourier courier;
    EXPECT_TRUE(courier.SetCurrentServerName("localhost"));
    EXPECT_STREQ(courier.GetCurrentServerNameString(), "localhost");
    EXPECT_EQ(courier.GetCurrentServerName(), TRope("localhost"));
    EXPECT_EQ(courier.GetCurrentSimToolList(), courier.GetSimToolList("localhost"));
    EXPECT_EQ(log.Take(), "");
    for (int call = 1; call <= 2; ++call) {
        EXPECT_FALSE(courier.SetCurrentServerName("Localhost"));
        EXPECT_STREQ(courier.GetCurrentServerNameString(), "");
        EXPECT_EQ(log.Take(), kUnknownServer);
    }
    EXPECT_EQ(TextOf(courier), kNewCourier);
}

TEST(SimToolServerClientCourier, FindsTheFirstToolOfTheCurrentServer) {
    TCourier courier;
    courier.CreateOrGetSimTool("localhost", SIM_GCC);
    courier.SetCurrentServerName("localhost");
    EXPECT_EQ(courier.GetSimTool(SIM_GCC), &courier.GetSimToolList("localhost")->at(1));
    EXPECT_EQ(courier.GetSimTool(SIM_VCS), nullptr);
}

// Asking an unknown server for a tool makes it known, but no listed one.
TEST(SimToolServerClientCourier, MapsAnUnknownCurrentServerWhenAskedForATool) {
    RecordingLog log;
    TCourier courier;
    EXPECT_EQ(courier.GetSimTool(SIM_ZORVIK_CL), nullptr);
    EXPECT_EQ(TextOf(courier.GetSimToolList("")), "");
    EXPECT_TRUE(courier.SetCurrentServerName(""));
    TBaseSimTool vcs = ToolOf(SIM_VCS);
    EXPECT_NE(courier.AddServerAndTool("", &vcs), nullptr);
    EXPECT_EQ(TextOf(courier), kNewCourier);
    EXPECT_EQ(TextOf(courier.GetCurrentSimToolList()), "VCS|||Verilog\n");
    EXPECT_TRUE(courier.RemoveServerAndTool("", &vcs));
    EXPECT_EQ(courier.GetCurrentSimToolList(), nullptr);
    EXPECT_EQ(TextOf(courier), kNewCourier);
    EXPECT_EQ(log.Take(), "");
}

TEST(SimToolServerClientCourier, InitializesTheServerOfTheSettings) {
    struct {
        const char* Label;
        bool Remote;
        const char* LocalPath;
        const char* RemotePath;
        const char* Host;
        const char* Courier;
    } const rows[] = {
        {"local", false, "C:/vcs", "", "farm",
         "[localhost]\nSimZorvik CL|||Verilog\nVCS|C:\\vcs||Verilog\ncurrent localhost\n"},
        {"local without path", false, "", "C:/vcs", "farm", kNewCourier},
        {"remote", true, "C:/local", "C:/vcs", "farm",
         "[localhost]\nSimZorvik CL|||Verilog\n[farm]\nVCS|C:\\local||Verilog\ncurrent farm\n"},
        {"remote without path", true, "C:/vcs", "", "farm", kNewCourier},
        {"remote without host", true, "C:/vcs", "C:/vcs", "", kNewCourier},
    };
    for (const auto& row : rows) {
        TSimToolSettings settings;
        settings.SetSimulatorType(SIM_VCS);
        settings.SetLocalExecutablePath(row.LocalPath);
        settings.SetRemoteExecutablePath(row.RemotePath);
        settings.SetRemoteHostName(row.Host);
        settings.SetOnRemoteHost(row.Remote);
        TCourier courier;
        courier.InitializeServerList(&settings);
        EXPECT_EQ(TextOf(courier), row.Courier) << row.Label;
    }
    TCourier courier;
    courier.InitializeServerList(nullptr);
    EXPECT_EQ(TextOf(courier), kNewCourier);
}

TEST(SimToolServerClientCourier, CopiesServersAndSharesObservers) {
    TCourier source;
    source.CreateOrGetSimTool("farm", SIM_VCS);
    source.SetCurrentServerName("farm");
    RecordingObserver observer;
    source.AddObserver(&observer);
    TCourier copy(source);
    TCourier assigned;
    assigned = source;
    const std::string held = TextOf(source);
    EXPECT_EQ(held, "[localhost]\nSimZorvik CL|||Verilog\n[farm]\nVCS|||Verilog\ncurrent farm\n");
    EXPECT_EQ(TextOf(copy), held);
    EXPECT_EQ(TextOf(assigned), held);
    for (TCourier* courier : {&copy, &assigned}) {
        courier->CreateOrGetSimTool("added", SIM_VCS);
        EXPECT_EQ(observer.Take(), "changed\n");
    }
    EXPECT_EQ(TextOf(source), held);
    RecordingObserver late;
    copy.AddObserver(&late);
    source.DeleteObserver(&observer);
    assigned.CreateOrGetSimTool("farm", SIM_GCC);
    EXPECT_EQ(observer.Take(), "");
    EXPECT_EQ(late.Take(), "changed\n");
}

TEST(SimToolServerClientCourier, NotifiesOfToolsAddedAndRemovedOnly) {
    RecordingLog log;
    auto courier = std::make_unique<TCourier>();
    RecordingObserver observer;
    courier->AddObserver(&observer);
    courier->AddObserver(&observer);
    TBaseSimTool vcs = ToolOf(SIM_VCS);
    TBaseSimTool gcc = ToolOf(SIM_GCC);
    struct {
        const char* Label;
        std::function<void()> Do;
        const char* Calls;
    } const steps[] = {
        {"add", [&] { courier->AddServerAndTool("farm", &gcc); }, "changed\n"},
        {"add again", [&] { courier->AddServerAndTool("farm", &gcc); }, ""},
        {"create", [&] { courier->CreateOrGetSimTool("farm", SIM_VCS); }, "changed\n"},
        {"get", [&] { courier->CreateOrGetSimTool("farm", SIM_VCS); }, ""},
        {"set current", [&] { courier->SetCurrentServerName("farm"); }, ""},
        {"set unknown", [&] { courier->SetCurrentServerName("moon"); }, ""},
        {"find", [&] { courier->GetSimTool(SIM_VCS); }, ""},
        {"remove", [&] { courier->RemoveServerAndTool("farm", &vcs); }, "changed\n"},
        {"remove again", [&] { courier->RemoveServerAndTool("farm", &vcs); }, ""},
        {"remove a server", [&] { courier->RemoveServerAndTool("farm", &gcc); }, "changed\n"},
        {"destroy", [&] { courier.reset(); }, ""},
    };
    for (const auto& step : steps) {
        step.Do();
        EXPECT_EQ(observer.Take(), step.Calls) << step.Label;
    }
}

TEST(SimToolServerClientCourier, TellsItsObserversWhenTheChangeIsMade) {
    TCourier courier;
    RecordingObserver observer;
    courier.AddObserver(&observer);
    TBaseSimTool vcs = ToolOf(SIM_VCS);
    TBaseSimTool own = ToolOf(SIM_ZORVIK_CL);
    std::string seen;
    const auto look = [&] { seen = TextOf(courier); };
    observer.Inside = look;
    courier.AddServerAndTool("farm", &vcs);
    EXPECT_EQ(seen, "[localhost]\nSimZorvik CL|||Verilog\n[farm]\nVCS|||Verilog\ncurrent \n");
    observer.Inside = look;
    courier.RemoveServerAndTool("localhost", &own);
    EXPECT_EQ(seen, "[localhost]\n[farm]\nVCS|||Verilog\ncurrent \n");
    observer.Inside = look;
    courier.RemoveServerAndTool("farm", &vcs);
    EXPECT_EQ(seen, "[localhost]\ncurrent \n");
}

TEST(SimToolServerClientCourier, PingsEveryObserver) {
    const TCourier courier;
    RecordingObserver first;
    RecordingObserver second;
    courier.AddObserver(&first);
    courier.AddObserver(&second);
    courier.PingObservers(&ABaseSimToolCourierObserver::OnPing);
    EXPECT_EQ(first.Take() + second.Take(), "ping\nping\n");
    courier.DeleteObserver(&first);
    courier.PingObservers(&ABaseSimToolCourierObserver::OnPing);
    courier.PingObservers(nullptr);
    EXPECT_EQ(first.Take() + "|" + second.Take(), "|ping\n");
}

TEST(SimToolServerClientCourier, SurvivesObserversThatChangeIt) {
    TCourier courier;
    RecordingObserver observer;
    courier.AddObserver(&observer);
    TBaseSimTool vcs = ToolOf(SIM_VCS);
    TBaseSimTool gcc = ToolOf(SIM_GCC);

    observer.Inside = [&] { courier.CreateOrGetSimTool("farm", SIM_SPECMAN); };
    TBaseSimTool* added = courier.AddServerAndTool("farm", &vcs);
    EXPECT_EQ(added, &courier.GetSimToolList("farm")->front());
    EXPECT_EQ(TextOf(courier.GetSimToolList("farm")), "VCS|||Verilog\nSpecman|||Specman\n");

    observer.Inside = [&] { courier.RemoveServerAndTool("farm", &vcs); };
    added = courier.AddServerAndTool("farm", &gcc);
    EXPECT_EQ(added, &courier.GetSimToolList("farm")->at(2));
    EXPECT_EQ(TextOf(courier.GetSimToolList("farm")),
              "Specman|||Specman\nGCC|||C++\nGCC|||TestBuilder\n");

    observer.Inside = [&] { courier.RemoveServerAndTool("moon", &vcs); };
    EXPECT_EQ(courier.AddServerAndTool("moon", &vcs), nullptr);
    EXPECT_EQ(courier.GetSimToolList("moon"), nullptr);

    observer.Inside = [&] { courier.RemoveServerAndTool("localhost", &vcs); };
    EXPECT_EQ(courier.AddServerAndTool("localhost", &vcs), nullptr);
    EXPECT_EQ(TextOf(courier.GetSimToolList("localhost")), "SimZorvik CL|||Verilog\n");
}

TEST(SimToolServerClientCourier, KeepsTheObserversSlotOrder) {
    EXPECT_EQ(SlotOf(&ABaseSimToolCourierObserver::OnSimToolsChanged), 1);
    EXPECT_EQ(SlotOf(&ABaseSimToolCourierObserver::OnPing), 2);
}
