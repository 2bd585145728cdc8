#include "flows/editrules.h"
#include "buildfile/hdlbuildfile.h"
#include "buildfile/hdlbuildfilexmllist.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "services/xml/documentedit.h"
#include "settings/hpjfile.h"
#include "settings/projectsimconfig.h"
#include "settings/projectsimsettings.h"
#include "simtools/serverconfigurationfilexmllist.h"
#include "simtools/simtoolserverclientcourier.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/temporaryfolder.h"
#include <functional>
#include <gtest/gtest.h>

namespace {

std::unique_ptr<TXMLList> MakeListOf(const char* documentType) {
    auto list = std::make_unique<TXMLList>();
    list->SetDocumentType(documentType);
    return list;
}

std::string Printed(TXMLList& list) {
    std::string text;
    EXPECT_TRUE(list.WriteToText(&text, nullptr));
    return text;
}

/// The document that the change makes of another, or "refused: reason". It is read again.
template <class TModel>
std::string ChangedBy(const TModel& model, const std::string& document,
                      const std::function<void(typename TModel::TRead&)>& change) {
    const TemporaryFolder folder;
    const ISFileName* const file =
        ISFileName::NewISFileName(folder.Write("own.xml", document).c_str());
    const auto print = [&](auto list, bool isChanged) {
        const auto read = model.Read(file);
        if (isChanged) change(*read);
        list->SetFileName(file->Canonical(false));
        model.Write(*read, list.get());
        return list;
    };
    const auto base = print(model.MakeList(), false);
    const auto wanted = print(model.MakeList(), true);
    TDocumentEdit edit;
    if (!edit.Find(document, *base, *wanted, model.MakeRules(file)))
        return "refused: " + edit.GetReason();
    folder.Write("own.xml", edit.GetEdited());
    const auto reread = print(model.MakeList(), false);
    EXPECT_EQ(Printed(*reread), Printed(*wanted)) << edit.GetEdited();
    return edit.GetEdited();
}

struct TBuildModel {
    using TRead = THdlBuildFile;
    static std::unique_ptr<THdlBuildFile> Read(const ISFileName* file) {
        return std::make_unique<TRead>(file);
    }
    static auto MakeList() { return std::make_unique<THdlBuildFileXMLList>(nullptr); }
    static void Write(THdlBuildFile& build, THdlBuildFileXMLList* list) { build.WriteFile(list); }
    static TXMLEditRules MakeRules(const ISFileName* file) { return MakeBuildFileRules(file); }
};

constexpr const char* kBuild = R"(<?xml version="1.0"?>
<HdlBuildFile TopLevelLanguage='vhdl' HdlLanguage='vhdl' HvlLanguage='vhdl'>
  <!-- the sources, packages first -->
  <SourceFileGroup Language='vhdl'>
    <SourceFile PrecompiledLibrary='util'>./rtl/../rtl/pkg.vhd</SourceFile> <!-- common -->
    <SourceFile>
      rtl/Top.vhd
      <Dependency>rtl/pkg.vhd</Dependency>
    </SourceFile>
  </SourceFileGroup>

  <BuildFileVariables><Variable Value='8' Name='W'/></BuildFileVariables>
  <TopLevelComponents>
    <ComponentList Language='VHDL'>
      <Component Library='work' Architecture='rtl'>top</Component>
    </ComponentList>
  </TopLevelComponents>
</HdlBuildFile>
)";

struct TProjectModel {
    using TRead = TProjectSimSettings;
    static std::unique_ptr<TRead> Read(const ISFileName* file) {
        auto settings = std::make_unique<TRead>();
        EXPECT_EQ(THpjFile(file).Read(settings.get()), HPJ_FILE_DONE);
        return settings;
    }
    static auto MakeList() { return MakeListOf("<!DOCTYPE SimulationProject>"); }
    static void Write(TRead& settings, TXMLList* list) { settings.WriteToProjectFile(list); }
    static TXMLEditRules MakeRules(const ISFileName* file) { return MakeProjectFileRules(file); }
};

constexpr const char* kProject = R"(<SimulationProject>
	<Files/> <!-- of another tool -->
	<ProjectSettings CurrentConfiguration="fast">
		<ProjectSettingsConfiguration ConfigurationName="fast">
			<GeneralConfiguration LogFileName="a.log"/>
			<LanguageSettings Language="VHDL">
				<CompilerOptions>-93</CompilerOptions>
				<LibraryDirectories>
					<Directory>lib/</Directory>
				</LibraryDirectories>
			</LanguageSettings>
		</ProjectSettingsConfiguration>
	</ProjectSettings>
</SimulationProject>
)";

struct TServersModel {
    using TRead = TBaseSimToolServerClientCourier;
    static std::unique_ptr<TRead> Read(const ISFileName* file) {
        auto courier = std::make_unique<TRead>();
        courier->ReadCurrentServerConfigFromFile(file, "localhost");
        return courier;
    }
    static auto MakeList() { return MakeListOf("<!DOCTYPE HdlBuildFileList>"); }
    static void Write(TRead& courier, TXMLList* list) {
        list->Push(TElement::START, "ExternalSimulatorSettings", {});
        for (const TBaseSimTool& tool : *courier.GetSimToolList(TRope("localhost")))
            tool.WriteToFile(list);
        list->Push(TElement::END, "ExternalSimulatorSettings", {});
    }
    static TXMLEditRules MakeRules(const ISFileName*) { return MakeSimulatorsFileRules(); }
};

}  // namespace

