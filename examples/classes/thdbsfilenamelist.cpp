// THdbSFileNameList: a named list that owns its file names.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdbSFileNameList benches;
    benches.SetListName("benches");
    benches.AddAtTail("tb/fifo_tb.vhd");
    benches.AddAtTail("tb/counter_tb.vhd");
    benches.AddAtHead("tb/bus_tb.vhd");
    std::cout << benches.GetName() << ": " << benches.GetCount() << "\n";
    for (DListIterator<THdbSFileName*> at(benches); at.NotAtTail(); ++at)
        std::cout << at.Current()->ShortName(false) << "\n";
    return 0;
}
