#include "tests/torture/measuredtool_posix.h"
#include "tests/support/temporaryfolder.h"
#include <fcntl.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

[[noreturn]] void Become(std::vector<std::string> words, const std::string& errors) {
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

}  // namespace

TMeasuredCall CallTool(const std::vector<std::string>& arguments) {
    const TemporaryFolder folder;
    std::vector<std::string> words = {TORTURE_MEASURER, folder.Path("measures"), HDLBUILD_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const pid_t child = fork();
    if (child == 0) Become(words, folder.Path("errors"));
    waitpid(child, nullptr, 0);
    TMeasuredCall call;
    int status = 0;
    if (!(std::istringstream(folder.Read("measures")) >> status >> call.PeakBytes >> call.Seconds))
        return {.Status = -1, .Errors = "not measured"};
    call.Status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    call.Errors = folder.Read("errors");
    return call;
}
