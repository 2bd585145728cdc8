#include "simtools/serverconfigurationfilexmllist.h"

#include "services/files/directories.h"
#include "services/names/isfilename.h"
#include "simtools/simtoolserverclientcourier.h"
#include "simtools/simtoolsettings.h"
#include "tests/services/names/hostform.h"
#include "tests/simtools/recordingobserver.h"
#include "tests/simtools/tooltext.h"
#include "tests/support/elementtext.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>
#include <string>

namespace {

// Reads a stream as the courier would after parsing.
class StreamCourier : public TBaseSimToolServerClientCourier {
public:
    // The result, then the element that the iterator is left at.
    std::string ReadElements(const std::string& elements) {
        TXMLList document;
        PushElements(&document, elements);
        DListIterator<TElement*> element(document);
        const bool result = ReadFromFile(element);
        return (result ? "true " : "false ") + ElementAt(element);
    }
    std::string WriteElements() const {
        return ElementsWrittenBy([this](TXMLList* document) { WriteToFile(document); });
    }
};

class HookedList : public TServerConfigurationFileXMLList {
public:
    using TServerConfigurationFileXMLList::FillElements;
    using TServerConfigurationFileXMLList::InterpretElements;
    using TServerConfigurationFileXMLList::TServerConfigurationFileXMLList;
};

const ISFileName* HandleOf(const std::string& path) {
    return ISFileName::NewISFileName(path.c_str());
}

std::string LocalTools(TBaseSimToolServerClientCourier& courier) {
    return TextOf(courier.GetSimToolList("localhost"));
}

std::string Document(const std::string& content) {
    return "<!DOCTYPE HdlBuildFileList SYSTEM \"serverconfigurationfile.dtd\">\n" + content;
}

// The application-data directory of this program's tests: the courier asks for it once a process.
const MemoryFolder& DefaultFolder() {
    static const MemoryFolder folder;
    SetTalveraAppDataDirectory(folder.Path().c_str());
    TBaseSimToolServerClientCourier::GetDefaultSimConfigFile();
    return folder;
}

const char* const kUnknownCurrentServer =
    "simtoolserverclientcourier(271): Check failed: \"serverMapI != ServerToToolMap.end() && "
    "\\\"Error: Current Server doesn't exist\\\"\"\n";

const char* const kOwnTool = "SimZorvik CL|||Verilog\n";

const char* const kLocalFile =
    "<!DOCTYPE HdlBuildFileList SYSTEM \"serverconfigurationfile.dtd\">\n"
    "<HdlBuildFileList>\n"
    "  <ExternalSimulatorSettings>\n"
    "    <Tool Name=\"SimZorvik CL\" Path=\"\" PliLibPath=\"\">Verilog</Tool>\n"
    "    <Tool Name=\"GCC\" Path=\"C:\\a &amp; b\\gcc.exe\" PliLibPath=\"&lt;pli&gt;\">C++</Tool>\n"
    "    <Tool Name=\"GCC\" Path=\"C:\\tb\\gcc.exe\" PliLibPath=\"\">TestBuilder</Tool>\n"
    "  </ExternalSimulatorSettings>\n"
    "</HdlBuildFileList>\n";

void AddGcc(TBaseSimToolServerClientCourier& courier) {
    TBaseSimTool tool;
    tool.SetSimulatorType(SIM_GCC);
    tool.SetExecutablePath("C:/a & b/gcc.exe");
    tool.SetPliLibrary("<pli>");
    TBaseSimTool* testBuilder = courier.AddServerAndTool("localhost", &tool);
    testBuilder->SetExecutablePath("C:/tb/gcc.exe");
    testBuilder->SetPliLibrary("");
}

}  // namespace

TEST(ServerConfigurationFileXMLList, HasTheDocumentTypeOfTheSimulatorsFile) {
    const TServerConfigurationFileXMLList document(nullptr);
    EXPECT_EQ(document.GetDocumentType(),
              "<!DOCTYPE HdlBuildFileList SYSTEM \"serverconfigurationfile.dtd\">");
}

