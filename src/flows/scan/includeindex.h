#pragma once
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The files among which an included one is looked for when no folder is known to hold it.
class TIncludeIndex {
public:
    explicit TIncludeIndex(const std::vector<std::string>& paths);

    /// The folder from which `name` leads to a file, with the delimiter that ends it: that of the
    /// file nearest to `includingFolder`, of equally near ones the first. Empty for none, and for a
    /// name that leads upwards.
    std::string FindFolder(std::string_view name, std::string_view includingFolder) const;

private:
    std::unordered_map<std::string, std::vector<std::string>> PathsByName;  // without the folder
};
