#include "services/ini/inifilenames.h"
#include "services/files/directories.h"
#include "services/files/pathpieces.h"
#include "services/ini/propcache.h"
#include "services/names/isfilename.h"

namespace {

constexpr const char* kIniFileName = "hdlbuildfile.ini";

// Null means the file of kIniFileName in its directory.
const ISFileName* currentUserFile = nullptr;
const ISFileName* currentSystemFile = nullptr;

const ISFileName* FileOrBuiltIn(const ISFileName* file, const char* directory) {
    return file ? file : ISFileName::NewISFileName(JoinPath(directory, kIniFileName).c_str());
}

void SetFile(const ISFileName** file, const char* path) {
    // What was changed so far belongs to the present files.
    ResetSystemPropCache();
    *file = path && *path ? ISFileName::NewISFileName(path) : nullptr;
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
