#include "settings/projectsimgeneralconfig.h"
#include "services/base/booltext.h"
#include "services/base/keeper.h"
#include "services/ini/propcache.h"
#include "services/xml/xmlstream.h"
#include "settings/inikeys.h"
#include "settings/settingnumber.h"

namespace {

/// A yes-or-no setting: the name of its attribute and of its key.
struct TFlag {
    const char* Name;
    bool (TProjectSimGeneralConfig::*Get)() const;
    void (TProjectSimGeneralConfig::*Set)(bool);
    bool MissingInElement;
    bool MissingInIni;
    enum { STORED, FIXED_OFF, FIXED_ON } InDiagram = STORED;
};
using TConfig = TProjectSimGeneralConfig;
constexpr TFlag kFirstFlags[] = {
    {"AddTopLevelSignals", &TConfig::GetAddTopLevelSignals, &TConfig::SetAddTopLevelSignals, true,
     true, TFlag::FIXED_OFF},
    {"ShowWatchSignals", &TConfig::GetShowWatchSignals, &TConfig::SetShowWatchSignals, true, true,
     TFlag::FIXED_ON},
    {"DumpWatchSignals", &TConfig::GetDumpWatchSignals, &TConfig::SetDumpWatchSignals, true, false},
    {"BreakAtTimeZeroAfterCompile", &TConfig::GetBreakAtTimeZeroAfterCompile,
     &TConfig::SetBreakAtTimeZeroAfterCompile, true, false, TFlag::FIXED_OFF},
    {"ClearLogFileBeforeCompile", &TConfig::GetClearLogFileBeforeCompile,
     &TConfig::SetClearLogFileBeforeCompile, true, true},
    {"AutoParseProject", &TConfig::GetAutoParseProject, &TConfig::SetAutoParseProject, true, false,
     TFlag::FIXED_OFF},
    {"GenerateTestBenchOnBuildProject", &TConfig::GetGenerateTestBenchOnBuildProject,
     &TConfig::SetGenerateTestBenchOnBuildProject, true, true},
    {"DisablePeriodicWaveformUpdate", &TConfig::GetDisableWaveformUpdate,
     &TConfig::SetDisableWaveformUpdate, false, false},
    {"CompileVerilogFiles", &TConfig::GetCompileVerilogFiles, &TConfig::SetCompileVerilogFiles,
     false, false},
    {"CompileVHDLFiles", &TConfig::GetCompileVHDLFiles, &TConfig::SetCompileVHDLFiles, false,
     false},
    {"CompileCppFiles", &TConfig::GetCompileCppFiles, &TConfig::SetCompileCppFiles, false, false},
};
constexpr TFlag kWatchFlags[] = {
    {"MakeConstantsWatchable", &TConfig::GetMakeConstantsWatchable,
     &TConfig::SetMakeConstantsWatchable, true, true},
    {"MakeArrayElementsWatchable", &TConfig::GetMakeArrayElementsWatchable,
     &TConfig::SetMakeArrayElementsWatchable, false, false},
};
constexpr TFlag kLastFlags[] = {
    {"EnableSimulatorDebugging", &TConfig::GetEnableSimulatorDebugging,
     &TConfig::SetEnableSimulatorDebugging, true, true},
};
constexpr const char* kLogFileName = "LogFileName";
constexpr const char* kArrayElementSize = "WatchableArrayElementSize";

template <std::size_t Size>
void PushFlags(TAttributeList& attributes, const TConfig& settings, const TFlag (&flags)[Size]) {
    for (const TFlag& flag : flags) attributes.PushBool(flag.Name, (settings.*flag.Get)());
}

template <std::size_t Size>
void ReadFlags(TConfig& settings, const TElement& element, const TFlag (&flags)[Size]) {
    for (const TFlag& flag : flags)
        (settings.*flag.Set)(element.GetAttributeBool(flag.Name, flag.MissingInElement));
}

template <std::size_t Size>
void WriteFlags(const TIniKeys& keys, const TConfig& settings, bool diagram,
                const TFlag (&flags)[Size]) {
    for (const TFlag& flag : flags)
        if (!diagram || flag.InDiagram == TFlag::STORED)
            keys.WriteBool(flag.Name, (settings.*flag.Get)());
}

template <std::size_t Size>
void ReadFlags(TConfig& settings, const TIniKeys& keys, bool diagram, const TFlag (&flags)[Size]) {
    for (const TFlag& flag : flags) {
        const bool isStored = !diagram || flag.InDiagram == TFlag::STORED;
        (settings.*flag.Set)(isStored ? keys.ReadBool(flag.Name, flag.MissingInIni)
                                      : flag.InDiagram == TFlag::FIXED_ON);
    }
}

}  // namespace

