#pragma once
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
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

/// The digest of no bytes.
inline constexpr std::uint64_t kEmptyDigest = 0xcbf29ce484222325u;

/// A digest, as 16 hexadecimal digits, of the texts that were added and of where each ends.
class TDigest {
public:
    void Add(std::string_view text);
    std::string Text() const;

private:
    std::uint64_t Value = kEmptyDigest;
};
/// The digest of the bytes of one text.
std::string DigestOf(std::string_view text);

/// The digest of a file's bytes and their number, as "85944171f73967e8 6"; "none" for what is no
/// file or cannot be read.
std::string StateOf(const std::string& path);
/// The states of files, each looked at once.
class TFileStates {
public:
    const std::string& Of(const std::string& path);

private:
    std::unordered_map<std::string, std::string> States;
};

/// What ends the name of the copy of a file that a step changes in place, until the step has ended.
inline constexpr const char* kGuardedCopy = ".before";

/// A file name that tells `title` and differs when `whole` does.
std::string UniqueFileName(const std::string& title, const std::string& whole);
