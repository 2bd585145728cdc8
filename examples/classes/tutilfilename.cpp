// TUtilFileName: builds a path part by part, without looking at the disk.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TUtilFileName path("/home/you/project/build.xml");
    path.StripParts(PART_NAME | PART_EXTENSION);
    path.PushDirectory("rtl");
    path.PushFileName("../tb/fifo_tb.vhd");
    std::cout << path.Canonical() << "\n" << path.GetParts(PART_NAME) << "\n";
    path.Pop();
    std::cout << path.Canonical() << "\n";
    return 0;
}