TEST(ServerConfigurationFileXMLList, FillsItselfFromTheCourier) {
    TBaseSimToolServerClientCourier courier;
    courier.SetCurrentServerName("localhost");
    HookedList document(&courier);
    document.FillElements();
    EXPECT_EQ(ElementsOf(document),
              "START ExternalSimulatorSettings\n"
              "START Tool Name=SimZorvik CL Path= PliLibPath=\n"
              "TEXT Verilog\n"
              "END Tool\n"
              "END ExternalSimulatorSettings\n");
    HookedList unbound(nullptr);
    unbound.FillElements();
    EXPECT_EQ(ElementsOf(unbound), "");
}

TEST(ServerConfigurationFileXMLList, InterpretsOnlyADocumentThatBeginsWithItsSection) {
    const std::string tool = "START Tool Name=VCS Path=C:/vcs\nTEXT Verilog\nEND Tool\n";
    struct {
        const char* Label;
        std::string Elements;
        const char* Tools;
    } const rows[] = {
        {"nothing", "", "SimZorvik CL|||Verilog\n"},
        {"the section", "START ExternalSimulatorSettings\n" + tool,
         "SimZorvik CL|||Verilog\nVCS|C:\\vcs||Verilog\n"},
        {"a tool", tool, "SimZorvik CL|||Verilog\n"},
        {"another section first",
         "START Other\nEND Other\nSTART ExternalSimulatorSettings\n" + tool,
         "SimZorvik CL|||Verilog\n"},
        {"the section's end", "END ExternalSimulatorSettings\n" + tool, "SimZorvik CL|||Verilog\n"},
        {"a section cut short",
         "START ExternalSimulatorSettings\nSTART Tool Name=VCS Path=C:/vcs\n",
         "SimZorvik CL|||Verilog\nVCS|C:\\vcs||Verilog\n"},
    };
    for (const auto& row : rows) {
        TBaseSimToolServerClientCourier courier;
        courier.SetCurrentServerName("localhost");
        HookedList document(&courier);
        PushElements(&document, row.Elements);
        EXPECT_TRUE(document.InterpretElements()) << row.Label;
        EXPECT_EQ(LocalTools(courier), row.Tools) << row.Label;
    }
    HookedList unbound(nullptr);
    PushElements(&unbound, "START ExternalSimulatorSettings\n" + tool);
    EXPECT_TRUE(unbound.InterpretElements());
}

TEST(SimulatorsFile, HoldsTheToolsOfTheCurrentServer) {
    const MemoryFolder folder;
    TBaseSimToolServerClientCourier courier;
    AddGcc(courier);
    courier.CreateOrGetSimTool("farm", SIM_VCS);
    courier.SetCurrentServerName("localhost");
    EXPECT_TRUE(courier.WriteCurrentServerConfigToFile(HandleOf(folder.Path("simulators.cfg"))));
    EXPECT_EQ(folder.Read("simulators.cfg"), kLocalFile);
    EXPECT_EQ(folder.List(), "simulators.cfg\n");
}

TEST(SimulatorsFile, IsWithoutSectionWhenTheServerHasNoTools) {
    const MemoryFolder folder;
    const ISFileName* file = HandleOf(folder.Path("simulators.cfg"));
    TBaseSimToolServerClientCourier courier;
    TBaseSimTool own;
    own.SetSimulatorType(SIM_ZORVIK_CL);
    courier.RemoveServerAndTool("localhost", &own);
    courier.SetCurrentServerName("localhost");
    EXPECT_TRUE(courier.WriteCurrentServerConfigToFile(file));
    EXPECT_EQ(folder.Read("simulators.cfg"), Document("<HdlBuildFileList/>\n"));
    EXPECT_TRUE(courier.ReadCurrentServerConfigFromFile(file, "localhost"));
    EXPECT_EQ(LocalTools(courier), "");
}

TEST(SimulatorsFile, StaysAsItIsWhenTheCurrentServerIsUnknown) {
    RecordingLog log;
    RecordingMessageBox messages;
    const MemoryFolder folder;
    folder.Write("simulators.cfg", "old");
    StreamCourier courier;
    EXPECT_FALSE(courier.WriteCurrentServerConfigToFile(HandleOf(folder.Path("simulators.cfg"))));
    EXPECT_EQ(log.Take(), kUnknownCurrentServer);
    EXPECT_EQ(folder.Read("simulators.cfg"), "old");
    EXPECT_EQ(folder.List(), "simulators.cfg\n");
    EXPECT_EQ(courier.WriteElements(), "");
    EXPECT_EQ(log.Take(), kUnknownCurrentServer);
    EXPECT_EQ(messages.Take(), "");
}

