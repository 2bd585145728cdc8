#include "buildfile/simwraphdlbuildfile.h"
#include "flows/buildattributes.h"
#include "flows/buildchanges.h"
#include "flows/buildtops.h"
#include "flows/listedsources.h"
#include "fuzz/buildtext.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/hdl/simulatortype.h"
#include "services/names/isfilename.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include "tests/support/memoryfilesystem.h"
#include "tests/support/recorders.h"
#include "translation/v2vtranslationoption.h"
#include "translation/v2vtranslationoptionslist.h"

#include <cstdint>

namespace {

constexpr const char* kBuild = "/fuzz/b.xml";

const ISFileName* FileOf(const std::string& path) {
    return ISFileName::NewISFileName(path.c_str());
}

/// What the bytes of an input choose, one behind the other. Behind the last one all is 0.
class TChoices {
public:
    TChoices(const std::uint8_t* data, std::size_t size) : Next(data), End(data + size) {}

    bool IsAtEnd() const { return Next == End; }
    unsigned Number() { return IsAtEnd() ? 0U : *Next++; }
    bool Flag() { return Number() % 2 == 1; }
    template <class TTable>
    const auto& Row(const TTable& table) {
        return table[Number() % table.size()];
    }
    THdlLanguage Language() { return Row(GetHdlLanguageTable()).Language; }
    /// Some text in UTF-8, into which a save turns all others, now and then of what formats and
    /// people stumble on.
    std::string Text() {
        static const std::vector<std::string> texts = {
            "",       "work",  "a b",      " x ",  "<&>\"'",      "\xC3\xA4\xE2\x82\xAC",
            "a\nb",   "\t",    "--->",     "]]>",  "\x01",        "\x7F",
            "${IP}",  "%s\\n", "c:\\a\\b", "-g=1", "+define+A=1", "\\esc ",
            "a\r\nb", "../..", "//h/s/f",  ".v",   "TRUE",        "Verilog",
        };
        const unsigned number = Number();
        if (number < 64) return texts[number % texts.size()];
        std::string text;
        for (unsigned left = number % 16; left > 0; --left)
            text += static_cast<char>(1 + Number() % 127);
        return text;
    }
    /// No folder around the build, whose name is kept without the delimiter behind it, and no
    /// blanks around, which readers take for layout.
    std::string Path() { return "/fuzz/f" + Text() + "f"; }

private:
    const std::uint8_t* Next;
    const std::uint8_t* End;
};

/// A build with what its last switches and texts need to outlive it.
class TModel {
public:
    explicit TModel(TChoices& choices) : Choices(choices) {
        Build.SetBuildFileName(FileOf(kBuild));
    }

    void Grow() {
        using TStep = void (TModel::*)();
        static const std::vector<TStep> steps = {
            &TModel::SetAttribute, &TModel::SetVersions, &TModel::SetGeneral,
            &TModel::AddLanguage,  &TModel::AddTool,     &TModel::AddComponent,
            &TModel::AddSource,    &TModel::AddSource,   &TModel::AddSource,
            &TModel::Depend,       &TModel::SetVariable, &TModel::SetTranslation,
            &TModel::SetOutput,
        };
        while (!Choices.IsAtEnd()) (this->*Choices.Row(steps))();
        // The top-level language may have changed, whose group alone is always kept.
        for (const THdlLanguage language : Build.GetSourceFileLanguages())
            CompileLanguage(Build, language);
    }

