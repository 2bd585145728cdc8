#pragma once
#include <new>

template <class T>
DList<T>::DList(const DList& other) {
    for (const TNode* node = other.Head; node; node = node->Next)
        LinkAtTail(new (TDListNodePool::Allocate()) TNode{nullptr, node->Item});
}

template <class T>
DList<T>::~DList() {
    while (Head) {
        TNode* const node = Head;
        Head = node->Next;
        Release(node);
    }
}

template <class T>
void DList<T>::ObjectAdded(T) {}

template <class T>
void DList<T>::ObjectRemoved(T) {}

template <class T>
void DList<T>::LinkAtTail(TNode* node) {
    static_assert(sizeof(TNode) <= TDListNodePool::kNodeSize);
    (Tail ? Tail->Next : Head) = node;
    Tail = node;
    ++Count;
}

template <class T>
void DList<T>::Release(TNode* node) {
    if (node->IsInFrontOfItem())
        TDListNodePool::ReleaseInFrontOf(node->Item);
    else
        TDListNodePool::Release(node);
}

template <class T>
bool DList<T>::UnlinkHead(T* item) {
    TNode* const node = Head;
    Head = node->Next;
    if (!Head) Tail = nullptr;
    --Count;
    *item = node->Item;
    if (node->IsInFrontOfItem()) return true;
    TDListNodePool::Release(node);
    return false;
}

template <class T>
void DList<T>::TakeAll(DList* other) {
    if (!other->Head) return;
    (Tail ? Tail->Next : Head) = other->Head;
    Tail = other->Tail;
    Count += other->Count;
    other->Head = other->Tail = nullptr;
    other->Count = 0;
}

template <class T>
void DList<T>::TakeFirstOf(DList* other) {
    TNode* const node = other->Head;
    other->Head = node->Next;
    if (!other->Head) other->Tail = nullptr;
    --other->Count;
    node->Next = nullptr;
    LinkAtTail(node);
}

template <class T>
void DList<T>::AddAtTail(T item) {
    LinkAtTail(new (TDListNodePool::Allocate()) TNode{nullptr, item});
    ObjectAdded(item);
}

template <class T>
void DList<T>::AddAtTailWithNode(T item) {
    auto* const room = reinterpret_cast<std::byte*>(item) - sizeof(TNode);
    LinkAtTail(new (room) TNode{nullptr, item});
    ObjectAdded(item);
}

template <class T>
void DList<T>::AddAtHead(T item) {
    auto* const node = new (TDListNodePool::Allocate()) TNode{Head, item};
    Head = node;
    if (!Tail) Tail = node;
    ++Count;
    ObjectAdded(item);
}

template <class T>
int DList<T>::AddAtTailNoDup(T item) {
    if (GetIndex(item) >= 0) return 0;
    AddAtTail(item);
    return 1;
}

template <class T>
int DList<T>::AddAtHeadNoDup(T item) {
    if (GetIndex(item) >= 0) return 0;
    AddAtHead(item);
    return 1;
}

template <class T>
bool DList<T>::Remove(T item) {
    TNode* previous = nullptr;
    for (TNode* node = Head; node; previous = node, node = node->Next) {
        if (node->Item != item) continue;
        (previous ? previous->Next : Head) = node->Next;
        if (node == Tail) Tail = previous;
        --Count;
        Release(node);
        ObjectRemoved(item);
        return true;
    }
    return false;
}

template <class T>
void DList<T>::Flush(int deleteItems) {
    while (Head) {
        T item = nullptr;
        if (UnlinkHead(&item)) TDListNodePool::ReleaseInFrontOf(item);
        ObjectRemoved(item);
        if (deleteItems) delete item;
    }
}

template <class T>
int DList<T>::GetIndex(T item) const {
    int index = 0;
    for (const TNode* node = Head; node; node = node->Next, ++index)
        if (node->Item == item) return index;
    return -1;
}
