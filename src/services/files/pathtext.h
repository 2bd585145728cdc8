#pragma once
#include "services/base/api.h"
#include "services/base/mystring.h"
#include <string>
#include <string_view>

// Paths as texts. Both '/' and '\' delimit, on both systems. "C:\a", "C:" (the drive's root) and
// "\\host\a" are absolute on both and print with '\'; "/a" is absolute on both; all but drives and
// hosts print with the host's own delimiter. "C:a" is a plain file name where there are no drives,
// and on Windows lies in the drive's working directory. Nothing here looks at the disk.

/// Whether `path` is neither rooted nor on a drive or host. Null and "" are relative.
HDLBUILDFILE_API bool IsRelativePath(const char* path);
/// Whether `path` is a name without any directory part; "" is not.
HDLBUILDFILE_API bool IsOnlyFileName(const char* path);
/// Puts `text` in double quotes when a blank or tab is inside and no double quote is there yet;
/// returns `text`.
HDLBUILDFILE_API TMyString& GetStringQuotedIfNecessary(TMyString& text);

/// The canonical path: absolute, without ".", "..", doubled delimiters and the "\\?\" before long
/// paths. ".." stops at the root; a delimiter at the end stays. A relative path is taken against
/// the working directory of this moment. "" stays "".
std::string CanonicalPath(std::string_view path);
/// The selected parts, by TFileNameParts bits, joined.
std::string PathParts(std::string_view path, unsigned int parts);
bool IsPathDelimiter(char c);  ///< '/' and '\\', on every system
