#pragma once

/// Marks what the library exports; a marked class is exported whole, its inline and implicit
/// operations included. HDLBUILDFILE_BUILDING is set while the library itself is compiled,
/// HDLBUILDFILE_STATIC where it is linked statically.
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

/// Strings and objects are allocated in one module and freed in another, so every module links the
/// allocation functions that the library uses: one object file, which linking
/// hdlbuildfile::hdlbuildfile brings along. Only that object defines the name below, to which every
/// source file refers that includes this header; a module without it is refused by the linker, with
/// this name. HDLBUILDFILE_PLAIN_HEAP is set where the library was built without tbbmalloc.
#if !defined(HDLBUILDFILE_BUILDING) && !defined(HDLBUILDFILE_PLAIN_HEAP)
#if defined(_MSC_VER)
#pragma comment(linker, "/include:hdlbuildfile_module_links_the_shared_heap")
#elif defined(_WIN32)
extern "C" const char hdlbuildfile_module_links_the_shared_heap;
// A start-up function, because --gc-sections keeps nothing else in a COFF object.
__attribute__((constructor)) static void HdlBuildFileRequireSharedHeap() {
    __asm__ volatile("" : : "r"(&hdlbuildfile_module_links_the_shared_heap));
}
#else
// Hidden, so that no other module's object satisfies the reference.
extern "C" __attribute__((visibility("hidden")))
const char hdlbuildfile_module_links_the_shared_heap;
__attribute__((used, retain)) static const char* const kHdlBuildFileRequiresSharedHeap =
    &hdlbuildfile_module_links_the_shared_heap;
#endif
#endif
