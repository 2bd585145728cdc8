#pragma once
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// A call that a preloaded recorder wrote down (see recorder.cpp).
struct TRecordedCall {
    std::string Name;
    int Number = -1;     ///< of the open file
    bool Makes = false;  ///< of "open"
    std::string Path;
    std::string To;
    std::string Bytes;
};

std::vector<TRecordedCall> ReadRecord(const std::string& text);

/// Files by their paths.
using TFiles = std::map<std::string, std::string>;

/// A disk that loses what nobody waited for. What was written since the last fsync of its file may
/// be there whole, in part, as zeros or not at all; of the names that were made, changed and
/// removed since the last fsync of a folder any may be missing, whatever came before or behind it.
/// All files are in one folder.
class TLossyDisk {
public:
    /// What is there at the beginning is there for ever.
    explicit TLossyDisk(const TFiles& files);

    /// False for a call that this disk does not know.
    bool Do(const TRecordedCall& call);
    /// What is there without any loss.
    TFiles Current() const;
    using TLook = std::function<void(const TFiles&)>;
    /// Every state in which the disk may be after the power was gone, some of them several times.
    void ForEachLoss(const TLook& look) const;

private:
    struct TContent {
        std::string Safe;
        std::string Written;  // all of it, what is safe included
    };
    using TNames = std::map<std::string, std::size_t>;
    /// Names and the contents that they get.
    using TChange = std::vector<std::pair<std::string, std::size_t>>;

    static void Apply(const TChange& change, TNames* names);
    void ForEachOrder(const TNames& names, const std::vector<TChange>& left,
                      const TLook& look) const;
    void ForEachContent(const TNames& names, const TLook& look) const;

    std::vector<TContent> Contents;
    TNames SafeNames;
    std::vector<TChange> Pending;
    std::map<int, std::size_t> Open;  // the contents of open files
};
