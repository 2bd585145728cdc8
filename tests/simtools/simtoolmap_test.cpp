#include "simtools/simtoolmap.h"

#include "tests/simtools/tooltext.h"
#include "tests/support/elementtext.h"
#include <gtest/gtest.h>
#include <string>

namespace {

std::string ElementsOf(const TSimToolMap& tools) {
    return ElementsWrittenBy([&](TXMLList* document) { tools.WriteToFile(document); });
}

// Counts the records that live.
class CountedTool : public TBaseSimTool {
public:
    CountedTool(TSimulatorType type, THdlLanguage language) {
        SetSimulatorType(type);
        SetLanguage(language);
        ++Alive;
    }
    CountedTool(const CountedTool&) = delete;
    CountedTool& operator=(const CountedTool&) = delete;
    ~CountedTool() override { --Alive; }
    static inline int Alive = 0;
};

const char* const kSection =
    "START ExternalSimulatorSettings\n"
    "START Tool Name=VCS Path=C:\\vcs PliLibPath=pli\n"
    "TEXT Verilog\n"
    "END Tool\n"
    "START Tool Name=Scirocco Path= PliLibPath=\n"
    "TEXT VHDL\n"
    "END Tool\n"
    "END ExternalSimulatorSettings\n";

std::string Section(const std::string& tools) {
    return "START ExternalSimulatorSettings\n" + tools + "END ExternalSimulatorSettings\n";
}

std::string Tool(const std::string& attributes, const std::string& language) {
    return "START Tool " + attributes + "\nTEXT " + language + "\nEND Tool\n";
}

}  // namespace

TEST(SimToolMap, StartsEmptyAndWritesNothing) {
    TSimToolMap tools;
    EXPECT_EQ(tools.GetSimToolLanguages(), std::vector<THdlLanguage>());
    EXPECT_EQ(tools.GetSimTool(LANGUAGE_VERILOG), nullptr);
    EXPECT_EQ(ElementsOf(tools), "");
}

TEST(SimToolMap, WritesItsToolsInTheOrderOfTheLanguages) {
    TSimToolMap tools;
    tools.AddSimTool(new CountedTool(SIM_SCIROCCO, LANGUAGE_VHDL));
    auto* vcs = new CountedTool(SIM_VCS, LANGUAGE_VERILOG);
    vcs->SetExecutablePath("C:/vcs");
    vcs->SetPliLibrary("pli");
    tools.AddSimTool(vcs);
    EXPECT_EQ(ElementsOf(tools), kSection);
    EXPECT_EQ(tools.GetSimToolLanguages(),
              (std::vector<THdlLanguage>{LANGUAGE_VERILOG, LANGUAGE_VHDL}));
    const TSimToolMap& same = tools;
    EXPECT_EQ(tools.GetSimTool(LANGUAGE_VERILOG), vcs);
    EXPECT_EQ(same.GetSimTool(LANGUAGE_VERILOG), vcs);
    EXPECT_EQ(same.GetSimTool(LANGUAGE_SYSTEMC), nullptr);
    tools.WriteToFile(nullptr);
}

TEST(SimToolMap, OwnsItsTools) {
    ASSERT_EQ(CountedTool::Alive, 0);
    {
        TSimToolMap tools;
        auto* first = new CountedTool(SIM_VCS, LANGUAGE_VERILOG);
        tools.AddSimTool(first);
        tools.AddSimTool(first);
        tools.AddSimTool(nullptr);
        EXPECT_EQ(tools.GetSimTool(LANGUAGE_VERILOG), first);
        // Replaced, and yet valid as long as the map.
        auto* second = new CountedTool(SIM_VCSI, LANGUAGE_VERILOG);
        tools.AddSimTool(second);
        EXPECT_EQ(tools.GetSimTool(LANGUAGE_VERILOG), second);
        EXPECT_EQ(CountedTool::Alive, 2);
        EXPECT_EQ(first->GetSimulatorType(), SIM_VCS);
        tools.AddSimTool(first);
        EXPECT_EQ(tools.GetSimTool(LANGUAGE_VERILOG), first);
        EXPECT_EQ(CountedTool::Alive, 2);
    }
    EXPECT_EQ(CountedTool::Alive, 0);
}

TEST(SimToolMap, DeletesAToolMappedTwiceOnce) {
    {
        TSimToolMap tools;
        auto* tool = new CountedTool(SIM_GCC, LANGUAGE_CPLUSPLUS);
        tools.AddSimTool(tool);
        tool->SetLanguage(LANGUAGE_TESTBUILDER);
        tools.AddSimTool(tool);
        EXPECT_EQ(tools.GetSimToolLanguages(),
                  (std::vector<THdlLanguage>{LANGUAGE_CPLUSPLUS, LANGUAGE_TESTBUILDER}));
        tools.Clear();
        EXPECT_EQ(CountedTool::Alive, 0);
    }
    EXPECT_EQ(CountedTool::Alive, 0);
}

