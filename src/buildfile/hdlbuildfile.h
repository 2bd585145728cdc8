#pragma once
#include "buildfile/hdlbuildfilereadresults.h"
#include "projectfiles/ibuildmanager.h"
#include "services/designdatabase/iprojectcomponent.h"
#include "services/hdl/timebase.h"
#include "services/names/environment.h"
#include "services/xml/xmllist.h"
#include <cstddef>
#include <deque>
#include <iosfwd>
#include <memory>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

class IFileName;
class IHdlSourceFile;
class ISFileName;
class TBaseSimTool;
class TComponentNameList;
class THdlBuildFileXMLList;
class TIHdlSourceFileList;
class TProjectSimGeneralConfig;
class TProjectSimLanguageConfig;
class TV2VTranslationOptionsList;
struct TBuildFileParts;

/// The model of one simulation build: its languages, source files, top-level components, settings,
/// simulators, translator options, libraries and variables, read from and written to a build file.
///
/// Null texts count as empty, null objects are ignored. A build without a file name reads and
/// writes nothing, is never outdated and takes relative names against the working directory.
///
/// Copies share source files, groups, compile list, components, simulators and language
/// configurations: a change through one shows in the other, and the last one frees them. What
/// ClearAll and Initialize let go of stays valid as long as the build file. General configuration,
/// translator options and language configurations are not deleted by a THdlBuildFile: the caller
/// frees them, or takes a TSimWrapHdlBuildFile, which owns its configurations. Reload() alone frees
/// what was read before; see there.
class HDLBUILDFILE_API THdlBuildFile : public IBuildManager, public IProjectComponent {
public:
    THdlBuildFile();
    /// Reads the file at once: GetReadResult() and GetReadError() tell how that went. Operations
    /// that a derived class overrides are not called yet.
    explicit THdlBuildFile(const ISFileName* name);
    THdlBuildFile(const THdlBuildFile& other);
    THdlBuildFile& operator=(const THdlBuildFile& other);
    ~THdlBuildFile() override;

    /// Gives every member its value in a new object. The former sub-objects stay valid, unused.
    void Initialize();
    /// Empties sources, groups, compile list, components, simulators and language configurations,
    /// and resets names of files, languages, versions, general configuration and GOF flag.
    /// Everything else stays: libraries, snapshot, defines, time base, translator options,
    /// variables, result.
    void ClearAll();
    /// Initialize() and a fresh read of the same file.
    ///
    /// All that the former reads made (sources, groups, tools, components, translator options,
    /// language and general configurations, also of a plain THdlBuildFile) stays valid until the
    /// second Reload() after this one is done, or this build file ends; with a copy of the build
    /// that still shares it, as long as that copy. Before that, callers must take such sources out
    /// of their own lists. Nothing changes for what callers made or handed in, nor for read
    /// configurations and translator options that were handed in to a build again.
    THdlBuildFileReadResults Reload();

    /// The handle must outlive the build file.
    void SetBuildFileName(const ISFileName* name) { BuildFileName = name; }
    const ISFileName* GetFileName() const { return BuildFileName; }
    /// The directory of the build file, with the delimiter that ends it.
    std::string GetProjectPath() const;

