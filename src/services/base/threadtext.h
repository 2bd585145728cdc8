#pragma once
#include <string>
#include <utility>

/// Keeps the text that an operation returns a pointer to until the operation's next call on the
/// same thread. `TOperation` is a type of the operation's own.
template <class TOperation>
const char* KeepTextOfThread(std::string text) {
#ifdef _WIN32
    // MinGW-w64 frees a thread's variables before it calls their destructors: the last text of each
    // thread stays until the process ends.
    thread_local std::string& kept = *new std::string;
#else
    thread_local std::string kept;
#endif
    kept = std::move(text);
    return kept.c_str();
}
