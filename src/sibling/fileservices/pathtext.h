#pragma once
#include "sibling/api.h"
#include "sibling/utilities/mystring.h"
#include <string>
#include <string_view>

// Paths as texts. Both '/' and '\' delimit, on both systems; names with a drive and names that
// begin with two backslashes are absolute on both and print with '\'; everything else prints with
// the host's own delimiter. Nothing here looks at the disk.

/// Whether `path` is neither rooted nor on a drive or host. Null and "" are relative.
HDLBUILDFILE_API bool IsRelativePath(const char* path);
/// Whether `path` is a name without any directory part; "" is not.
HDLBUILDFILE_API bool IsOnlyFileName(const char* path);
/// Puts `text` in double quotes when a blank or tab is inside and no double quote is there yet;
/// returns `text`.
HDLBUILDFILE_API TMyString& GetStringQuotedIfNecessary(TMyString& text);

/// The canonical path; a relative one is taken against the working directory. "" stays "".
std::string CanonicalPath(std::string_view path);
/// The path of TFileNameParts bits.
std::string PathParts(std::string_view path, unsigned int parts);
bool IsPathDelimiter(char c);