TProjectSimGeneralConfig::TProjectSimGeneralConfig(const TProjectSimGeneralConfig& other)
    : TProjectSimGeneralConfig(&other, 1) {}

TProjectSimGeneralConfig::TProjectSimGeneralConfig(const TProjectSimGeneralConfig& other, int)
    : TProjectSimGeneralConfig(&other, 1) {}

TProjectSimGeneralConfig::TProjectSimGeneralConfig(const TProjectSimGeneralConfig* other, int)
    : TProjectSimGeneralConfig() {
    if (other) *this = *other;
}

TProjectSimGeneralConfig& TProjectSimGeneralConfig::operator=(
    const TProjectSimGeneralConfig& other) = default;

TProjectSimGeneralConfig::~TProjectSimGeneralConfig() {
    ForgetKept(this);
}

void TProjectSimGeneralConfig::SetDefaults() {
    *this = TProjectSimGeneralConfig();
}

bool TProjectSimGeneralConfig::GetCompileLanguageFiles(THdlLanguage language) const {
    switch (language) {
        case LANGUAGE_VERILOG:
            return CompileVerilogFiles;
        case LANGUAGE_VHDL:
            return CompileVHDLFiles;
        case LANGUAGE_TESTBUILDER:
            return CompileCppFiles;
        default:
            return true;
    }
}

void TProjectSimGeneralConfig::WriteToProjectFile(TXMLList* document) const {
    if (!document) return;
    TAttributeList attributes;
    attributes.Psh(kLogFileName, LogFileName.c_str());
    PushFlags(attributes, *this, kFirstFlags);
    PushFlags(attributes, *this, kWatchFlags);
    attributes.Psh(kArrayElementSize, std::to_string(WatchableArrayElementSize).c_str());
    PushFlags(attributes, *this, kLastFlags);
    document->Psh("GeneralConfiguration", &attributes, TElement::START, nullptr);
    PushEnd(document, "GeneralConfiguration");
}

bool TProjectSimGeneralConfig::ReadFromFile(const TElement* element) {
    if (!element) return false;
    const char* logFileName = element->GetAttribute(kLogFileName);
    if (*logFileName) SetLogFileName(logFileName);
    ReadFlags(*this, *element, kFirstFlags);
    ReadFlags(*this, *element, kWatchFlags);
    WatchableArrayElementSize = LeadingNumber(element->GetAttribute(kArrayElementSize));
    ReadFlags(*this, *element, kLastFlags);
    return true;
}

void TProjectSimGeneralConfig::WriteToINI(const char* section, bool diagram) const {
    const TIniKeys keys(section, "");
    WriteFlags(keys, *this, diagram, kFirstFlags);
    keys.WriteText(kLogFileName, LogFileName);
    WriteFlags(keys, *this, diagram, kWatchFlags);
    keys.WriteText(kArrayElementSize, std::to_string(WatchableArrayElementSize).c_str());
    WriteFlags(keys, *this, diagram, kLastFlags);
}

void TProjectSimGeneralConfig::ReadFromINI(const char* section, bool diagram) {
    const TIniKeys keys(section, "");
    ReadFlags(*this, keys, diagram, kFirstFlags);
    keys.ReadText(kLogFileName, &LogFileName);
    ReadFlags(*this, keys, diagram, kWatchFlags);
    WatchableArrayElementSize =
        GetSystemPropCache()->GetPrivatePropInt(section ? section : "", kArrayElementSize, 0);
    ReadFlags(*this, keys, diagram, kLastFlags);
}
