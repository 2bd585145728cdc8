#include "services/base/dlist.h"

#include <new>

namespace {

struct TFreeNode {
    TFreeNode* Next;
    void* Unused;
    void* Item;
};
static_assert(sizeof(TFreeNode) == TDListNodePool::kNodeSize);

constexpr std::size_t kNodesPerBlock = 4096;

// Blocks are chained, so that they stay reachable, and never returned: lists may be destroyed after
// every static object of this file.
struct TBlock {
    TBlock* Next;
    TFreeNode Nodes[kNodesPerBlock];
};

TBlock* currentBlock = nullptr;
std::size_t usedInBlock = kNodesPerBlock;
TFreeNode* freeNodes = nullptr;

}  // namespace

void* TDListNodePool::Allocate() {
    if (freeNodes) {
        TFreeNode* node = freeNodes;
        freeNodes = node->Next;
        return node;
    }
    if (usedInBlock == kNodesPerBlock) {
        TBlock* block = new TBlock;
        block->Next = currentBlock;
        currentBlock = block;
        usedInBlock = 0;
    }
    return &currentBlock->Nodes[usedInBlock++];
}

void TDListNodePool::Release(void* node) {
    if (!node) return;
    // A free node must not name its former item: leak checkers would take that for a use.
    freeNodes = new (node) TFreeNode{freeNodes, nullptr, nullptr};
}