    THdlLanguage GetTopLanguage() const { return TopLanguage; }
    void SetTopLanguage(THdlLanguage language) { TopLanguage = language; }
    THdlLanguage GetHvlLanguage() const { return HvlLanguage; }
    void SetHvlLanguage(THdlLanguage language) { HvlLanguage = language; }
    THdlLanguage GetHdlLanguage() const { return HdlLanguage; }
    void SetHdlLanguage(THdlLanguage language) { HdlLanguage = language; }
    const char* GetQMVVersion() const { return QmvVersion.c_str(); }
    void SetQMVVersion(const char* version);
    const char* GetIdlVersion() const { return IdlVersion.c_str(); }
    void SetIdlVersion(const char* version);
    const ISFileName* GetSugarEngineDll() const { return SugarEngineDll; }
    void SetSugarEngineDll(const ISFileName* file) { SugarEngineDll = file; }
    void SetOutputDiagram(const ISFileName* file) { OutputDiagram = file; }
    const TTimeBase* GetTimeBase() const { return &TimeBase; }
    void SetTimeBase(const TTimeBase& timeBase) { TimeBase = timeBase; }
    std::string GetDestinationLibrary() const { return DestinationLibrary; }
    void SetDestinationLibrary(const char* library);
    std::string GetGenerationDestinationLibrary() const { return GenerationDestinationLibrary; }
    void SetGenerationDestinationLibrary(const char* library);
    std::string GetSnapshotName() const { return SnapshotName; }
    void SetSnapshotName(const char* name);
    /// Not stored in the build file, like the plus options.
    std::string GetVerilogUserDefines() const { return VerilogUserDefines; }
    void SetVerilogUserDefines(const char* defines);
    std::string GetVerilogOtherPlusOptions() const { return VerilogOtherPlusOptions; }
    void SetVerilogOtherPlusOptions(const char* options);
    bool IsSingleFileOnlyBuild() const { return SingleFileOnlyBuild; }
    void SetSingleFileOnlyBuild(bool on) { SingleFileOnlyBuild = on; }
    bool GetForceTopLevelComponents() const;
    void SetForceTopLevelComponents(bool force);
    /// Holds for the next Verilog command line only.
    void SetGOFBuildFileFlag(bool on) { IsGOFBuildFile = on; }
    void SetSimzBuildIsElabOnly(bool on) { IsElaborateOnly = on; }

    TProjectSimGeneralConfig* GetGeneralConfiguration() const override;
    /// Keeps the pointer; only a TSimWrapHdlBuildFile deletes it.
    void SetGeneralConfiguration(TProjectSimGeneralConfig* configuration);
    TV2VTranslationOptionsList* GetV2VOptions() const { return TranslationOptions; }
    /// Keeps the pointer.
    void SetV2VOptions(TV2VTranslationOptionsList* options);
    const TPseudoVariables* GetPseudoEnvironmentVariables() const { return &Variables; }
    TPseudoVariables* GetPseudoEnvironmentVariables() { return &Variables; }
    /// Adds the variables for the parts of `file`. They are absolute and saved with the build: a
    /// project that moved must set them anew.
    void AddPseudoEnvironmentVariablesForFilename(const IFileName* file, const char* prefix);

    /// Takes ownership; a tool that had the language stays valid.
    void AddSimTool(TBaseSimTool* tool);
    /// The tool of the language stays valid. False when there is none.
    bool RemoveSimTool(THdlLanguage language);
    /// Null when the language has none.
    TBaseSimTool* GetSimTool(THdlLanguage language);
    const TBaseSimTool* GetSimTool(THdlLanguage language) const;
    std::vector<THdlLanguage> GetSimToolLanguages() const;

