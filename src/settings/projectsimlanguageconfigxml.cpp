// The project-file form of TProjectSimLanguageConfig.
#include "services/base/fold.h"
#include "services/files/pathtext.h"
#include "services/logging/binarylog.h"
#include "services/names/environment.h"
#include "services/names/isfilename.h"
#include "services/xml/xmlstream.h"
#include "settings/languageoptionconversion.h"
#include "settings/projectsettingsconfigurationsdata.h"
#include "settings/settingtable.h"
#include <algorithm>

namespace {

using namespace ProjectSettingsConfigurationsData;

/// The directory of the document's file; "" without one.
std::string DirectoryOf(const TXMLList& document) {
    return document.GetFileName() ? document.GetFileName()->GetPathOnly() : "";
}

void WriteEntries(TXMLList* document, const TLanguageSetting& setting,
                  const TProjectSimLanguageConfig& settings) {
    const std::vector<std::string>& entries = (settings.*setting.Entries.Get)();
    if (entries.empty()) return;
    const bool areDirectories = setting.Kind == SETTING_DIRECTORIES;
    const std::string base = areDirectories ? DirectoryOf(*document) : "";
    PushStart(document, setting.Name);
    for (const std::string& entry : entries)
        PushTextElement(
            document, setting.Entries.Element,
            areDirectories ? TProjectSimLanguageConfig::GetWrittenDirectory(entry, base) : entry);
    PushEnd(document, setting.Name);
}

void WriteSettings(TXMLList* document, const TProjectSimLanguageConfig& settings) {
    for (const TLanguageSetting& setting : GetLanguageSettings()) {
        if (IsListKind(setting.Kind)) {
            WriteEntries(document, setting, settings);
            continue;
        }
        const std::string text = setting.Get(settings);
        if (!text.empty() || setting.IsWrittenEmpty) PushTextElement(document, setting.Name, text);
    }
}

/// Reads the entries of a list and stops on the END of the list, which is called as the START under
/// `element`. False when anything else is met.
template <class AddEntry>
bool ReadEntries(TElementIterator& element, const TLanguageSetting& setting, AddEntry addEntry) {
    ++element;
    while (IsAtStart(element, setting.Entries.Element)) {
        ++element;
        if (IsAtText(element)) {
            addEntry(element.Current()->Text.c_str());
            ++element;
        }
        SkipEnd(element);
        if (IsAtEnd(element, setting.Name)) return true;
    }
    return false;
}

/// Replaces the list whole, once all of it is read.
bool ReadDirectoryList(TElementIterator& element, const TLanguageSetting& setting,
                       TProjectSimLanguageConfig& settings) {
    std::vector<std::string> directories;
    if (!ReadEntries(element, setting, [&directories](const char* directory) {
            directories.emplace_back(directory);
        }))
        return false;
    (settings.*setting.Entries.Clear)();
    for (const std::string& directory : directories)
        setting.Entries.Add(settings, directory.c_str(), true);
    return true;
}

/// Adds to the list, entry by entry.
bool ReadLibraryExtensionList(TElementIterator& element, const TLanguageSetting& setting,
                              TProjectSimLanguageConfig& settings) {
    return ReadEntries(element, setting, [&](const char* extension) {
        setting.Entries.Add(settings, extension, false);
    });
}

/// Leaves `element` on the text or on the END of the item. Unknown items are ignored.
bool ReadItem(TElementIterator& element, TProjectSimLanguageConfig& settings) {
    const TLanguageSetting* setting = FindLanguageSetting(element.Current()->Name.Str());
    if (setting && setting->Kind == SETTING_DIRECTORIES)
        return ReadDirectoryList(element, *setting, settings);
    if (setting && setting->Kind == SETTING_LIST)
        return ReadLibraryExtensionList(element, *setting, settings);
    ++element;
    if (setting && IsAtText(element)) setting->Set(settings, element.Current()->Text.c_str());
    return true;
}

bool IsCppCompilerNamed() {
    std::string compiler;
    return GetEnvironmentVariableText("ORVANE_CPP_COMPILER", &compiler);
}

bool NamesGccSwitch(const char* options) {
    return FoldCase(options).find("qdx_usegcc") != std::string::npos;
}

}  // namespace

void TProjectSimLanguageConfig::WriteToProjectFile(TXMLList* document, THdlLanguage language,
                                                   bool buildFileForm, bool lineDebug,
                                                   bool forceMode3) {
    if (!document) return;
    if (Tool == SIM_NONE) {
        static TCheckSite site(
            "SimTool != SIM_NONE && \"Sim None should not be saved to the hpj file\"", kSource,
            kWriteWithoutSimulator);
        site.Report();
    }
    if (!buildFileForm) return WriteSettings(document, *this);
    AddBuildFileOptions(language, lineDebug);
    WriteSettings(document, WithConvertedOptions(language, forceMode3));
}

