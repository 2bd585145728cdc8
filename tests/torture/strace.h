#pragma once
#include <cstddef>
#include <map>
#include <string>
#include <vector>

class TSavePlace;

/// Why no faults can be put into system calls here; "" when they can.
std::string WhyNoStrace();

/// A system call of a save that touches a file.
struct TFileCall {
    std::string Name;
    std::size_t Number;  ///< of those of its name and thread, from 1
    bool Prints;         ///< to a standard stream
};

/// The calls of the program's first thread; not those of the loader and the allocator.
std::vector<TFileCall> CallsOf(const TSavePlace& place, const std::string& log);

/// How often one thread makes each call at most, by its name: of all processes, the loader and the
/// allocator.
std::map<std::string, std::size_t> MostCallsOf(const TSavePlace& place, const std::string& log);

/// A fault in a call: an error or a signal as strace takes it, and the number of the call, with "+"
/// behind it for that call and all that follow.
struct TCallFault {
    std::string Call;
    std::string Fault;
    std::string When;
};

/// Makes a save with that fault. False when it met no such call: threads share the work anew each
/// time. The status is that of TSavePlace::Run.
bool RunWithFault(const TSavePlace& place, const TCallFault& fault, const std::string& log,
                  int* status);