TEST(SimulatorsFile, CannotBeWrittenWithoutName) {
    TBaseSimToolServerClientCourier courier;
    courier.SetCurrentServerName("localhost");
    EXPECT_FALSE(courier.WriteCurrentServerConfigToFile(nullptr));
    EXPECT_FALSE(courier.WriteServerConfigToFile(static_cast<TSimToolSettings*>(nullptr)));
}

TEST(SimulatorsFile, ReportsAFolderThatDoesNotExist) {
    RecordingLog log;
    RecordingMessageBox messages;
    const TemporaryFolder folder;
    const std::string occupied = folder.Write("occupied", "a file where a folder is wanted");
    TBaseSimToolServerClientCourier courier;
    courier.SetCurrentServerName("localhost");
    EXPECT_FALSE(
        courier.WriteCurrentServerConfigToFile(HandleOf(folder.Path("occupied/simulators.cfg"))));
    const std::string shown = messages.Take();
    const std::string expected =
        "Cannot save file: \"" + folder.Path("occupied/simulators.cfg") + "\": ";
    if (kOnWindows)
        EXPECT_EQ(shown.substr(0, expected.size()), expected);
    else
        EXPECT_EQ(shown, expected + "Not a directory [0]\n");
    EXPECT_EQ(folder.Read("occupied"), "a file where a folder is wanted");
}

// The last record of a new block is filled first: two languages of a simulator change places.
TEST(SimulatorsFile, ComesBackWithTheLanguagesOfANewSimulatorSwapped) {
    const MemoryFolder folder;
    const std::string path = folder.Write("simulators.cfg", kLocalFile);
    TBaseSimToolServerClientCourier courier;
    EXPECT_TRUE(courier.ReadCurrentServerConfigFromFile(HandleOf(path), "localhost"));
    EXPECT_STREQ(courier.GetCurrentServerNameString(), "localhost");
    EXPECT_EQ(LocalTools(courier),
              "SimZorvik CL|||Verilog\n"
              "GCC|C:\\tb\\gcc.exe||TestBuilder\n"
              "GCC|C:\\a & b\\gcc.exe|<pli>|C++\n");
}

// Of a known simulator only the first record is filled, by each element in turn.
TEST(SimulatorsFile, OverwritesTheFirstRecordOfAKnownSimulator) {
    const MemoryFolder folder;
    const std::string path = folder.Write("simulators.cfg", kLocalFile);
    TBaseSimToolServerClientCourier courier;
    courier.CreateOrGetSimTool("localhost", SIM_VCS)->SetExecutablePath("C:/vcs");
    courier.CreateOrGetSimTool("localhost", SIM_GCC)->SetExecutablePath("C:/mine");
    EXPECT_TRUE(courier.ReadCurrentServerConfigFromFile(HandleOf(path), "localhost"));
    EXPECT_EQ(LocalTools(courier),
              "SimZorvik CL|||Verilog\n"
              "VCS|C:\\vcs||Verilog\n"
              "GCC|C:\\tb\\gcc.exe||TestBuilder\n"
              "GCC|C:\\mine||TestBuilder\n");
}

TEST(SimulatorsFile, IsReadIntoAServerThatIsNotKnownYet) {
    RecordingLog log;
    const MemoryFolder folder;
    const std::string path = folder.Write("simulators.cfg", kLocalFile);
    TBaseSimToolServerClientCourier courier;
    RecordingObserver observer;
    courier.AddObserver(&observer);
    EXPECT_TRUE(courier.ReadCurrentServerConfigFromFile(HandleOf(path), "farm"));
    EXPECT_EQ(courier.GetServerNameList(), (std::vector<TRope>{"localhost", "farm"}));
    EXPECT_EQ(TextOf(courier.GetCurrentSimToolList()),
              "SimZorvik CL|||Verilog\n"
              "GCC|C:\\tb\\gcc.exe||TestBuilder\n"
              "GCC|C:\\a & b\\gcc.exe|<pli>|C++\n");
    EXPECT_EQ(LocalTools(courier), kOwnTool);
    EXPECT_EQ(observer.Take() + log.Take(), "");
    EXPECT_TRUE(courier.WriteCurrentServerConfigToFile(HandleOf(path)));
    EXPECT_EQ(observer.Take() + log.Take(), "");
}

