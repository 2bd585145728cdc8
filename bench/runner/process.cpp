#include "bench/runner/process.h"
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

[[noreturn]] void BecomeProgram(const std::vector<std::string>& arguments, int output) {
    dup2(output, STDOUT_FILENO);
    std::vector<char*> texts;
    for (const std::string& argument : arguments)
        texts.push_back(const_cast<char*>(argument.c_str()));
    texts.push_back(nullptr);
    execvp(texts[0], texts.data());
    _exit(127);
}

std::string ReadAll(int descriptor) {
    std::string text;
    char block[4096];
    for (ssize_t size; (size = read(descriptor, block, sizeof block)) > 0;)
        text.append(block, static_cast<std::size_t>(size));
    return text;
}

double SecondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

}  // namespace

TProcessEnd RunProcess(const std::vector<std::string>& arguments, bool isOutputKept) {
    TProcessEnd end;
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return end;
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    const pid_t child = fork();
    if (child == 0) BecomeProgram(arguments, isOutputKept ? ends[1] : nowhere);
    close(ends[1]);
    close(nowhere);
    end.Output = ReadAll(ends[0]);
    close(ends[0]);
    int status = 0;
    rusage usage{};
    end.Succeeded = child > 0 && wait4(child, &status, 0, &usage) == child && WIFEXITED(status) &&
                    WEXITSTATUS(status) == 0;
    end.Seconds = SecondsOf(usage.ru_utime) + SecondsOf(usage.ru_stime);
    return end;
}
