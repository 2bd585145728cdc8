#include "simtools/simtoolsettings.h"

#include "services/files/pathpieces.h"
#include "services/names/utilfilename.h"

namespace {

std::string CanonicalPath(const char* path) {
    return TUtilFileName(path, 1).Canonical(false);
}

std::string TextOf(const char* text) {
    return text ? text : "";
}

}  // namespace

std::atomic<const std::string*> TSimToolSettings::LocalWrapperExecutablePath = nullptr;

void TSimToolSettings::SetExecutablePath(const char* path) {
    if (OnRemoteHost)
        SetRemoteExecutablePath(path);
    else
        SetLocalExecutablePath(path);
}

void TSimToolSettings::SetPliLibrary(const char* library) {
    if (OnRemoteHost)
        SetRemotePliLibrary(library);
    else
        SetLocalPliLibrary(library);
}

const char* TSimToolSettings::GetExecutablePath() const {
    return (OnRemoteHost ? RemoteExecutablePath : ExecutablePath).c_str();
}

const char* TSimToolSettings::GetPliLibrary() const {
    return (OnRemoteHost ? RemotePliLibrary : PliLibrary).c_str();
}

void TSimToolSettings::SetLocalExecutablePath(const char* path) {
    TBaseSimTool::SetExecutablePath(path);
}

void TSimToolSettings::SetLocalPliLibrary(const char* library) {
    TBaseSimTool::SetPliLibrary(library);
}

void TSimToolSettings::SetRemoteExecutablePath(const char* path) {
    RemoteExecutablePath = CanonicalPath(path);
}

void TSimToolSettings::SetRemotePliLibrary(const char* library) {
    RemotePliLibrary = TextOf(library);
}

const std::string& TSimToolSettings::GetWrapperExecutablePath() const {
    static const std::string none;
    if (OnRemoteHost) return WrapperExecutablePath;
    const std::string* const local = LocalWrapperExecutablePath;
    return local ? *local : none;
}

void TSimToolSettings::SetWrapperExecutablePath(const char* path) {
    WrapperExecutablePath = CanonicalPath(path);
}

void TSimToolSettings::SetLocalWrapperExecutablePath(const char* path) {
    LocalWrapperExecutablePath = &KeptPath(CanonicalPath(path));
}

void TSimToolSettings::SetTargetOS(const char* targetOS) {
    TargetOS = TextOf(targetOS);
}

void TSimToolSettings::SetRemoteHostName(const char* host) {
    RemoteHostName = TextOf(host);
}

void TSimToolSettings::SetRemoteUserName(const char* user) {
    RemoteUserName = TextOf(user);
}

void TSimToolSettings::SetRemotePath(const char* path) {
    RemotePath = CanonicalPath(path);
}

bool TSimToolSettings::IsOrvaneSimulator(TSimulatorType type) {
    return IsOwnHdlSimulator(type);
}
