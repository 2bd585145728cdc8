// ICorbaImpl, ACorbaImpl: an object that remembers the proxy by which another process sees it.
#include <hdlbuildfile.h>
#include <iostream>

// Whoever makes proxies knows their class; the library only carries pointers.
ICorbaProxy* MakeProxy() {
    static char proxy;
    return reinterpret_cast<ICorbaProxy*>(&proxy);
}

int main() {
    TProjectSimGeneralConfig settings;
    ACorbaImpl& seen = settings;
    seen.SetCorbaProxy(MakeProxy());
    const TProjectSimGeneralConfig copy(settings);
    const ICorbaImpl& copied = copy;
    std::cout << "the object: " << (seen.GetCorbaProxy() == MakeProxy())
              << ", its copy: " << (copied.GetCorbaProxy() == MakeProxy()) << "\n";
    seen.BeingDeleted();
    std::cout << "at its end: " << (seen.GetCorbaProxy() == MakeProxy()) << "\n";
    return 0;
}
