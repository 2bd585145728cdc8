#pragma once
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The files that the sources of a set include, each read once for all of them. Their texts stay
/// until the object goes. Scans may share it from several threads.
class TIncludeFiles {
public:
    /// The text of the file at `path`, which is as FindIncludeFile makes it; nothing when there is
    /// no such file. Called on the threads that scan, several at a time, for each path once.
    using TReader = std::function<std::optional<std::string>(const std::string& path)>;

    explicit TIncludeFiles(TReader reader) : Reader(std::move(reader)) {}

    /// The text of a file, null when there is none. Lives as long as this object.
    const std::string* Read(const std::string& path);

private:
    struct TFile {
        std::once_flag IsRead;
        std::optional<std::string> Text;
    };

    TReader Reader;
    std::mutex Guard;
    std::map<std::string, std::unique_ptr<TFile>> Files;
};

/// The folder of a path, with the separator that ends it; empty for none.
std::string_view FolderOfPath(std::string_view path);

/// Looks for an included file in `folders`, in their order. An absolute name stands for itself; an
/// empty folder is the working directory. Returns the text, null when there is none, and sets
/// `*path` to the name behind its folder, without "./".
const std::string* FindIncludeFile(TIncludeFiles* files, std::string_view name,
                                   const std::vector<std::string_view>& folders, std::string* path);