std::string TProjectSimLanguageConfig::GetWrittenDirectory(const std::string& directory,
                                                           const std::string& base) {
    if (base.empty() || HasOrvaneEnvVariable(directory.c_str())) return directory;
    std::string relative;
    IFileName::CreateRelativeFileName(base.c_str(), directory.c_str(), &relative, false, false);
    // A directory on another drive has no relative form: it is written as the list spells it.
    return IsRelativePath(relative.c_str()) ? relative : directory;
}

// The options that only build files hold, in addition to the user's.
void TProjectSimLanguageConfig::AddBuildFileOptions(THdlLanguage language, bool lineDebug) {
    if (lineDebug && IsOptionConversionSupported(language, Tool))
        LinkerOptions += " --simz_options +linedebug";
    const bool is64Bit = Tool == SIM_ZORVIK_VERILOG_64 || Tool == SIM_ZORVIK_VHDL_64;
    // The 64-bit simulators find no other compiler unless the user names one.
    if (is64Bit && !IsCppCompilerNamed() && !NamesGccSwitch(LinkerOptions) &&
        !NamesGccSwitch(BuildOptions))
        LinkerOptions += " --qdx_usegcc";
    if (GetOptionConversionMode(Tool) == MODE_MERGED)
        BuildOptions = BuildOptions + " " + LinkerOptions;
}

TProjectSimLanguageConfig TProjectSimLanguageConfig::WithConvertedOptions(THdlLanguage language,
                                                                          bool forceMode3) const {
    TLanguageOptionTexts texts{BuildOptions.Str(), LinkerOptions.Str(), RuntimeOptions.Str()};
    const TOptionConversionMode mode = GetOptionConversionMode(Tool);
    // The stored text holds the linker options once for each write; words that were typed in both
    // texts could not be told from those.
    if (mode == MODE_MERGED && IsOptionConversionSupported(language, Tool))
        texts.Build = TypedBuildOptions.Str() + " " + texts.Linker;
    texts = ConvertLanguageOptions(language, Tool, mode, !forceMode3, texts);
    TProjectSimLanguageConfig converted(*this);
    // A build file written with `forceMode3` only elaborates.
    const bool onlyElaborates = forceMode3 && IsOwnHdlSimulator(Tool);
    converted.BuildOptions = onlyElaborates ? texts.Linker : texts.Build;
    converted.LinkerOptions = texts.Linker;
    converted.RuntimeOptions = texts.Runtime;
    return converted;
}

bool TProjectSimLanguageConfig::ReadFromFile(TElementIterator& element,
                                             const ISFileName* projectFile) {
    if (!IsAtStart(element, "LanguageSettings")) {
        static TCheckSite site(
            "(elemI.NotAtTail() && (elemI.Current()->ElemType == TElement::START) && "
            "!strcmp(elemI.Current()->Name, \"LanguageSettings\") ) && "
            "\"TProjectSimSettings::ReadFromFile was called on an invalid element.\"",
            kSource, kReadInvalidElement);
        site.Report();
        return false;
    }
    SetProjectFileName(projectFile, true);
    for (++element; element.NotAtTail();) {
        if (IsAtEnd(element, "LanguageSettings")) {
            ++element;
            return true;
        }
        if (!IsAtStart(element)) {
            ++element;
            continue;
        }
        if (!ReadItem(element, *this)) return false;
        if (IsAtText(element)) ++element;
        SkipEnd(element);
    }
    return false;
}

void TProjectSimLanguageConfig::ReadTool(const std::string& text) {
    const bool isNumber = std::all_of(text.begin(), text.end(), IsDecimalDigit);
    const int number = LeadingNumber(text);
    if (isNumber && (number <= SIM_NONE || number > SIM_SIMULATOR30)) {
        static TCheckSite site("false && \"SimTool integer value out of legal range\"", kSource,
                               kReadSimulatorNumber);
        site.Report();
        return;
    }
    Tool = isNumber ? static_cast<TSimulatorType>(number) : GetSimulatorTypeFromName(text.c_str());
    if (Tool != SIM_NONE) return;
    static TCheckSite site(
        "SimTool != SIM_NONE && \"Sim None should not be stored in the project file\"", kSource,
        kReadWithoutSimulator);
    site.Report();
}
