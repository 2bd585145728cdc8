#pragma once
#include "simtools/basesimtool.h"
#include <atomic>

/// A simulator tool that may run on a remote host. The record's own executable path and PLI library
/// are the local ones; the flag SetOnRemoteHost() says whether the general accessors of
/// TBaseSimTool, and so the Tool element, mean these or the remote ones. Null texts count as empty
/// everywhere.
class HDLBUILDFILE_API TSimToolSettings : public TBaseSimTool {
public:
    TSimToolSettings() = default;
    TSimToolSettings(const TSimToolSettings& other) = default;
    TSimToolSettings& operator=(const TSimToolSettings& other) = default;
    ~TSimToolSettings() override = default;

    void SetExecutablePath(const char* path) override;
    void SetPliLibrary(const char* library) override;
    const char* GetExecutablePath() const override;
    const char* GetPliLibrary() const override;

    // These ignore the flag. Paths are stored in canonical form, PLI libraries as typed.
    const std::string& GetLocalExecutablePath() const { return ExecutablePath; }
    void SetLocalExecutablePath(const char* path);
    const std::string& GetLocalPliLibrary() const { return PliLibrary; }
    void SetLocalPliLibrary(const char* library);
    const std::string& GetRemoteExecutablePath() const { return RemoteExecutablePath; }
    void SetRemoteExecutablePath(const char* path);
    const std::string& GetRemotePliLibrary() const { return RemotePliLibrary; }
    void SetRemotePliLibrary(const char* library);

    /// On a remote host the record's own path, else the one that all local tools share.
    const std::string& GetWrapperExecutablePath() const;
    /// Stores the remote path, in canonical form.
    void SetWrapperExecutablePath(const char* path);
    /// Stores the path that all local tools share, on all threads, in canonical form.
    static void SetLocalWrapperExecutablePath(const char* path);

    bool GetSkipSourceFileReanalysis() const { return SkipSourceFileReanalysis; }
    void SetSkipSourceFileReanalysis(bool skip) { SkipSourceFileReanalysis = skip; }
    bool GetOnRemoteHost() const { return OnRemoteHost; }
    void SetOnRemoteHost(bool remote) { OnRemoteHost = remote; }

    const std::string& GetTargetOS() const { return TargetOS; }
    void SetTargetOS(const char* targetOS);
    const std::string& GetRemoteHostName() const { return RemoteHostName; }
    void SetRemoteHostName(const char* host);
    const std::string& GetRemoteUserName() const { return RemoteUserName; }
    void SetRemoteUserName(const char* user);
    const std::string& GetRemotePath() const { return RemotePath; }
    /// Stores the canonical form.
    void SetRemotePath(const char* path);

    /// IsOwnHdlSimulator(type).
    static bool IsOrvaneSimulator(TSimulatorType type);

private:
    // Null for an empty one; kept until the process ends, as callers hold references to it.
    static std::atomic<const std::string*> LocalWrapperExecutablePath;

    std::string TargetOS;
    std::string RemoteExecutablePath;
    std::string RemotePliLibrary;
    std::string WrapperExecutablePath;
    bool SkipSourceFileReanalysis = false;
    bool OnRemoteHost = false;
    std::string RemoteHostName;
    std::string RemoteUserName;
    std::string RemotePath;
};
