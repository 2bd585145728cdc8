#include "services/files/filebeside.h"
#include "services/base/fold.h"
#include "services/files/filesystem.h"
#include <new>

std::string GetNameBeside(std::string_view name) {
    return ".hdlbuildfile-" + std::to_string(HashIgnoringCase(name));
}

void RemoveFileBeside(IFileSystem& system, const std::string& path) noexcept {
    try {
        // What holds a file for a moment, such as a virus scanner, has let it go the second time.
        if (!system.Remove(path).IsDone()) system.Remove(path);
    } catch (const std::bad_alloc&) {
        // It is left over, which does no harm.
    }
}
