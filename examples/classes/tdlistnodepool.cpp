// TDListNodePool: where lists take their nodes from; a released one is used again.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    void* node = TDListNodePool::Allocate();
    TDListNodePool::Release(node);
    void* next = TDListNodePool::Allocate();
    std::cout << "room for a node: " << (next != nullptr) << "\n";
    TDListNodePool::Release(next);
    return 0;
}
