#pragma once
#include "services/files/filelimit.h"
#include "tests/support/temporaryfolder.h"
#include <optional>

/// The path of a file of so many zeros that takes no room on the disk; nothing where the disk takes
/// no such file.
inline std::optional<std::string> WriteSparse(const TemporaryFolder& folder,
                                              const std::string& name, std::uint64_t size) {
    const std::string path = folder.Write(name, "");
    std::error_code error;
    std::filesystem::resize_file(std::filesystem::path(std::u8string(path.begin(), path.end())),
                                 size, error);
    if (error) return std::nullopt;
    return path;
}

inline constexpr std::uint64_t kTerabyte = std::uint64_t{1} << 40;

/// Another limit for the size of files, for its lifetime.
class FileSizeLimit {
public:
    explicit FileSizeLimit(std::uint64_t bytes) : Former(SetFileSizeLimit(bytes)) {}
    ~FileSizeLimit() { SetFileSizeLimit(Former); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    std::uint64_t Former;
};
