#include "services/ini/propcache.h"

#include "services/base/booltext.h"
#include "services/base/fold.h"
#include "services/files/directories.h"
#include "services/files/filelock.h"
#include "services/files/filereplace.h"
#include "services/files/filestatus.h"
#include "services/files/pathtext.h"
#include "services/ini/inifile.h"
#include "services/ini/inifilenames.h"
#include "services/logging/loglock.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <new>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

const char* OrEmpty(const char* text) {
    return text ? text : "";
}

/// Lines for the log, written at the end of the object's life: a cache's lock is free by then. Not
/// diagnostic lines: something of the user's is lost or not saved.
class TLogLines {
public:
    TLogLines() = default;
    ~TLogLines() {
        try {
            for (const std::string& line : Lines) {
                const TLogLock lock;
                TBinaryLogFile::GetInstance()->Write(line.c_str(), "", 0);
            }
        } catch (const std::bad_alloc&) {
            // There is no memory to open the log.
        }
    }
    TLogLines(const TLogLines&) = delete;
    TLogLines& operator=(const TLogLines&) = delete;
    void Add(std::string line) { Lines.push_back(std::move(line)); }

private:
    std::vector<std::string> Lines;
};

/// A missing file is an empty one. False, logged, when the file is there and cannot be used.
bool ReadIniText(const std::string& path, std::string* text, TIniReadError* error, TLogLines* log) {
    text->clear();
    if (path.empty()) return true;
    std::string reason;
    const auto result = ReadWholeFile(path.c_str(), text, &reason);
    if (result == FILE_READ_MISSING) return true;
    // Merging into UTF-16 would spoil it.
    const bool hasZero = text->find('\0') != std::string::npos;
    if (result == FILE_READ_DONE && !hasZero) return true;
    *error = {path, hasZero ? "it is not a text file" : reason};
    log->Add("Cannot read \"" + path + "\": " + error->Reason);
    text->clear();
    return false;
}

/// Always false.
bool LogUnwritten(const std::string& path, const std::string& reason, TLogLines* log) {
    log->Add("Cannot write \"" + path + "\": " + reason);
    return false;
}

/// The number of bytes, `limit` at most, that end at a whole UTF-8 character.
std::size_t WholeCharacters(const std::string& text, std::size_t limit) {
    if (text.size() <= limit) return text.size();
    constexpr std::size_t kLongestTail = 3;
    for (std::size_t tail = 0; tail <= kLongestTail && tail <= limit; ++tail)
        if ((static_cast<unsigned char>(text[limit - tail]) & 0xC0) != 0x80) return limit - tail;
    return limit;  // not UTF-8
}

std::string WithoutLineEnds(const std::string& value) {
    std::string line;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\r' && i + 1 < value.size() && value[i + 1] == '\n') ++i;
        line += value[i] == '\r' || value[i] == '\n' ? ' ' : value[i];
    }
    return line;
}

}  // namespace

struct TPropCache::TState {
    std::string UserFile;
    std::string SystemFile;
    TIniReadError ReadError;
    TIniValues User;
    TIniValues System;
    std::vector<TIniChange>
        Changes;  // of the user's file, not saved yet, in the order of first writing
    std::unordered_map<std::string, std::size_t> ChangePlaces;  // in Changes, by address
    std::unordered_map<std::string, std::vector<std::string>> ChangedKeys;  // addresses, by section
    std::unordered_map<std::string, std::string> CutValues;  // handed out, by address

    std::mutex Lock;  // of everything here; the operations below are called with it

    void Read(const std::string& userFile, const std::string& systemFile, TLogLines* log);
    std::optional<std::string> Find(const std::string& address) const;
    void Change(const std::string& address, std::optional<std::string> value);
    bool Flush(TLogLines* log);
    bool IsNothingToSave() const;
    bool Merge(TLogLines* log);
    void DropChanges();
};

void TPropCache::TState::Read(const std::string& userFile, const std::string& systemFile,
                              TLogLines* log) {
    UserFile = userFile;
    SystemFile = systemFile;
    ReadError = {};
    DropChanges();
    CutValues.clear();
    std::string text;
    // The user's file is read last, so that its error is the one that stays.
    ReadIniText(SystemFile, &text, &ReadError, log);
    System.Parse(text);
    ReadIniText(UserFile, &text, &ReadError, log);
    User.Parse(text);
}

