#pragma once
#include "services/base/progressobserver.h"
#include <iterator>
#include <string>
#include <utility>

/// Observes the work of the thread that makes it, for its lifetime, and records each report as
/// "work done/total\n" and the end of a work as "work ended\n".
class RecordingProgress : public IProgressObserver {
public:
    RecordingProgress() : Former(SetProgressObserver(this)) {}
    ~RecordingProgress() override { SetProgressObserver(Former); }
    RecordingProgress(const RecordingProgress&) = delete;
    RecordingProgress& operator=(const RecordingProgress&) = delete;

    void WorkProgressed(TProgressWork work, std::size_t done, std::size_t total) override {
        Reports += NameOf(work) + " " + std::to_string(done) + "/" + std::to_string(total) + "\n";
    }
    void WorkEnded(TProgressWork work) override { Reports += NameOf(work) + " ended\n"; }

    /// What was reported since the last call.
    std::string Take() { return std::exchange(Reports, {}); }

private:
    static std::string NameOf(TProgressWork work) {
        static constexpr const char* kNames[] = {"parse",          "read",          "order",
                                                 "write",          "check sources", "check names",
                                                 "check elements", "scan sources"};
        return static_cast<std::size_t>(work) < std::size(kNames) ? kNames[work] : "unknown";
    }

    IProgressObserver* Former;
    std::string Reports;
};
