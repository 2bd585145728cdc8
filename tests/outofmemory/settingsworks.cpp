#include "services/ini/propcache.h"
#include "services/names/isfilename.h"
#include "settings/hpjfile.h"
#include "settings/projectsimsettings.h"
#include "simtools/simtoolserverclientcourier.h"
#include "tests/cli/projecttext.h"
#include "tests/outofmemory/work.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"

namespace {

class TReadingAProject : public IWork {
public:
    bool Do() override {
        Settings = std::make_unique<TProjectSimSettings>();
        File.emplace(Name);
        return File->Read(Settings.get()) == HPJ_FILE_DONE;
    }
    std::string GetResult() override {
        std::string text;
        for (const TProjectSimConfig* configuration : Settings->GetConfigurations())
            text += std::string(configuration->GetName()) + "\n";
        return text;
    }

private:
    const TemporaryFolder& Folder = GetEmptyFolder();
    const ISFileName* Name =
        ISFileName::NewISFileName(Folder.Write("p.hpj", ProjectText()).c_str());
    std::unique_ptr<TProjectSimSettings> Settings;
    std::optional<THpjFile> File;
};

class TSavingAProject : public IWork {
public:
    TSavingAProject() {
        File.Read(&Settings);
        Settings.GetConfiguration("Debug")->GetGeneralConfiguration()->SetLogFileName(
            "a log file whose name is long");
    }
    bool Do() override { return File.Save(&Settings) == HPJ_FILE_DONE; }
    std::string GetResult() override { return Folder.Read("p.hpj") + Folder.List(); }
    bool IsWhole() override { return Folder.Read("p.hpj").ends_with("</SimulationProject>\n"); }

private:
    const TemporaryFolder& Folder = GetEmptyFolder();
    const ISFileName* Name =
        ISFileName::NewISFileName(Folder.Write("p.hpj", ProjectText()).c_str());
    RecordingMessageBox Box;
    THpjFile File{Name};
    TProjectSimSettings Settings;
};

class TKeepingIniValues : public IWork {
public:
    bool Do() override {
        Cache = std::make_unique<TPropCache>(Path.c_str(), nullptr);
        Cache->WritePrivatePropString("Section", "key", "a value that is longer than others");
        Cache->WritePrivatePropString("A new section of long name", "key", "another long value");
        Cache->WritePrivatePropString("Section", "gone", nullptr);
        Text = Cache->GetPrivatePropText("Section", "kept", "-");
        return Cache->Flush();
    }
    std::string GetResult() override { return Text + Folder.Read("a.ini") + Folder.List(); }
    bool IsWhole() override {
        return Folder.Read("a.ini").find("kept=a value that nobody changes") != std::string::npos;
    }

private:
    RecordingLog Log;
    const TemporaryFolder& Folder = GetEmptyFolder();
    std::string Path = Folder.Write(
        "a.ini", "; mine\n[Section]\nkey=old\nkept=a value that nobody changes\ngone=1\n");
    std::unique_ptr<TPropCache> Cache;
    std::string Text;
};

class TKeepingSimulators : public IWork {
public:
    bool Do() override {
        TBaseSimToolServerClientCourier courier;
        courier.CreateOrGetSimTool("farm", SIM_VCS)->SetPliLibrary("a library of long name");
        courier.SetCurrentServerName("farm");
        if (!courier.WriteCurrentServerConfigToFile(Name)) return false;
        TBaseSimToolServerClientCourier read;
        if (!read.ReadCurrentServerConfigFromFile(Name, "farm")) return false;
        Text = read.GetSimTool(SIM_VCS)->GetPliLibrary();
        return true;
    }
    std::string GetResult() override { return Text + Folder.Read("s.cfg") + Folder.List(); }

private:
    const TemporaryFolder& Folder = GetEmptyFolder();
    const ISFileName* Name = ISFileName::NewISFileName(Folder.Path("s.cfg").c_str());
    std::string Text;
};

}  // namespace

std::vector<TWorkRow> MakeSettingsWorks() {
    return {
        WorkRow<TReadingAProject>("reading a project"),
        WorkRow<TSavingAProject>("saving a project"),
        // SimpleIni loses the text that it parses when one of its maps gets no memory.
        WorkRow<TKeepingIniValues>("keeping INI values", 1),
        WorkRow<TKeepingSimulators>("keeping simulators"),
    };
}