std::optional<std::string> TPropCache::TState::Find(const std::string& address) const {
    const auto place = ChangePlaces.find(address);
    if (place == ChangePlaces.end()) {
        if (auto value = User.Find(address)) return value;
    } else if (const auto& value = Changes[place->second].Value) {
        return value;
    }
    return System.Find(address);
}

void TPropCache::TState::Change(const std::string& address, std::optional<std::string> value) {
    CutValues.erase(address);
    const auto place = ChangePlaces.find(address);
    if (place != ChangePlaces.end()) {
        Changes[place->second].Value = std::move(value);
        return;
    }
    // What did not change here must not undo a change made elsewhere.
    if (User.Find(address) == value) return;
    Changes.push_back({address, std::move(value)});
    try {
        ChangePlaces.emplace(address, Changes.size() - 1);
        ChangedKeys[IniSectionOf(address)].push_back(address);
    } catch (const std::bad_alloc&) {
        ChangePlaces.erase(address);
        Changes.pop_back();
        throw;
    }
}

TPropCache::TPropCache(const char* userFile, const char* systemFile)
    : State(std::make_unique<TState>()) {
    TLogLines log;
    State->Read(OrEmpty(userFile), OrEmpty(systemFile), &log);
}

TPropCache::~TPropCache() {
    try {
        Flush();
    } catch (const std::bad_alloc&) {
        // The file stays as it was.
    }
}

const TIniReadError& TPropCache::GetReadError() const {
    return State->ReadError;
}

bool TPropCache::GetPrivatePropString(const char* section, const char* key, const char* missing,
                                      char* buffer, int size) const {
    const auto address = IniAddress(OrEmpty(section), OrEmpty(key));
    std::unique_lock guard(State->Lock);
    const auto found = State->Find(address);
    if (!buffer || size <= 0) return found.has_value();
    const std::string value = found ? *found : OrEmpty(missing);
    const auto length = WholeCharacters(value, static_cast<std::size_t>(size) - 1);
    std::memcpy(buffer, value.data(), length);
    buffer[length] = 0;
    if (found && length < value.size()) {
        State->CutValues[address] = buffer;
        guard.unlock();
        LogDiagnostic(TBinaryLogMessageTwoArgs(
            "[Default] INI value cut, section \"%1%\", key \"%2%\"", section, key));
    }
    return found.has_value();
}

std::string TPropCache::GetPrivatePropText(const char* section, const char* key,
                                           const char* missing) const {
    const std::lock_guard guard(State->Lock);
    return State->Find(IniAddress(OrEmpty(section), OrEmpty(key))).value_or(OrEmpty(missing));
}

bool TPropCache::HasPrivateProp(const char* section, const char* key) const {
    const std::lock_guard guard(State->Lock);
    return State->Find(IniAddress(OrEmpty(section), OrEmpty(key))).has_value();
}

std::vector<std::string> TPropCache::GetPrivatePropKeys(const char* section) const {
    const auto stored = IniSectionOf(IniAddress(OrEmpty(section), ""));
    std::vector<std::string> addresses;
    const std::lock_guard guard(State->Lock);
    State->User.AppendAddresses(stored, &addresses);
    State->System.AppendAddresses(stored, &addresses);
    const auto changed = State->ChangedKeys.find(stored);
    if (changed != State->ChangedKeys.end())
        addresses.insert(addresses.end(), changed->second.begin(), changed->second.end());
    std::vector<std::string> keys;
    for (const auto& address : addresses)
        if (State->Find(address)) keys.push_back(IniKeyOf(address));
    std::sort(keys.begin(), keys.end());
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    return keys;
}

bool TPropCache::GetPrivatePropBool(const char* section, const char* key, bool missing) const {
    const std::lock_guard guard(State->Lock);
    const auto value = State->Find(IniAddress(OrEmpty(section), OrEmpty(key)));
    return value ? ConvertStringBoolToBoolean(value->c_str()) : missing;
}

int TPropCache::GetPrivatePropInt(const char* section, const char* key, int missing) const {
    const std::lock_guard guard(State->Lock);
    const auto value = State->Find(IniAddress(OrEmpty(section), OrEmpty(key)));
    return value ? LeadingNumber(*value) : missing;
}