TEST(BuildFileRules, FindWhatAModelChanges) {
    const RecordingMessageBox box;
    struct TRow {
        const char* Label;
        std::function<void(THdlBuildFile&)> Change;
        std::string Gone;
        std::string Come;
    };
    const std::vector<TRow> rows = {
        {"nothing", [](THdlBuildFile&) {}, "", ""},
        {"source",
         [](THdlBuildFile& build) {
             build.GetSourceFileGroup(LANGUAGE_VHDL)
                 ->AddSourceFile(build.CreateOrGetSourceFile("rtl/new.vhd"), false);
         },
         "    </SourceFile>\n  </SourceFileGroup>",
         "    </SourceFile>\n"
         "    <SourceFile Library=\"false\" PrecompiledLibrary=\"\">rtl/new.vhd</SourceFile>\n"
         "  </SourceFileGroup>"},
        {"library of a source",
         [](THdlBuildFile& build) {
             build.CreateOrGetSourceFile("rtl/pkg.vhd")->SetPrecompiledLibraryGroupName("base");
         },
         "util", "base"},
        {"flag of a source",
         [](THdlBuildFile& build) {
             build.CreateOrGetSourceFile("RTL/top.vhd")->SetLibraryFlag(true);
         },
         "<SourceFile>\n", "<SourceFile Library=\"true\">\n"},
        {"dependency",
         [](THdlBuildFile& build) {
             build.CreateOrGetSourceFile("rtl/top.vhd")
                 ->AddDependency(build.CreateOrGetSourceFile("a.vhd"));
         },
         "</Dependency>\n", "</Dependency>\n      <Dependency>a.vhd</Dependency>\n"},
        {"variable",
         [](THdlBuildFile& build) { (*build.GetPseudoEnvironmentVariables())["W"] = "16"; }, "'8'",
         "'16'"},
        {"another variable",
         [](THdlBuildFile& build) { (*build.GetPseudoEnvironmentVariables())["A"] = "1"; },
         "<BuildFileVariables>", "<BuildFileVariables><Variable Name=\"A\" Value=\"1\"/>"},
        {"attribute", [](THdlBuildFile& build) { build.SetSnapshotName("snap"); },
         "HdlLanguage='vhdl'", "HdlLanguage='vhdl' SnapshotName='snap'"},
        {"component",
         [](THdlBuildFile& build) { build.AddComponentName("tb", "sim", "work", LANGUAGE_VHDL); },
         "top</Component>\n",
         "top</Component>\n      <Component Library=\"work\" "
         "Architecture=\"sim\">tb</Component>\n"},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.Label);
        EXPECT_EQ(ChangedBy(TBuildModel(), kBuild, row.Change),
                  row.Gone.empty() ? kBuild : Replaced(kBuild, row.Gone, row.Come));
    }
}

TEST(ProjectFileRules, FindWhatAModelChanges) {
    const RecordingMessageBox box;
    struct TRow {
        const char* Label;
        std::function<void(TProjectSimConfig&)> Change;
        std::string Gone;
        std::string Come;
    };
    const auto vhdl = [](TProjectSimConfig& configuration) {
        return configuration.GetProjectLanguageConfig(LANGUAGE_VHDL);
    };
    const std::vector<TRow> rows = {
        {"nothing", [](TProjectSimConfig&) {}, "", ""},
        {"general setting",
         [](TProjectSimConfig& each) { each.GetGeneralConfiguration()->SetLogFileName("b.log"); },
         "a.log", "b.log"},
        {"setting under an older name",
         [=](TProjectSimConfig& each) { vhdl(each)->SetBuildOptions("-08"); }, "-93", "-08"},
        {"setting that was a default",
         [=](TProjectSimConfig& each) { vhdl(each)->SetRuntimeOptions("-gui"); },
         "</CompilerOptions>\n",
         "</CompilerOptions>\n\t\t\t\t<RuntimeOptions>-gui</RuntimeOptions>\n"},
        {"directory",
         [=](TProjectSimConfig& each) { vhdl(each)->AddLibraryDirectory("more", true); },
         "lib/</Directory>\n", "lib/</Directory>\n\t\t\t\t\t<Directory>more</Directory>\n"},
        {"no directory", [=](TProjectSimConfig& each) { vhdl(each)->ClearLibraryDirectory(); },
         "\t\t\t\t<LibraryDirectories>\n\t\t\t\t\t<Directory>lib/</Directory>\n"
         "\t\t\t\t</LibraryDirectories>\n",
         ""},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.Label);
        EXPECT_EQ(ChangedBy(TProjectModel(), kProject,
                            [&](TProjectSimSettings& settings) {
                                row.Change(*settings.GetConfiguration("fast"));
                            }),
                  row.Gone.empty() ? kProject : Replaced(kProject, row.Gone, row.Come));
    }
}

#ifndef _WIN32
// The paths of the tools are those of one system.
TEST(SimulatorsFileRules, FindWhatAModelChanges) {
    const RecordingMessageBox box;
    const std::string document =
        "<ExternalSimulatorSettings>\n"
        " <!-- ours -->\n"
        " <Tool Path='/opt/a' Name='SimZorvik VHDL'>VHDL</Tool>\n"
        " <Tool Path='/opt/b' Name='SimZorvik Verilog'>Verilog</Tool>\n"
        "</ExternalSimulatorSettings>\n";
    EXPECT_EQ(ChangedBy(TServersModel(), document,
                        [](TBaseSimToolServerClientCourier& courier) {
                            for (TBaseSimTool& tool : *courier.GetSimToolList(TRope("localhost")))
                                if (tool.GetExecutablePath() == std::string("/opt/a"))
                                    tool.SetExecutablePath("/opt/c");
                        }),
              Replaced(document, "/opt/a", "/opt/c"));
}
#endif
