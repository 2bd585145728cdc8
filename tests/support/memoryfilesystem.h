#pragma once
#include "services/files/filesystem.h"
#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

/// Files in memory, in the place of the operating system's for its lifetime. Paths are written with
/// '/', on every system. Every operation that can fail is counted and can be made to fail.
class MemoryFileSystem : public IFileSystem {
public:
    MemoryFileSystem() : Former(SetFileSystem(this)) {}
    ~MemoryFileSystem() override { SetFileSystem(Former); }
    MemoryFileSystem(const MemoryFileSystem&) = delete;
    MemoryFileSystem& operator=(const MemoryFileSystem&) = delete;

    /// Makes a file with its folders; its time is that of the clock. Returns `path`.
    std::string Put(const std::string& path, const std::string& bytes) {
        PutFolder(FolderOf(path));
        Files[path] = std::make_shared<TFile>(TFile{bytes, Clock});
        return path;
    }
    void PutFolder(std::string path) {
        while (path.size() > 1) {
            if (path.back() == '/') path.pop_back();
            Folders.insert(path);
            path = FolderOf(path);
        }
    }
    void PutLink(const std::string& path, const std::string& target) {
        PutFolder(FolderOf(path));
        Links[path] = target;
    }
    /// What TakeOver copies: owner, permissions and the like, in any words.
    void SetRights(const std::string& path, const std::string& rights) {
        Files.at(path)->Rights = rights;
    }
    std::string GetRights(const std::string& path) const { return Files.at(path)->Rights; }
    void Protect(const std::string& path) { Files.at(path)->IsProtected = true; }

    /// The bytes of a file; "<missing>" without one.
    std::string Text(const std::string& path) const {
        const auto file = Files.find(path);
        return file == Files.end() ? "<missing>" : file->second->Bytes;
    }
    /// Every file and link, sorted, one a line: shows left-over files.
    std::string List() const {
        std::set<std::string> lines;
        for (const auto& [path, file] : Files) lines.insert(path + "\n");
        for (const auto& [path, target] : Links) lines.insert(path + " -> " + target + "\n");
        std::string all;
        for (const auto& line : lines) all += line;
        return all;
    }

    /// The operation of that number, from 1 on and from now on, fails; with `forever` every later
    /// one, too.
    void FailAt(int number, TFileResult result, bool forever = false) {
        Failure = std::move(result);
        FailsForever = forever;
        FailingNumber = number;
        Operations.clear();
    }
    /// No operation fails any more.
    void Mend() { FailAt(0, {}); }
    /// The names of the operations since FailAt or Mend.
    const std::vector<std::string>& GetOperations() const { return Operations; }

    std::int64_t Clock = 1'000;              ///< nanoseconds since 1970 UTC
    std::string Mark = "here.1";             ///< of this process
    std::set<std::string> GoneMarks;         ///< of processes that are gone
    std::size_t MostBytesAtOnce = SIZE_MAX;  ///< that one Write takes
    std::vector<std::int64_t> Waits;         ///< in nanoseconds
    std::function<void()> OnWait;            ///< what others do meanwhile

    TFileStatus GetStatus(const std::string& given) override {
        TFileStatus status;
        if (!Enter("GetStatus").IsDone()) {
            status.IsUnknown = true;
            return status;
        }
        const std::string path = Followed(given);
        if (Folders.contains(path) || path == "/") return {true, true, Clock, 0};
        const auto file = Files.find(path);
        if (file == Files.end()) return status;
        return {true, false, file->second->Time,
                static_cast<std::int64_t>(file->second->Bytes.size())};
    }
    bool CanRead(const std::string& path) override {
        return Enter("CanRead").IsDone() && Files.contains(Followed(path));
    }
    bool CanWrite(const std::string& path) override {
        if (!Enter("CanWrite").IsDone()) return false;
        const auto file = Files.find(Followed(path));
        return file != Files.end() && !file->second->IsProtected;
    }
    std::string ExpandLinks(const std::string& path) override {
        const std::string target = Followed(path);
        const bool isThere = Files.contains(target) || Folders.contains(target);
        return Enter("ExpandLinks").IsDone() && isThere ? target : std::string();
    }
    TFileResult ReadLink(const std::string& given, std::string* target) override {
        if (TFileResult entered = Enter("ReadLink"); !entered.IsDone()) return entered;
        const std::string path = Inner(given);
        const auto link = Links.find(path);
        if (link == Links.end())
            return Files.contains(path) ? Fail(TFileFault::NotALink) : Fail(TFileFault::Missing);
        *target = Outer(link->second);
        return {};
    }
    TFileResult ListFolder(const std::string& given, std::vector<std::string>* names) override {
        if (TFileResult entered = Enter("ListFolder"); !entered.IsDone()) return entered;
        names->clear();
        const std::string folder = FolderOf(Inner(given) + "/");
        for (const auto& [path, file] : Files)
            if (FolderOf(path) == folder) names->push_back(path.substr(folder.size()));
        return {};
    }
    TFileResult Read(const std::string& path, std::uint64_t limit, std::string* bytes) override {
        if (TFileResult entered = Enter("Read"); !entered.IsDone()) return entered;
        const auto file = Files.find(Followed(path));
        if (file == Files.end()) return Fail(TFileFault::Missing);
        if (file->second->Bytes.size() > limit) return {TFileFault::Other, "too large"};
        *bytes = file->second->Bytes;
        return {};
    }

