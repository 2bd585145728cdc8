#pragma once
#include "services/base/api.h"
#include <cstddef>

/// The process-wide pool behind the nodes of every DList. It outlives every list.
class HDLBUILDFILE_API TDListNodePool {
public:
    /// Room for one node of `kNodeSize` bytes; never null. Not initialised.
    static void* Allocate();
    /// Takes back what Allocate() gave, for the next list that asks. Null is ignored.
    static void Release(void* node);
    static constexpr std::size_t kNodeSize = 3 * sizeof(void*);
};

template <class T>
class DListIterator;

/// A doubly linked list of pointers, T being the pointer type. Nodes hold the pointer; elements
/// know nothing of the lists that hold them. The list deletes elements only in Flush(1).
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

private:
    friend class DListIterator<T>;
    struct TNode {
        TNode* Previous;
        TNode* Next;
        T Item;
    };
    TNode* Link(T item, TNode* before);
    void Unlink(TNode* node);

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

    bool NotAtTail() const { return Node != nullptr; }
    /// The element at the position; null at the tail.
    T Current() const { return Node ? Node->Item : nullptr; }
    /// Moves to the next element; stays at the tail.
    DListIterator& operator++() {
        if (Node) Node = Node->Next;
        return *this;
    }
    bool operator==(const DListIterator&) const = default;

private:
    const typename DList<T>::TNode* Node = nullptr;
};

#include "services/base/dlist.inl"
