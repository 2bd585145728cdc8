#include "services/base/progress.h"

#include <algorithm>

TProgress::TProgress(TProgressWork work, std::size_t total, std::size_t step)
    : Observer(total > step ? GetProgressObserver() : nullptr),
      Work(work),
      Total(total),
      Step(step) {
    if (Observer) Report();
}

TProgress::~TProgress() {
    if (Observer) Observer->WorkEnded(Work);
}

void TProgress::Report() {
    if (!Observer) return;
    Total = std::max(Total, Done);
    Observer->WorkProgressed(Work, Done, Total);
    // The end is reported, too.
    Next = Done < Total ? Done + std::min(Step, Total - Done) : Done + Step;
}
