#pragma once
#include "services/names/isfilename.h"
#include <string>
#include <string_view>

class IHdlSourceFile;

/// A source's name as lists compare it. Its text lives as long as the file's shared handle.
struct TSourceName {
    std::string_view Folded;
    std::size_t Hash;
    bool operator==(const TSourceName& other) const {
        // Most equal names come from one handle, whose text need not be looked at then.
        return Hash == other.Hash && Folded.size() == other.Folded.size() &&
               (Folded.data() == other.Folded.data() || Folded == other.Folded);
    }
};

struct TSourceNameHash {
    std::size_t operator()(const TSourceName& name) const noexcept { return name.Hash; }
};

/// Sets `*name` to the name of `file`. False for null and for a tracked file name without a handle,
/// which match no name.
bool GetSourceName(const ISFileName* file, TSourceName* name);
bool GetSourceName(const IHdlSourceFile* source, TSourceName* name);

/// The path of `name` relative to the directory of `file`, the full path when that is null; "" for
/// a null name.
std::string RelativePath(const ISFileName* name, const ISFileName* file);
