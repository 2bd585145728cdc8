#include "flows/knownelements.h"
#include "flows/nearestnames.h"
#include "settings/settingtable.h"

namespace {

// Shorter names are near to too many.
constexpr std::size_t kShortestMeant = 3;

void AddLanguageSettings(std::vector<TKnownElement>* elements) {
    for (const TLanguageSetting& setting : GetLanguageSettings()) {
        TKnownElement known{setting.Name, "LanguageSettings", {}};
        if (setting.Kind == SETTING_SIMULATOR) known.Text = WORD_SIMULATOR_OR_NUMBER;
        if (IsListKind(setting.Kind)) {
            known.NeededEntry = setting.Entries.Element;
            known.Unknown = UNKNOWN_ENDS_SECTION;
            elements->push_back({setting.Entries.Element, setting.Name, {}});
        }
        elements->push_back(known);
        for (const char* older : setting.OlderNames) {
            known.Name = older;
            elements->push_back(known);
        }
    }
}

TKnownElement MakeGeneralConfiguration() {
    TKnownElement general{"GeneralConfiguration", "", {}};
    for (const TGeneralSetting& setting : GetGeneralSettings())
        general.Attributes.push_back({setting.Name});
    return general;
}

std::vector<TKnownElement> MakeKnownElements() {
    std::vector<TKnownElement> elements = {
        {"HdlBuildFile",
         "",
         {{"TopLevelLanguage", WORD_LANGUAGE},
          {"QmvVersion"},
          {"IdlVersion"},
          {"HvlLanguage", WORD_LANGUAGE},
          {"HdlLanguage", WORD_LANGUAGE},
          {"BaseTimeUnit", WORD_TIME_UNIT},
          {"DisplayTimeUnit", WORD_TIME_UNIT},
          {"SugarEngineDll"},
          {"GenerationDestinationLibrary"},
          {"DestinationLibrary"},
          {"SnapshotName"},
          {"SingleFileOnlyBuild"}}},
        {"TopLevelComponents", "", {{"ForceTopLevelComponents"}}, UNKNOWN_ENDS_SECTION},
        {"ComponentList",
         "TopLevelComponents",
         {{"Language", WORD_NEEDED_LANGUAGE}},
         UNKNOWN_ENDS_SECTION},
        {"Component", "ComponentList", {{"Library"}, {"Architecture"}}, UNKNOWN_ENDS_SECTION},
        {"ExternalSimulatorSettings", "", {}, UNKNOWN_ENDS_SECTION},
        {"Tool",
         "ExternalSimulatorSettings",
         {{"Name", WORD_SIMULATOR}, {"Path"}, {"PliLibPath"}},
         UNKNOWN_ENDS_SECTION,
         WORD_LANGUAGE},
        MakeGeneralConfiguration(),
        {"ProjectLanguageConfigurationList", "", {}, UNKNOWN_ENDS_SECTION},
        {"LanguageSettings", "ProjectLanguageConfigurationList", {{"Language", WORD_LANGUAGE}}},
        {"Verilog2VhdlTranslationOptions", "", {}, UNKNOWN_IS_FREE},
        {"Vhdl2VerilogTranslationOptions", "", {}, UNKNOWN_IS_FREE},
        {"OutputDiagram", "", {}},
        {"SourceFileGroup", "", {{"Language", WORD_NEEDED_LANGUAGE}}, UNKNOWN_ENDS_SECTION},
        {"SourceFile",
         "SourceFileGroup",
         {{"Library"}, {"PrecompiledLibrary"}},
         UNKNOWN_ENDS_SECTION},
        {"Dependency", "SourceFile", {}, UNKNOWN_ENDS_SECTION},
        {"BuildFileVariables", "", {}, UNKNOWN_ENDS_SECTION},
        {"Variable", "BuildFileVariables", {{"Name"}, {"Value"}}, UNKNOWN_ENDS_SECTION},
    };
    AddLanguageSettings(&elements);
    return elements;
}

bool MayBeIn(const TKnownElement& known, std::string_view parent) {
    return known.Parent.empty() || known.Parent == parent;
}

}  // namespace

const std::vector<TKnownElement>& GetKnownElements() {
    static const std::vector<TKnownElement> elements = MakeKnownElements();
    return elements;
}

const TKnownElement* FindKnownElement(std::string_view name, std::string_view parent) {
    for (const TKnownElement& known : GetKnownElements())
        if (known.Name == name && MayBeIn(known, parent)) return &known;
    return nullptr;
}

const TKnownElement* FindElementElsewhere(std::string_view name) {
    for (const TKnownElement& known : GetKnownElements())
        if (known.Name == name) return &known;
    return nullptr;
}

std::string FindMeantElement(std::string_view name, std::string_view parent) {
    if (name.size() < kShortestMeant) return "";
    std::vector<std::string> known;
    for (const TKnownElement& element : GetKnownElements())
        if (MayBeIn(element, parent)) known.push_back(element.Name);
    const std::vector<std::string> nearest = NearestNames(name, known);
    return nearest.empty() ? "" : nearest.front();
}
