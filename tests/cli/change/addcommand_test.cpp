#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

constexpr const char* kBuild =
    "<HdlBuildFile TopLevelLanguage='VHDL'>\n"
    "  <GeneralConfiguration CompileVHDLFiles='true'/> <!-- flags -->\n"
    "  <SourceFileGroup Language='VHDL'>\n"
    "    <SourceFile PrecompiledLibrary='work'>rtl/pkg.vhd</SourceFile>\n"
    "    <SourceFile>rtl/top.vhd<Dependency>rtl/pkg.vhd</Dependency></SourceFile>\n"
    "  </SourceFileGroup>\n"
    "</HdlBuildFile>\n";

/// A build of two sources, and others beside them.
class AddCommand : public testing::Test {
protected:
    AddCommand() {
        for (const char* name :
             {"rtl/pkg.vhd", "rtl/top.vhd", "rtl/core.vhd", "rtl/sub/x.vhd", "tb/tb.sv", "n.txt"})
            Folder.Write(name, "");
        Folder.Write("b.xml", kBuild);
    }
    static std::string Add(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"add", "b.xml"});
        return ResultOf(arguments);
    }
    /// The lines of the file that are not those of kBuild.
    std::string NewLines() const {
        const std::string text = Folder.Read("b.xml");
        const std::string former = kBuild;
        std::size_t front = 0;
        while (front < former.size() && text[front] == former[front]) ++front;
        front = text.rfind('\n', front) + 1;
        std::size_t end = 0;
        while (end < former.size() - front &&
               text[text.size() - 1 - end] == former[former.size() - 1 - end])
            ++end;
        return text.substr(front, text.size() - end - front);
    }
    WorkingFolder Folder;
};

}  // namespace

TEST_F(AddCommand, AddsAFileBehindTheOthers) {
    EXPECT_EQ(Add({"rtl/core.vhd", "--library", "work"}),
              "VHDL source rtl/core.vhd: none -> {\"library\":\"work\"}\n"
              "b.xml: saved\n");
    EXPECT_EQ(NewLines(),
              "    <SourceFile Library=\"false\" PrecompiledLibrary=\"work\">rtl/core.vhd"
              "</SourceFile>\n");
}

TEST_F(AddCommand, SaysWhatIsThereAlreadyAndAddsItNotTwice) {
    EXPECT_EQ(Add({"rtl", "-r", "--exclude", "sub"}),
              "rtl/pkg.vhd is in the build already\n"
              "rtl/top.vhd is in the build already\n"
              "VHDL source rtl/core.vhd: none -> {\"library\":\"\"}\n"
              "b.xml: saved\n");
    const std::string saved = Folder.Read("b.xml");
#ifdef _WIN32
    EXPECT_EQ(Add({"RTL/Core.vhd"}),
              "RTL/Core.vhd is in the build already\n"
              "b.xml: nothing to change\n");
#else
    EXPECT_EQ(Add({"RTL/Core.vhd"}), "3\nhdlbuild: error: RTL/Core.vhd: the file does not exist\n");
#endif
    EXPECT_EQ(Add({"rtl/*.vhd"}),
              "rtl/core.vhd is in the build already\n"
              "rtl/pkg.vhd is in the build already\n"
              "rtl/top.vhd is in the build already\n"
              "b.xml: nothing to change\n");
    EXPECT_EQ(Folder.Read("b.xml"), saved);
}

TEST_F(AddCommand, HasAnotherLanguageCompiled) {
    EXPECT_EQ(Add({"tb/*", "--as-library-file"}),
              "CompileVerilogFiles: false -> true\n"
              "Verilog source tb/tb.sv: none -> {\"library\":\"\",\"libraryFile\":true}\n"
              "b.xml: saved\n");
    EXPECT_EQ(Folder.Read("b.xml"),
              "<HdlBuildFile TopLevelLanguage='VHDL'>\n"
              "  <GeneralConfiguration CompileVHDLFiles='true' CompileVerilogFiles='true'/> "
              "<!-- flags -->\n"
              "  <SourceFileGroup Language=\"Verilog\">\n"
              "    <SourceFile Library=\"true\" PrecompiledLibrary=\"\">tb/tb.sv</SourceFile>\n"
              "  </SourceFileGroup>\n"
              "  <SourceFileGroup Language='VHDL'>\n"
              "    <SourceFile PrecompiledLibrary='work'>rtl/pkg.vhd</SourceFile>\n"
              "    <SourceFile>rtl/top.vhd<Dependency>rtl/pkg.vhd</Dependency></SourceFile>\n"
              "  </SourceFileGroup>\n"
              "</HdlBuildFile>\n");
}

