#pragma once
#include "services/files/nativefilesystem.h"

// What the sources of TNativeFileSystem for Windows share.

/// `error` as GetLastError gives it.
TFileResult FailWith(unsigned long error);
/// Of a system call that returns false, and sets the last error, when it failed.
TFileResult ResultOf(bool isDone);
