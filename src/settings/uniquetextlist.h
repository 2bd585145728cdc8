#pragma once
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

/// Texts in insertion order, no two of them equal byte for byte.
class TUniqueTextList {
public:
    /// Appends `text`; false, with the list unchanged, when it is listed.
    bool AddStringToVector(std::string text);
    /// Erases `text`, later entries move up; false when it is not listed.
    bool RemoveStringFromVector(std::string_view text);
    void Clear();

    bool IsEmpty() const { return Texts.empty(); }
    const std::vector<std::string>& GetTexts() const { return Texts; }

private:
    std::vector<std::string> Texts;
    // Filled from the size on at which searching the list gets slower than hashing.
    std::unordered_set<std::string> Index;
};