void TPropCache::WritePrivatePropString(const char* section, const char* key, const char* value) {
    const auto address = IniAddress(OrEmpty(section), OrEmpty(key));
    TLogLines log;
    const std::lock_guard guard(State->Lock);
    if (!value) {
        State->Change(address, {});
        return;
    }
    const auto cut = State->CutValues.find(address);
    if (cut != State->CutValues.end() && cut->second == value) return;
    const auto line = WithoutLineEnds(value);
    if (line != value)
        log.Add(std::string("INI value stored with blanks for line ends, section \"") +
                OrEmpty(section) + "\", key \"" + OrEmpty(key) + "\"");
    State->Change(address, line);
}

void TPropCache::WritePrivatePropBool(const char* section, const char* key, bool value) {
    WritePrivatePropString(section, key, ConvertBooleanToStringBool(value));
}

void TPropCache::DeletePrivateProp(const char* section, const char* key) {
    WritePrivatePropString(section, key, nullptr);
}

bool TPropCache::Flush() {
    TLogLines log;
    const std::lock_guard guard(State->Lock);
    return State->Flush(&log);
}

bool TPropCache::TState::Flush(TLogLines* log) {
    if (Changes.empty() || UserFile.empty()) return true;
    if (IsNothingToSave()) {
        User.Parse({});
    } else {
        std::string reason = "its directory cannot be made";
        if (!MakeDirectoryOf(UserFile.c_str())) return LogUnwritten(UserFile, reason, log);
        // From here on nobody else's save comes between the reading and the writing.
        const TFileLock lock(UserFile.c_str());
        if (!lock.IsHeld()) return LogUnwritten(UserFile, lock.GetReason(), log);
        if (!Merge(log)) return false;
    }
    DropChanges();
    return true;
}

/// Keys were deleted, and there is no file that could hold them.
bool TPropCache::TState::IsNothingToSave() const {
    if (std::any_of(Changes.begin(), Changes.end(),
                    [](const auto& change) { return change.Value.has_value(); }))
        return false;
    const TFileStatus status = LookAtFile(CanonicalPath(UserFile));
    return !status.Exists && !status.IsUnknown;
}

bool TPropCache::TState::Merge(TLogLines* log) {
    std::string text;
    TIniReadError error;
    if (!ReadIniText(UserFile, &text, &error, log)) return false;
    const auto merged = MergedIniText(text, Changes);
    std::string reason;
    if (merged != text && !ReplaceWholeFile(UserFile.c_str(), merged, &reason))
        return LogUnwritten(UserFile, reason, log);
    User.Parse(merged);
    return true;
}

void TPropCache::TState::DropChanges() {
    Changes.clear();
    ChangePlaces.clear();
    ChangedKeys.clear();
}

/// The process's cache. It stays in its place when it is dropped: other threads may be using it.
class TSystemPropCache {
public:
    static TSystemPropCache& GetInstance() {
        // Never destroyed: other objects may write to it while the process ends.
        static auto& cache = *new TSystemPropCache;
        return cache;
    }
    TPropCache* GetCache() {
        if (IsRead) return &Cache;
        TLogLines log;
        const std::lock_guard guard(Cache.State->Lock);
        if (!IsRead) {
            // What was written since the cache was dropped.
            Cache.State->Flush(&log);
            // Asked for with the lock: whoever sets other files drops the cache behind this read.
            Cache.State->Read(GetIniFile()->Canonical(false), GetSystemIniFile()->Canonical(false),
                              &log);
            IsRead = true;
        }
        return &Cache;
    }
    void Drop() {
        TLogLines log;
        const std::lock_guard guard(Cache.State->Lock);
        Cache.State->Flush(&log);
        Cache.State->DropChanges();
        IsRead = false;
    }

private:
    TSystemPropCache() {
        // What was changed so far belongs to the files in the present directories.
        CallWhenDirectoriesChange(ResetSystemPropCache);
        std::atexit([] { GetInstance().Cache.Flush(); });
    }

    TPropCache Cache{nullptr, nullptr};
    std::atomic<bool> IsRead = false;
};

TPropCache* GetSystemPropCache() {
    return TSystemPropCache::GetInstance().GetCache();
}

void ResetSystemPropCache() {
    TSystemPropCache::GetInstance().Drop();
}