    /// Stores a copy. A configuration that the language had is deleted: a THdlSourceFile that took
    /// it from this build follows to the copy, and so does the source being added. Sources of other
    /// classes must ask the build instead of keeping the pointer.
    void AddLanguageConfig(THdlLanguage language, const TProjectSimLanguageConfig* configuration);
    /// The same with the configuration and language of `source`, recorded for it.
    void AddLanguageConfigForSourceFile(IHdlSourceFile* source);
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage language) override;
    const TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage language) const;
    TProjectSimLanguageConfig* GetProjectLanguageConfigForFileRead(THdlLanguage language) override;
    std::string GetCompileOptions(THdlLanguage language) override;
    std::string GetElaboratorOptions(THdlLanguage language) override;
    std::string GetRuntimeOptions(THdlLanguage language) override;

    /// False for a duplicate.
    bool AddComponentName(const char* entity, const char* architecture, const char* library,
                          THdlLanguage language);
    /// Null when the language has none.
    TComponentNameList* GetComponentNameList(THdlLanguage language);
    const TComponentNameList* GetComponentNameList(THdlLanguage language) const;

    /// Puts `source` at the tail or head of its language's group, takes a copy of its configuration
    /// and notes its precompiled library group. The source stays the caller's. False when its name
    /// was in the group; the rest is done all the same.
    bool AddSourceFile(IHdlSourceFile* source, bool atHead);
    /// The source of that name in a group, else among the dependencies of listed sources, else a
    /// new one, which the build frees with itself unless the caller deletes it before. Relative
    /// names are taken against the build file's directory.
    IHdlSourceFile* CreateOrGetSourceFile(const char* fileName) override;
    /// Never null; the list keeps its place as long as the build.
    TIHdlSourceFileList* GetSourceFileGroup(THdlLanguage language);
    const TIHdlSourceFileList* GetSourceFileGroup(THdlLanguage language) const;
    /// The languages that have a group, also an empty one, in numeric order.
    std::vector<THdlLanguage> GetSourceFileLanguages() const;
    /// Whether the last groups read list a file that does not exist.
    bool GetFilesMissing() const;

    /// For VHDL the list that OrderFilesForCompile made, else the language's group. Never null.
    const TIHdlSourceFileList* GetFilesToCompile(THdlLanguage language) const;
    /// Lists the VHDL sources and all that they depend on, each behind its dependencies. In a cycle
    /// the source met first comes last. Does nothing for other languages.
    void OrderFilesForCompile(THdlLanguage language);
    /// The library names of the sources, in the order first met.
    const std::vector<std::string>& GetPrecompiledLibraryGroups() const;

    /// Whether the build file on disk differs from what was read. Saving counts as a difference.
    bool IsOutdated() const;
    /// Whether a source changed since it was compiled or, when it never was, since it was read.
    bool IsAtLeastOneSourceFileDirty() const;
    bool IsCompilationDirty() const;

    /// Reads the file into this object, on top of what it holds. A missing or malformed file
    /// changes nothing and gives READ_NO_ERROR: GetReadError() has the reason.
    THdlBuildFileReadResults ReadFromFile();
    THdlBuildFileReadResults GetReadResult() const { return ReadResult; }
    /// Why the last read found no document; without an error when it did.
    const TXMLReadError& GetReadError() const { return ReadError; }
    /// Whether the last read met an "HdlBuildFile" element. A document without one describes no
    /// build: of what it has, the reader takes what it knows.
    bool HasBuildElement() const { return BuildElementMet; }
    /// Static, never null.
    static const char* GetErrorString(THdlBuildFileReadResults result);
    /// Replaces the build file whole, with its lock (see TFileLock) held. False, with the old file
    /// as it was, when that fails. A file that was changed since this build read or saved it is
    /// replaced all the same, which is logged.
    bool WriteToFile();

    /// Pushes the whole document.
    void WriteFile(THdlBuildFileXMLList* document);
    void WriteTopLevelComponentNames(TXMLList* document);
    void WriteExternalConfigurations(TXMLList* document);
    void WriteGeneralSettings(TXMLList* document);
    void WriteProjectSettings(TXMLList* document);
    void WriteV2VOptions(TXMLList* document);
    void WriteSourceFileGroups(TXMLList* document, THdlLanguage topLanguage);
    void WritePseudoEnvironmentVariables(TXMLList* document);
    // Each section reader begins at its section's START element; false ends the read.
    bool ReadAttributes(DListIterator<TElement*>& element);
    bool ReadTopLevelComponentNames(DListIterator<TElement*>& element);
    bool ReadExternalConfigurations(DListIterator<TElement*>& element);
    bool ReadGeneralSettings(DListIterator<TElement*>& element);
    bool ReadProjectSettings(DListIterator<TElement*>& element);
    bool ReadVerilog2VhdlTranslationOptions(DListIterator<TElement*>& element);
    bool ReadVhdl2VerilogTranslationOptions(DListIterator<TElement*>& element);
    bool ReadOutputDiagram(DListIterator<TElement*>& element);
    bool ReadSourceFileGroups(DListIterator<TElement*>& element);
    bool ReadPseudoEnvironmentVariables(DListIterator<TElement*>& element);

    /// The option text of a Verilog simulator. A null language configuration gives ""; a null
    /// general configuration counts as one with the default settings.
    static std::string GetVerilogCommandLineOptions(const std::string& projectDirectory,
                                                    const TProjectSimLanguageConfig* language,
                                                    const TProjectSimGeneralConfig* general,
                                                    const char* extra, bool isGOFBuild);
    /// The same for this build, with its defines and plus options unless the GOF flag is set, which
    /// is cleared. "" without a Verilog configuration.
    std::string GetVerilogCommandLineOptions();
    /// Writes the options and, with no line end between, the Verilog sources: the last option runs
    /// into the first path unless it ends with a blank.
    void GenerateVerilogCommandFile(std::ostream& out);
    /// A line per source of the group that is not excluded, "-v " before library files.
    void AddSourceFilesToCommandFile(std::ostream& out, THdlLanguage language) const;

