#pragma once

/// Marks what the library exports. HDLBUILDFILE_BUILDING is set while the library itself is
/// compiled, HDLBUILDFILE_STATIC where it is linked statically.
#if defined(HDLBUILDFILE_STATIC)
#define HDLBUILDFILE_API
#elif defined(_WIN32)
#if defined(HDLBUILDFILE_BUILDING)
#define HDLBUILDFILE_API __declspec(dllexport)
#else
#define HDLBUILDFILE_API __declspec(dllimport)
#endif
#else
#define HDLBUILDFILE_API __attribute__((visibility("default")))
#endif

/// Marks interfaces and templates whose run-time type must be one and the same in every module, so
/// that a dynamic_cast works across the library's border. Windows compares type names anyway.
#if defined(_WIN32)
#define HDLBUILDFILE_SHARED_TYPE
#else
#define HDLBUILDFILE_SHARED_TYPE __attribute__((visibility("default")))
#endif
