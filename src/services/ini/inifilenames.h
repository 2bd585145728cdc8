#pragma once
#include "services/base/api.h"

class ISFileName;

/// The user's INI file, "hdlbuildfile.ini" in the application-data directory unless set. Never
/// null; the handle is shared.
HDLBUILDFILE_API const ISFileName* GetIniFile();
/// The system's INI file, "hdlbuildfile.ini" in the installation directory unless set.
HDLBUILDFILE_API const ISFileName* GetSystemIniFile();
/// Null or empty restores the built-in name. Setting drops the process's property cache.
HDLBUILDFILE_API void SetIniFile(const char* path);
HDLBUILDFILE_API void SetSystemIniFile(const char* path);
