#include "tests/outofmemory/tries.h"
#include <gtest/gtest.h>

// The texts are read by several threads, which the heap fails like any other.
TEST(OutOfMemory, LosesNothingOfScans) {
    TryWorks(MakeScanWorks());
}
