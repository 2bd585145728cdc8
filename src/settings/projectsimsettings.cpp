#include "services/logging/binarylog.h"
#include "services/names/isfilename.h"
#include "services/xml/xmlstream.h"
#include "settings/projectsettings.h"
#include "settings/storedlanguages.h"
#include <utility>

namespace {

/// How a project file names a configuration: without directory and extension.
std::string TitleOf(const ISFileName* file) {
    return file ? file->GetNameNoExt() : "";
}

/// A file mentions the languages that its writer knew; every consumer expects all of them.
void AddMissingLanguages(TProjectSimConfig& configuration, const ISFileName* projectFile) {
    for (const THdlLanguage language : GetStoredLanguages()) {
        if (configuration.GetProjectLanguageConfig(language)) continue;
        configuration.SetProjectSettings(language, new TProjectSimLanguageConfig);
        configuration.ResetLanguageSettingsToDefaults(language, false);
        configuration.GetProjectLanguageConfig(language)->SetProjectFileName(projectFile);
    }
}

}  // namespace

TProjectSimConfig* TProjectSimSettings::GetConfiguration(const char* name) {
    return const_cast<TProjectSimConfig*>(std::as_const(*this).GetConfiguration(name));
}

const TProjectSimConfig* TProjectSimSettings::GetConfiguration(const char* name) const {
    if (std::string_view(name ? name : "") != "Default") return Find(name);
    return GetConfigurations().empty() ? nullptr : GetConfigurations().front();
}

void TProjectSimSettings::CopyConfiguration(const char* from, const char* to) {
    const TProjectSimConfig* source = GetConfiguration(from);
    if (!source) {
        static TCheckSite site("sourceConfiguration", ProjectSettings::kSource,
                               ProjectSettings::kCopyMissingConfiguration);
        site.Report();
        return;
    }
    auto copy = std::make_unique<TProjectSimConfig>(*source);
    copy->SetName(to);
    AddConfiguration(copy.release());
}

void TProjectSimSettings::SetProjectFileName(const ISFileName* file) {
    ProjectFile = file;
    TProjectSimConfigList::SetProjectFileName(file);
}

void TProjectSimSettings::SetProjectFileName(const ISFileName* file,
                                             const char* configurationName) {
    TProjectSimConfig* configuration = GetConfiguration(configurationName);
    if (configuration && file) configuration->SetName(TitleOf(file).c_str());
    SetProjectFileName(file);
}

bool TProjectSimSettings::ReadFromFile(TElementIterator& element, const ISFileName* projectFile) {
    if (!IsAtStart(element, "ProjectSettings")) {
        static TCheckSite site(
            "(elemI.NotAtTail() && (elemI.Current()->ElemType == TElement::START) && "
            "!strcmp(elemI.Current()->Name, \"ProjectSettings\") ) && "
            "\"TProjectSimSettings::ReadFromFile was called on an invalid element.\"",
            ProjectSettings::kSource, ProjectSettings::kReadInvalidElement);
        site.Report();
        return false;
    }
    SetProjectFileName(projectFile);
    const std::string current = element.Current()->GetAttribute("CurrentConfiguration");
    bool isDone = false;
    bool isListNew = false;
    for (++element; !isDone && element.NotAtTail();) {
        if (IsAtStart(element, "ProjectSettingsConfiguration")) {
            if (!ReadConfiguration(element, &isListNew)) return false;
            continue;
        }
        isDone = IsAtEnd(element, "ProjectSettings");
        ++element;
    }
    SelectCurrentConfig(current.c_str());
    return isDone;
}

// The configuration is empty before it is read, so that no default is mixed with the file.
bool TProjectSimSettings::ReadConfiguration(TElementIterator& element, bool* isListNew) {
    auto configuration = std::make_unique<TProjectSimConfig>(nullptr);
    if (!configuration->ReadFromFile(element, ProjectFile)) return false;
    AddMissingLanguages(*configuration, ProjectFile);
    if (!std::exchange(*isListNew, true)) Clear();
    AddConfiguration(configuration.release());
    return true;
}

void TProjectSimSettings::WriteToProjectFile(TXMLList* document) {
    if (!document) return;
    const std::string current = GetCurrentConfig() ? GetCurrentConfigName() : TitleOf(ProjectFile);
    PushStart(document, "ProjectSettings", {{"CurrentConfiguration", current}});
    for (TProjectSimConfig* configuration : GetConfigurations())
        configuration->WriteToProjectFile(document);
    PushEnd(document, "ProjectSettings");
}
