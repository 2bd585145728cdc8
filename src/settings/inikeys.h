#pragma once
#include <optional>
#include <string>
#include <vector>

class TPropCache;

/// The keys of one section of the system's property cache that begin with a common prefix. Texts
/// are read up to the 315 bytes that every program of the environment reads.
class TIniKeys {
public:
    /// Null `section` counts as empty.
    TIniKeys(const char* section, std::string prefix);

    /// Nothing for an absent key.
    std::optional<std::string> ReadText(const char* key) const;
    /// The list under `key`: its count under `key` + " Count", entry i from 0 under `key` + i.
    /// Nothing when the count is absent or negative; entries without a key are left out.
    std::optional<std::vector<std::string>> ReadStringsFromINI(const char* key) const;

    void WriteText(const char* key, const char* value) const;
    /// Nothing for an empty list.
    void WriteStringsToINI(const char* key, const std::vector<std::string>& texts) const;

private:
    TPropCache* Cache;
    std::string Section;
    std::string Prefix;
};

/// The numbers i of the keys `key` + i in `section`, i being decimal without leading zeros and at
/// least `first`, in ascending order.
std::vector<int> NumberedKeys(const char* section, const std::string& key, int first);
