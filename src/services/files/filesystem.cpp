#include "services/files/filesystem.h"
#include <atomic>

namespace {
std::atomic<IFileSystem*> ReplacedSystem = nullptr;
}  // namespace

IFileSystem& GetFileSystem() {
    IFileSystem* const replaced = ReplacedSystem;
    return replaced ? *replaced : GetNativeFileSystem();
}

IFileSystem* SetFileSystem(IFileSystem* system) {
    return ReplacedSystem.exchange(system);
}
