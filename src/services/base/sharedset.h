#pragma once
#include <mutex>
#include <unordered_set>

/// A set that all threads share. To be made with new and never destroyed where objects with static
/// lifetime may use it.
template <class T>
class TSharedSet {
public:
    void Add(const T& entry) {
        const std::lock_guard guard(Lock);
        Entries.insert(entry);
    }
    void Remove(const T& entry) {
        const std::lock_guard guard(Lock);
        Entries.erase(entry);
    }
    bool Has(const T& entry) {
        const std::lock_guard guard(Lock);
        return Entries.contains(entry);
    }

private:
    std::mutex Lock;
    std::unordered_set<T> Entries;
};
