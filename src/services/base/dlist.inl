#pragma once
#include <new>

template <class T>
DList<T>::DList(const DList& other) {
    for (const TNode* node = other.Head; node; node = node->Next) Link(node->Item, nullptr);
}

template <class T>
DList<T>::~DList() {
    while (Head) Unlink(Head);
}

template <class T>
void DList<T>::ObjectAdded(T) {}

template <class T>
void DList<T>::ObjectRemoved(T) {}

// Before `before`; at the tail when it is null.
template <class T>
typename DList<T>::TNode* DList<T>::Link(T item, TNode* before) {
    static_assert(sizeof(TNode) <= TDListNodePool::kNodeSize);
    TNode* previous = before ? before->Previous : Tail;
    auto* node = new (TDListNodePool::Allocate()) TNode{previous, before, item};
    (previous ? previous->Next : Head) = node;
    (before ? before->Previous : Tail) = node;
    ++Count;
    return node;
}

template <class T>
void DList<T>::Unlink(TNode* node) {
    (node->Previous ? node->Previous->Next : Head) = node->Next;
    (node->Next ? node->Next->Previous : Tail) = node->Previous;
    --Count;
    TDListNodePool::Release(node);
}

template <class T>
void DList<T>::AddAtTail(T item) {
    Link(item, nullptr);
    ObjectAdded(item);
}

template <class T>
void DList<T>::AddAtHead(T item) {
    Link(item, Head);
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
    for (TNode* node = Head; node; node = node->Next) {
        if (node->Item != item) continue;
        Unlink(node);
        ObjectRemoved(item);
        return true;
    }
    return false;
}

template <class T>
void DList<T>::Flush(int deleteItems) {
    while (Head) {
        T item = Head->Item;
        Unlink(Head);
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
