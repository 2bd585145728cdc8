#include "simtools/simtoolsettings.h"

#include "services/names/utilfilename.h"

namespace {

std::string CanonicalPath(const char* path) {
    return TUtilFileName(path, 1).Canonical(false);
}

std::string TextOf(const char* text) {
    return text ? text : "";
}

}  // namespace

std::string TSimToolSettings::LocalWrapperExecutablePath;

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
    return OnRemoteHost ? WrapperExecutablePath : LocalWrapperExecutablePath;
}

void TSimToolSettings::SetWrapperExecutablePath(const char* path) {
    WrapperExecutablePath = CanonicalPath(path);
}

void TSimToolSettings::SetLocalWrapperExecutablePath(const char* path) {
    LocalWrapperExecutablePath = CanonicalPath(path);
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