    TFileResult CheckReplaceable(const std::string& path) override {
        if (TFileResult entered = Enter("CheckReplaceable"); !entered.IsDone()) return entered;
        if (Folders.contains(Followed(path))) return {TFileFault::Other, "a folder"};
        const auto file = Files.find(Followed(path));
        if (file == Files.end()) return Fail(TFileFault::Missing);
        return file->second->IsProtected ? TFileResult{TFileFault::Other, "write-protected"}
                                         : TFileResult{};
    }
    TFileResult Create(const std::string& given, bool isPrivate, TFileNumber* number) override {
        if (TFileResult entered = Enter("Create"); !entered.IsDone()) return entered;
        const std::string path = Inner(given);
        const std::string folder = FolderOf(path);
        if (folder.size() > 1 && !Folders.contains(folder.substr(0, folder.size() - 1)))
            return Fail(TFileFault::Missing);
        if (Files.contains(path)) return Fail(TFileFault::NameTaken);
        Files[path] = std::make_shared<TFile>(TFile{"", Clock});
        Files[path]->Rights = isPrivate ? "private" : "ordinary";
        *number = static_cast<TFileNumber>(Open.size());
        Open.push_back(Files[path]);
        return {};
    }
    TFileResult Write(TFileNumber number, std::string_view bytes, std::size_t* count) override {
        *count = 0;
        if (TFileResult entered = Enter("Write"); !entered.IsDone()) return entered;
        *count = std::min(bytes.size(), MostBytesAtOnce);
        FileOf(number).Bytes += bytes.substr(0, *count);
        return {};
    }
    TFileResult TakeOver(TFileNumber number, const std::string& from) override {
        if (TFileResult entered = Enter("TakeOver"); !entered.IsDone()) return entered;
        FileOf(number).Rights = Files.at(Followed(from))->Rights;
        return {};
    }
    TFileResult Flush(TFileNumber) override { return Enter("Flush"); }
    TFileResult Close(TFileNumber number) override {
        TFile& file = FileOf(number);
        if (file.LockedBy == number) file.LockedBy = kNotLocked;
        Open.at(static_cast<std::size_t>(number)).reset();
        return Enter("Close");
    }
    TFileResult Link(const std::string& path, const std::string& secondName) override {
        if (TFileResult entered = Enter("Link"); !entered.IsDone()) return entered;
        Files[Inner(secondName)] = Files.at(Inner(path));
        return {};
    }
    TFileResult Rename(const std::string& from, const std::string& to) override {
        if (TFileResult entered = Enter("Rename"); !entered.IsDone()) return entered;
        const auto file = Files.find(Inner(from));
        if (file == Files.end()) return Fail(TFileFault::Missing);
        const auto moved = file->second;
        Files.erase(file);
        Links.erase(Inner(to));
        Files[Inner(to)] = moved;
        return {};
    }
    TFileResult FlushFolder(const std::string&) override { return Enter("FlushFolder"); }

