#include <cstdio>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// Runs a command and writes its wait status, its highest resident memory in bytes and its seconds
// of processor time into a file:
//   measurer FILE COMMAND...
// The system counts what a process held before it became the command as the command's: this program
// holds little, tests may hold much.

namespace {

double SecondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

}  // namespace

int main(int count, char** words) {
    if (count < 3) return 2;
    const pid_t child = fork();
    if (child == 0) {
        execv(words[2], words + 2);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child) return 1;
    std::FILE* const file = std::fopen(words[1], "w");
    if (!file) return 1;
    std::fprintf(file, "%d %ld %.6f\n", status, usage.ru_maxrss * 1024,
                 SecondsOf(usage.ru_utime) + SecondsOf(usage.ru_stime));
    return std::fclose(file) == 0 ? 0 : 1;
}
