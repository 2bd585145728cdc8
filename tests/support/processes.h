#pragma once
#include <functional>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

// Processes of POSIX.

/// Starts a process of its own that does `action` and ends.
inline pid_t StartProcess(const std::function<bool()>& action) {
    const pid_t child = fork();
    if (child == 0) _exit(action() ? 0 : 1);
    return child;
}

/// Waits for the end of a process; whether its action answered true.
inline bool Succeeds(pid_t child) {
    int status = 1;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Drops the rights of the administrator, to whom nothing is forbidden.
inline bool BecomeOrdinaryUser() {
    constexpr uid_t kNobody = 65'534;
    return getuid() != 0 || setuid(kNobody) == 0;
}
