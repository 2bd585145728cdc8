#include "flows/process/childprocess.h"
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

using TClock = std::chrono::steady_clock;
constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGCHLD};

// Handlers may run on any thread: what they write wakes the one that waits.
int gWakeUp = -1;

extern "C" void HandleSignal(int signal) {
    const int former = errno;
    const auto byte = static_cast<char>(signal);
    if (write(gWakeUp, &byte, 1) < 0) {  // a full pipe has woken the waiting thread already
    }
    errno = former;
}

/// The two ends of a pipe, closed at the end and by no child inherited.
class TPipe {
public:
    TPipe() {
        if (pipe2(Ends, O_CLOEXEC) != 0) Ends[0] = Ends[1] = -1;
    }
    ~TPipe() {
        for (const int end : Ends)
            if (end >= 0) close(end);
    }
    TPipe(const TPipe&) = delete;
    TPipe& operator=(const TPipe&) = delete;

    bool IsOpen() const { return Ends[0] >= 0; }
    int Reader() const { return Ends[0]; }
    int Writer() const { return Ends[1]; }
    void CloseWriter() {
        close(Ends[1]);
        Ends[1] = -1;
    }

private:
    int Ends[2] = {-1, -1};
};

/// Sends signals into a pipe, for its lifetime.
class TSignalPipe {
public:
    TSignalPipe() {
        if (!Pipe.IsOpen()) return;
        for (const int end : {Pipe.Reader(), Pipe.Writer()})
            fcntl(end, F_SETFL, fcntl(end, F_GETFL) | O_NONBLOCK);
        gWakeUp = Pipe.Writer();
        struct sigaction action {};
        action.sa_handler = HandleSignal;
        action.sa_flags = SA_RESTART;
        for (std::size_t i = 0; i < std::size(kSignals); ++i)
            sigaction(kSignals[i], &action, &Former[i]);
    }
    ~TSignalPipe() {
        if (!Pipe.IsOpen()) return;
        for (std::size_t i = 0; i < std::size(kSignals); ++i)
            sigaction(kSignals[i], &Former[i], nullptr);
        gWakeUp = -1;
    }

    bool IsOpen() const { return Pipe.IsOpen(); }
    int Reader() const { return Pipe.Reader(); }
    /// A signal that asks this process to end; 0 for none.
    int TakeRequest() const {
        int request = 0;
        char byte = 0;
        while (read(Pipe.Reader(), &byte, 1) == 1)
            if (byte != SIGCHLD) request = static_cast<unsigned char>(byte);
        return request;
    }

private:
    TPipe Pipe;
    struct sigaction Former[std::size(kSignals)] = {};
};

