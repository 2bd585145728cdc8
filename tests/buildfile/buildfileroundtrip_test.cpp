#include "buildfile/simwraphdlbuildfile.h"
#include "services/names/isfilename.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include "tests/support/settingtexts.h"
#include "translation/v2vtranslationoptionslist.h"
#include <gtest/gtest.h>

namespace {

/// A build file with something in every section.
const char* const kGiven =
    "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
    "<HdlBuildFileList>"
    "<HdlBuildFile TopLevelLanguage='VHDL' QmvVersion='q' IdlVersion='i' HvlLanguage='Verilog' "
    "HdlLanguage='VHDL' BaseTimeUnit='fs' DisplayTimeUnit='s' SugarEngineDll='s.dll' "
    "GenerationDestinationLibrary='' DestinationLibrary='a &amp; b' SnapshotName='' "
    "SingleFileOnlyBuild='true'/>"
    "<TopLevelComponents ForceTopLevelComponents='true'><ComponentList Language='VHDL'>"
    "<Component Library='l' Architecture='a'>\\odd name\\</Component></ComponentList>"
    "<ComponentList Language='Verilog'/></TopLevelComponents>"
    "<ExternalSimulatorSettings><Tool Name='VCS' Path='' PliLibPath='x y.so'>Verilog</Tool>"
    "</ExternalSimulatorSettings>"
    "<GeneralConfiguration CompileVerilogFiles='true' EnableSimulatorDebugging='false'/>"
    "<ProjectLanguageConfigurationList><LanguageSettings Language='VHDL'><SimTool>Scirocco"
    "</SimTool><DestinationLibraryName><![CDATA[]]></DestinationLibraryName>"
    "<BuildOptions> -x  \"y z\" </BuildOptions></LanguageSettings>"
    "</ProjectLanguageConfigurationList>"
    "<Vhdl2VerilogTranslationOptions><v2v-np Enabled='true'><AdditionalOptions>p q"
    "</AdditionalOptions></v2v-np></Vhdl2VerilogTranslationOptions>"
    "<OutputDiagram>d/o.btim</OutputDiagram>"
    "<SourceFileGroup Language='VHDL'>"
    "<SourceFile Library='true' PrecompiledLibrary='l &lt; m'>a.vhd"
    "<Dependency>pkg/p &amp; q.vhd</Dependency><Dependency>../up.vhd</Dependency></SourceFile>"
    "</SourceFileGroup><SourceFileGroup Language='Verilog'><SourceFile>v.v</SourceFile>"
    "</SourceFileGroup>"
    "<BuildFileVariables><Variable Name='A' Value='\"1\"'/></BuildFileVariables>"
    "</HdlBuildFileList>";

/// The general settings of that file, which has two of the attributes.
TSettingValues ReadGeneral() {
    TSettingValues values = GeneralValues(&TGeneralSettingText::MissingInElement);
    values["CompileVerilogFiles"] = "true";
    values["EnableSimulatorDebugging"] = "false";
    return values;
}

/// The same as the writer puts it down.
const std::string kWritten =
    "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
    "<HdlBuildFileList>\n"
    "  <HdlBuildFile TopLevelLanguage=\"VHDL\" QmvVersion=\"q\" IdlVersion=\"i\" "
    "HvlLanguage=\"Verilog\" HdlLanguage=\"VHDL\" BaseTimeUnit=\"fs\" DisplayTimeUnit=\"s\" "
    "SugarEngineDll=\"s.dll\" GenerationDestinationLibrary=\"\" DestinationLibrary=\"a &amp; b\" "
    "SnapshotName=\"\" SingleFileOnlyBuild=\"true\">\n"
    "    <TopLevelComponents ForceTopLevelComponents=\"true\">\n"
    "      <ComponentList Language=\"Verilog\"/>\n"
    "      <ComponentList Language=\"VHDL\">\n"
    "        <Component Library=\"l\" Architecture=\"a\">\\odd name\\</Component>\n"
    "      </ComponentList>\n"
    "    </TopLevelComponents>\n"
    "    <ExternalSimulatorSettings>\n"
    "      <Tool Name=\"VCS\" Path=\"\" PliLibPath=\"x y.so\">Verilog</Tool>\n"
    "    </ExternalSimulatorSettings>\n"
    "    " +
    GeneralXml(ReadGeneral()) +
    "\n"
    "    <ProjectLanguageConfigurationList>\n" +
    LanguageXml("VHDL", {{"SimTool", "Scirocco"},
                         {"DestinationLibraryName", ""},
                         {"BuildOptions", " -x  \"y z\" "}}) +
    "    </ProjectLanguageConfigurationList>\n"
    "    <Vhdl2VerilogTranslationOptions>\n"
    "      <v2v-np Enabled=\"true\">\n"
    "        <AdditionalOptions>p q</AdditionalOptions>\n"
    "      </v2v-np>\n"
    "      <v2v-ncc Enabled=\"true\"/>\n"
    "    </Vhdl2VerilogTranslationOptions>\n"
    "    <OutputDiagram>d/o.btim</OutputDiagram>\n"
    "    <SourceFileGroup Language=\"Verilog\">\n"
    "      <SourceFile Library=\"false\" PrecompiledLibrary=\"\">v.v</SourceFile>\n"
    "    </SourceFileGroup>\n"
    "    <SourceFileGroup Language=\"VHDL\">\n"
    "      <SourceFile Library=\"true\" PrecompiledLibrary=\"l &lt; m\">a.vhd<Dependency>pkg/p "
    "&amp; q.vhd</Dependency>\n"
    "        <Dependency>../up.vhd</Dependency>\n"
    "      </SourceFile>\n"
    "    </SourceFileGroup>\n"
    "    <BuildFileVariables>\n"
    "      <Variable Name=\"A\" Value=\"&quot;1&quot;\"/>\n"
    "    </BuildFileVariables>\n"
    "  </HdlBuildFile>\n"
    "</HdlBuildFileList>\n";

class BuildFileRoundTrip : public testing::Test {
protected:
    /// Reads `content` as a build file, which lists `first` before `second`, and gives the file
    /// that a save makes of it.
    std::string Saved(const std::string& content, const char* first, const char* second) {
        Folder.Write("build.xml", content);
        TSimWrapHdlBuildFile build(ISFileName::NewISFileName(Folder.Path("build.xml").c_str()));
        EXPECT_EQ(build.GetReadResult(), READ_FILES_MISSING);
        EXPECT_EQ(Messages.Take(), Missing(first) + Missing(second));
        EXPECT_TRUE(build.WriteToFile());
        build.GetV2VOptions()->Flush();
        delete build.GetV2VOptions();
        return Folder.Read("build.xml");
    }
    std::string Missing(const char* name) const {
        return "HdlBuildFile: Missing File: \"" + Folder.Path(name) + "\" [0]\n";
    }
    MemoryFolder Folder;
    RecordingMessageBox Messages;
};

TEST_F(BuildFileRoundTrip, WritesAllThatItRead) {
    EXPECT_EQ(WithoutUnknown(Saved(kGiven, "a.vhd", "v.v")), kWritten);
}

TEST_F(BuildFileRoundTrip, ReadsAllThatItWrote) {
    EXPECT_EQ(WithoutUnknown(Saved(kWritten, "v.v", "a.vhd")), kWritten);
}

}  // namespace
