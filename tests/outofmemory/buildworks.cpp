#include "buildfile/hdlbuildfile.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "filenames/componentnamelist.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include "tests/buildfile/buildtexts.h"
#include "tests/outofmemory/work.h"
#include "tests/support/recorders.h"
#include "translation/v2vtranslationoptionslist.h"

namespace {

constexpr int kSources = 12;

std::string SourceName(int number) {
    return "a source whose name is not short " + std::to_string(number) + ".vhd";
}

/// Something in every section; each source needs the next one and the one two further.
std::string MakeBuildText() {
    std::string text =
        "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n<HdlBuildFileList>"
        "<HdlBuildFile TopLevelLanguage='VHDL' QmvVersion='a version that is a long text' "
        "IdlVersion='i' HvlLanguage='Verilog' HdlLanguage='VHDL' SugarEngineDll='s.dll' "
        "DestinationLibrary='a library whose name is long' SnapshotName='a snapshot of long name' "
        "SingleFileOnlyBuild='true'>"
        "<TopLevelComponents ForceTopLevelComponents='true'><ComponentList Language='VHDL'>"
        "<Component Library='l' Architecture='an architecture of long name'>\\odd name\\"
        "</Component><Component Library='l'>a_component_with_a_long_name</Component>"
        "</ComponentList></TopLevelComponents>"
        "<ExternalSimulatorSettings><Tool Name='VCS' Path='/a/path/that/is/not/short' "
        "PliLibPath='x y.so'>Verilog</Tool></ExternalSimulatorSettings>"
        "<GeneralConfiguration CompileVerilogFiles='true' LogFileName='a log of a long name.log'/>"
        "<ProjectLanguageConfigurationList><LanguageSettings Language='VHDL'><SimTool>Scirocco"
        "</SimTool><BuildOptions>-x \"options that are long\"</BuildOptions></LanguageSettings>"
        "</ProjectLanguageConfigurationList>"
        "<Vhdl2VerilogTranslationOptions><v2v-np Enabled='true'><AdditionalOptions>p q"
        "</AdditionalOptions></v2v-np></Vhdl2VerilogTranslationOptions>"
        "<OutputDiagram>d/o.btim</OutputDiagram><SourceFileGroup Language='VHDL'>";
    for (int i = 0; i < kSources; ++i) {
        text += "<SourceFile Library='false' PrecompiledLibrary=''>" + SourceName(i);
        for (const int next : {i + 1, i + 3})
            if (next < kSources) text += "<Dependency>" + SourceName(next) + "</Dependency>";
        text += "</SourceFile>\n";
    }
    return text +
           "</SourceFileGroup><SourceFileGroup Language='Verilog'><SourceFile>v.v</SourceFile>"
           "</SourceFileGroup><BuildFileVariables><Variable Name='A' Value='a long value of a "
           "variable'/></BuildFileVariables></HdlBuildFile></HdlBuildFileList>";
}

class TBuildWork : public IWork {
public:
    TBuildWork() {
        for (int i = 0; i < kSources; ++i) Folder.Write(SourceName(i), "");
        Folder.Write("v.v", "");
    }

protected:
    /// The sources in compile order.
    std::string OrderOf(const THdlBuildFile& build) const {
        std::string names;
        for (const IHdlSourceFile* source : *build.GetFilesToCompile(LANGUAGE_VHDL))
            names += std::string(" ") + source->GetFileName()->GetNameAndExt();
        return names;
    }
    bool IsFileWhole() override {
        return Folder.Read("b.xml").ends_with("</HdlBuildFileList>") ||
               Folder.Read("b.xml").ends_with("</HdlBuildFileList>\n");
    }