TEST(SimulatorsFile, ReadsOrRefusesAWholeFile) {
    const std::string tool = "<Tool Name=\"VCS\" Path=\"\" PliLibPath=\"\">Verilog</Tool>";
    const std::string section =
        "<ExternalSimulatorSettings>" + tool + "</ExternalSimulatorSettings>";
    struct {
        const char* Label;
        std::string Bytes;
        bool Result;
        const char* Tools;
    } const rows[] = {
        {"with the root", Document("<HdlBuildFileList>" + section + "</HdlBuildFileList>"), true,
         "SimZorvik CL|||Verilog\nVCS|||Verilog\n"},
        {"without the root", Document(section), true, "SimZorvik CL|||Verilog\nVCS|||Verilog\n"},
        {"without document type", section, true, "SimZorvik CL|||Verilog\nVCS|||Verilog\n"},
        {"a padded simulator name",
         "<ExternalSimulatorSettings><Tool Name=\" VCS \">VHDL</Tool></ExternalSimulatorSettings>",
         true, "SimZorvik CL|||Verilog\nVCS|||VHDL\n"},
        {"another section",
         Document("<HdlBuildFileList><Other/>" + section + "</HdlBuildFileList>"), true, kOwnTool},
        {"another root", "<Other>" + section + "</Other>", true, kOwnTool},
        {"an empty root", Document("<HdlBuildFileList/>"), true, kOwnTool},
        {"an empty section", "<ExternalSimulatorSettings/>", true, kOwnTool},
        {"an empty file", "", false, kOwnTool},
        {"cut short", Document("<HdlBuildFileList>" + section), false, kOwnTool},
        {"no XML", "simulators", false, kOwnTool},
    };
    for (const auto& row : rows) {
        RecordingLog log;
        RecordingMessageBox messages;
        const MemoryFolder folder;
        const std::string path = folder.Write("simulators.cfg", row.Bytes);
        TBaseSimToolServerClientCourier courier;
        EXPECT_EQ(courier.ReadCurrentServerConfigFromFile(HandleOf(path), "localhost"), row.Result)
            << row.Label;
        EXPECT_EQ(LocalTools(courier), row.Tools) << row.Label;
        EXPECT_STREQ(courier.GetCurrentServerNameString(), "localhost") << row.Label;
        EXPECT_EQ(messages.Take() == "", row.Result) << row.Label;
    }
}

TEST(SimulatorsFile, LeavesTheToolsAloneWhenMissing) {
    RecordingLog log;
    RecordingMessageBox messages;
    const MemoryFolder folder;
    TBaseSimToolServerClientCourier courier;
    EXPECT_FALSE(
        courier.ReadCurrentServerConfigFromFile(HandleOf(folder.Path("missing.cfg")), "farm"));
    EXPECT_STREQ(courier.GetCurrentServerNameString(), "farm");
    EXPECT_EQ(courier.GetServerNameList(), (std::vector<TRope>{"localhost"}));
    EXPECT_FALSE(courier.ReadCurrentServerConfigFromFile(nullptr, nullptr));
    EXPECT_STREQ(courier.GetCurrentServerNameString(), "");
    EXPECT_EQ(messages.Take() + log.Take(), "");
}

