#pragma once
#include "flows/scan/scannedfile.h"
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

enum class TVerilogDefined : unsigned char {
    Maybe,  ///< nobody has said, or not on every way here
    No,
    Yes
};

/// Which macros are defined at a place of a source, as far as is known.
///
/// What happens to a name between Begin() and End() happens under a condition that nobody has
/// decided: behind it, the name may be as before or as it became.
class TVerilogDefines {
public:
    /// Keeps the texts of `defines`, as those of all names and texts below, not copies.
    explicit TVerilogDefines(const std::vector<TScanDefine>& defines);

    TVerilogDefined Find(std::string_view name) const;
    /// What a macro without parameters stands for; empty when that is nothing or not known.
    std::string_view FindText(std::string_view name) const;
    /// Whether a macro certainly stands for nothing.
    bool IsEmpty(std::string_view name) const;

    void Define(std::string_view name, std::string_view text, bool hasParameters);
    /// Defines it with a text that is not known.
    void Assume(std::string_view name, TVerilogDefined defined);
    /// Every name may be defined or not.
    void Forget();

    std::size_t Begin();
    void End(std::size_t begun);

private:
    struct TEntry {
        TVerilogDefined Defined = TVerilogDefined::Maybe;
        bool IsTextKnown = false;
        std::string_view Text;
    };
    struct TChange {
        std::string_view Name;
        TEntry Before;
    };
    void Set(std::string_view name, const TEntry& entry);

    std::unordered_map<std::string_view, TEntry> Entries;
    std::vector<TChange> Changes;  // under the conditions that are open
    std::size_t OpenConditions = 0;
};
