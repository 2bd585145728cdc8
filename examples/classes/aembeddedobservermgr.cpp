// AEmbeddedObserverMgr, IObserverCaller: tells all observers that are registered, each in its turn.
#include <hdlbuildfile.h>
#include <iostream>

struct Listener {
    const char* Name;
};

class Bell : public AEmbeddedObserverMgr {
public:
    void Add(Listener* listener) { Register(listener); }
    void Remove(Listener* listener) { Unregister(listener); }
    void Ring(IObserverCaller& caller) { CallEach(caller); }
};

class Greeter : public IObserverCaller {
public:
    void Call(void* observer) override {
        std::cout << "hello " << static_cast<Listener*>(observer)->Name << "\n";
    }
};

int main() {
    Listener editor{"editor"};
    Listener tree{"tree"};
    Bell bell;
    bell.Add(&editor);
    bell.Add(&tree);
    Greeter greeter;
    bell.Ring(greeter);
    bell.Remove(&editor);
    bell.Ring(greeter);
    return 0;
}