TEST(SimToolMap, ClearDeletesTheMappedTools) {
    TSimToolMap tools;
    tools.AddSimTool(new CountedTool(SIM_SCIROCCO, LANGUAGE_VHDL));
    tools.AddSimTool(new CountedTool(SIM_VCS, LANGUAGE_VERILOG));
    tools.Clear();
    EXPECT_EQ(CountedTool::Alive, 0);
    EXPECT_EQ(ElementsOf(tools), "");
    tools.Clear();
    EXPECT_EQ(tools.GetSimToolLanguages(), std::vector<THdlLanguage>());
}

TEST(SimToolMap, KeepsARemovedToolValid) {
    {
        TSimToolMap tools;
        auto* vcs = new CountedTool(SIM_VCS, LANGUAGE_VERILOG);
        tools.AddSimTool(vcs);
        tools.AddSimTool(new CountedTool(SIM_SCIROCCO, LANGUAGE_VHDL));
        EXPECT_TRUE(tools.RemoveSimTool(LANGUAGE_VERILOG));
        EXPECT_FALSE(tools.RemoveSimTool(LANGUAGE_VERILOG));
        EXPECT_EQ(tools.GetSimTool(LANGUAGE_VERILOG), nullptr);
        EXPECT_EQ(tools.GetSimToolLanguages(), std::vector<THdlLanguage>{LANGUAGE_VHDL});
        EXPECT_EQ(vcs->GetSimulatorType(), SIM_VCS);
        tools.AddSimTool(vcs);
        EXPECT_EQ(tools.GetSimTool(LANGUAGE_VERILOG), vcs);
        EXPECT_TRUE(tools.RemoveSimTool(LANGUAGE_VERILOG));
    }
    EXPECT_EQ(CountedTool::Alive, 0);
}

TEST(SimToolMap, ReadsBackWhatItWrote) {
    TXMLList document;
    PushElements(&document, kSection);
    TSimToolMap tools;
    DListIterator<TElement*> element(document);
    EXPECT_TRUE(tools.ReadFromFile(element));
    EXPECT_EQ(ElementsOf(tools), kSection);
    EXPECT_EQ(ElementAt(element), "TAIL");
}

TEST(SimToolMap, ReadsWhatStandsThere) {
    const std::string vcs = Tool("Name=VCS Path= PliLibPath=", "Verilog");
    const std::string gcc = Tool("Name=GCC Path= PliLibPath=", "C++");
    const std::string none = Tool("Name=VCS Path= PliLibPath=", "None");
    const std::string start = "START Tool Name=VCS Path= PliLibPath=\n";
    struct {
        const char* Label;
        std::string Input;
        std::string Holds;
        const char* Position;
    } const rows[] = {
        {"nothing", "", "", "TAIL"},
        {"the section at the next one", Section(vcs) + "START Next\n", Section(vcs), "START Next"},
        {"tools without the section", vcs + gcc, Section(vcs + gcc), "TAIL"},
        {"an empty section", Section(""), "", "END ExternalSimulatorSettings"},
        {"another section", "START Next\n" + vcs, "", "START Next"},
        {"another element in the section",
         "START ExternalSimulatorSettings\n" + vcs + "START Other\nEND Other\n" + gcc, Section(vcs),
         "START Other"},
        {"a text in the section", "START ExternalSimulatorSettings\n" + vcs + "TEXT x\n" + gcc,
         Section(vcs), "TEXT x"},
        {"two tools of a language",
         Section(Tool("Name=VCSi Path= PliLibPath=", "Verilog") + gcc + vcs), Section(vcs + gcc),
         "TAIL"},
        {"an unknown language", Section(Tool("Name=VCS", "Fortran")), Section(none), "TAIL"},
        {"an unknown simulator", Section(Tool("Name=Foo", "VHDL")),
         Section(Tool("Name=None Path= PliLibPath=", "VHDL")), "TAIL"},
        {"cut short in the section's start", "START ExternalSimulatorSettings\n", "", "TAIL"},
        {"cut short in a tool's start", "START ExternalSimulatorSettings\n" + gcc + start,
         Section(gcc + none), "TAIL"},
        {"cut short behind a tool's text", start + "TEXT Verilog\n", Section(vcs), "TAIL"},
        {"a tool without text", Section(start + "END Tool\n") + "START Next\n", Section(none),
         "START Next"},
    };
    for (const auto& row : rows) {
        TXMLList document;
        PushElements(&document, row.Input);
        TSimToolMap tools;
        DListIterator<TElement*> element(document);
        EXPECT_TRUE(tools.ReadFromFile(element)) << row.Label;
        EXPECT_EQ(ElementsOf(tools), row.Holds) << row.Label;
        EXPECT_EQ(ElementAt(element), row.Position) << row.Label;
    }
}

TEST(SimToolMap, KeepsReplacedToolsValid) {
    TXMLList document;
    PushElements(&document, kSection);
    TSimToolMap tools;
    auto* scirocco = new CountedTool(SIM_NC_VHDL, LANGUAGE_VHDL);
    tools.AddSimTool(scirocco);
    DListIterator<TElement*> element(document);
    tools.ReadFromFile(element);
    EXPECT_EQ(ElementsOf(tools), kSection);
    EXPECT_EQ(scirocco->GetSimulatorType(), SIM_NC_VHDL);
    EXPECT_EQ(CountedTool::Alive, 1);
}
