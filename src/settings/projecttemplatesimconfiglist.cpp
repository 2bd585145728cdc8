#include "settings/projecttemplatesimconfiglist.h"
#include "services/base/keeper.h"
#include "services/ini/propcache.h"
#include "settings/inikeys.h"

namespace {

constexpr const char* kSelectedSection = "SelectedTemplateConfigurationName";
constexpr const char* kSelectedKey = "SelectedConfigurationName";
constexpr const char* kNamesSection = "TemplateConfigurationNameList";
constexpr const char* kNameKey = "ConfigurationName";

std::string NameKey(std::size_t number) {
    return kNameKey + std::to_string(number);
}

}  // namespace

TProjectTemplateSimConfigList::TProjectTemplateSimConfigList(
    const TProjectTemplateSimConfigList& other)
    : TProjectSimConfigList(other), StartingName(other.StartingName) {}

TProjectTemplateSimConfigList& TProjectTemplateSimConfigList::operator=(
    const TProjectTemplateSimConfigList& other) {
    TProjectSimConfigList::operator=(other);
    StartingName = other.StartingName;
    return *this;
}

TProjectTemplateSimConfigList::~TProjectTemplateSimConfigList() = default;

TProjectSimConfig* TProjectTemplateSimConfigList::GetStartingConfigOrCurrentConfig() {
    TProjectSimConfig* starting = StartingName.empty() ? nullptr : Find(StartingName.c_str());
    return starting ? starting : GetCurrentConfig();
}

const TProjectSimConfig* TProjectTemplateSimConfigList::GetStartingConfigOrCurrentConfig() const {
    const TProjectSimConfig* starting = StartingName.empty() ? nullptr : Find(StartingName.c_str());
    return starting ? starting : GetCurrentConfig();
}

const char* TProjectTemplateSimConfigList::GetStartingConfigOrCurrentConfigName() const {
    const TProjectSimConfig* configuration = GetStartingConfigOrCurrentConfig();
    return configuration ? configuration->GetName() : "";
}

void TProjectTemplateSimConfigList::ResetAllTemplateConfigurations() {
    // A copy of the name: resetting the current configuration empties it for a while.
    const std::string current = GetCurrentConfigName();
    const bool hasCurrent = GetCurrentConfig() != nullptr;
    ResetSimZConfiguration();
    ResetNCSimConfiguration();
    ResetModelSimConfiguration();
    if (hasCurrent) SelectCurrentConfig(current.c_str());
}

void TProjectTemplateSimConfigList::ResetSimZConfiguration() {
    ResetTemplate("SimZorvik_Release", false, SIM_ZORVIK_VERILOG, SIM_ZORVIK_VHDL);
    ResetTemplate("SimZorvik_Debug", true, SIM_ZORVIK_VERILOG, SIM_ZORVIK_VHDL);
}

void TProjectTemplateSimConfigList::ResetNCSimConfiguration() {
    ResetTemplate("NCSim", false, SIM_NC_VERILOG, SIM_NC_VHDL);
}

void TProjectTemplateSimConfigList::ResetModelSimConfiguration() {
    ResetTemplate("ModelSim", false, SIM_MODELSIM_VERILOG, SIM_MODELSIM_VHDL);
}

void TProjectTemplateSimConfigList::ResetTemplate(const char* name, bool debug,
                                                  TSimulatorType verilog, TSimulatorType vhdl) {
    TProjectSimConfig* configuration = ResetOrAddConfiguration(name, debug);
    const std::pair<THdlLanguage, TSimulatorType> simulators[] = {{LANGUAGE_VERILOG, verilog},
                                                                  {LANGUAGE_VHDL, vhdl}};
    for (const auto& [language, simulator] : simulators) {
        TProjectSimLanguageConfig* settings = configuration->GetProjectLanguageConfig(language);
        settings->SetTool(simulator);
        settings->ResetDefaultSettingsOptions(language, debug);
    }
}

TProjectSimConfig* TProjectTemplateSimConfigList::ResetOrAddConfiguration(const char* name,
                                                                          bool debug) {
    TProjectSimConfig* configuration = Find(name);
    if (configuration) {
        configuration->Reset(debug);
    } else {
        configuration = new TProjectSimConfig(debug);
        AddConfiguration(configuration);
    }
    configuration->SetName(name);
    return configuration;
}

void TProjectTemplateSimConfigList::ReadFromINI() {
    if (const auto selected = TIniKeys(kSelectedSection, "").ReadText(kSelectedKey))
        StartingName = *selected;
    const TIniKeys names(kNamesSection, "");
    for (std::size_t number = 1;; ++number) {
        const auto name = names.ReadText(NameKey(number).c_str());
        if (!name) break;
        if (number == 1) {
            if (!Former) Former = std::make_shared<TKeeper>();
            for (TProjectSimConfig* dropped : ReleaseConfigurations()) Former->Keep(dropped);
        }
        auto configuration = std::make_unique<TProjectSimConfig>(false);
        configuration->SetName(name->c_str());
        configuration->ReadFromINI();
        AddConfiguration(configuration.release());
    }
    if (!StartingName.empty()) SelectCurrentConfig(StartingName.c_str());
}

void TProjectTemplateSimConfigList::WriteToINI() const {
    TIniKeys(kSelectedSection, "").WriteText(kSelectedKey, GetCurrentConfigName());
    const TIniKeys names(kNamesSection, "");
    int number = 0;
    for (const TProjectSimConfig* configuration : GetConfigurations())
        names.WriteText(NameKey(static_cast<std::size_t>(++number)).c_str(),
                        configuration->GetName());
    // A reader takes names until a number is missing: those of removed configurations must go.
    for (const int old : NumberedKeys(kNamesSection, kNameKey, number + 1))
        names.WriteText(NameKey(static_cast<std::size_t>(old)).c_str(), nullptr);
    for (const TProjectSimConfig* configuration : GetConfigurations()) configuration->WriteToINI();
}

TProjectTemplateSimConfigList* HdlBuildFile::GetTemplateSimConfigList() {
    // Never destroyed: it may be saved while the process ends.
    static TProjectTemplateSimConfigList* const list = [] {
        auto* made = new TProjectTemplateSimConfigList;
        made->ResetAllTemplateConfigurations();
        return made;
    }();
    return list;
}
