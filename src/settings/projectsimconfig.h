#pragma once
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include <cstddef>
#include <map>
#include <memory>

/// A named settings configuration: the general settings and, per language, those of Verilog, VHDL,
/// Bluespec Verilog, C++ and the test builder. Other languages are never stored in a file.
class HDLBUILDFILE_API TProjectSimConfig : public ICorbaProjectSimSettingsConfigurationImpl,
                                           public ACorbaImpl {
public:
    /// A nameless configuration with the defaults of ResetSettingsToDefaults.
    explicit TProjectSimConfig(bool debug);
    /// Copies name and settings; VCD file names become null, a remote proxy stays with its object.
    TProjectSimConfig(const TProjectSimConfig& other);
    /// A null pointer gives a configuration without name and languages.
    explicit TProjectSimConfig(const TProjectSimConfig* other);
    explicit TProjectSimConfig(std::nullptr_t) {}
    TProjectSimConfig& operator=(const TProjectSimConfig& other);
    ~TProjectSimConfig() override;

    std::string GetCorbaConfigurationName() const override { return Name; }
    ICorbaProjectSimLanguageSettingsImpl* GetCorbaProjectSimLanguageSettings(
        const char* language) override;

    /// Never null; lives until the name changes.
    const char* GetName() const { return Name.c_str(); }
    /// Null counts as empty.
    void SetName(const char* name);

    /// Part of the configuration, never null.
    TProjectSimGeneralConfig* GetGeneralConfiguration() { return &General; }
    const TProjectSimGeneralConfig* GetGeneralConfiguration() const { return &General; }
    /// Copies the settings; null is ignored.
    void SetGeneralConfiguration(const TProjectSimGeneralConfig& general) { General = general; }
    void SetGeneralConfiguration(const TProjectSimGeneralConfig* general);

    /// The configuration's own object, null when it has none for `language`.
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage language);
    const TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage language) const;
    /// Takes ownership and destroys the settings that `language` had; null is ignored. Settings of
    /// a language that is not stored are kept, but never written; those of a language that cannot
    /// have any are a failed check.
    void SetProjectSettings(THdlLanguage language, TProjectSimLanguageConfig* settings);
    /// Passed on to every language, whose directories become absolute against the file.
    void SetProjectFileName(const ISFileName* file);

    /// Forgets the name and every language, then resets to the defaults.
    void Reset(bool debug);
    /// Gives each stored language a fresh object with its defaults (earlier pointers dangle) and
    /// resets the general settings. The fresh objects have no project file: set it again.
    void ResetSettingsToDefaults(bool debug);
    /// Chooses the default simulator of `language` and resets directories and options to suit it.
    void ResetLanguageSettingsToDefaults(THdlLanguage language, bool debug);

    /// Reads a "ProjectSettingsConfiguration" element into the settings there are and moves past
    /// its END. A simulator that does not support its language is replaced by the language's
    /// default. False, with the settings read so far changed, when `element` is another one, a
    /// language is missing or malformed, or the document ends first.
    bool ReadFromFile(DListIterator<TElement*>& element, const ISFileName* projectFile);
    /// Pushes one "ProjectSettingsConfiguration" element.
    void WriteToProjectFile(TXMLList* document);

    /// Sections of the system's property cache whose names begin with the configuration's name. A
    /// language that the configuration does not hold is neither read nor written.
    void ReadFromINI();
    void WriteToINI() const;

private:
    bool ReadLanguage(DListIterator<TElement*>& element, const ISFileName* projectFile);

    std::string Name;
    TProjectSimGeneralConfig General;
    std::map<THdlLanguage, std::unique_ptr<TProjectSimLanguageConfig>> Languages;
};
