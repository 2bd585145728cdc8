#pragma once
#include "services/base/api.h"
#include <string>
#include <vector>

/// What a remote client sees of a settings object.
class ICorbaProxy;

/// What every remotely reachable object carries.
class HDLBUILDFILE_SHARED_TYPE ICorbaImpl {
public:
    virtual ~ICorbaImpl() = default;
    /// The proxy stays the caller's; null at first.
    virtual void SetCorbaProxy(ICorbaProxy* proxy) = 0;
    virtual ICorbaProxy* GetCorbaProxy() const = 0;
    /// Lets go of the proxy.
    virtual void BeingDeleted() = 0;
};

/// Holds the proxy pointer, which copies never take over.
class HDLBUILDFILE_API ACorbaImpl : public virtual ICorbaImpl {
public:
    ACorbaImpl() = default;
    ACorbaImpl(const ACorbaImpl&) {}
    ACorbaImpl& operator=(const ACorbaImpl&) { return *this; }
    void SetCorbaProxy(ICorbaProxy* proxy) override { Proxy = proxy; }
    ICorbaProxy* GetCorbaProxy() const override { return Proxy; }
    void BeingDeleted() override { Proxy = nullptr; }

private:
    ICorbaProxy* Proxy = nullptr;
};

class ICorbaProjectSimLanguageSettingsImpl;

/// The remote view of a settings configuration.
class HDLBUILDFILE_SHARED_TYPE ICorbaProjectSimSettingsConfigurationImpl
    : public virtual ICorbaImpl {
public:
    virtual std::string GetCorbaConfigurationName() const = 0;
    /// By the text of GetStringFromHdlLanguage; null when the configuration has none.
    virtual ICorbaProjectSimLanguageSettingsImpl* GetCorbaProjectSimLanguageSettings(
        const char* language) = 0;
};

/// The remote view of the general settings.
class HDLBUILDFILE_SHARED_TYPE ICorbaProjectSimGeneralSettingsImpl : public virtual ICorbaImpl {
public:
    virtual std::string GetCorbaSimulationLogFileName() const = 0;
    virtual bool GetAddTopLevelSignals() = 0;
    virtual bool GetShowWatchSignals() = 0;
    virtual bool GetDumpWatchSignals() = 0;
    virtual bool GetBreakAtTimeZeroAfterCompile() = 0;
    virtual bool GetClearLogFileBeforeCompile() = 0;
    virtual bool GetAutoParseProject() = 0;
    virtual bool GetGenerateTestBenchOnBuildProject() = 0;
    virtual bool GetDisableWaveformUpdate() = 0;
};

/// The remote view of one language's settings.
class HDLBUILDFILE_SHARED_TYPE ICorbaProjectSimLanguageSettingsImpl : public virtual ICorbaImpl {
public:
    virtual std::string GetCorbaSimulatorName() const = 0;
    virtual std::vector<std::string> GetCorbaIncludeDirectories() const = 0;
    virtual std::vector<std::string> GetCorbaLibraryDirectories() const = 0;
    virtual std::vector<std::string> GetCorbaLibraryExtensions() const = 0;
    virtual std::string GetCorbaBuildOptionsString() const = 0;
    virtual std::string GetCorbaLinkerOptionsString() const = 0;
    virtual std::string GetCorbaRuntimeOptionsString() const = 0;
};
