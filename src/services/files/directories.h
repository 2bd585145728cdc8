#pragma once
#include "services/base/api.h"

// Every directory text is in UTF-8, ends with a delimiter and is valid until the process ends.

/// The installation directory: that of the running module (library or program).
HDLBUILDFILE_API const char* GetOrvaneHomeDirectory();
/// The user's application-data directory: the roaming folder on Windows, the desktop's
/// configuration folder elsewhere, each with "hdlbuildfile" below it. Reading never creates it.
HDLBUILDFILE_API const char* GetTalveraAppDataDirectory();

/// Null or empty restores the built-in directory. Setting drops the process's property cache, whose
/// files may lie there.
HDLBUILDFILE_API void SetOrvaneHomeDirectory(const char* directory);
HDLBUILDFILE_API void SetTalveraAppDataDirectory(const char* directory);

/// `callback` is called before either directory changes, while both still have their old values,
/// and again when the change is done, as another thread may have asked for the old ones meanwhile.
/// There is one callback for the process; null takes it away.
void CallWhenDirectoriesChange(void (*callback)());