protected:
    /// Not called by the library.
    void SetFilesMissingOnRead(bool missing);
    void AddPrecompiledLibraryGroupNoDup(const char* name);
    /// Makes the library names anew from the group of the HDL language.
    void CompilePrecompiledLibraryGroup();

    /// Makes this object the owner of its general and language configurations.
    void OwnConfigurations();
    /// Deletes the configurations, or leaves that to the last copy.
    void DeleteConfigurations();

private:
    friend class THdlBuildFileXMLList;
    bool ReadTranslationOptions(DListIterator<TElement*>& element, bool isVerilog2Vhdl);
    void MakeTranslationOptions(bool isVerilog2Vhdl);
    std::string GetRelativeFileNameStr(const char* path) const;
    std::string ResolveAgainstProject(const char* path) const;
    const ISFileName* HandleOf(const char* path) const;
    TProjectSimLanguageConfig* GetOrMakeLanguageConfig(THdlLanguage language);
    TProjectSimGeneralConfig* GetOrMakeGeneralConfiguration();
    void DropLastPrecompiledLibraryGroup();
    void SetDefaults();
    void ForgetFilesAndLanguages();
    void TakeParts(const std::shared_ptr<TBuildFileParts>& parts);
    void LetGoOfParts();
    std::shared_ptr<TBuildFileParts> LeaveParts();
    void KeepOwnGeneralConfiguration();
    bool IsGeneralConfigurationNoted() const;
    void LetGoOfReloaded(std::size_t kept);

    std::shared_ptr<TBuildFileParts> Parts;
    // Held and never read again: the parts that Initialize and assignment let go of, and what
    // callers had put into those that Reload let go of.
    std::set<std::shared_ptr<const void>> Former;
    // What the last Reloads let go of, the latest at the end.
    std::deque<std::shared_ptr<TBuildFileParts>> Reloaded;
    TV2VTranslationOptionsList* TranslationOptions = nullptr;
    bool IsGOFBuildFile = false;
    bool IsElaborateOnly = false;
    bool SingleFileOnlyBuild = false;
    std::vector<std::string> PrecompiledLibraryGroups;
    std::unordered_set<std::string> PrecompiledLibraryNames;  // the same, for the look-up
    const ISFileName* BuildFileName = nullptr;
    THdlLanguage TopLanguage = LANGUAGE_NONE;
    THdlLanguage HvlLanguage = LANGUAGE_NONE;
    THdlLanguage HdlLanguage = LANGUAGE_NONE;
    std::string QmvVersion;
    std::string IdlVersion;
    TTimeBase TimeBase{1};
    std::string VerilogUserDefines;
    std::string VerilogOtherPlusOptions;
    std::string GenerationDestinationLibrary;
    std::string DestinationLibrary;
    std::string SnapshotName;
    const ISFileName* OutputDiagram = nullptr;
    const ISFileName* SugarEngineDll = nullptr;
    THdlBuildFileReadResults ReadResult = READ_NO_ERROR;
    TXMLReadError ReadError;
    TPseudoVariables Variables;
    TProjectSimGeneralConfig* GeneralConfiguration = nullptr;
    bool OwnsConfigurations = false;
    bool BuildElementMet = false;  // set by the document that hands over its sections
};

/// Appends `path` in the form for command files: relative to `directory` when it is there or below,
/// with forward slashes, and in double quotes when it holds a blank.
HDLBUILDFILE_API void AddRelativePath(const char* directory, const char* path, std::string* out);
