#pragma once
#include "services/files/filesystem.h"

/// The operating system's files. Each system has sources of its own that define it.
class TNativeFileSystem : public IFileSystem {
public:
    TFileStatus GetStatus(const std::string& path) override;
    bool CanRead(const std::string& path) override;
    bool CanWrite(const std::string& path) override;
    std::string ExpandLinks(const std::string& path) override;
    TFileResult ReadLink(const std::string& path, std::string* target) override;
    TFileResult ListFolder(const std::string& folder, std::vector<std::string>* names) override;
    TFileResult Read(const std::string& path, std::uint64_t limit, std::string* bytes) override;

    TFileResult CheckReplaceable(const std::string& path) override;
    TFileResult Create(const std::string& path, bool isPrivate, TFileNumber* file) override;
    TFileResult Write(TFileNumber file, std::string_view bytes, std::size_t* count) override;
    TFileResult TakeOver(TFileNumber file, const std::string& from) override;
    TFileResult Flush(TFileNumber file) override;
    TFileResult Close(TFileNumber file) override;
    TFileResult Link(const std::string& path, const std::string& secondName) override;
    TFileResult Rename(const std::string& from, const std::string& to) override;
    TFileResult FlushFolder(const std::string& folder) override;

    TFileResult OpenLock(const std::string& path, TFileNumber* file) override;
    TFileResult Lock(TFileNumber file) override;
    TFileResult CheckNames(const std::string& path, TFileNumber file) override;

    TFileResult Remove(const std::string& path) override;
    TFileResult MakeFolder(const std::string& path) override;
    TFileResult ChangeWorkingDirectory(const std::string& path) override;
    std::string GetWorkingDirectory(std::string_view drive) override;

    std::int64_t GetTime() override;
    void Wait(std::int64_t nanoseconds) override;
    std::string GetProcessMark() override;
    bool IsProcessGone(const std::string& mark) override;
};
