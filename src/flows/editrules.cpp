#include "flows/editrules.h"
#include "flows/scan/asciicase.h"
#include "services/hdl/hdllanguage.h"
#include "services/names/environment.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
#include "services/xml/xmllist.h"
#include "settings/settingtable.h"
#include "translation/v2vtranslationoption.h"
#include "translation/v2vtranslationoptionslist.h"
#include <algorithm>

namespace {

constexpr bool kIsAnywhere = true;

// Readers of a build file find its sections at every depth.
TXMLElementRule Section(const char* name, std::vector<std::string> identity = {}) {
    return {name, std::move(identity), false, kIsAnywhere};
}

// Of the settings of one language.
void AddLanguageSettings(TXMLEditRules* rules) {
    rules->Elements.push_back({"LanguageSettings", {"Language"}});
    for (const TLanguageSetting& setting : GetLanguageSettings()) {
        TXMLElementRule rule{setting.Name, {}, IsListKind(setting.Kind)};
        rule.OlderNames.assign(setting.OlderNames.begin(), setting.OlderNames.end());
        rules->Elements.push_back(std::move(rule));
    }
    rules->Elements.push_back({"Directory", {kIdentityText}});
    rules->Elements.push_back({"Extension", {kIdentityText}});
}

// A reader adds up all elements of a switch.
void AddSwitches(TXMLEditRules* rules) {
    for (const auto populate :
         {TV2VTranslationOptionsList::PopulateWithDefaultVerilog2VhdlOptions,
          TV2VTranslationOptionsList::PopulateWithDefaultVhdl2VerilogOptions}) {
        TV2VTranslationOptionsList options(nullptr, "");
        populate(&options);
        TXMLList elements;
        for (TV2VTranslationOption* option : options) option->WriteToFile(&elements);
        for (DListIterator<TElement*> element(elements); element.NotAtTail(); ++element)
            if (element.Current()->ElemType == TElement::START)
                rules->Elements.push_back({element.Current()->Name.Str(), {}});
        options.Flush();
    }
}

/// Whether a path stays as it is when it is made canonical.
bool IsPlain(std::string_view path) {
    std::size_t begin = 0;
    for (std::size_t place = 0; place <= path.size(); ++place) {
        const char c = place < path.size() ? path[place] : '/';
        if (c == '\\' || c == ':' || c == '$' || c == '%') return false;
        if (c != '/') continue;
        const std::string_view part = path.substr(begin, place - begin);
        if (part.empty() || part == "." || part == "..") return false;
        begin = place + 1;
    }
    return true;
}

/// The same text for all spellings of a file or folder. One below `folder`, whose letters are
/// small, is relative to it.
std::string NormalisePath(const std::string& folder, std::string_view path) {
    if (IsPlain(path)) return FoldAscii(path);
    std::string text(path);
    if (HasOrvaneEnvVariable(text.c_str())) return FoldAscii(path);
    TUtilFileName name(folder.c_str());
    name.PushFileName(text.c_str());
    text = FoldAscii(name.CanonicalWithoutFinalSlash());
    if (text.starts_with(folder)) text.erase(0, folder.size());
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

std::string NormaliseLanguage(std::string_view text) {
    return GetStringFromHdlLanguage(GetHdlLanguageFromString(std::string(text).c_str()));
}

void AddNormalising(const ISFileName* file, TXMLEditRules* rules) {
    const std::string folder = FoldAscii(file ? file->GetPathOnly() : "");
    rules->Normalise = [folder](std::string_view element, std::string_view part,
                                std::string_view text) {
        const bool isText = part == kIdentityText;
        if (part == "Language" || (element == "Tool" && isText)) return NormaliseLanguage(text);
        const bool isPath = isText && (element == "SourceFile" || element == "Dependency" ||
                                       element == "Directory");
        return isPath ? NormalisePath(folder, text) : std::string(text);
    };
}

}  // namespace

TXMLEditRules MakeBuildFileRules(const ISFileName* file) {
    TXMLEditRules rules;
    rules.Elements = {
        Section("HdlBuildFile"),
        Section("TopLevelComponents"),
        {"ComponentList", {"Language"}},
        {"Component", {kIdentityText, "Library", "Architecture"}},
        Section("ExternalSimulatorSettings"),
        {"Tool", {kIdentityText}},
        Section("GeneralConfiguration"),
        Section("ProjectLanguageConfigurationList"),
        Section("Verilog2VhdlTranslationOptions"),
        Section("Vhdl2VerilogTranslationOptions"),
        Section("OutputDiagram"),
        Section("SourceFileGroup", {"Language"}),
        {"SourceFile", {kIdentityText}},
        {"Dependency", {kIdentityText}},
        Section("BuildFileVariables"),
        {"Variable", {"Name"}},
    };
    AddLanguageSettings(&rules);
    AddSwitches(&rules);
    AddNormalising(file, &rules);
    return rules;
}

TXMLEditRules MakeProjectFileRules(const ISFileName* file) {
    TXMLEditRules rules;
    rules.Elements = {
        {"ProjectSettings", {}},
        {"ProjectSettingsConfiguration", {"ConfigurationName"}},
        {"GeneralConfiguration", {}},
    };
    AddLanguageSettings(&rules);
    AddNormalising(file, &rules);
    return rules;
}

TXMLEditRules MakeSimulatorsFileRules() {
    TXMLEditRules rules;
    rules.Elements = {{"ExternalSimulatorSettings", {}}, {"Tool", {"Name", kIdentityText}}};
    AddNormalising(nullptr, &rules);
    return rules;
}
