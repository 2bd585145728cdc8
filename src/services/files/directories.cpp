#include "services/files/directories.h"
#include "services/files/filenameparts.h"
#include "services/files/pathconventions.h"
#include "services/files/pathpieces.h"
#include "services/files/pathtext.h"
#include "services/files/process.h"
#include <optional>

namespace {

constexpr const char* kFolderName = "hdlbuildfile";

void (*beforeChange)() = nullptr;

std::string DirectoryText(const std::string& path) {
    const std::string canonical = CanonicalPath(path);
    return canonical.empty() || IsPathDelimiter(canonical.back())
               ? canonical
               : CanonicalPath(canonical + kPathDelimiter);
}

std::string ModuleDirectory() {
    return SplitPath(CanonicalPath(GetModuleFile())).Join(PART_DIRECTORY);
}

std::string ConfigurationDirectory() {
    return DirectoryText(JoinPath(CanonicalPath(GetConfigurationFolder()), kFolderName));
}

/// A directory that is found out when first asked for, unless somebody sets it.
struct TPlace {
    std::string (*FindOut)();
    std::optional<std::string> Directory = {};

    const char* GetDirectory() {
        if (!Directory) Directory = FindOut();
        return Directory->c_str();
    }
    void SetDirectory(const char* directory) {
        if (beforeChange) beforeChange();
        if (directory && *directory)
            Directory = DirectoryText(directory);
        else
            Directory.reset();
    }
};

// Never destroyed: what uses them is saved while the process ends.
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

void CallBeforeDirectoriesChange(void (*callback)()) {
    beforeChange = callback;
}
