// The project-file form of TProjectSimLanguageConfig.
#include "services/base/booltext.h"
#include "services/base/fold.h"
#include "services/files/pathtext.h"
#include "services/logging/binarylog.h"
#include "services/names/environment.h"
#include "services/names/isfilename.h"
#include "services/xml/xmlstream.h"
#include "settings/languageoptionconversion.h"
#include "settings/projectsettingsconfigurationsdata.h"
#include "settings/settingnumber.h"
#include <algorithm>

namespace {

using namespace ProjectSettingsConfigurationsData;

/// A setting whose element holds its text verbatim.
struct TTextSetting {
    const char* Element;
    void (TProjectSimLanguageConfig::*Set)(const char*);
};
constexpr TTextSetting kTextSettings[] = {
    {"ActiveSnapshotName", &TProjectSimLanguageConfig::SetActiveSnapshotName},
    {"DestinationLibraryName", &TProjectSimLanguageConfig::SetDestinationLibraryName},
    {"AdditionalExtensions", &TProjectSimLanguageConfig::SetAdditionalExtensions},
    {"OutputFileName", &TProjectSimLanguageConfig::SetOutputFileName},
    {"BuildOptions", &TProjectSimLanguageConfig::SetBuildOptions},
    // Older files name the build options so.
    {"SimulatorOptions", &TProjectSimLanguageConfig::SetBuildOptions},
    {"CompilerOptions", &TProjectSimLanguageConfig::SetBuildOptions},
    {"LinkerOptions", &TProjectSimLanguageConfig::SetLinkerOptions},
    {"RuntimeOptions", &TProjectSimLanguageConfig::SetRuntimeOptions},
};

struct TBoolSetting {
    const char* Element;
    void (TProjectSimLanguageConfig::*Set)(bool);
};
constexpr TBoolSetting kBoolSettings[] = {
    {"UseVhdl93Defaults", &TProjectSimLanguageConfig::SetVhdl93DefaultSettingsEnabled},
    {"PliDriven", &TProjectSimLanguageConfig::SetPliDriven},
    {"RunOutputFileExecutable", &TProjectSimLanguageConfig::SetRunOutputFileExecutable},
    {"ForceTopLevel", &TProjectSimLanguageConfig::SetForceTopLevel},
};

void PushBoolElement(TXMLList* document, const char* name, bool value) {
    PushTextElement(document, name, ConvertBooleanToStringBool(value));
}

/// The directory of the document's file; "" without one.
std::string DirectoryOf(const TXMLList& document) {
    return document.GetFileName() ? document.GetFileName()->GetPathOnly() : "";
}

std::string WrittenDirectory(const std::string& directory, const std::string& base) {
    if (base.empty() || HasOrvaneEnvVariable(directory.c_str())) return directory;
    std::string relative;
    IFileName::CreateRelativeFileName(base.c_str(), directory.c_str(), &relative, false, false);
    // On another drive nothing is gained, and the list knows the directory by its own spelling.
    return IsRelativePath(relative.c_str()) ? relative : directory;
}

void WriteTexts(TXMLList* document, const char* listName, const char* entryName,
                const std::vector<std::string>& texts) {
    if (texts.empty()) return;
    PushStart(document, listName);
    for (const std::string& text : texts) PushTextElement(document, entryName, text);
    PushEnd(document, listName);
}

void WriteDirectories(TXMLList* document, const char* listName,
                      const std::vector<std::string>& directories) {
    const std::string base = DirectoryOf(*document);
    std::vector<std::string> written;
    written.reserve(directories.size());
    for (const std::string& directory : directories)
        written.push_back(WrittenDirectory(directory, base));
    WriteTexts(document, listName, "Directory", written);
}

/// Reads the entries of a list, each called `entryName`, and stops on the END of the list, which is
/// called as the START under `element`. False when anything else is met.
template <class AddEntry>
bool ReadEntries(TElementIterator& element, const char* entryName, AddEntry addEntry) {
    const std::string listName = element.Current()->Name.Str();
    ++element;
    while (IsAtStart(element, entryName)) {
        ++element;
        if (IsAtText(element)) {
            addEntry(element.Current()->Text.c_str());
            ++element;
        }
        SkipEnd(element);
        if (IsAtEnd(element, listName.c_str())) return true;
    }
    return false;
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
    PushTextElement(document, "SimTool", GetSimulatorNameFromType(Tool));
    WriteDirectories(document, "IncludeDirectories", GetIncludeDirectories());
    WriteDirectories(document, "LibraryDirectories", GetLibraryDirectories());
    WriteTexts(document, "LibraryExtensions", "Extension", GetLibraryExtensions());
    PushBoolElement(document, "UseVhdl93Defaults", Vhdl93DefaultSettingsEnabled);
    PushTextElement(document, "DelayType", std::to_string(DelayType));
    PushBoolElement(document, "PliDriven", PliDriven);
    PushTextElement(document, "ActiveSnapshotName", ActiveSnapshotName.Str());
    PushTextElement(document, "DestinationLibraryName", DestinationLibraryName.Str());
    PushTextElement(document, "AdditionalExtensions", AdditionalExtensions.Str());
    if (buildFileForm) AddBuildFileOptions(language, lineDebug);
    WriteOptions(document, language, buildFileForm, forceMode3);
    if (!OutputFileName.empty()) PushTextElement(document, "OutputFileName", OutputFileName);
    PushBoolElement(document, "RunOutputFileExecutable", RunOutputFileExecutable);
    PushBoolElement(document, "ForceTopLevel", ForceTopLevel);
}

// What a build file asks of the simulator beyond the user's options.
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

void TProjectSimLanguageConfig::WriteOptions(TXMLList* document, THdlLanguage language,
                                             bool buildFileForm, bool forceMode3) const {
    TLanguageOptionTexts texts{BuildOptions.Str(), LinkerOptions.Str(), RuntimeOptions.Str()};
    if (buildFileForm) {
        const TOptionConversionMode mode = GetOptionConversionMode(Tool);
        // The stored text holds the linker options once for each write; words that were typed in
        // both texts could not be told from those.
        if (mode == MODE_MERGED && IsOptionConversionSupported(language, Tool))
            texts.Build = TypedBuildOptions.Str() + " " + texts.Linker;
        texts = ConvertLanguageOptions(language, Tool, mode, !forceMode3, texts);
        // Such a file only elaborates.
        if (forceMode3 && IsOwnHdlSimulator(Tool)) texts.Build = texts.Linker;
    }
    PushTextElement(document, "BuildOptions", texts.Build);
    PushTextElement(document, "LinkerOptions", texts.Linker);
    PushTextElement(document, "RuntimeOptions", texts.Runtime);
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
        if (!ReadItem(element)) return false;
        if (IsAtText(element)) ++element;
        SkipEnd(element);
    }
    return false;
}

