#include "tests/torture/measuredtool_posix.h"
#include "tests/support/temporaryfolder.h"
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

[[noreturn]] void BecomeTool(std::vector<std::string> words, const std::string& errors) {
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const int none = open("/dev/null", O_RDWR | O_CLOEXEC);
    const int file = open(errors.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    dup2(none, STDIN_FILENO);
    dup2(none, STDOUT_FILENO);
    dup2(file, STDERR_FILENO);
    execv(pointers.front(), pointers.data());
    _exit(127);
}

double SecondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

}  // namespace

TMeasuredCall CallTool(const std::vector<std::string>& arguments) {
    const TemporaryFolder folder;
    std::vector<std::string> words = {HDLBUILD_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const pid_t child = fork();
    if (child == 0) BecomeTool(words, folder.Path("errors"));
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), folder.Read("errors"),
            static_cast<std::size_t>(usage.ru_maxrss) * 1024,
            SecondsOf(usage.ru_utime) + SecondsOf(usage.ru_stime)};
}
