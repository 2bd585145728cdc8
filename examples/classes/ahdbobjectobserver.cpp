// AHdbObjectObserver: is told where a file comes into a folder.
#include <hdlbuildfile.h>
#include <iostream>

class Printer : public AHdbObjectObserver {
public:
    void FileInserted(int index) override { std::cout << "inserted at " << index << "\n"; }
};

int main() {
    Printer printer;
    THdlProjectFileList folder(THdlProjectFileList::LIST_TYPE_FILE_OUTPUT, nullptr);
    folder.AddObserver(&printer);
    folder.AddAtTailAndSetOwner(ISFileName::NewISFileName("a.txt"));
    folder.AddAtTailAndSetOwner(ISFileName::NewISFileName("b.txt"));
    folder.AddAtHeadAndSetOwner(ISFileName::NewISFileName("c.txt"));
    folder.DeleteObserver(&printer);
    return 0;
}
