#pragma once
#include "flows/trees/tree.h"
#include <unordered_set>

/// Makes a tree of what a reader meets, one behind the other. After a fault all operations do
/// nothing and return false.
class TTreeBuilder {
public:
    /// For a file of so many bytes.
    explicit TTreeBuilder(std::size_t size)
        : MostValues(kMostTreeValues + size / kBytesOfTreeValue) {}

    bool Begin(TTreeKind kind, TTreePlace place);
    bool End();
    /// The key of the value that comes next.
    bool Key(std::string text, TTreePlace place);
    bool Add(TTreeKind kind, std::string text, TTreePlace place);
    /// Adds the copy of a value, which has `count` values in it and lies `depth` deep.
    bool AddCopy(const TTree& value, std::size_t count, std::size_t depth, TTreePlace place);

    /// Whether the caller may keep a copy of a value that has `count` values in it: copies count as
    /// values of the tree do.
    bool MayKeep(std::size_t count, TTreePlace place) { return MayGrow(count, 0, place); }

    /// Keeps the first fault.
    bool Fail(std::string reason, TTreePlace place);
    bool HasFailed() const { return !Fault.Reason.empty(); }
    const TTreeFault& GetFault() const { return Fault; }

    /// Whether a key comes next.
    bool WantsKey() const { return !Open.empty() && Open.back().IsMap() && !HasKey; }
    std::size_t CountOpen() const { return Open.size(); }
    /// The value that was added last, itself or within the innermost open one; null: there is none.
    const TTree* GetLast() const;
    /// The tree, when all is closed.
    TTree Take() { return std::move(Root); }

private:
    bool Place(TTree value);
    bool IsText(const std::string& text, TTreePlace place);
    bool MayGrow(std::size_t count, std::size_t depth, TTreePlace place);

    const std::size_t MostValues;
    TTree Root;
    bool HasRoot = false;
    std::vector<TTree> Open;
    std::vector<std::unordered_set<std::string>> Keys;  // of the open maps and lists
    std::string NextKey;
    TTreePlace NextKeyPlace;
    bool HasKey = false;
    std::size_t Count = 0;
    TTreeFault Fault;
};