    TFileResult OpenLock(const std::string& path, TFileNumber* number) override {
        if (TFileResult entered = Enter("OpenLock"); !entered.IsDone()) return entered;
        const std::string folder = FolderOf(Inner(path));
        if (path.empty()) return Fail(TFileFault::Missing);
        if (folder.size() > 1 && !Folders.contains(folder.substr(0, folder.size() - 1)))
            return Fail(TFileFault::Missing);
        auto& file = Files[Inner(path)];
        if (!file) file = std::make_shared<TFile>(TFile{"", Clock});
        *number = static_cast<TFileNumber>(Open.size());
        Open.push_back(file);
        return {};
    }
    TFileResult Lock(TFileNumber number) override {
        if (TFileResult entered = Enter("Lock"); !entered.IsDone()) return entered;
        if (FileOf(number).LockedBy != kNotLocked) return Fail(TFileFault::Busy);
        FileOf(number).LockedBy = number;
        return {};
    }
    TFileResult CheckNames(const std::string& path, TFileNumber number) override {
        if (TFileResult entered = Enter("CheckNames"); !entered.IsDone()) return entered;
        const auto file = Files.find(Inner(path));
        const bool isSame = file != Files.end() && file->second.get() == &FileOf(number);
        return isSame ? TFileResult{} : Fail(TFileFault::Missing);
    }

    TFileResult Remove(const std::string& path) override {
        if (TFileResult entered = Enter("Remove"); !entered.IsDone()) return entered;
        const std::string inner = Inner(path);
        const bool isRemoved = Files.erase(inner) + Links.erase(inner) + Folders.erase(inner) > 0;
        return isRemoved ? TFileResult{} : Fail(TFileFault::Missing);
    }
    TFileResult MakeFolder(const std::string& path) override {
        if (TFileResult entered = Enter("MakeFolder"); !entered.IsDone()) return entered;
        return Folders.insert(Inner(path)).second ? TFileResult{} : Fail(TFileFault::NameTaken);
    }
    TFileResult ChangeWorkingDirectory(const std::string& path) override {
        if (TFileResult entered = Enter("ChangeWorkingDirectory"); !entered.IsDone())
            return entered;
        WorkingDirectory = Inner(path);
        return {};
    }
    std::string GetWorkingDirectory(std::string_view) override { return WorkingDirectory; }

    std::int64_t GetTime() override { return Clock; }
    void Wait(std::int64_t nanoseconds) override {
        Waits.push_back(nanoseconds);
        if (OnWait) OnWait();
    }
    std::string GetProcessMark() override { return Mark; }
    bool IsProcessGone(const std::string& mark) override { return GoneMarks.contains(mark); }

private:
    static constexpr TFileNumber kNotLocked = -1;

    struct TFile {
        std::string Bytes;
        std::int64_t Time;
        std::string Rights = "ordinary";
        bool IsProtected = false;
        TFileNumber LockedBy = kNotLocked;
    };

    TFileResult Enter(const char* operation) {
        Operations.emplace_back(operation);
        const int number = static_cast<int>(Operations.size());
        const bool fails =
            FailingNumber > 0 && (FailsForever ? number >= FailingNumber : number == FailingNumber);
        return fails ? Failure : TFileResult{};
    }
    static TFileResult Fail(TFileFault fault) {
        static const std::map<TFileFault, const char*> reasons = {
            {TFileFault::Missing, "missing"},
            {TFileFault::NotALink, "not a link"},
            {TFileFault::NameTaken, "name taken"},
            {TFileFault::Busy, "busy"}};
        return {fault, reasons.at(fault)};
    }
    static std::string Inner(std::string path) {
        std::replace(path.begin(), path.end(), '\\', '/');
        if (path.size() > 1 && path.back() == '/') path.pop_back();
        return path;
    }
    /// As the library writes it on this system.
    static std::string Outer(std::string path) {
#ifdef _WIN32
        std::replace(path.begin(), path.end(), '/', '\\');
#endif
        return path;
    }
    static std::string FolderOf(const std::string& path) {
        return path.substr(0, path.rfind('/') + 1);
    }
    std::string Followed(const std::string& given) const {
        std::string path = Inner(given);
        for (std::size_t links = 0; links <= Links.size(); ++links) {
            const auto link = Links.find(path);
            if (link == Links.end()) return path;
            path = link->second;
        }
        return {};
    }
    TFile& FileOf(TFileNumber number) {
        return *Open.at(static_cast<std::size_t>(number));
    }

    IFileSystem* Former;
    std::map<std::string, std::shared_ptr<TFile>> Files;
    std::map<std::string, std::string> Links;
    std::set<std::string> Folders;  // without a delimiter at the end
    std::vector<std::shared_ptr<TFile>> Open;
    std::string WorkingDirectory = "/";
    std::vector<std::string> Operations;
    TFileResult Failure;
    int FailingNumber = 0;
    bool FailsForever = false;
};
