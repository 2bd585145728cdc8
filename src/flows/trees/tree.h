#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// How deep values may lie in each other.
inline constexpr std::size_t kDeepestTree = 64;
/// How many values the tree of a small file may have, what is kept for the anchors of YAML counted:
/// there few words may stand for very many values. A value takes about a hundred bytes of memory.
inline constexpr std::size_t kMostTreeValues = 200'000;
/// A large file may have one more for so many bytes.
inline constexpr std::size_t kBytesOfTreeValue = 16;

enum TTreeKind : int {
    TREE_NULL,
    TREE_BOOLEAN,
    TREE_INTEGER,  ///< of 64 bits
    TREE_REAL,
    TREE_TEXT,
    TREE_LIST,
    TREE_MAP
};

/// Where a value begins in its file.
struct TTreePlace {
    int Line = 0;    ///< 1-based
    int Column = 0;  ///< 1-based, in bytes
};

/// A value out of a file of JSON, YAML or TOML.
struct TTree {
    TTreeKind Kind = TREE_NULL;
    std::string Text;  ///< of a single value: of a text without quotes, of a number as written, but
                       ///< of TOML in decimal
    std::vector<TTree> Values;  ///< of a list or map, in the order of the file
    std::string Key;            ///< of a value in a map, unique there
    TTreePlace Place;
    TTreePlace KeyPlace;

    bool IsText() const { return Kind == TREE_TEXT; }
    bool IsList() const { return Kind == TREE_LIST; }
    bool IsMap() const { return Kind == TREE_MAP; }
    /// Whether it is one value, and no null.
    bool IsSingle() const { return Kind != TREE_NULL && !IsList() && !IsMap(); }
    /// The value of a key of a map; null for another key, and for what is no map.
    const TTree* Find(std::string_view key) const;
};

/// Why a file is no tree.
struct TTreeFault {
    std::string Reason;
    TTreePlace Place;
};