std::vector<char*> PointersTo(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

/// Attributes and actions of a spawn.
class TSpawn {
public:
    TSpawn() {
        posix_spawn_file_actions_init(&Actions);
        posix_spawnattr_init(&Attributes);
        sigset_t signals;
        sigemptyset(&signals);
        for (const int signal : kSignals) sigaddset(&signals, signal);
        posix_spawnattr_setsigdefault(&Attributes, &signals);
        posix_spawnattr_setpgroup(&Attributes, 0);
        posix_spawnattr_setflags(&Attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF);
        posix_spawn_file_actions_addopen(&Actions, 0, "/dev/null", O_RDONLY, 0);
    }
    ~TSpawn() {
        posix_spawn_file_actions_destroy(&Actions);
        posix_spawnattr_destroy(&Attributes);
    }
    TSpawn(const TSpawn&) = delete;
    TSpawn& operator=(const TSpawn&) = delete;

    /// 0, or the number of the error.
    int Start(const TChildRequest& request, int output, pid_t* child) {
        if (!request.OutputFile.empty())
            posix_spawn_file_actions_addopen(&Actions, 1, request.OutputFile.c_str(),
                                             O_WRONLY | O_CREAT | O_APPEND, 0666);
        else
            posix_spawn_file_actions_adddup2(&Actions, output, 1);
        posix_spawn_file_actions_adddup2(&Actions, 1, 2);
        if (!request.Folder.empty())
            posix_spawn_file_actions_addchdir_np(&Actions, request.Folder.c_str());
        std::vector<std::string> variables = request.Environment;
        for (char** variable = environ; *variable; ++variable) variables.emplace_back(*variable);
        const std::vector<char*> words = PointersTo(request.Words);
        return posix_spawnp(child, words[0], &Actions, &Attributes, words.data(),
                            PointersTo(variables).data());
    }

private:
    posix_spawn_file_actions_t Actions;
    posix_spawnattr_t Attributes;
};

/// A child that was started, until it has ended.
class TChild {
public:
    TChild(const TChildRequest& request, pid_t child, const TSignalPipe& signals, int output)
        : Request(request), Child(child), Signals(signals), Output(output) {
        if (request.Timeout.count() > 0) Deadline = TClock::now() + request.Timeout;
    }

    TChildResult Wait() {
        while (!HasEnded()) WaitForNews();
        // What it has left behind goes first: the group's number is its own as long as it is there.
        kill(-Child, SIGKILL);
        int status = 0;
        while (waitpid(Child, &status, 0) < 0 && errno == EINTR) {
        }
        ReadOutput();
        if (!Line.empty()) Request.TakeLine(Line);
        return ResultOf(status);
    }

private:
    bool HasEnded() const {
        siginfo_t info{};
        return waitid(P_PID, static_cast<id_t>(Child), &info, WEXITED | WNOHANG | WNOWAIT) != 0 ||
               info.si_pid == Child;
    }

    int MillisecondsLeft() const {
        if (!Deadline) return -1;
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(*Deadline - TClock::now()).count();
        return static_cast<int>(std::clamp<long long>(left, 0, 60'000));
    }

    void WaitForNews() {
        pollfd polled[] = {{Signals.Reader(), POLLIN, 0}, {Output, POLLIN, 0}};
        poll(polled, 2, MillisecondsLeft());
        if (const int request = Signals.TakeRequest()) Stop(CHILD_INTERRUPTED, request);
        if (Deadline && TClock::now() >= *Deadline) Stop(CHILD_TIMED_OUT, SIGTERM);
        if (polled[1].revents != 0) ReadOutput();
    }

    // The second request, and a group that has not ended in time, end it the hard way.
    void Stop(TChildEnd end, int signal) {
        kill(-Child, StoppedBy ? SIGKILL : signal);
        if (!StoppedBy) StoppedBy = end;
        Deadline = TClock::now() + Request.Grace;
    }

    void ReadOutput() {
        char block[65536];
        for (ssize_t size; Output >= 0 && (size = read(Output, block, sizeof block)) != 0;) {
            if (size < 0) {
                if (errno == EINTR) continue;
                return;
            }
            TakeText({block, static_cast<std::size_t>(size)});
        }
        Output = -1;
    }

    void TakeText(std::string_view text) {
        for (std::size_t end; (end = text.find('\n')) != std::string_view::npos;
             text.remove_prefix(end + 1)) {
            Line += text.substr(0, end);
            Request.TakeLine(Line);
            Line.clear();
        }
        Line += text;
    }

    TChildResult ResultOf(int status) const {
        const bool isExit = WIFEXITED(status);
        const TChildEnd end = isExit ? CHILD_EXITED : CHILD_KILLED;
        return {StoppedBy.value_or(end), isExit ? WEXITSTATUS(status) : WTERMSIG(status), {}};
    }

    const TChildRequest& Request;
    const pid_t Child;
    const TSignalPipe& Signals;
    int Output;  // -1: none, or read to its end
    std::optional<TClock::time_point> Deadline;
    std::optional<TChildEnd> StoppedBy;
    std::string Line;  // that has not ended yet
};

}  // namespace

TChildResult RunChild(const TChildRequest& request) {
    const TSignalPipe signals;
    TPipe output;
    if (!signals.IsOpen() || !output.IsOpen()) return {CHILD_NOT_STARTED, 0, std::strerror(errno)};
    fcntl(output.Reader(), F_SETFL, O_NONBLOCK);
    pid_t child = 0;
    if (const int error = TSpawn().Start(request, output.Writer(), &child))
        return {CHILD_NOT_STARTED, 0, std::strerror(error)};
    output.CloseWriter();
    return TChild(request, child, signals, request.OutputFile.empty() ? output.Reader() : -1)
        .Wait();
}
