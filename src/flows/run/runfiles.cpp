#include "flows/run/runfiles.h"
#include "services/files/filereplace.h"
#include <cerrno>
#include <cstdint>
#include <fstream>

std::filesystem::path NativePath(const std::string& path) {
    return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

std::string ReadText(const std::string& path) {
    std::string text;
    return ReadWholeFile(path.c_str(), &text, nullptr) == FILE_READ_DONE ? text : std::string();
}

std::string RemoveFile(const std::string& path) {
    std::error_code error;
    std::filesystem::remove(NativePath(path), error);
    return error ? path + ": " + error.message() : std::string();
}

std::string RemoveFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::remove_all(NativePath(path), error);
    return error ? path + ": " + error.message() : std::string();
}

std::string MakeFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(NativePath(path), error);
    return error ? path + ": " + error.message() : std::string();
}

std::string ListFiles(const std::string& folder, std::vector<std::string>* names) {
    std::error_code error;
    std::filesystem::directory_iterator entry(NativePath(folder), error);
    if (error == std::errc::no_such_file_or_directory) return {};
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::u8string name = entry->path().filename().u8string();
        names->emplace_back(name.begin(), name.end());
    }
    return error ? folder + ": " + error.message() : std::string();
}

// Nothing waits for the disk here: what a power failure takes is made again.
std::string WriteWhole(const std::string& path, std::string_view text) {
    std::error_code error;
    const std::filesystem::path native = NativePath(path);
    const std::filesystem::path part = NativePath(path + ".part");
    std::filesystem::create_directories(native.parent_path(), error);
    // A link that somebody put there must not lead elsewhere, nor a pipe keep us waiting.
    if (std::string reason = RemoveFile(path + ".part"); !reason.empty()) return reason;
    errno = 0;
    std::ofstream stream(part, std::ios::binary);
    stream << text;
    stream.close();
    if (!stream) error = {errno != 0 ? errno : EIO, std::generic_category()};
    if (stream) std::filesystem::rename(part, native, error);
    if (!error) return {};
    RemoveFile(path + ".part");
    return path + ": " + error.message();
}

std::string WriteNew(const std::string& path, std::string_view text) {
    std::string held;
    if (ReadWholeFile(path.c_str(), &held, nullptr) == FILE_READ_DONE && held == text) return {};
    return WriteWhole(path, text);
}

std::string DigestOf(std::string_view text) {
    std::uint64_t digest = 0xcbf29ce484222325u;
    for (const char c : text) digest = (digest ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    std::string digits(16, '0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, digest >>= 4)
        *digit = "0123456789abcdef"[digest & 15];
    return digits;
}

// Nothing but characters that all file systems and shells take as they are.
std::string UniqueFileName(const std::string& title, const std::string& whole) {
    std::string name = title.substr(0, 80);
    for (char& c : name)
        if (std::string_view("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.-")
                .find(c) == std::string_view::npos)
            c = '_';
    return name + "-" + DigestOf(whole).substr(0, 8);
}

std::string WriteDigest(const std::string& source, const std::string& output) {
    std::string text;
    std::string reason;
    const TFileReadResult result = ReadWholeFile(source.c_str(), &text, &reason);
    if (result == FILE_READ_MISSING) return source + ": the file does not exist";
    if (result != FILE_READ_DONE) return source + ": " + reason;
    return WriteNew(output, DigestOf(text) + " " + std::to_string(text.size()) + "\n");
}
