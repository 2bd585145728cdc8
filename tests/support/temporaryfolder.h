#pragma once
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

/// A folder of the test's own, deleted with everything in it at the end. Texts are UTF-8.
class TemporaryFolder {
public:
    TemporaryFolder() {
        static std::atomic<int> number = 0;
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        Root = std::filesystem::temp_directory_path() /
               ("hdlbuildfile-test-" + std::to_string(now) + "-" + std::to_string(number++));
        std::filesystem::create_directories(Root);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(Root, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The full path of a file or folder in it, in the host's form; "" gives the folder itself.
    std::string Path(const std::string& name = {}) const {
        const auto path = name.empty() ? Root : Root / Native(name);
        const auto text = std::filesystem::path(path).make_preferred().u8string();
        return {text.begin(), text.end()};
    }
    /// Writes a file, making its folders, and returns its path.
    std::string Write(const std::string& name, const std::string& bytes) const {
        const auto path = Root / Native(name);
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
        return Path(name);
    }
    /// The bytes of a file; "<missing>" without one.
    std::string Read(const std::string& name) const {
        std::ifstream stream(Root / Native(name), std::ios::binary);
        if (!stream) return "<missing>";
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    bool Exists(const std::string& name) const {
        return std::filesystem::exists(Root / Native(name));
    }
    /// The names of the files in the folder, sorted, one a line: shows left-over files.
    std::string List() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Root)) {
            const auto text = entry.path().filename().u8string();
            names.emplace(text.begin(), text.end());
        }
        std::string lines;
        for (const auto& name : names) lines += name + "\n";
        return lines;
    }

private:
    static std::filesystem::path Native(const std::string& name) {
        return std::filesystem::path(std::u8string(name.begin(), name.end()));
    }
    std::filesystem::path Root;
};
