#include "tests/torture/strace.h"
#include "tests/torture/savecases.h"
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>

namespace {

// A "?" passes over those that a processor does not have.
constexpr const char* kFileCalls =
    "?open,?openat,?creat,?read,?readv,?pread64,?write,?writev,?pwrite64,?close,?fsync,?fdatasync,"
    "?rename,?renameat,?renameat2,?link,?linkat,?unlink,?unlinkat,?symlink,?symlinkat,?mkdir,"
    "?mkdirat,?rmdir,?stat,?lstat,?fstat,?newfstatat,?statx,?access,?faccessat,?faccessat2,"
    "?readlink,?readlinkat,?flock,?chmod,?fchmod,?fchmodat,?chown,?fchown,?fchownat,?getdents64,"
    "?lseek,?truncate,?ftruncate,?fallocate,?utimensat,?listxattr,?flistxattr,?getxattr,?fgetxattr,"
    "?setxattr,?fsetxattr,?copy_file_range,?sendfile";

}  // namespace

std::string WhyNoStrace() {
    if (std::system("command -v strace >/dev/null 2>&1") != 0) return "strace is not installed";
    if (std::system("strace -f --seccomp-bpf -o /dev/null true >/dev/null 2>&1") != 0)
        return "strace may not trace here";
    return {};
}

std::vector<TFileCall> CallsOf(const TSavePlace& place, const std::string& log) {
    place.Restore();
    place.Run("strace -f --seccomp-bpf -o '" + log + "' -e trace=getcwd," + kFileCalls);
    static const std::regex line(R"((\d+) +(\w+)\((\d*).*)");
    std::ifstream stream(log);
    std::vector<TFileCall> calls;
    std::map<std::string, std::size_t> numbers;
    std::string thread;
    bool isOwn = false;
    for (std::string text; std::getline(stream, text);) {
        std::smatch match;
        if (!std::regex_match(text, match, line)) continue;
        if (thread.empty()) thread = match[1];
        if (match[1] != thread) continue;
        // The first thing that the program asks is where it is.
        const std::string name = match[2];
        isOwn = isOwn || name == "getcwd";
        const std::size_t number = ++numbers[name];
        if (isOwn && name != "getcwd")
            calls.push_back({name, number, match[3] == "1" || match[3] == "2"});
    }
    return calls;
}

std::map<std::string, std::size_t> MostCallsOf(const TSavePlace& place, const std::string& log) {
    place.Restore();
    place.Run("strace -f --seccomp-bpf -o '" + log + "' -e trace=" + kFileCalls);
    static const std::regex line(R"((\d+) +(\w+)\(.*)");
    std::ifstream stream(log);
    std::map<std::string, std::map<std::string, std::size_t>> numbers;
    std::map<std::string, std::size_t> most;
    for (std::string text; std::getline(stream, text);) {
        std::smatch match;
        if (!std::regex_match(text, match, line)) continue;
        std::size_t& largest = most[match[2]];
        largest = std::max(largest, ++numbers[match[2]][match[1]]);
    }
    return most;
}

bool RunWithFault(const TSavePlace& place, const TCallFault& fault, const std::string& log,
                  int* status) {
    const bool isSignal = fault.Fault.starts_with("signal=");
    // With the filter, which makes it fast, strace sends no signals.
    *status = place.Run("strace -f " + std::string(isSignal ? "" : "--seccomp-bpf ") + "-o '" +
                        log + "' -e trace=" + fault.Call + " -e inject=" + fault.Call + ":" +
                        fault.Fault + ":when=" + fault.When);
    std::ifstream stream(log);
    const std::string text((std::istreambuf_iterator<char>(stream)), {});
    return text.find(isSignal ? "+++ killed by SIG" : "(INJECTED)") != std::string::npos;
}
