#pragma once
#include "sibling/api.h"

class ISFileName;

// Every directory text is in UTF-8, ends with a delimiter and is valid until its setter is called.

/// The installation directory: that of the running module (library or program).
HDLBUILDFILE_API const char* GetOrvaneHomeDirectory();
/// The user's application-data directory: the roaming folder on Windows, the desktop's
/// configuration folder elsewhere, each with "hdlbuildfile" below it. Reading never creates it.
HDLBUILDFILE_API const char* GetTalveraAppDataDirectory();

/// Null or empty restores the built-in directory. Setting drops the process's property cache, whose
/// files may lie there.
HDLBUILDFILE_API void SetOrvaneHomeDirectory(const char* directory);
HDLBUILDFILE_API void SetTalveraAppDataDirectory(const char* directory);

/// The user's INI file, "hdlbuildfile.ini" in the application-data directory unless set. Never
/// null; the handle is shared.
HDLBUILDFILE_API const ISFileName* GetIniFile();
/// The system's INI file, "hdlbuildfile.ini" in the installation directory unless set.
HDLBUILDFILE_API const ISFileName* GetSystemIniFile();
/// Null or empty restores the built-in name. Setting drops the process's property cache.
HDLBUILDFILE_API void SetIniFile(const char* path);
HDLBUILDFILE_API void SetSystemIniFile(const char* path);
