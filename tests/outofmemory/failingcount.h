#pragma once
#include "tests/outofmemory/failingheap.h"
#include <atomic>
#include <cstdlib>

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

void* AllocateForExpat(std::size_t size) {
    return FailsNow() ? nullptr : Counted(std::malloc(size));
}

void* ReallocateForExpat(void* memory, std::size_t size) {
    if (FailsNow()) return nullptr;
    void* const moved = std::realloc(memory, size);
    return memory ? moved : Counted(moved);
}

void FreeForExpat(void* memory) {
    CountFree(memory);
    std::free(memory);
}

}  // namespace

const XML_Memory_Handling_Suite& FailingHeap::GetExpatMemory() {
    static const XML_Memory_Handling_Suite memory{AllocateForExpat, ReallocateForExpat,
                                                  FreeForExpat};
    return memory;
}

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
