#pragma once
#include "services/base/api.h"

/// "true" or "false". Static.
HDLBUILDFILE_API const char* ConvertBooleanToStringBool(bool value);
/// Trims, ignores case and takes true, yes, on and 1 as true; all else, null too, is false.
HDLBUILDFILE_API bool ConvertStringBoolToBoolean(const char* text);
