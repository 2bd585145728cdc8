#include "services/ini/propcache.h"

#include "services/base/booltext.h"
#include "services/base/fold.h"
#include "services/files/directories.h"
#include "services/files/filereplace.h"
#include "services/ini/inifile.h"
#include "services/ini/inifilenames.h"
#include "services/logging/binarylog.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

const char* OrEmpty(const char* text) {
    return text ? text : "";
}

// Not a diagnostic line: something of the user's is lost or not saved.
void LogLine(const std::string& text) {
    gBinaryLogMessageLoggingMutex.Acquire();
    TBinaryLogFile::GetInstance()->Write(text.c_str(), "", 0);
    gBinaryLogMessageLoggingMutex.Release();
}

/// A missing file is an empty one. False, logged, when the file is there and cannot be used.
bool ReadIniText(const std::string& path, std::string* text, TIniReadError* error) {
    text->clear();
    if (path.empty()) return true;
    std::string reason;
    const auto result = ReadWholeFile(path.c_str(), text, &reason);
    if (result == FILE_READ_MISSING) return true;
    // Merging into UTF-16 would spoil it.
    const bool hasZero = text->find('\0') != std::string::npos;
    if (result == FILE_READ_DONE && !hasZero) return true;
    *error = {path, hasZero ? "it is not a text file" : reason};
    LogLine("Cannot read \"" + path + "\": " + error->Reason);
    text->clear();
    return false;
}

bool ReplaceIniText(const std::string& path, const std::string& text) {
    std::string reason = "its directory cannot be made";
    if (MakeDirectoryOf(path.c_str()) && ReplaceWholeFile(path.c_str(), text, &reason)) return true;
    LogLine("Cannot write \"" + path + "\": " + reason);
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

    std::optional<std::string> Find(const std::string& address) const;
    void Change(const std::string& address, std::optional<std::string> value);
};

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
    ChangePlaces.emplace(address, Changes.size());
    ChangedKeys[IniSectionOf(address)].push_back(address);
    Changes.push_back({address, std::move(value)});
}

TPropCache::TPropCache(const char* userFile, const char* systemFile)
    : State(std::make_unique<TState>()) {
    State->UserFile = OrEmpty(userFile);
    State->SystemFile = OrEmpty(systemFile);
    std::string text;
    // The user's file is read last, so that its error is the one that stays.
    ReadIniText(State->SystemFile, &text, &State->ReadError);
    State->System.Parse(text);
    ReadIniText(State->UserFile, &text, &State->ReadError);
    State->User.Parse(text);
}

TPropCache::~TPropCache() {
    Flush();
}

const TIniReadError& TPropCache::GetReadError() const {
    return State->ReadError;
}

bool TPropCache::GetPrivatePropString(const char* section, const char* key, const char* missing,
                                      char* buffer, int size) const {
    const auto address = IniAddress(OrEmpty(section), OrEmpty(key));
    const auto found = State->Find(address);
    if (!buffer || size <= 0) return found.has_value();
    const std::string value = found ? *found : OrEmpty(missing);
    const auto length = WholeCharacters(value, static_cast<std::size_t>(size) - 1);
    std::memcpy(buffer, value.data(), length);
    buffer[length] = 0;
    if (found && length < value.size()) {
        State->CutValues[address] = buffer;
        LogDiagnostic(TBinaryLogMessageTwoArgs(
            "[Default] INI value cut, section \"%1%\", key \"%2%\"", section, key));
    }
    return found.has_value();
}

std::string TPropCache::GetPrivatePropText(const char* section, const char* key,
                                           const char* missing) const {
    return State->Find(IniAddress(OrEmpty(section), OrEmpty(key))).value_or(OrEmpty(missing));
}

bool TPropCache::HasPrivateProp(const char* section, const char* key) const {
    return State->Find(IniAddress(OrEmpty(section), OrEmpty(key))).has_value();
}

std::vector<std::string> TPropCache::GetPrivatePropKeys(const char* section) const {
    const auto stored = IniSectionOf(IniAddress(OrEmpty(section), ""));
    std::vector<std::string> addresses;
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
    const auto value = State->Find(IniAddress(OrEmpty(section), OrEmpty(key)));
    return value ? ConvertStringBoolToBoolean(value->c_str()) : missing;
}

int TPropCache::GetPrivatePropInt(const char* section, const char* key, int missing) const {
    const auto value = State->Find(IniAddress(OrEmpty(section), OrEmpty(key)));
    return value ? LeadingNumber(*value) : missing;
}

void TPropCache::WritePrivatePropString(const char* section, const char* key, const char* value) {
    const auto address = IniAddress(OrEmpty(section), OrEmpty(key));
    if (!value) {
        State->Change(address, {});
        return;
    }
    const auto cut = State->CutValues.find(address);
    if (cut != State->CutValues.end() && cut->second == value) return;
    const auto line = WithoutLineEnds(value);
    if (line != value)
        LogLine(std::string("INI value stored with blanks for line ends, section \"") +
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
    if (State->Changes.empty() || State->UserFile.empty()) return true;
    std::string text;
    TIniReadError error;
    if (!ReadIniText(State->UserFile, &text, &error)) return false;
    const auto merged = MergedIniText(text, State->Changes);
    if (merged != text && !ReplaceIniText(State->UserFile, merged)) return false;
    State->User.Parse(merged);
    State->Changes.clear();
    State->ChangePlaces.clear();
    State->ChangedKeys.clear();
    return true;
}

namespace {

TPropCache* systemPropCache = nullptr;

void FlushSystemPropCache() {
    if (systemPropCache) systemPropCache->Flush();
}

}  // namespace

TPropCache* GetSystemPropCache() {
    // The cache is never destroyed: other objects may write to it while the process ends.
    [[maybe_unused]] static const int registered = std::atexit(FlushSystemPropCache);
    if (!systemPropCache) {
        // What was changed so far belongs to the files in the present directories.
        CallBeforeDirectoriesChange(ResetSystemPropCache);
        systemPropCache =
            new TPropCache(GetIniFile()->Canonical(false), GetSystemIniFile()->Canonical(false));
    }
    return systemPropCache;
}

void ResetSystemPropCache() {
    delete std::exchange(systemPropCache, nullptr);
}
