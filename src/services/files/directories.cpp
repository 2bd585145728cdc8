#include "services/files/directories.h"
#include "services/files/filenameparts.h"
#include "services/files/pathconventions.h"
#include "services/files/pathpieces.h"
#include "services/files/pathtext.h"
#include "services/files/process.h"
#include <atomic>
#include <mutex>

namespace {

constexpr const char* kFolderName = "hdlbuildfile";

std::atomic<void (*)()> directoriesChange = nullptr;

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
class TPlace {
public:
    explicit TPlace(std::string (*findOut)()) : FindOut(findOut) {}

    const char* GetDirectory() {
        const std::lock_guard guard(Lock);
        if (!Directory) Directory = KeptPathText(FindOut());
        return Directory;
    }
    void SetDirectory(const char* directory) {
        // Another thread may hold the former text, so it stays.
        const char* const text =
            directory && *directory ? KeptPathText(DirectoryText(directory)) : nullptr;
        TellChange();
        Set(text);
        TellChange();
    }

private:
    static void TellChange() {
        if (const auto call = directoriesChange.load()) call();
    }
    void Set(const char* text) {
        const std::lock_guard guard(Lock);
        Directory = text;
    }

    std::string (*FindOut)();
    std::mutex Lock;
    const char* Directory = nullptr;
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

void CallWhenDirectoriesChange(void (*callback)()) {
    directoriesChange = callback;
}
