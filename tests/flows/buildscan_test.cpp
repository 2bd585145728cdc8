#include "flows/buildscan.h"
#include "projectfiles/ihdlsourcefile.h"
#include "tests/flows/scannedfolder.h"

namespace {

class BuildScan : public ScannedFolder {
protected:
    /// Each source that differs: "a.vhd lacks b.vhd, unexplained c.vhd".
    static std::string DifferencesIn(const TBuildScan& scan) {
        const auto nameOf = [](const IHdlSourceFile* source) {
            const std::string path = source->GetFileName()->Canonical(false);
            return path.substr(path.find_last_of("/\\") + 1);
        };
        std::string text;
        for (const TDependencyDifference& difference : scan.GetDifferences()) {
            text += nameOf(scan.GetSources()[difference.Source].Source);
            for (const TLinkedFile& linked : difference.Lacking)
                text += " lacks " + nameOf(scan.GetSources()[linked.File].Source);
            for (const IHdlSourceFile* const dependency : difference.Unexplained)
                text += " unexplained " + nameOf(dependency);
            text += "\n";
        }
        return text;
    }
};

}  // namespace

TEST_F(BuildScan, TakesTheLibraryOfTheSourceElseOfTheBuildElseWork) {
    Folder.Write("a.vhd",
                 "library own, dest, work; use own.p.all; use dest.q.all; entity e is end;");
    Folder.Write("p.vhd", "package p is end;");
    Folder.Write("q.vhd", "package q is end;");
    const std::string sources =
        "<SourceFile>a.vhd</SourceFile><SourceFile PrecompiledLibrary=\"OWN\">p.vhd</SourceFile>"
        "<SourceFile>q.vhd</SourceFile>";
    THdlBuildFile build = Read("DestinationLibrary=\"Dest\"", sources);
    const TBuildScan scan(build, {});
    EXPECT_EQ(DifferencesIn(scan), "a.vhd lacks p.vhd lacks q.vhd\n");
    EXPECT_EQ(scan.GetFiles()[0].Library, "Dest");
    THdlBuildFile other = Read("", sources);
    const TBuildScan otherScan(other, {});
    EXPECT_EQ(otherScan.GetFiles()[0].Library, "work");
    EXPECT_EQ(DifferencesIn(otherScan), "a.vhd lacks p.vhd\n");
}

TEST_F(BuildScan, ExplainsNothingOfWhatIsNotListedAndAllOfWhatIsNotRead) {
    Folder.Write("a.vhd", "use work.p.all; entity e is end;");
    Folder.Write("p.vhd", "package p is end;");
    THdlBuildFile build =
        Read("",
             "<SourceFile>a.vhd<Dependency>unlisted.vhd</Dependency>"
             "<Dependency>p.vhd</Dependency><Dependency>gone.vhd</Dependency></SourceFile>"
             "<SourceFile>p.vhd</SourceFile>"
             "<SourceFile>gone.vhd<Dependency>a.vhd</Dependency></SourceFile>");
    const TBuildScan scan(build, {});
    EXPECT_EQ(DifferencesIn(scan), "a.vhd unexplained unlisted.vhd unexplained gone.vhd\n");
    EXPECT_EQ(scan.GetReasons(), (std::vector<std::string>{"", "", "the file does not exist"}));
}

TEST_F(BuildScan, DecidesConditionsByTheOptionsOfTheBuild) {
    Folder.Write("a.v",
                 "`include \"defs.vh\"\n`ifdef FROM_OPTIONS\nimport p::*;\n`else\nimport q::*;"
                 "\n`endif\n`ifdef FROM_USER\nimport r::*;\n`else\nimport s::*;\n`endif\n"
                 "module a; cell i(); other j(); endmodule");
    Folder.Write("cells.v", "`ifdef FROM_OPTIONS\nmodule other; endmodule\n`endif\n");
    Folder.Write("inc/defs.vh", "");
    Folder.Write("lib/cell.v", "");
    Folder.Write("b.vhd",
                 "`if FROM_OPTIONS = \"\" then\nlibrary x; use x.y.all;\n`end if\n"
                 "entity b is end;");
    const std::string path = Folder.Write(
        "v.xml",
        "<HdlBuildFileList><HdlBuildFile><ProjectLanguageConfigurationList>"
        "<LanguageSettings Language=\"Verilog\"><BuildOptions>+define+${FLAG}+incdir "
        "-incdir inc -y lib +libext+.v -v cells.v</BuildOptions></LanguageSettings>"
        "</ProjectLanguageConfigurationList>"
        "<SourceFileGroup Language=\"Verilog\"><SourceFile>a.v</SourceFile></SourceFileGroup>"
        "<SourceFileGroup Language=\"VHDL\"><SourceFile>b.vhd</SourceFile></SourceFileGroup>"
        "<BuildFileVariables><Variable Name=\"FLAG\" Value=\"FROM_OPTIONS\"/>"
        "</BuildFileVariables></HdlBuildFile></HdlBuildFileList>");
    THdlBuildFile build(ISFileName::NewISFileName(path.c_str()));
    build.SetVerilogUserDefines("+define+FROM_USER");
    const TBuildScan scan(build, {});
    std::string missing;
    for (const TMissingUnit& unit : scan.GetDesign().Missing)
        missing += unit.Library + "." + unit.Unit + "\n";
    EXPECT_EQ(missing, "work.p\nwork.r\nx.y\n");
    EXPECT_EQ(scan.GetFiles()[0].Scan.Includes[0].Path, Folder.Path("inc/defs.vh"));
}

TEST_F(BuildScan, FindsModulesInLibraryDirectoriesAndIncludedFilesInIncludeDirectories) {
    Folder.Write("a.v", "`include \"defs.vh\"\nmodule a; cell i(); nowhere j(); p::t x; endmodule");
    Folder.Write("inc/defs.vh", "import q::*;");
    Folder.Write("q.sv", "package q; endpackage package p; endpackage");
    Folder.Write("lib/cell.v", "");
    const std::string path = Folder.Write(
        "v.xml",
        "<HdlBuildFileList><HdlBuildFile><ProjectLanguageConfigurationList>"
        "<LanguageSettings Language=\"Verilog\">"
        "<IncludeDirectories><Directory>inc</Directory></IncludeDirectories>"
        "<LibraryDirectories><Directory>lib</Directory></LibraryDirectories>"
        "<LibraryExtensions><Extension>.v</Extension></LibraryExtensions>"
        "</LanguageSettings></ProjectLanguageConfigurationList>"
        "<SourceFileGroup Language=\"Verilog\"><SourceFile>a.v</SourceFile>"
        "<SourceFile>q.sv</SourceFile></SourceFileGroup></HdlBuildFile></HdlBuildFileList>");
    THdlBuildFile build(ISFileName::NewISFileName(path.c_str()));
    const TBuildScan scan(build, {});
    EXPECT_EQ(DifferencesIn(scan), "a.v lacks q.sv\n");
    ASSERT_EQ(scan.GetFiles()[0].Scan.Includes.size(), 1u);
    EXPECT_EQ(scan.GetFiles()[0].Scan.Includes[0].Path, Folder.Path("inc/defs.vh"));
    std::string missing;
    for (const TMissingUnit& unit : scan.GetDesign().Missing) missing += unit.Unit + "\n";
    EXPECT_EQ(missing, "nowhere\n");
}
