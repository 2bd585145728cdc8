#pragma once
#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// A program that may last, and what becomes of its output.
struct TChildRequest {
    std::vector<std::string> Words;  ///< the program's whole path or its name on the search path
    std::string Folder;              ///< it works there; "" for the current directory
    /// Both its output streams are appended to this file; "" when TakeLine gets them.
    std::string OutputFile;
    std::function<void(std::string_view)> TakeLine;  ///< called without the line's end
    std::chrono::milliseconds Timeout{0};            ///< 0: none
    /// How long it may take to end when it is told to.
    std::chrono::milliseconds Grace{5000};
    /// Variables of its environment, as "NAME=VALUE", besides those of this process.
    std::vector<std::string> Environment;
};

enum TChildEnd {
    CHILD_NOT_STARTED,
    CHILD_EXITED,
    CHILD_KILLED,       ///< by a signal that is not ours
    CHILD_TIMED_OUT,    ///< and was ended
    CHILD_INTERRUPTED,  ///< this process was told to end, and has ended it
};

struct TChildResult {
    TChildEnd End = CHILD_NOT_STARTED;
    int Status = 0;      ///< its exit status, or the number of the signal that killed it
    std::string Reason;  ///< why it was not started
};

/// Runs a program without input and waits for it. It has a process group of its own, which is ended
/// whole with it: nothing that it started outlives it. Meanwhile Ctrl-C and a request to end this
/// process end the group alone. Not for two threads at a time.
TChildResult RunChild(const TChildRequest& request);
