#include "simtools/basesimtool.h"

#include "tests/simtools/tooltext.h"
#include "tests/support/elementtext.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>
#include <string>

namespace {

std::string ElementsOf(const TBaseSimTool& tool) {
    return ElementsWrittenBy([&](TXMLList* document) { tool.WriteToFile(document); });
}

TBaseSimTool Vcs() {
    TBaseSimTool tool;
    tool.SetSimulatorType(SIM_VCS);
    tool.SetExecutablePath("C:/tools/vcs.exe");
    tool.SetPliLibrary("pli.dll");
    tool.SetLanguage(LANGUAGE_VERILOG);
    return tool;
}

const char* const kVcs =
    "START Tool Name=VCS Path=C:\\tools\\vcs.exe PliLibPath=pli.dll\n"
    "TEXT Verilog\n"
    "END Tool\n";

}  // namespace

TEST(BaseSimTool, StartsWithoutSimulatorLanguageAndPaths) {
    const TBaseSimTool tool;
    EXPECT_EQ(tool.GetLanguage(), 9);
    EXPECT_EQ(tool.GetSimulatorType(), 0);
    EXPECT_STREQ(tool.GetExecutablePath(), "");
    EXPECT_STREQ(tool.GetPliLibrary(), "");
}

TEST(BaseSimTool, StoresTheExecutableInCanonicalForm) {
    struct {
        const char* Given;
        const char* Stored;
    } const rows[] = {
        {"C:/tools/../bin//./sim.exe", "C:\\bin\\sim.exe"},
        {"\\\\server/share/sim.exe", "\\\\server\\share\\sim.exe"},
        {"", ""},
        {nullptr, ""},
    };
    TBaseSimTool tool;
    for (const auto& row : rows) {
        tool.SetExecutablePath("C:/old.exe");
        tool.SetExecutablePath(row.Given);
        EXPECT_STREQ(tool.GetExecutablePath(), row.Stored);
    }
}

TEST(BaseSimTool, StoresThePliLibraryAsTyped) {
    TBaseSimTool tool;
    for (const char* library : {"C:/tools/../bin//./pli.dll", " pli ", ""}) {
        tool.SetPliLibrary(library);
        EXPECT_STREQ(tool.GetPliLibrary(), library);
    }
    tool.SetPliLibrary("pli.dll");
    tool.SetPliLibrary(nullptr);
    EXPECT_STREQ(tool.GetPliLibrary(), "");
}

TEST(BaseSimTool, CopiesAllFourFields) {
    const TBaseSimTool source = Vcs();
    const TBaseSimTool copy(source);
    TBaseSimTool assigned;
    assigned = source;
    EXPECT_EQ(TextOf(copy), "VCS|C:\\tools\\vcs.exe|pli.dll|Verilog\n");
    EXPECT_EQ(TextOf(assigned), "VCS|C:\\tools\\vcs.exe|pli.dll|Verilog\n");
}

TEST(BaseSimTool, WritesOneToolElement) {
    EXPECT_EQ(ElementsOf(Vcs()), kVcs);
    EXPECT_EQ(ElementsOf(TBaseSimTool()),
              "START Tool Name=None Path= PliLibPath=\nTEXT None\nEND Tool\n");
    Vcs().WriteToFile(nullptr);
}

TEST(BaseSimTool, ReadsBackWhatItWroteThroughAFile) {
    TBaseSimTool tool = Vcs();
    tool.SetExecutablePath("C:/a & b/<sim>.exe");
    tool.SetPliLibrary(" &amp; \"pli\" ");
    TXMLList document;
    tool.WriteToFile(&document);
    std::string text;
    ASSERT_TRUE(document.WriteToText(&text, nullptr));
    TXMLList parsed;
    ASSERT_TRUE(parsed.ReadFromText(text, nullptr));
    TBaseSimTool read;
    DListIterator<TElement*> element(parsed);
    EXPECT_TRUE(read.ReadFromFile(element));
    EXPECT_EQ(TextOf(read), "VCS|C:\\a & b\\<sim>.exe| &amp; \"pli\" |Verilog\n");
    EXPECT_EQ(ElementAt(element), "TAIL");
}

TEST(BaseSimTool, ReadsWhatStandsThere) {
    const std::string old = "GCC|C:\\old.exe|old.dll|C++\n";
    const std::string vcs = "VCS|C:\\tools\\vcs.exe|pli.dll|";
    const std::string start = "START Tool Name=VCS Path=C:/tools/vcs.exe PliLibPath=pli.dll\n";
    struct {
        const char* Label;
        std::string Input;
        bool Result;
        std::string Tool;
        const char* Position;
    } const rows[] = {
        {"a tool", start + "TEXT Verilog\nEND Tool\nSTART Next\n", true, vcs + "Verilog\n",
         "START Next"},
        {"one END only", start + "TEXT Verilog\nEND Tool\nEND Section\n", true, vcs + "Verilog\n",
         "END Section"},
        {"nothing", "", true, old, "TAIL"},
        {"another element", "START Tools\n", true, old, "START Tools"},
        {"another case", "START tool Name=VCS\n", true, old, "START tool Name=VCS"},
        {"an end", "END Tool\n", true, old, "END Tool"},
        {"a text", "TEXT Tool\n", true, old, "TEXT Tool"},
        {"a START as the last element", start, false, vcs + "C++\n", "TAIL"},
        {"cut short behind the text", start + "TEXT VHDL\n", true, vcs + "VHDL\n", "TAIL"},
        {"no text", start + "END Tool\nSTART Next\n", true, vcs + "None\n", "START Next"},
        {"no text, and the section's END is taken for the tool's",
         start + "END Tool\nEND Section\n", true, vcs + "None\n", "TAIL"},
        {"a child instead of a text", start + "START Language\nTEXT VHDL\nEND Language\nEND Tool\n",
         true, vcs + "None\n", "TEXT VHDL"},
        {"no attributes", "START Tool\nTEXT VHDL\nEND Tool\n", true, "None|||VHDL\n", "TAIL"},
        {"an unknown simulator", "START Tool Name=Foo\nTEXT VHDL\nEND Tool\n", true,
         "None|||VHDL\n", "TAIL"},
        {"an unknown language", start + "TEXT Fortran\nEND Tool\n", true, vcs + "None\n", "TAIL"},
        {"white space around the language", start + "TEXT  vhdl\t\nEND Tool\n", true,
         vcs + "VHDL\n", "TAIL"},
    };
    for (const auto& row : rows) {
        TXMLList document;
        PushElements(&document, row.Input);
        TBaseSimTool tool;
        tool.SetSimulatorType(SIM_GCC);
        tool.SetExecutablePath("C:/old.exe");
        tool.SetPliLibrary("old.dll");
        tool.SetLanguage(LANGUAGE_CPLUSPLUS);
        DListIterator<TElement*> element(document);
        EXPECT_EQ(tool.ReadFromFile(element), row.Result) << row.Label;
        EXPECT_EQ(TextOf(tool), row.Tool) << row.Label;
        EXPECT_EQ(ElementAt(element), row.Position) << row.Label;
    }
}

TEST(BaseSimTool, KeepsItsSlotOrder) {
    EXPECT_EQ(SlotOf(&TBaseSimTool::SetExecutablePath), 1);
    EXPECT_EQ(SlotOf(&TBaseSimTool::SetPliLibrary), 2);
    EXPECT_EQ(SlotOf(&TBaseSimTool::GetExecutablePath), 3);
    EXPECT_EQ(SlotOf(&TBaseSimTool::GetPliLibrary), 4);
}