TEST(SimulatorsFile, KeepsWhatWasReadOfAStreamCutShort) {
    const std::string section =
        "START ExternalSimulatorSettings\n"
        "START Tool Name=VCS Path=C:/vcs PliLibPath=p\n"
        "TEXT Verilog\n"
        "END Tool\n"
        "START Tool Name=GCC Path=C:/gcc PliLibPath=\n"
        "TEXT TestBuilder\n"
        "END Tool\n"
        "END ExternalSimulatorSettings\n";
    const std::string vcs = std::string(kOwnTool) + "VCS|C:\\vcs|p|Verilog\n";
    const std::string gcc = vcs + "GCC|||C++\nGCC|C:\\gcc||TestBuilder\n";
    struct {
        int Elements;
        const char* Result;
        std::string Tools;
    } const rows[] = {
        {0, "true TAIL", kOwnTool}, {1, "true TAIL", kOwnTool}, {2, "false TAIL", vcs},
        {3, "true TAIL", vcs},      {4, "true TAIL", vcs},      {5, "false TAIL", gcc},
        {6, "true TAIL", gcc},      {7, "true TAIL", gcc},      {8, "true TAIL", gcc},
    };
    for (const auto& row : rows) {
        StreamCourier courier;
        courier.SetCurrentServerName("localhost");
        EXPECT_EQ(courier.ReadElements(FirstLines(section, row.Elements)), row.Result)
            << row.Elements;
        EXPECT_EQ(LocalTools(courier), row.Tools) << row.Elements;
    }
}

TEST(SimulatorsFile, ReadsWhatStandsInTheSection) {
    const std::string start = "START ExternalSimulatorSettings\n";
    const std::string vcs = "START Tool Name=VCS Path=C:/vcs\nTEXT Verilog\nEND Tool\n";
    const std::string read = std::string(kOwnTool) + "VCS|C:\\vcs||Verilog\n";
    const auto tool = [](const std::string& name) {
        return "START Tool Name=" + name + " Path=C:/x PliLibPath=y\nTEXT Verilog\nEND Tool\n";
    };
    struct {
        const char* Label;
        std::string Elements;
        const char* Result;
        std::string Tools;
    } const rows[] = {
        {"tools without the section", vcs, "true TAIL", read},
        {"another section", "START Other\n" + vcs, "true START Other", kOwnTool},
        {"a text among the tools", start + vcs + "TEXT x\n" + tool("GCC"), "true TEXT x", read},
        {"a foreign element among the tools", start + vcs + "START Other\n" + tool("GCC"),
         "true START Other", read},
        {"behind the section", start + vcs + "END ExternalSimulatorSettings\nSTART Next\n",
         "true START Next", read},
        {"an unknown simulator", start + tool("Foo") + vcs, "true TAIL", read},
        {"an unknown simulator with children",
         start + "START Tool Name=Foo\nSTART Tool Name=GCC\nEND Tool\nEND Tool\n" + vcs,
         "true TAIL", read},
        {"a simulator without languages", start + vcs + tool("Simulator30"), "true TAIL", read},
        {"no simulator", start + vcs + "START Tool Path=C:/x\nEND Tool\n", "true TAIL", read},
        {"an unknown simulator cut short", start + vcs + "START Tool Name=Foo\n", "true TAIL",
         read},
        {"an unknown language", start + "START Tool Name=VCS Path=C:/vcs\nTEXT Fortran\nEND Tool\n",
         "true TAIL", std::string(kOwnTool) + "VCS|C:\\vcs||None\n"},
        {"no text", start + "START Tool Name=VCS Path=C:/vcs\nEND Tool\n" + tool("Specman"),
         "true TAIL", std::string(kOwnTool) + "VCS|C:\\vcs||None\nSpecman|C:\\x|y|Verilog\n"},
        {"a simulator twice", start + tool("VCS") + vcs, "true TAIL", read},
    };
    for (const auto& row : rows) {
        StreamCourier courier;
        courier.SetCurrentServerName("localhost");
        EXPECT_EQ(courier.ReadElements(row.Elements), row.Result) << row.Label;
        EXPECT_EQ(LocalTools(courier), row.Tools) << row.Label;
    }
}

TEST(SimulatorsFile, SkipsAnUnknownSimulatorOnANewServer) {
    StreamCourier courier;
    EXPECT_EQ(courier.ReadElements("START Tool Name=Foo Path=C:/x\nTEXT VHDL\nEND Tool\n"
                                   "START Tool Name=VCS\nTEXT Verilog\nEND Tool\n"),
              "true TAIL");
    EXPECT_EQ(TextOf(courier.GetSimToolList("")), "VCS|||Verilog\n");
}

