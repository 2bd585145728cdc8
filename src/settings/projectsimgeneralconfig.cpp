#include "settings/projectsimgeneralconfig.h"
#include "services/base/fold.h"
#include "services/base/keeper.h"
#include "services/xml/xmlstream.h"
#include "settings/inikeys.h"
#include "settings/settingtable.h"
#include <algorithm>

namespace {

bool IsMissing(const TGeneralSetting& setting, const char* text) {
    return setting.Kind == SETTING_NAME ? !*text : TrimmedView(text).empty();
}

void SetUnlessNull(const TGeneralSetting& setting, TProjectSimGeneralConfig& settings,
                   const char* text) {
    if (text) setting.Set(settings, text);
}

std::vector<const TGeneralSetting*> MakeIniOrder() {
    std::vector<const TGeneralSetting*> order;
    for (const TGeneralSetting& setting : GetGeneralSettings()) order.push_back(&setting);
    std::sort(order.begin(), order.end(),
              [](auto* a, auto* b) { return a->IniPlace < b->IniPlace; });
    return order;
}

const std::vector<const TGeneralSetting*>& InIniOrder() {
    static const auto* order = new std::vector(MakeIniOrder());
    return *order;
}

}  // namespace

TProjectSimGeneralConfig::TProjectSimGeneralConfig(const TProjectSimGeneralConfig& other)
    : TProjectSimGeneralConfig(&other, 1) {}

TProjectSimGeneralConfig::TProjectSimGeneralConfig(const TProjectSimGeneralConfig& other, int)
    : TProjectSimGeneralConfig(&other, 1) {}

TProjectSimGeneralConfig::TProjectSimGeneralConfig(const TProjectSimGeneralConfig* other, int)
    : TProjectSimGeneralConfig() {
    if (other) *this = *other;
}

TProjectSimGeneralConfig& TProjectSimGeneralConfig::operator=(
    const TProjectSimGeneralConfig& other) = default;

TProjectSimGeneralConfig::~TProjectSimGeneralConfig() {
    ForgetKept(this);
}

void TProjectSimGeneralConfig::SetDefaults() {
    *this = TProjectSimGeneralConfig();
}

bool TProjectSimGeneralConfig::GetCompileLanguageFiles(THdlLanguage language) const {
    switch (language) {
        case LANGUAGE_VERILOG:
            return CompileVerilogFiles;
        case LANGUAGE_VHDL:
            return CompileVHDLFiles;
        case LANGUAGE_TESTBUILDER:
            return CompileCppFiles;
        default:
            return true;
    }
}

void TProjectSimGeneralConfig::WriteToProjectFile(TXMLList* document) const {
    if (!document) return;
    TAttributeList attributes;
    for (const TGeneralSetting& setting : GetGeneralSettings())
        attributes.Psh(setting.Name, setting.Get(*this).c_str());
    document->Psh("GeneralConfiguration", &attributes, TElement::START, nullptr);
    PushEnd(document, "GeneralConfiguration");
}

bool TProjectSimGeneralConfig::ReadFromFile(const TElement* element) {
    if (!element) return false;
    for (const TGeneralSetting& setting : GetGeneralSettings()) {
        const char* const text = element->GetAttribute(setting.Name);
        SetUnlessNull(setting, *this, IsMissing(setting, text) ? setting.MissingInElement : text);
    }
    return true;
}

void TProjectSimGeneralConfig::WriteToINI(const char* section, bool diagram) const {
    const TIniKeys keys(section, "");
    for (const TGeneralSetting* setting : InIniOrder())
        if (!diagram || !setting->FixedInDiagrams)
            keys.WriteText(setting->Name, setting->Get(*this).c_str());
}

void TProjectSimGeneralConfig::ReadFromINI(const char* section, bool diagram) {
    const TIniKeys keys(section, "");
    for (const TGeneralSetting* setting : InIniOrder()) {
        if (diagram && setting->FixedInDiagrams) {
            setting->Set(*this, setting->FixedInDiagrams);
            continue;
        }
        const auto text = keys.ReadText(setting->Name);
        SetUnlessNull(*setting, *this, text ? text->c_str() : setting->MissingInIni);
    }
}
