#include "services/files/filereplace.h"
#include "services/files/filelimit.h"
#include "services/files/filenameparts.h"
#include "services/files/filesave.h"
#include "services/files/filesystem.h"
#include "services/files/pathpieces.h"
#include "services/files/pathtext.h"

namespace {

std::string Canonical(const char* path) {
    return CanonicalPath(path ? path : "");
}

}  // namespace

TFileReadResult ReadWholeFile(const char* path, std::string* bytes, std::string* reason) {
    std::string unused;
    const TFileResult result =
        GetFileSystem().Read(Canonical(path), GetFileSizeLimit(), bytes ? bytes : &unused);
    if (result.IsDone()) return FILE_READ_DONE;
    if (reason) *reason = result.Reason;
    return result.Fault == TFileFault::Missing ? FILE_READ_MISSING : FILE_READ_FAILED;
}

bool ReplaceWholeFile(const char* path, std::string_view bytes, std::string* reason) {
    return SaveFile(Canonical(path), bytes, {}, reason);
}

bool KeepBackup(const char* path, std::string* reason) {
    const std::string original = Canonical(path);
    std::string bytes;
    return ReadWholeFile(path, &bytes, reason) == FILE_READ_DONE &&
           SaveFile(original + ".bak", bytes, original, reason);
}

bool MakeDirectoryOf(const char* path) {
    const std::string directory = SplitPath(Canonical(path)).Join(PART_DIRECTORY);
    if (LookAtFile(directory).IsDirectory) return true;
    const TPathPieces pieces = SplitPath(directory);
    for (std::size_t end = pieces.Drive.size() + pieces.Root.size(); end < directory.size(); ++end)
        // Those that exist already fail here; the last look tells the result.
        if (IsPathDelimiter(directory[end])) GetFileSystem().MakeFolder(directory.substr(0, end));
    return LookAtFile(directory).IsDirectory;
}
