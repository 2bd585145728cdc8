#include "flows/run/runfiles.h"
#include "services/files/filereplace.h"
#include <cerrno>
#include <cstdint>
#include <fstream>

namespace {

void AddBytes(std::string_view text, std::uint64_t* digest) {
    std::uint64_t value = *digest;
    for (const char c : text) value = (value ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    *digest = value;
}

std::string Digits(std::uint64_t value) {
    std::string digits(16, '0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, value >>= 4)
        *digit = "0123456789abcdef"[value & 15];
    return digits;
}

}  // namespace

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

// Nothing waits for the disk here: what a power failure takes is seen by its state (stepstamp.h).
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
    std::uint64_t value = kEmptyDigest;
    AddBytes(text, &value);
    return Digits(value);
}

// No text of a file name or a state has a zero.
void TDigest::Add(std::string_view text) {
    AddBytes(text, &Value);
    AddBytes(std::string_view("\0", 1), &Value);
}

std::string TDigest::Text() const {
    return Digits(Value);
}

std::string StateOf(const std::string& path) {
    std::error_code error;
    const std::filesystem::path native = NativePath(path);
    if (!std::filesystem::is_regular_file(native, error)) return "none";
    std::ifstream stream(native, std::ios::binary);
    std::string block(std::size_t{65'536}, '\0');
    std::uint64_t value = kEmptyDigest;
    std::uint64_t size = 0;
    while (stream) {
        stream.read(block.data(), static_cast<std::streamsize>(block.size()));
        const auto count = static_cast<std::size_t>(stream.gcount());
        AddBytes({block.data(), count}, &value);
        size += count;
    }
    return stream.eof() && !stream.bad() ? Digits(value) + " " + std::to_string(size) : "none";
}

const std::string& TFileStates::Of(const std::string& path) {
    const auto [place, isNew] = States.try_emplace(path);
    if (isNew) place->second = StateOf(path);
    return place->second;
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
