#include "buildfile/hdlbuildfile.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include "tests/buildfile/buildtexts.h"
#include "tests/outofmemory/buildsample.h"
#include "tests/outofmemory/work.h"
#include "tests/support/recorders.h"

namespace {

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
    bool IsWhole() override {
        return Folder.Read("b.xml").ends_with("</HdlBuildFileList>") ||
               Folder.Read("b.xml").ends_with("</HdlBuildFileList>\n");
    }

    RecordingMessageBox Box;
    const TemporaryFolder& Folder = GetEmptyFolder();
    std::string Path = Folder.Write("b.xml", MakeBuildText());
    const ISFileName* Name = ISFileName::NewISFileName(Path.c_str());
};

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
