#pragma once
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// Files of a run. Paths are in UTF-8.

/// As the standard library takes it.
std::filesystem::path NativePath(const std::string& path);

/// The bytes of a file; "" for one that cannot be read.
std::string ReadText(const std::string& path);
/// Removes a file, which need not be there. Returns why that failed; "" when it is gone.
std::string RemoveFile(const std::string& path);
/// Removes a folder with all that is in it; it need not be there. Returns the same.
std::string RemoveFolder(const std::string& path);
/// Makes a folder, and those above it, unless it is there. Returns why there is none.
std::string MakeFolder(const std::string& path);
/// Adds the names of what is in a folder, which need not be there. Returns why they are not all
/// known.
std::string ListFiles(const std::string& folder, std::vector<std::string>* names);
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
