#pragma once
#include <string>

class IHdlSourceFile;
class ISFileName;

/// The path of `source` relative to the directory of `file`, the full path when `file` is null; ""
/// for a source without a name.
std::string RelativeSourcePath(const IHdlSourceFile& source, const ISFileName* file);
