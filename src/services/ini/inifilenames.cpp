#include "services/ini/inifilenames.h"
#include "services/files/directories.h"
#include "services/files/pathpieces.h"
#include "services/ini/propcache.h"
#include "services/names/isfilename.h"
#include <atomic>

namespace {

constexpr const char* kIniFileName = "hdlbuildfile.ini";

// Null means the file of kIniFileName in its directory.
std::atomic<const ISFileName*> currentUserFile = nullptr;
std::atomic<const ISFileName*> currentSystemFile = nullptr;

const ISFileName* FileOrBuiltIn(const ISFileName* file, const char* directory) {
    return file ? file : ISFileName::NewISFileName(JoinPath(directory, kIniFileName).c_str());
}

void SetFile(std::atomic<const ISFileName*>* file, const char* path) {
    // What was changed so far belongs to the present files.
    ResetSystemPropCache();
    *file = path && *path ? ISFileName::NewISFileName(path) : nullptr;
    // Another thread may have read the former ones again meanwhile.
    ResetSystemPropCache();
}

}  // namespace

const ISFileName* GetIniFile() {
    return FileOrBuiltIn(currentUserFile, GetTalveraAppDataDirectory());
}
const ISFileName* GetSystemIniFile() {
    return FileOrBuiltIn(currentSystemFile, GetOrvaneHomeDirectory());
}
void SetIniFile(const char* path) {
    SetFile(&currentUserFile, path);
}
void SetSystemIniFile(const char* path) {
    SetFile(&currentSystemFile, path);
}
