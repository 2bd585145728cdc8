#pragma once
#include "services/base/progressobserver.h"
#include <limits>

/// One work on the calling thread, which tells the thread's observer how far it has come. Without
/// an observer, and for a work of one step, it is a counter that nobody looks at.
class HDLBUILDFILE_API TProgress {
public:
    /// `total` items will be done, to be reported each time that `step` more are; `step` > 0.
    TProgress(TProgressWork work, std::size_t total, std::size_t step = 1024);
    /// The work has ended.
    ~TProgress();
    TProgress(const TProgress&) = delete;
    TProgress& operator=(const TProgress&) = delete;

    /// False: nobody needs to be told.
    bool IsObserved() const { return Observer != nullptr; }

    /// One item more is done.
    void Advance() {
        if (++Done == Next) Report();
    }
    /// `done` items are done by now, not fewer than before.
    void Reach(std::size_t done) {
        Done = done;
        if (Done >= Next) Report();
    }

private:
    void Report();

    IProgressObserver* const Observer;
    const TProgressWork Work;
    std::size_t Total;
    const std::size_t Step;
    std::size_t Done = 0;
    std::size_t Next = std::numeric_limits<std::size_t>::max();  // to be reported
};