    TSimWrapHdlBuildFile Build;

private:
    void SetAttribute() {
        const TBuildAttribute& attribute = Choices.Row(GetBuildAttributes());
        attribute.Set(Build, attribute.Kind == BUILD_LANGUAGE
                                 ? GetStringFromHdlLanguage(Choices.Language())
                                 : Choices.Text());
    }
    void SetVersions() {
        Build.SetQMVVersion(Choices.Text().c_str());
        Build.SetIdlVersion(Choices.Text().c_str());
    }
    void SetOutput() {
        Build.SetOutputDiagram(FileOf(Choices.Path()));
        Build.SetSugarEngineDll(FileOf(Choices.Path()));
    }
    TProjectSimGeneralConfig& General() {
        if (!Build.GetGeneralConfiguration())
            Build.SetGeneralConfiguration(new TProjectSimGeneralConfig);
        return *Build.GetGeneralConfiguration();
    }
    void SetGeneral() {
        static const std::vector<void (TProjectSimGeneralConfig::*)(bool)> setters = {
            &TProjectSimGeneralConfig::SetAddTopLevelSignals,
            &TProjectSimGeneralConfig::SetDumpWatchSignals,
            &TProjectSimGeneralConfig::SetBreakAtTimeZeroAfterCompile,
            &TProjectSimGeneralConfig::SetClearLogFileBeforeCompile,
            &TProjectSimGeneralConfig::SetAutoParseProject,
            &TProjectSimGeneralConfig::SetGenerateTestBenchOnBuildProject,
            &TProjectSimGeneralConfig::SetDisableWaveformUpdate,
            &TProjectSimGeneralConfig::SetMakeConstantsWatchable,
            &TProjectSimGeneralConfig::SetMakeArrayElementsWatchable,
            &TProjectSimGeneralConfig::SetEnableSimulatorDebugging,
        };
        const auto set = Choices.Row(setters);
        (General().*set)(Choices.Flag());
        General().SetLogFileName(("f" + Choices.Text()).c_str());
        General().SetWatchableArrayElementSize(static_cast<int>(Choices.Number()) - 128);
    }
    void AddLanguage() {
        TProjectSimLanguageConfig settings;
        settings.SetProjectFileName(FileOf(kBuild));
        settings.SetTool(Choices.Row(GetSimulatorTable()).Type);
        // Absolute ones get a delimiter at their end, which a read takes away.
        settings.AddIncludeDirectory(("d" + Choices.Text()).c_str(), true);
        settings.AddLibraryDirectory(("d" + Choices.Text()).c_str(), true);
        settings.AddLibraryExtension(Choices.Text().c_str());
        settings.SetBuildOptions(Choices.Text().c_str());
        settings.SetLinkerOptions(Choices.Text().c_str());
        settings.SetRuntimeOptions(Choices.Text().c_str());
        settings.SetOutputFileName(Choices.Text().c_str());
        settings.SetDelayType(static_cast<TSimProjectDelayType>(Choices.Number() % 3));
        settings.SetPliDriven(Choices.Flag());
        settings.SetForceTopLevel(Choices.Flag());
        settings.SetDestinationLibraryName(Choices.Text().c_str());
        settings.SetActiveSnapshotName(Choices.Text().c_str());
        Build.AddLanguageConfig(Choices.Row(GetStoredLanguages()), &settings);
    }
    void AddTool() {
        General();  // without it no tool is kept
        const TSimulatorRecord& simulator = Choices.Row(GetSimulatorTable());
        if (simulator.Languages.empty()) return;
        auto tool = std::make_unique<TBaseSimTool>();
        tool->SetSimulatorType(simulator.Type);
        tool->SetLanguage(Choices.Row(simulator.Languages));
        tool->SetExecutablePath(Choices.Text().c_str());
        tool->SetPliLibrary(Choices.Text().c_str());
        Build.AddSimTool(tool.release());
    }
    void AddComponent() {
        Build.SetForceTopLevelComponents(Choices.Flag());
        AddTop(Build, {Choices.Language(), Choices.Text(), Choices.Text(), Choices.Text()});
    }
    void AddSource() {
        const THdlLanguage language = Choices.Language();
        if (language == LANGUAGE_NONE) return;  // its group is never kept
        IHdlSourceFile* const source = ::AddSource(Build, FileOf(Choices.Path()), language);
        if (!source) return;
        source->SetPrecompiledLibraryGroupName(Choices.Text().c_str());
        source->SetLibraryFlag(Choices.Flag());
    }
    void Depend() {
        const std::vector<TListedSource> sources = ListSources(Build);
        if (sources.empty()) return;
        const TListedSource& chosen = Choices.Row(sources);
        IHdlSourceFile* const source = FindListed(Build, chosen.File->GetFileName()).Source;
        source->AddDependency(Build.CreateOrGetSourceFile(
            Choices.Flag() ? Choices.Path().c_str()
                           : Choices.Row(sources).File->GetFileName()->Canonical(false)));
    }
    void SetVariable() {
        (*Build.GetPseudoEnvironmentVariables())[Choices.Text()] = Choices.Text();
    }
    void SetTranslation() {
        Translation = std::make_unique<TV2VTranslationOptionsList>(
            nullptr,
            Choices.Flag() ? "Verilog2VhdlTranslationOptions" : "Vhdl2VerilogTranslationOptions");
        if (Translation->GetTag() == std::string("Verilog2VhdlTranslationOptions"))
            TV2VTranslationOptionsList::PopulateWithDefaultVerilog2VhdlOptions(Translation.get());
        else
            TV2VTranslationOptionsList::PopulateWithDefaultVhdl2VerilogOptions(Translation.get());
        (*(Translation->begin() + static_cast<int>(Choices.Number() % Translation->size())))
            ->SetEnabled(true);
        Build.SetV2VOptions(Translation.get());
    }

    TChoices& Choices;
    std::unique_ptr<TV2VTranslationOptionsList> Translation;
};

/// Reads the file anew; ends the process where that gives no build.
void ReadAgain(THdlBuildFile& build, const std::string& document) {
    build.SetBuildFileName(FileOf(kBuild));
    const THdlBuildFileReadResults result = build.ReadFromFile();
    if (build.GetReadError().IsError())
        Give("what was saved cannot be read", build.GetReadError().Reason + "\n" + document);
    if (result != READ_NO_ERROR && result != READ_FILES_MISSING)
        Give("what was saved is no build", document);
}

/// The document without the options of build and linker: for some simulators every save adds
/// those of the linker to those of the build once more.
std::string WithoutOptions(std::string document) {
    constexpr std::string_view kEnd = "</LinkerOptions>";
    for (std::size_t begin = 0;
         (begin = document.find("<BuildOptions>", begin)) != std::string::npos;)
        document.erase(begin, document.find(kEnd, begin) - begin);
    return document;
}

}  // namespace

// The bytes choose a build, which is saved, read, and saved again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TChoices choices(data, size);
    const RecordingLog log;
    const RecordingMessageBox box;
    MemoryFileSystem files;
    files.PutFolder("/fuzz");
    TModel model(choices);
    model.Grow();
    const std::string wanted = TextOfBuild(model.Build);
    if (!model.Build.WriteToFile()) {
        // Some texts no document can hold.
        if (!files.List().empty()) Give("something was saved", files.List());
        return 0;
    }
    const std::string saved = files.Text(kBuild);
    TSimWrapHdlBuildFile read;
    ReadAgain(read, saved);
    if (const std::string found = TextOfBuild(read); found != wanted)
        Give("another build is read", wanted + "\n" + found + "\n" + saved);
    if (!read.WriteToFile()) Give("what was saved cannot be saved", saved);
    if (const std::string again = files.Text(kBuild);
        WithoutOptions(again) != WithoutOptions(saved))
        Give("a second save gives another file", saved + "\n" + again);
    return 0;
}
