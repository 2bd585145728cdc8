#include "cli/setup/buildkeys.h"
#include "buildfile/hdlbuildfile.h"
#include "cli/frame/languagenames.h"
#include "cli/frame/settingkeys.h"
#include "flows/knownnames.h"

namespace {

constexpr const char* kVariable = "variable.";

std::string LanguageComplaint(const std::string& text) {
    std::vector<std::string> known = OfferedLanguages();
    known.emplace_back(GetStringFromHdlLanguage(LANGUAGE_NONE));
    const bool isKnown =
        text == known.back() || GetHdlLanguageFromString(text.c_str()) != LANGUAGE_NONE;
    return isKnown ? "" : UnknownName("language", text, known);
}

std::string TimeUnitComplaint(const std::string& text) {
    TUnit read = UNIT_FS;
    if (TTimeBase::GetTimeUnitFromString(text.c_str(), &read)) return "";
    std::vector<std::string> known;
    for (const TUnit unit : {UNIT_FS, UNIT_PS, UNIT_NS, UNIT_US, UNIT_MS, UNIT_S}) {
        TTimeBase timeBase;
        timeBase.SetBaseTimeUnit(unit);
        known.emplace_back(timeBase.GetBaseTimeUnitStr());
    }
    return UnknownName("time unit", text, known);
}

}  // namespace

std::optional<std::string> VariableOf(const std::string& key) {
    if (!key.starts_with(kVariable)) return std::nullopt;
    return key.substr(std::string(kVariable).size());
}

std::string KeyOfVariable(const std::string& name) {
    return kVariable + name;
}

std::vector<std::string> KnownKeysOf(const THdlBuildFile& build) {
    std::vector<std::string> keys;
    for (const TBuildAttribute& attribute : GetBuildAttributes()) keys.emplace_back(attribute.Name);
    for (std::string& key : KnownKeys()) keys.push_back(std::move(key));
    for (const auto& [name, value] : *build.GetPseudoEnvironmentVariables())
        keys.push_back(KeyOfVariable(name));
    return keys;
}

std::string ValueComplaint(const TBuildAttribute& attribute, const std::string& text) {
    switch (attribute.Kind) {
        case BUILD_LANGUAGE:
            return LanguageComplaint(text);
        case BUILD_TIME_UNIT:
            return TimeUnitComplaint(text);
        case BUILD_FLAG: {
            const std::string complaint = ValueComplaint(SETTING_BOOL, text, LANGUAGE_NONE);
            return complaint.empty() ? "" : attribute.Name + (" '" + text) + "': " + complaint;
        }
        case BUILD_TEXT:
            return "";
    }
    return "";
}
