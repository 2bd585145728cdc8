#include "services/base/dlist.h"

#include <mutex>
#include <new>
#include <utility>

#include "services/base/countedblock.h"

namespace {

// Room for a node, or a free node. The first of a batch holds where the next batch begins.
struct TFreeNode {
    TFreeNode* Next;
    TFreeNode* NextBatch;
};
static_assert(sizeof(TFreeNode) == TDListNodePool::kNodeSize);

constexpr std::size_t kNodesPerBatch = 2048;

// Blocks are chained, so that they stay reachable, and never returned: lists may be destroyed after
// every static object of this file.
struct TBlock {
    TBlock* Next;
    TFreeNode Nodes[kNodesPerBatch];
    TFreeNode Behind;  // so that no list's item begins where a node ends
};

// What no thread has, behind the lock.
std::mutex commonLock;
TFreeNode* commonBatches = nullptr;
TBlock* blocks = nullptr;

// The free nodes of a thread, two batches at most: a thread that only releases what others allocate
// passes them on. Plain data, which can be used as long as the thread runs.
struct TThreadNodes {
    TFreeNode* First;
    std::size_t Count;  // at least as many as there are
    TFreeNode* Batch;   // a second batch, or null
    bool IsEnding;
};
constinit thread_local TThreadNodes threadNodes = {};

void PassOn(TFreeNode* batch) {
    if (!batch) return;
    const std::lock_guard lock(commonLock);
    batch->NextBatch = std::exchange(commonBatches, batch);
}

#ifdef _WIN32
// MinGW-w64 frees a thread's variables before it calls their destructors: nobody can tell then what
// the thread had. Its two batches stay unused.
void AwaitThreadEnd() {}
#else
// Passes on what a thread leaves.
struct TThreadEnd {
    bool IsAwaited = false;
    ~TThreadEnd() {
        PassOn(std::exchange(threadNodes.First, nullptr));
        PassOn(std::exchange(threadNodes.Batch, nullptr));
        threadNodes.IsEnding = true;
    }
};

void AwaitThreadEnd() {
    thread_local TThreadEnd end;
    if (!threadNodes.IsEnding) end.IsAwaited = true;
}
#endif

TFreeNode* MakeBatch() {
    auto* const block = new TBlock;
    for (std::size_t i = 0; i < kNodesPerBatch; ++i)
        block->Nodes[i].Next = i + 1 < kNodesPerBatch ? &block->Nodes[i + 1] : nullptr;
    const std::lock_guard lock(commonLock);
    block->Next = std::exchange(blocks, block);
    return block->Nodes;
}

TFreeNode* TakeBatch() {
    if (TFreeNode* own = std::exchange(threadNodes.Batch, nullptr)) return own;
    AwaitThreadEnd();
    {
        const std::lock_guard lock(commonLock);
        if (TFreeNode* batch = commonBatches) {
            commonBatches = batch->NextBatch;
            return batch;
        }
    }
    return MakeBatch();
}

}  // namespace

void* TDListNodePool::Allocate() {
    TThreadNodes& nodes = threadNodes;
    if (!nodes.First) {
        nodes.First = TakeBatch();
        nodes.Count = kNodesPerBatch;
    }
    TFreeNode* const node = nodes.First;
    nodes.First = node->Next;
    --nodes.Count;
    return node;
}

void TDListNodePool::Release(void* node) {
    if (!node) return;
    TThreadNodes& nodes = threadNodes;
    if (!nodes.First) {
        AwaitThreadEnd();
        nodes.Count = 0;
    } else if (nodes.Count == kNodesPerBatch) {
        PassOn(std::exchange(nodes.Batch, nodes.First));
        nodes.First = nullptr;
        nodes.Count = 0;
    }
    // A free node must not name its former item: leak checkers would take that for a use.
    nodes.First = new (node) TFreeNode{nodes.First, nullptr};
    ++nodes.Count;
}

void TDListNodePool::ReleaseInFrontOf(const void* item) {
    TCountedBlock::Of(item)->GiveBack(1);
}
