#include "sibling/fileservices/directories.h"
#include "sibling/fileservices/host.h"
#include "sibling/fileservices/isfilename.h"
#include "sibling/fileservices/pathpieces.h"
#include "sibling/fileservices/pathtext.h"
#include "sibling/utilities/propcache.h"
#include <optional>

namespace {

constexpr const char* kFolderName = "hdlbuildfile";
constexpr const char* kIniFileName = "hdlbuildfile.ini";

std::string DirectoryText(const std::string& path) {
    const std::string canonical = CanonicalPath(path);
    return canonical.empty() || IsPathDelimiter(canonical.back())
               ? canonical
               : CanonicalPath(canonical + Host::kDelimiter);
}

std::string ModuleDirectory() {
    return SplitPath(CanonicalPath(Host::ModuleFile())).Join(PART_DIRECTORY);
}

std::string ConfigurationDirectory() {
    return DirectoryText(JoinPath(CanonicalPath(Host::ConfigurationFolder()), kFolderName));
}

/// A directory that is found out when first asked for, unless somebody sets it.
struct TPlace {
    std::string (*FindOut)();
    std::optional<std::string> Directory = {};
    /// Null stands for the file of kIniFileName in the directory.
    const ISFileName* IniFile = nullptr;

    const char* GetDirectory() {
        if (!Directory) Directory = FindOut();
        return Directory->c_str();
    }
    void SetDirectory(const char* directory) {
        // What was changed so far belongs to the present files.
        ResetSystemPropCache();
        if (directory && *directory)
            Directory = DirectoryText(directory);
        else
            Directory.reset();
    }
    const ISFileName* GetIniFile() {
        if (IniFile) return IniFile;
        return ISFileName::NewISFileName(JoinPath(GetDirectory(), kIniFileName).c_str());
    }
    void SetIniFile(const char* path) {
        ResetSystemPropCache();
        IniFile = path && *path ? ISFileName::NewISFileName(path) : nullptr;
    }
};

// Never destroyed: the property cache is saved while the process ends.
TPlace& Home() {
    static TPlace& place = *new TPlace{ModuleDirectory};
    return place;
}

TPlace& ApplicationData() {
    static TPlace& place = *new TPlace{ConfigurationDirectory};
    return place;
}

}  // namespace

const char* GetOrvaneHomeDirectory() {
    return Home().GetDirectory();
}
const char* GetTalveraAppDataDirectory() {
    return ApplicationData().GetDirectory();
}
void SetOrvaneHomeDirectory(const char* directory) {
    Home().SetDirectory(directory);
}
void SetTalveraAppDataDirectory(const char* directory) {
    ApplicationData().SetDirectory(directory);
}

const ISFileName* GetIniFile() {
    return ApplicationData().GetIniFile();
}
const ISFileName* GetSystemIniFile() {
    return Home().GetIniFile();
}
void SetIniFile(const char* path) {
    ApplicationData().SetIniFile(path);
}
void SetSystemIniFile(const char* path) {
    Home().SetIniFile(path);
}