    RecordingMessageBox Box;
    const TemporaryFolder& Folder = GetEmptyFolder();
    std::string Path = Folder.Write("b.xml", MakeBuildText());
    const ISFileName* Name = ISFileName::NewISFileName(Path.c_str());
};

/// Deletes what a build leaves to its caller.
struct TBuildEnd {
    void operator()(TSimWrapHdlBuildFile* build) const {
        if (TComponentNameList* names = build->GetComponentNameList(LANGUAGE_VHDL)) names->Flush();
        TV2VTranslationOptionsList* const options = build->GetV2VOptions();
        if (options) options->Flush();
        delete build;
        delete options;
    }
};
using TOwnBuild = std::unique_ptr<TSimWrapHdlBuildFile, TBuildEnd>;

class TReadingABuild : public TBuildWork {
public:
    bool Do() override {
        Build.reset();
        Build.reset(new TSimWrapHdlBuildFile(Name));
        return Build->GetReadResult() == READ_NO_ERROR;
    }
    std::string GetResult() override { return TextOf(*Build); }

private:
    TOwnBuild Build;
};

class TReloadingABuild : public TBuildWork {
public:
    bool Do() override {
        Build->Reload();
        return Build->GetReadResult() == READ_NO_ERROR;
    }
    std::string GetResult() override { return TextOf(*Build); }

private:
    TOwnBuild Build{new TSimWrapHdlBuildFile(Name)};
};

class TOrderingABuild : public TBuildWork {
public:
    bool Do() override {
        Build->OrderFilesForCompile(LANGUAGE_VHDL);
        return true;
    }
    std::string GetResult() override { return TextOf(*Build) + OrderOf(*Build); }

private:
    TOwnBuild Build{new TSimWrapHdlBuildFile(Name)};
};

class TWritingABuild : public TBuildWork {
public:
    bool Do() override { return Build->WriteToFile(); }
    std::string GetResult() override {
        return TextOf(*Build) + Folder.Read("b.xml") + Folder.List();
    }

private:
    TOwnBuild Build{new TSimWrapHdlBuildFile(Name)};
};

class TEditingABuild : public TBuildWork {
public:
    bool Do() override {
        Build->GetSourceFileGroup(LANGUAGE_VHDL)->RemoveSourceFile(HandleOf(SourceName(1)));
        IHdlSourceFile* const source = Build->CreateOrGetSourceFile("an added source.vhd");
        IHdlSourceFile* const needed = Build->CreateOrGetSourceFile(SourceName(5).c_str());
        source->AddDependency(needed);
        Build->AddSourceFile(source, false);
        Build->AddComponentName("an_added_component_of_long_name", "rtl", "work", LANGUAGE_VHDL);
        TProjectSimLanguageConfig settings;
        settings.SetBuildOptions("other options, which are long as well");
        Build->AddLanguageConfig(LANGUAGE_VERILOG, &settings);
        auto tool = std::make_unique<TBaseSimTool>();
        tool->SetLanguage(LANGUAGE_VHDL);
        tool->SetSimulatorType(SIM_ZORVIK_VHDL);
        Build->AddSimTool(tool.release());
        Build->SetSnapshotName("another snapshot of a long name");
        (*Build->GetPseudoEnvironmentVariables())["B"] = "the value of another variable";
        return true;
    }
    std::string GetResult() override { return TextOf(*Build) + OrderOf(*Build); }

private:
    const ISFileName* HandleOf(const std::string& name) const {
        return ISFileName::NewISFileName(Folder.Path(name).c_str());
    }
    TOwnBuild Build{new TSimWrapHdlBuildFile(Name)};
};

class TCopyingABuild : public TBuildWork {
public:
    bool Do() override {
        Copy.reset();
        Copy = std::make_unique<TSimWrapHdlBuildFile>(*Build);
        Assigned = *Copy;
        return true;
    }
    std::string GetResult() override { return TextOf(*Copy) + TextOf(Assigned); }

private:
    TOwnBuild Build{new TSimWrapHdlBuildFile(Name)};
    std::unique_ptr<TSimWrapHdlBuildFile> Copy;
    THdlBuildFile Assigned;
};

}  // namespace

std::vector<TWorkRow> MakeBuildWorks() {
    return {
        WorkRow<TReadingABuild>("reading a build"),
        WorkRow<TReloadingABuild>("reading a build again"),
        WorkRow<TOrderingABuild>("ordering a build"),
        WorkRow<TWritingABuild>("writing a build"),
        WorkRow<TEditingABuild>("editing a build"),
        WorkRow<TCopyingABuild>("copying a build"),
    };
}