TEST_F(AddCommand, PutsSourcesWhereItIsTold) {
    const struct {
        std::vector<std::string> Options;
        const char* After;  // the source in front
    } rows[] = {
        {{"--first"}, "<SourceFileGroup Language='VHDL'>\n"},
        {{"--before", "rtl/pkg.vhd"}, "<SourceFileGroup Language='VHDL'>\n"},
        {{"--after", "RTL/pkg.vhd"}, "rtl/pkg.vhd</SourceFile>\n"},
        {{"--before", "rtl/top.vhd"}, "rtl/pkg.vhd</SourceFile>\n"},
        {{"--after", "rtl/top.vhd"}, "</Dependency></SourceFile>\n"},
    };
    for (const auto& row : rows) {
        Folder.Write("b.xml", kBuild);
        std::vector<std::string> arguments = {"rtl/core.vhd", "rtl/sub/x.vhd"};
        arguments.insert(arguments.end(), row.Options.begin(), row.Options.end());
        EXPECT_EQ(Add(arguments),
                  "VHDL source rtl/core.vhd: none -> {\"library\":\"\"}\n"
                  "VHDL source rtl/sub/x.vhd: none -> {\"library\":\"\"}\n"
                  "b.xml: saved\n");
        std::string expected = kBuild;
        const std::string added =
            "    <SourceFile Library=\"false\" PrecompiledLibrary=\"\">rtl/core.vhd</SourceFile>\n"
            "    <SourceFile Library=\"false\" PrecompiledLibrary=\"\">rtl/sub/x.vhd"
            "</SourceFile>\n";
        expected.insert(expected.find(row.After) + std::string(row.After).size(), added);
        EXPECT_EQ(Folder.Read("b.xml"), expected) << row.Options.front();
    }
}

TEST_F(AddCommand, PrintsJson) {
    EXPECT_EQ(Add({"rtl/top.vhd", "rtl/core.vhd", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-add\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"alreadyListed\": [\n"
              "    \"rtl/top.vhd\"\n"
              "  ],\n"
              "  \"changes\": [\n"
              "    {\n"
              "      \"what\": \"VHDL source rtl/core.vhd\",\n"
              "      \"before\": null,\n"
              "      \"after\": {\n"
              "        \"library\": \"\"\n"
              "      }\n"
              "    }\n"
              "  ],\n"
              "  \"saved\": true\n"
              "}\n");
}

TEST_F(AddCommand, RefusesWhatItCannotAdd) {
    const struct {
        std::vector<std::string> Arguments;
        const char* Expected;
    } rows[] = {
        {{"none.vhd"}, "3\nhdlbuild: error: none.vhd: the file does not exist\n"},
        {{"rtl"}, "2\nhdlbuild: error: 'rtl' is a folder: give -r for the sources in it\n"},
        {{"*.vhd"}, "2\nhdlbuild: error: no source matches '*.vhd'\n"},
        {{"n.txt"},
         "2\nhdlbuild: error: no language has the extension of 'n.txt': give one with "
         "--language\n"},
        {{"rtl/core.vhd", "--language", "VHD"},
         "2\nhdlbuild: error: unknown language 'VHD'; nearest: VHDL; known: Verilog, VHDL, "
         "Bluespec, SystemC, C++, Specman, TestBuilder\n"},
        {{"rtl/core.vhd", "--before", "n.txt"},
         "2\nhdlbuild: error: n.txt is no source of the build\n"},
        {{"tb/tb.sv", "--before", "rtl/top.vhd"},
         "2\nhdlbuild: error: tb/tb.sv is in the group of Verilog, rtl/top.vhd in the one of "
         "VHDL\n"},
        {{"rtl/core.vhd", "--first", "--after", "rtl/top.vhd"},
         "2\nhdlbuild: error: only one of --first, --before and --after can be given\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Add(row.Arguments), row.Expected);
        EXPECT_EQ(Folder.Read("b.xml"), kBuild);
    }
    Folder.Write("b.xml", "<HdlBuildFileList/>");
    EXPECT_EQ(Add({"rtl/core.vhd"}),
              "1\nhdlbuild: error: no HdlBuildFile element: the document describes no build\n");
    Folder.Write("b.xml", "<a>");
    EXPECT_EQ(Add({"rtl/core.vhd"}),
              "3\nhdlbuild: error: b.xml:1:4: the document ends inside element \"a\"\n");
    Folder.Write("b.xml",
                 "<HdlBuildFile><ProjectLanguageConfigurationList><LanguageSettings/>"
                 "</ProjectLanguageConfigurationList></HdlBuildFile>");
    EXPECT_EQ(Add({"rtl/core.vhd"}),
              "1\nhdlbuild: error: Build File: Error reading the Project Settings.\n");
}

TEST_F(AddCommand, AddsToABuildWithMissingSources) {
    Folder.Write("b.xml",
                 "<HdlBuildFile TopLevelLanguage='VHDL'><SourceFileGroup Language='VHDL'>"
                 "<SourceFile>gone.vhd</SourceFile></SourceFileGroup></HdlBuildFile>");
    EXPECT_EQ(Add({"rtl/core.vhd"}),
              "VHDL source rtl/core.vhd: none -> {\"library\":\"\"}\n"
              "b.xml: saved\n");
}
