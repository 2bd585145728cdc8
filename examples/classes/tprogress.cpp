// TProgress: counts the items of a work of one's own, and tells the thread's observer.
#include <hdlbuildfile.h>
#include <iostream>

class Bar : public IProgressObserver {
public:
    void WorkProgressed(TProgressWork, std::size_t done, std::size_t total) override {
        std::cout << done << " of " << total << "\n";
    }
    void WorkEnded(TProgressWork) override { std::cout << "done\n"; }
};

int main() {
    Bar bar;
    IProgressObserver* former = SetProgressObserver(&bar);
    {
        TProgress progress(PROGRESS_CHECK_SOURCES, 25, 10);
        for (int i = 0; i < 25; ++i) progress.Advance();
    }
    SetProgressObserver(former);
    return 0;
}
