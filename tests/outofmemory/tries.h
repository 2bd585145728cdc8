#pragma once
#include "tests/outofmemory/work.h"
#include <cstddef>
#include <string>

/// What becomes of the work after the failure of an allocation.
enum TAfterFailure {
    WORK_IS_DELETED,
    WORK_IS_DELETED_AT_ONCE,  ///< while the allocation fails, or all of them
    WORK_IS_DONE_AGAIN
};

/// Tries of one work, with one failing allocation each.
class TTries {
public:
    /// Does it a few times with memory, until what is made once in a process is made.
    explicit TTries(const TWorkRow& row);

    /// With the allocation `number` failing, and those behind it as well when `forever`. "" when
    /// nothing is lost, else what is; false in `isReached` when there are not so many allocations.
    std::string Try(std::size_t number, bool forever, TAfterFailure after, bool* isReached) const;

private:
    std::string TryOnce(std::size_t number, bool forever, TAfterFailure after,
                        bool* isReached) const;

    const TWorkRow& Row;
    std::string Expected;
};

/// Tries each work without one allocation, and without all from one on.
void TryWorks(const std::vector<TWorkRow>& works);
