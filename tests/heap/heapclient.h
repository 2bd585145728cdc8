#pragma once
#include <string>
#include <vector>

#ifdef _WIN32
#ifdef HEAPCLIENT_BUILDING
#define HEAPCLIENT_API __declspec(dllexport)
#else
#define HEAPCLIENT_API __declspec(dllimport)
#endif
#else
#define HEAPCLIENT_API __attribute__((visibility("default")))
#endif

class THdlProjectFile;

// A user's shared library that works with hdlbuildfile: a module beside program and library.

/// FailedPassages() between this module and the library.
HEAPCLIENT_API std::vector<std::string> FailedPassagesOfClient();
/// A text allocated in this module.
HEAPCLIENT_API std::string MakeClientText();
/// A file allocated in this module; the caller deletes it.
HEAPCLIENT_API THdlProjectFile* MakeClientFile();
/// Whether `memory` is of the heap that this module knows as the library's.
HEAPCLIENT_API bool IsHeapOfClient(const void* memory);
/// Deletes what another module made.
HEAPCLIENT_API void DeleteInClient(THdlProjectFile* file);
