// TRope: the names of servers and items, compared byte by byte.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    const TRope local = "localhost";
    const TRope lab = "lab";
    std::cout << lab.c_str() << " " << lab.Length() << "\n"
              << "before localhost: " << (lab < local) << ", as Lab: " << (lab == TRope("Lab"))
              << ", null is empty: " << TRope(nullptr).IsEmpty() << "\n";
    return 0;
}
