#pragma once
#include "services/files/filelimit.h"
#include <optional>
#include <string>
#include <string_view>

/// The number of bytes of "4096", "64K", "20m" or "2G", whose units are 1,024 times each other;
/// nothing for any other text and for more than 64 bits hold.
std::optional<std::uint64_t> ParseSize(std::string_view text);

/// "" or why an option takes no such text.
std::string ComplaintOfSize(const std::string& text);

/// Limits the size of every file that is read, for its lifetime, to a size that ParseSize takes;
/// any other text, such as "", leaves the limit as it is.
class TSizeLimit {
public:
    explicit TSizeLimit(std::string_view text);
    ~TSizeLimit() { SetFileSizeLimit(Former); }
    TSizeLimit(const TSizeLimit&) = delete;
    TSizeLimit& operator=(const TSizeLimit&) = delete;

private:
    std::uint64_t Former = GetFileSizeLimit();
};
