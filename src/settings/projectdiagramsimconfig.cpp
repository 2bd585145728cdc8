#include "settings/projectdiagramsimconfig.h"
#include "services/hdl/simtypelanguagemap.h"
#include "settings/inikeys.h"
#include "settings/projecttemplatesimconfiglist.h"

namespace {

constexpr const char* kGeneralSection = "DiagramSettingsGeneralConfiguration";
constexpr const char* kSelectedTool = "SelectedSimTool";

struct TLanguageSection {
    THdlLanguage Language;
    const char* Section;
};
constexpr TLanguageSection kLanguageSections[] = {
    {LANGUAGE_VERILOG, "DiagramSettingsVerilogConfiguration"},
    {LANGUAGE_VHDL, "DiagramSettingsVHDLConfiguration"},
};

TSimulatorType SupportedSimulator(THdlLanguage language, TSimulatorType simulator) {
    return TSimTypeLanguageMap::instance()->GetDefaultOrSupportedSimulator(language, simulator);
}

void ReadLanguageKeys(TProjectSimLanguageConfig& settings, const TLanguageSection& stored) {
    const auto tool = TIniKeys(stored.Section, "").ReadText(kSelectedTool);
    if (!tool) return;
    settings.SetTool(SupportedSimulator(stored.Language, GetSimulatorTypeFromName(tool->c_str())));
    settings.ReadFromINI(stored.Section, stored.Language, true);
    // The keys just read hold a simulator, too, which may not support the language.
    settings.SetTool(SupportedSimulator(stored.Language, settings.GetTool()));
}

}  // namespace

TProjectDiagramSimConfig::TProjectDiagramSimConfig() : TProjectDiagramSimConfig(nullptr) {}

TProjectDiagramSimConfig::TProjectDiagramSimConfig(const TProjectSimConfig& configuration)
    : TProjectDiagramSimConfig(&configuration) {}

TProjectDiagramSimConfig::TProjectDiagramSimConfig(const TProjectSimConfig* configuration)
    : TProjectSimConfig(configuration) {
    InitializeForDiagram();
}

TProjectDiagramSimConfig::TProjectDiagramSimConfig(std::nullptr_t) : TProjectSimConfig(nullptr) {
    InitializeForDiagram();
}

TProjectDiagramSimConfig::TProjectDiagramSimConfig(const TProjectDiagramSimConfig& other)
    : TProjectDiagramSimConfig(&other) {}

TProjectDiagramSimConfig::~TProjectDiagramSimConfig() = default;

void TProjectDiagramSimConfig::InitializeForDiagram() {
    Reset(false);
    TProjectSimGeneralConfig* general = GetGeneralConfiguration();
    general->SetAddTopLevelSignals(false);
    general->SetShowWatchSignals(true);
    general->SetBreakAtTimeZeroAfterCompile(false);
    general->SetAutoParseProject(false);
    GetProjectLanguageConfig(LANGUAGE_VERILOG)->SetTool(SIM_ZORVIK_CL);
}

void TProjectDiagramSimConfig::ResetDiagramConfiguration() {
    InitializeForDiagram();
    SetName("Diagram Configuration");
}

void TProjectDiagramSimConfig::SetGeneralConfiguration(const TProjectSimGeneralConfig& general) {
    TProjectSimConfig::SetGeneralConfiguration(general);
    InitializeForDiagram();
}

void TProjectDiagramSimConfig::SetGeneralConfiguration(const TProjectSimGeneralConfig* general) {
    if (general) SetGeneralConfiguration(*general);
}

void TProjectDiagramSimConfig::ReadFromINI() {
    GetGeneralConfiguration()->ReadFromINI(kGeneralSection, true);
    for (const TLanguageSection& stored : kLanguageSections)
        if (TProjectSimLanguageConfig* settings = GetProjectLanguageConfig(stored.Language))
            ReadLanguageKeys(*settings, stored);
}

void TProjectDiagramSimConfig::WriteToINI() const {
    GetGeneralConfiguration()->WriteToINI(kGeneralSection, true);
    for (const TLanguageSection& stored : kLanguageSections) {
        const TProjectSimLanguageConfig* settings = GetProjectLanguageConfig(stored.Language);
        if (!settings) continue;
        TIniKeys(stored.Section, "")
            .WriteText(kSelectedTool, GetSimulatorNameFromType(settings->GetTool()));
        settings->WriteToINI(stored.Section, stored.Language, true);
    }
}

TProjectDiagramSimConfig* HdlBuildFile::GetTemplateDiagramSimConfig() {
    // Never destroyed: sources without an owner keep pointing into it while the process ends.
    static TProjectDiagramSimConfig* const configuration = [] {
        auto* made = new TProjectDiagramSimConfig(GetTemplateSimConfigList()->GetCurrentConfig());
        made->ResetDiagramConfiguration();
        return made;
    }();
    return configuration;
}
