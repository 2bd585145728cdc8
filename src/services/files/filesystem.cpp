#include "services/files/filesystem.h"
#include <utility>

namespace {
IFileSystem* ReplacedSystem = nullptr;
}  // namespace

IFileSystem& GetFileSystem() {
    return ReplacedSystem ? *ReplacedSystem : GetNativeFileSystem();
}

IFileSystem* SetFileSystem(IFileSystem* system) {
    return std::exchange(ReplacedSystem, system);
}
