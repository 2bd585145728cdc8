// ISFileName, IFileName: a name of a file, for which the process has one object.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    const ISFileName* source = ISFileName::NewISFileName("rtl/./fifo.v");
    std::cout << "one object: " << (source == ISFileName::NewISFileName("rtl/ip/../fifo.v"))
              << "\n";
    // Another letter case is another name of the same file.
    std::cout << "one file: " << source->IsEquivalent(*ISFileName::NewISFileName("RTL/fifo.v"))
              << "\n";

    const IFileName& name = *source;
    std::cout << name.ShortName(false) << " " << name.GetParts(PART_EXTENSION) << " "
              << name.GetRelativeFileNameString(ISFileName::NewISFileName("build.xml"), false,
                                                false)
              << "\n";
    return 0;
}
