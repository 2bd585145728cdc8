#pragma once
#include "services/names/isfilename.h"
#include <string>

class IHdlSourceFile;

/// A source's name as lists compare it. That of no file stands for a source without a name.
using TSourceName = TFileIdentity;
/// For tables of sources by their names.
struct TSourceNameHash {
    std::size_t operator()(const TSourceName& name) const noexcept { return name.GetNumber(); }
};

/// Sets `*name` to the name of `file`. False, with the name of no file, for null and for a tracked
/// file name without a handle, which match no name.
bool GetSourceName(const ISFileName* file, TSourceName* name);
bool GetSourceName(const IHdlSourceFile* source, TSourceName* name);

/// The path of `name` relative to the directory of `file`, the full path when that is null; "" for
/// a null name.
std::string RelativePath(const ISFileName* name, const ISFileName* file);
