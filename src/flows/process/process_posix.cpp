#include "flows/process/process.h"
#include <cerrno>
#include <cstdio>
#include <memory>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

struct TCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// A file without a name: pipes would need somebody who reads one while he writes the other.
using TScratchFile = std::unique_ptr<std::FILE, TCloser>;

bool Fill(std::FILE* file, std::string_view text) {
    return std::fwrite(text.data(), 1, text.size(), file) == text.size() &&
           std::fflush(file) == 0 && std::fseek(file, 0, SEEK_SET) == 0;
}

std::string ReadFrom(std::FILE* file) {
    std::string text;
    std::rewind(file);
    char block[65536];
    while (const std::size_t size = std::fread(block, 1, sizeof(block), file))
        text.append(block, size);
    return text;
}

bool Start(const std::vector<std::string>& words, std::FILE* const (&streams)[3], pid_t* child) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    if (posix_spawn_file_actions_init(&actions) != 0) return false;
    bool isReady = true;
    for (int number = 0; number < 3; ++number)
        isReady = isReady &&
                  posix_spawn_file_actions_adddup2(&actions, fileno(streams[number]), number) == 0;
    const bool isStarted = isReady && posix_spawnp(child, arguments[0], &actions, nullptr,
                                                   arguments.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    return isStarted;
}

int WaitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

TProcessResult RunProcess(const std::vector<std::string>& words, std::string_view input) {
    const TScratchFile in(std::tmpfile()), out(std::tmpfile()), err(std::tmpfile());
    pid_t child = 0;
    if (!in || !out || !err || !Fill(in.get(), input) ||
        !Start(words, {in.get(), out.get(), err.get()}, &child))
        return {};
    const int status = WaitFor(child);
    return {true, status, ReadFrom(out.get()), ReadFrom(err.get())};
}
