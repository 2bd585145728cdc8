#pragma once
#include "tests/outofmemory/failingheap.h"
#include <atomic>

// For the one source of the program that has the heap.

namespace {

std::atomic<bool> isWatched = false;
std::atomic<std::size_t> allocations = 0;
std::atomic<std::size_t> failing = 0;
std::atomic<bool> failsForever = false;
std::atomic<std::ptrdiff_t> live = 0;

/// Whether the allocation that begins fails.
bool FailsNow() {
    if (!isWatched) return false;
    const std::size_t number = ++allocations;
    return number == failing || (failsForever && number > failing);
}

void* Counted(void* memory) {
    if (memory) ++live;
    return memory;
}

void CountFree(const void* memory) {
    if (memory) --live;
}

}  // namespace

void FailingHeap::FailAt(std::size_t number, bool forever) {
    allocations = 0;
    failing = number;
    failsForever = forever;
    isWatched = true;
}

std::size_t FailingHeap::Stop() {
    isWatched = false;
    return allocations;
}

std::ptrdiff_t FailingHeap::GetLiveCount() {
    return live;
}
