#pragma once
#include <filesystem>
#include <string>
#include <string_view>

// Files of a run. Paths are in UTF-8.

/// As the standard library takes it.
std::filesystem::path NativePath(const std::string& path);

/// The bytes of a file; "" for one that cannot be read.
std::string ReadText(const std::string& path);
/// Writes the file under another name, and renames it when it is whole; makes its folder. Returns
/// why that failed; "" when it is done.
std::string WriteWhole(const std::string& path, std::string_view text);
/// The same for a text that the file does not hold yet: what is unchanged keeps its time.
std::string WriteNew(const std::string& path, std::string_view text);

/// The digest of a text, as 16 hexadecimal digits.
std::string DigestOf(std::string_view text);
/// A file name that tells `title` and differs when `whole` does.
std::string UniqueFileName(const std::string& title, const std::string& whole);
/// Writes the digest and the size of `source` into `output`, unless it holds them. Returns why that
/// failed; "" when it is done.
std::string WriteDigest(const std::string& source, const std::string& output);
