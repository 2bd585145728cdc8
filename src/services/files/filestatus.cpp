#include "services/files/filestatus.h"
#include "services/files/filesystem.h"
#include <atomic>

namespace {
std::atomic<std::uint64_t> LookCount = 0;

void CountLook() {
    LookCount.fetch_add(1, std::memory_order_relaxed);
}

constexpr std::int64_t kNanosecondsPerWordUnit =
    sizeof(unsigned long) >= sizeof(std::int64_t) ? 1 : 1'000'000'000;
}  // namespace

TFileStatus LookAtFile(const std::string& path) {
    CountLook();
    return GetFileSystem().GetStatus(path);
}

bool LookWhetherReadable(const std::string& path) {
    CountLook();
    return GetFileSystem().CanRead(path);
}

bool LookWhetherWritable(const std::string& path) {
    CountLook();
    return GetFileSystem().CanWrite(path);
}

std::uint64_t CountOfFileLooks() {
    return LookCount;
}

unsigned long TimeWordOf(const TFileStatus& status) {
    if (!status.Exists) return 0;
    const auto word = static_cast<unsigned long>(status.Time / kNanosecondsPerWordUnit);
    // Some systems unpack files with the time 0, which must not look like a missing file.
    return word == 0 ? 1 : word;
}