TEST(DefaultSimulatorsFile, StandsInTheApplicationDataDirectoryOfTheFirstCall) {
    const MemoryFolder& folder = DefaultFolder();
    const ISFileName* file = TBaseSimToolServerClientCourier::GetDefaultSimConfigFile();
    EXPECT_EQ(file->Canonical(false), folder.Path("simulators.cfg"));
    const MemoryFolder later;
    SetTalveraAppDataDirectory(later.Path().c_str());
    EXPECT_EQ(TBaseSimToolServerClientCourier::GetDefaultSimConfigFile(), file);
    SetTalveraAppDataDirectory(folder.Path().c_str());
}

TEST(DefaultSimulatorsFile, IsWrittenForTheCurrentServerWhateverTheArgument) {
    const MemoryFolder& folder = DefaultFolder();
    TSimToolSettings local;
    TSimToolSettings remote;
    remote.SetOnRemoteHost(true);
    remote.SetRemoteHostName("farm");
    TBaseSimToolServerClientCourier courier;
    courier.CreateOrGetSimTool("farm", SIM_VCS);
    courier.SetCurrentServerName("farm");
    const std::string farm = Document(
        "<HdlBuildFileList>\n"
        "  <ExternalSimulatorSettings>\n"
        "    <Tool Name=\"VCS\" Path=\"\" PliLibPath=\"\">Verilog</Tool>\n"
        "  </ExternalSimulatorSettings>\n"
        "</HdlBuildFileList>\n");
    struct {
        const char* Label;
        std::function<bool()> Write;
    } const rows[] = {
        {"another server", [&] { return courier.WriteServerConfigToFile("localhost"); }},
        {"an unknown server", [&] { return courier.WriteServerConfigToFile("moon"); }},
        {"local settings", [&] { return courier.WriteServerConfigToFile(&local); }},
        {"remote settings", [&] { return courier.WriteServerConfigToFile(&remote); }},
    };
    for (const auto& row : rows) {
        folder.Write("simulators.cfg", "old");
        EXPECT_TRUE(row.Write()) << row.Label;
        EXPECT_EQ(folder.Read("simulators.cfg"), farm) << row.Label;
        EXPECT_STREQ(courier.GetCurrentServerNameString(), "farm") << row.Label;
    }
}

TEST(DefaultSimulatorsFile, IsReadUnderTheGivenServerOrTheRemoteHost) {
    DefaultFolder().Write("simulators.cfg", kLocalFile);
    const std::string tools =
        "SimZorvik CL|||Verilog\n"
        "GCC|C:\\tb\\gcc.exe||TestBuilder\n"
        "GCC|C:\\a & b\\gcc.exe|<pli>|C++\n";
    TSimToolSettings settings;
    settings.SetRemoteHostName("farm");
    for (const bool remote : {false, true}) {
        settings.SetOnRemoteHost(remote);
        TBaseSimToolServerClientCourier courier;
        EXPECT_TRUE(courier.ReadServerConfigFromFile(&settings));
        EXPECT_STREQ(courier.GetCurrentServerNameString(), "farm");
        EXPECT_EQ(TextOf(courier.GetSimToolList("farm")), tools);
    }
    TBaseSimToolServerClientCourier courier;
    EXPECT_TRUE(courier.ReadServerConfigFromFile("localhost"));
    EXPECT_EQ(LocalTools(courier), tools);
    EXPECT_FALSE(courier.ReadServerConfigFromFile(static_cast<TSimToolSettings*>(nullptr)));
    EXPECT_STREQ(courier.GetCurrentServerNameString(), "localhost");
}

// Settings that never named a host are read under the empty name, which is then a server.
TEST(DefaultSimulatorsFile, IsReadUnderTheEmptyNameForLocalSettings) {
    DefaultFolder().Write("simulators.cfg", kLocalFile);
    TSimToolSettings settings;
    TBaseSimToolServerClientCourier courier;
    EXPECT_TRUE(courier.ReadServerConfigFromFile(&settings));
    EXPECT_EQ(courier.GetServerNameList(), (std::vector<TRope>{"localhost", ""}));
}
