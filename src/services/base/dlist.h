#pragma once
#include "services/base/api.h"
#include <cstddef>

/// The process-wide pool behind the nodes of every DList. It outlives every list. All threads may
/// use it at a time.
class HDLBUILDFILE_API TDListNodePool {
public:
    /// Room for one node of `kNodeSize` bytes; never null. Not initialised.
    static void* Allocate();
    /// Takes back what Allocate() gave, on any thread, for the next list that asks. Null is
    /// ignored.
    static void Release(void* node);
    static constexpr std::size_t kNodeSize = 2 * sizeof(void*);

    /// The node that lies in front of `item`, in the same part of a TCountedBlock, is no longer in
    /// use.
    static void ReleaseInFrontOf(const void* item);
};

template <class T>
class DListIterator;

/// A linked list of pointers, T being the pointer type. Nodes hold the pointer; elements know
/// nothing of the lists that hold them. The list deletes elements only in Flush(1).
template <class T>
class DList {
public:
    DList() = default;
    /// Links the same pointers, in order.
    DList(const DList& other);
    DList& operator=(const DList&) = delete;
    /// Releases the nodes, not the elements, and notifies nobody.
    virtual ~DList();

    /// Called after `item` was linked.
    virtual void ObjectAdded(T item);
    /// Called after `item` was unlinked and before it is deleted. Not called by the destructor.
    virtual void ObjectRemoved(T item);

    void AddAtTail(T item);
    void AddAtHead(T item);
    /// Links `item` unless that very pointer is listed; 1 when it was linked, else 0.
    int AddAtTailNoDup(T item);
    int AddAtHeadNoDup(T item);
    /// Unlinks the first entry that is `item`; false when there is none. Does not delete it.
    bool Remove(T item);
    /// Empties the list; with a non-zero argument deletes each element.
    void Flush(int deleteItems);
    /// The 0-based place of `item`, -1 when absent.
    int GetIndex(T item) const;
    std::size_t GetCount() const { return Count; }
    bool IsEmpty() const { return Count == 0; }

protected:
    /// AddAtTail for an item in front of which lies room for its node, in the same part of a
    /// TCountedBlock.
    void AddAtTailWithNode(T item);
    /// Links all items of `other` behind the others, with their nodes, and notifies nobody.
    void TakeAll(DList* other);
    /// TakeAll of the first item alone; `other` must have one.
    void TakeFirstOf(DList* other);
    /// Unlinks the first item and notifies nobody. True when its node lies in front of it: the
    /// caller then gives the node's part of the block back. Not for the empty list.
    bool UnlinkHead(T* item);

private:
    friend class DListIterator<T>;
    // A node lies in front of its item exactly when both are in one part of a TCountedBlock: behind
    // each node of the pool, there is memory of the pool.
    struct TNode {
        TNode* Next;
        T Item;
        bool IsInFrontOfItem() const { return static_cast<const void*>(this + 1) == Item; }
    };
    void LinkAtTail(TNode* node);
    static void Release(TNode* node);

    TNode* Head = nullptr;
    TNode* Tail = nullptr;
    std::size_t Count = 0;
};

/// A position in a DList, from its first element to the tail, the place after the last one. Valid
/// while the element under it stays in the list. An iterator without a list is at the tail.
template <class T>
class DListIterator {
public:
    DListIterator() = default;
    explicit DListIterator(const DList<T>& list) : Node(list.Head) {}
    /// The first element of a list that is walked once: it, and whoever gets a copy, may take off
    /// the list what lies before his position.
    static DListIterator ForOneWalk(DList<T>* list) {
        DListIterator first(*list);
        first.WalkedOnce = list;
        return first;
    }
    /// The list of ForOneWalk; null for any other iterator.
    DList<T>* GetListWalkedOnce() const { return WalkedOnce; }

    bool NotAtTail() const { return Node != nullptr; }
    /// The element at the position; null at the tail.
    T Current() const { return Node ? Node->Item : nullptr; }
    /// Moves to the next element; stays at the tail.
    DListIterator& operator++() {
        if (Node) Node = Node->Next;
        return *this;
    }
    bool operator==(const DListIterator& other) const { return Node == other.Node; }

private:
    const typename DList<T>::TNode* Node = nullptr;
    DList<T>* WalkedOnce = nullptr;
};

#include "services/base/dlist.inl"
