#pragma once
#include "services/base/corbaimpl.h"
#include "services/base/mystring.h"
#include "services/hdl/hdllanguage.h"

class TElement;
class TXMLList;

/// The log file of a simulation whose configuration names none.
inline constexpr const char* DEFAULT_LOG_FILE_NAME = "simulation.log";

/// The settings of one configuration that do not depend on the language: the log file, what the
/// simulator shows and records, what happens around a compile, and which kinds of source take part.
///
/// Null texts count as empty. A returned text lives until the setting changes or the object dies.
class HDLBUILDFILE_API TProjectSimGeneralConfig : public ICorbaProjectSimGeneralSettingsImpl,
                                                  public ACorbaImpl {
public:
    /// The values of SetDefaults(). The argument is reserved: no effect.
    explicit TProjectSimGeneralConfig(int = 1) {}
    /// Copies every setting; a remote proxy stays with its object. Null gives the defaults.
    /// `reserved` has no effect.
    TProjectSimGeneralConfig(const TProjectSimGeneralConfig& other);
    TProjectSimGeneralConfig(const TProjectSimGeneralConfig& other, int reserved);
    TProjectSimGeneralConfig(const TProjectSimGeneralConfig* other, int reserved);
    TProjectSimGeneralConfig& operator=(const TProjectSimGeneralConfig& other);
    ~TProjectSimGeneralConfig() override;

    void SetDefaults();

    /// Whether the sources of `language` are compiled: the Verilog, the VHDL or, for the test
    /// builder, the C++ flag; true for every other language.
    bool GetCompileLanguageFiles(THdlLanguage language) const;

    /// Pushes one "GeneralConfiguration" element. `document` stays the caller's.
    void WriteToProjectFile(TXMLList* document) const;
    /// Takes the settings from the attributes of `element`. A missing "DumpWatchSignals",
    /// "BreakAtTimeZeroAfterCompile" or "AutoParseProject" turns that setting on, unlike
    /// SetDefaults: older files rely on it. False, without a change, only for null.
    bool ReadFromFile(const TElement* element);

    /// The keys of a section of the system's property cache. `diagram` leaves out the four settings
    /// that diagrams fix; reading then sets them to the fixed values.
    void WriteToINI(const char* section, bool diagram) const;
    void ReadFromINI(const char* section, bool diagram);

    std::string GetCorbaSimulationLogFileName() const override { return LogFileName.Str(); }
    bool GetAddTopLevelSignals() override { return AddTopLevelSignals; }
    bool GetShowWatchSignals() override { return ShowWatchSignals; }
    bool GetDumpWatchSignals() override { return DumpWatchSignals; }
    bool GetBreakAtTimeZeroAfterCompile() override { return BreakAtTimeZeroAfterCompile; }
    bool GetClearLogFileBeforeCompile() override { return ClearLogFileBeforeCompile; }
    bool GetAutoParseProject() override { return AutoParseProject; }
    bool GetGenerateTestBenchOnBuildProject() override { return GenerateTestBenchOnBuildProject; }
    bool GetDisableWaveformUpdate() override { return DisableWaveformUpdate; }

    const char* GetSimulationLogFileName() const { return LogFileName; }
    bool GetAddTopLevelSignals() const { return AddTopLevelSignals; }
    bool GetShowWatchSignals() const { return ShowWatchSignals; }
    bool GetDumpWatchSignals() const { return DumpWatchSignals; }
    bool GetBreakAtTimeZeroAfterCompile() const { return BreakAtTimeZeroAfterCompile; }
    bool GetClearLogFileBeforeCompile() const { return ClearLogFileBeforeCompile; }
    bool GetAutoParseProject() const { return AutoParseProject; }
    bool GetGenerateTestBenchOnBuildProject() const { return GenerateTestBenchOnBuildProject; }
    bool GetDisableWaveformUpdate() const { return DisableWaveformUpdate; }
    bool GetCompileVerilogFiles() const { return CompileVerilogFiles; }
    bool GetCompileVHDLFiles() const { return CompileVHDLFiles; }
    bool GetCompileCppFiles() const { return CompileCppFiles; }
    bool GetMakeConstantsWatchable() const { return MakeConstantsWatchable; }
    bool GetMakeArrayElementsWatchable() const { return MakeArrayElementsWatchable; }
    /// The elements of an array can be watched up to this number of elements.
    int GetWatchableArrayElementSize() const { return WatchableArrayElementSize; }
    bool GetEnableSimulatorDebugging() const { return EnableSimulatorDebugging; }

    void SetLogFileName(const char* name) { LogFileName = TMyString(name); }
    void SetAddTopLevelSignals(bool on) { AddTopLevelSignals = on; }
    void SetShowWatchSignals(bool on) { ShowWatchSignals = on; }
    void SetDumpWatchSignals(bool on) { DumpWatchSignals = on; }
    void SetBreakAtTimeZeroAfterCompile(bool on) { BreakAtTimeZeroAfterCompile = on; }
    void SetClearLogFileBeforeCompile(bool on) { ClearLogFileBeforeCompile = on; }
    void SetAutoParseProject(bool on) { AutoParseProject = on; }
    void SetGenerateTestBenchOnBuildProject(bool on) { GenerateTestBenchOnBuildProject = on; }
    void SetDisableWaveformUpdate(bool on) { DisableWaveformUpdate = on; }
    void SetCompileVerilogFiles(bool on) { CompileVerilogFiles = on; }
    void SetCompileVHDLFiles(bool on) { CompileVHDLFiles = on; }
    void SetCompileCppFiles(bool on) { CompileCppFiles = on; }
    void SetMakeConstantsWatchable(bool on) { MakeConstantsWatchable = on; }
    void SetMakeArrayElementsWatchable(bool on) { MakeArrayElementsWatchable = on; }
    void SetWatchableArrayElementSize(int size) { WatchableArrayElementSize = size; }
    void SetEnableSimulatorDebugging(bool on) { EnableSimulatorDebugging = on; }

private:
    TMyString LogFileName = DEFAULT_LOG_FILE_NAME;
    bool AddTopLevelSignals = true;
    bool ShowWatchSignals = true;
    bool DumpWatchSignals = false;
    bool BreakAtTimeZeroAfterCompile = false;
    bool ClearLogFileBeforeCompile = true;
    bool AutoParseProject = false;
    bool GenerateTestBenchOnBuildProject = true;
    bool DisableWaveformUpdate = false;
    bool CompileVerilogFiles = false;
    bool CompileVHDLFiles = false;
    bool CompileCppFiles = false;
    bool MakeConstantsWatchable = true;
    bool MakeArrayElementsWatchable = false;
    int WatchableArrayElementSize = 0;
    bool EnableSimulatorDebugging = true;
};
