#pragma once
#include "services/base/corbaimpl.h"
#include "services/base/dlist.h"
#include "services/base/mystring.h"
#include "services/hdl/simulatortype.h"
#include "settings/simprojectdelaytype.h"
#include "settings/uniquetextlist.h"

class ISFileName;
class TElement;
class TXMLList;
struct TLanguageSetting;

/// A file name that copies do not take over, and whose target becomes null. One dump file belongs
/// to one configuration: two would write over each other.
struct TUncopiedFileName {
    TUncopiedFileName() = default;
    TUncopiedFileName(const TUncopiedFileName&) {}
    TUncopiedFileName& operator=(const TUncopiedFileName& other) {
        if (this != &other) File = nullptr;
        return *this;
    }
    const ISFileName* File = nullptr;
};

/// The settings of one configuration for one HDL language: the simulator, the directories and
/// extensions that it searches, the options of its three steps, and a handful of flags.
///
/// Null texts count as empty. A returned text lives until the setting changes or the object dies; a
/// text of the object itself may be passed to its setters. File handles stay their owner's.
class HDLBUILDFILE_API TProjectSimLanguageConfig : public ICorbaProjectSimLanguageSettingsImpl,
                                                   public ACorbaImpl {
public:
    /// No simulator, empty lists and options, library "work". The argument is reserved: no effect.
    explicit TProjectSimLanguageConfig(int = 1) {}
    /// Copies as assignment does. Null gives the values of the default constructor.
    /// `reserved` has no effect.
    TProjectSimLanguageConfig(const TProjectSimLanguageConfig& other);
    TProjectSimLanguageConfig(const TProjectSimLanguageConfig& other, int reserved);
    TProjectSimLanguageConfig(const TProjectSimLanguageConfig* other, int reserved);
    /// Copies every setting but the VCD file name, which becomes null; a remote proxy stays with
    /// its object.
    TProjectSimLanguageConfig& operator=(const TProjectSimLanguageConfig& other);
    ~TProjectSimLanguageConfig() override;

    std::string GetCorbaSimulatorName() const override;
    std::vector<std::string> GetCorbaIncludeDirectories() const override;
    std::vector<std::string> GetCorbaLibraryDirectories() const override;
    std::vector<std::string> GetCorbaLibraryExtensions() const override;
    std::string GetCorbaBuildOptionsString() const override;
    std::string GetCorbaLinkerOptionsString() const override;
    std::string GetCorbaRuntimeOptionsString() const override;

    /// The file that relative directories are resolved against; null when there is none.
    const ISFileName* GetProjectFileName() const { return ProjectFile; }
    /// Stores `file`. Unless `keepDirectories` is set or `file` is null or the blank name, relative
    /// directories become absolute against it; entries that then coincide collapse to the first.
    void SetProjectFileName(const ISFileName* file, bool keepDirectories = false);
    void UpdateIncludeDirectoriesToCustom();
    void UpdateLibraryDirectoriesToCustom();
    /// Gives an empty include list one entry: "./" when `current` is set, else the project file's
    /// directory (none without a project file).
    void InitializeDefaultIncludeDirectory(bool current);

    // The lists. An Add gives false, with the list unchanged, when an equal text is listed (letter
    // case matters), and for a directory that is null. With `resolve`, a directory without
    // environment reference becomes absolute against the project file, if there is one; a directory
    // already absolute gets a final backslash unless it ends with a delimiter.
    bool AddIncludeDirectory(const char* directory, bool resolve);
    bool AddLibraryDirectory(const char* directory, bool resolve);
    bool AddLibraryExtension(const char* extension);
    /// Erases the directory that `directory` resolves to against the project file, so an entry that
    /// was stored unresolved cannot be named. Without a project file the text is used as it is.
    /// False when it is not listed. (The spelling is part of the interface.)
    bool RemoveIncludeDirectoy(const char* directory);
    bool RemoveLibraryDirectory(const char* directory);
    bool RemoveLibraryExtension(const char* extension);
    void ClearIncludeDirectory();
    void ClearLibraryDirectory();
    void ClearLibraryExtension();
    const std::vector<std::string>& GetIncludeDirectories() const;
    const std::vector<std::string>& GetLibraryDirectories() const;
    const std::vector<std::string>& GetLibraryExtensions() const;

    TSimulatorType GetTool() const { return Tool; }
    /// Changes nothing else: ResetDefaultSettingsOptions gives the options that suit the simulator.
    void SetTool(TSimulatorType tool);
    /// Sets the option texts to the defaults of `language`, the present simulator and `debug`; the
    /// runtime options are always empty.
    void ResetDefaultSettingsOptions(THdlLanguage language, bool debug);

    bool IsUseTopLevelProjectSettings() const { return UseTopLevelProjectSettings; }
    void SetUseTopLevelProjectSettings(bool on) { UseTopLevelProjectSettings = on; }
    bool IsVhdl93DefaultSettingsEnabled() const { return Vhdl93DefaultSettingsEnabled; }
    void SetVhdl93DefaultSettingsEnabled(bool on) { Vhdl93DefaultSettingsEnabled = on; }
    TSimProjectDelayType GetDelayType() const { return DelayType; }
    void SetDelayType(TSimProjectDelayType type) { DelayType = type; }
    bool GetPliDriven() const { return PliDriven; }
    bool IsPliDriven() const { return PliDriven; }
    void SetPliDriven(bool on) { PliDriven = on; }
    bool GetVcdExport() const { return VcdExport; }
    void SetVcdExport(bool on) { VcdExport = on; }
    const ISFileName* GetVcdFileName() const { return VcdFileName.File; }
    void SetVcdFileName(const ISFileName* file) { VcdFileName.File = file; }
    const char* GetOutputFileName() const { return OutputFileName.c_str(); }
    void SetOutputFileName(const char* name) { OutputFileName = TMyString(name).Str(); }
    bool IsRunOutputFileExecutable() const { return RunOutputFileExecutable; }
    void SetRunOutputFileExecutable(bool on) { RunOutputFileExecutable = on; }
    bool IsForceTopLevel() const { return ForceTopLevel; }
    void SetForceTopLevel(bool on) { ForceTopLevel = on; }
    const char* GetAdditionalExtensions() const { return AdditionalExtensions; }
    void SetAdditionalExtensions(const char* text) { AdditionalExtensions = TMyString(text); }
    TMyString GetActiveSnapshotName() const { return ActiveSnapshotName; }
    void SetActiveSnapshotName(const char* name) { ActiveSnapshotName = TMyString(name); }
    const char* GetDestinationLibraryName() const { return DestinationLibraryName; }
    void SetDestinationLibraryName(const char* name) { DestinationLibraryName = TMyString(name); }
    /// What was set or read, and what writing build files has appended to it since then.
    const char* GetBuildOptions() const { return BuildOptions; }
    void SetBuildOptions(const char* options);
    const char* GetLinkerOptions() const { return LinkerOptions; }
    void SetLinkerOptions(const char* options) { LinkerOptions = TMyString(options); }
    const char* GetRuntimeOptions() const { return RuntimeOptions; }
    void SetRuntimeOptions(const char* options) { RuntimeOptions = TMyString(options); }

    /// Reads a "LanguageSettings" element and moves past its END. Directories become absolute
    /// against `projectFile`, which is stored. Extensions join those listed, a directory list is
    /// replaced whole, and what the element does not mention stays. False, with the settings read
    /// so far changed, when `element` is another one, when a list element is empty or malformed,
    /// and when the document ends first.
    bool ReadFromFile(DListIterator<TElement*>& element, const ISFileName* projectFile);
    /// Pushes the content of a "LanguageSettings" element, without its START and END. Directories
    /// are written relative to the directory of the document's file. `buildFileForm` writes the
    /// options in the language of the simulator, and changes the stored options with every such
    /// write: with `lineDebug` the linker options gain the line-debug option; where no C++ compiler
    /// is named, those of the environment's 64-bit simulators gain the option for GCC, once; for
    /// the simulators whose build options hold the linker options too, the former gain the latter.
    /// What is written for Verilog and VHDL starts from the build options as they were last set or
    /// read, so that repeated writes give the same texts. With `forceMode3` the environment's own
    /// simulators get the linker options in the place of the build options, and options remain in
    /// the step that they were typed for.
    void WriteToProjectFile(TXMLList* document, THdlLanguage language, bool buildFileForm,
                            bool lineDebug, bool forceMode3);

    /// How files in the directory `base` hold `directory`: relative to it, but as it is when it
    /// holds an environment reference, lies on another drive, or `base` is empty.
    static std::string GetWrittenDirectory(const std::string& directory, const std::string& base);

    /// The keys of a section of the system's property cache, those of `language` only; every key
    /// but "SimTool" begins with the simulator's name and "_" unless `bareKeys` is set. Reading the
    /// test builder's settings writes its two directory lists instead of reading them.
    void ReadFromINI(const char* section, THdlLanguage language, bool bareKeys);
    void WriteToINI(const char* section, THdlLanguage language, bool bareKeys) const;

private:
    bool AddDirectory(TUniqueTextList& list, const char* directory, bool resolve) const;
    bool RemoveDirectory(TUniqueTextList& list, const char* directory) const;
    void ResolveDirectories(TUniqueTextList& list) const;
    void ReadTool(const std::string& text);
    friend HDLBUILDFILE_API const std::vector<TLanguageSetting>& GetLanguageSettings();
    void AddBuildFileOptions(THdlLanguage language, bool lineDebug);
    TProjectSimLanguageConfig WithConvertedOptions(THdlLanguage language, bool forceMode3) const;

    const ISFileName* ProjectFile = nullptr;
    bool UseTopLevelProjectSettings = true;
    TSimulatorType Tool = SIM_NONE;
    TUniqueTextList IncludeDirectories;
    TUniqueTextList LibraryDirectories;
    TUniqueTextList LibraryExtensions;
    bool Vhdl93DefaultSettingsEnabled = true;
    TSimProjectDelayType DelayType = DELAY_TYPE_TYPICAL;
    bool PliDriven = false;
    bool VcdExport = false;
    TUncopiedFileName VcdFileName;
    std::string OutputFileName;
    bool RunOutputFileExecutable = false;
    bool ForceTopLevel = false;
    TMyString AdditionalExtensions;
    TMyString ActiveSnapshotName;
    TMyString DestinationLibraryName = "work";
    TMyString BuildOptions;
    TMyString TypedBuildOptions;  // BuildOptions without what writing a build file appended
    TMyString LinkerOptions;
    TMyString RuntimeOptions;
};