// Leaves `element` on the text or on the END of the item.
bool TProjectSimLanguageConfig::ReadItem(TElementIterator& element) {
    if (IsAtStart(element, "IncludeDirectories"))
        return ReadDirectoryList(element, IncludeDirectories);
    if (IsAtStart(element, "LibraryDirectories"))
        return ReadDirectoryList(element, LibraryDirectories);
    if (IsAtStart(element, "LibraryExtensions")) return ReadLibraryExtensionList(element);
    const std::string name = element.Current()->Name.Str();
    ++element;
    if (IsAtText(element)) ReadSetting(name, element.Current()->Text.Str());
    return true;
}

bool TProjectSimLanguageConfig::ReadDirectoryList(TElementIterator& element,
                                                  TUniqueTextList& list) const {
    TUniqueTextList directories;
    if (!ReadEntries(element, "Directory",
                     [&](const char* directory) { AddDirectory(directories, directory, true); }))
        return false;
    list = std::move(directories);
    return true;
}

bool TProjectSimLanguageConfig::ReadLibraryExtensionList(TElementIterator& element) {
    return ReadEntries(element, "Extension",
                       [this](const char* extension) { AddLibraryExtension(extension); });
}

void TProjectSimLanguageConfig::ReadSetting(const std::string& name, const std::string& text) {
    if (name == "SimTool") return ReadTool(std::string(TrimmedView(text)));
    if (name == "DelayType") {
        DelayType = static_cast<TSimProjectDelayType>(LeadingNumber(text));
        return;
    }
    for (const TBoolSetting& setting : kBoolSettings)
        if (name == setting.Element) (this->*setting.Set)(ConvertStringBoolToBoolean(text.c_str()));
    for (const TTextSetting& setting : kTextSettings)
        if (name == setting.Element) (this->*setting.Set)(text.c_str());
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
