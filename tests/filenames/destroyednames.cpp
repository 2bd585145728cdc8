#include "tests/filenames/destroyednames.h"
#include "filenames/componentname.h"

namespace {
int destructions = 0;
}

int CountOfDestroyedNames() {
    return destructions;
}

// The linker puts the second in the place of the first in every call from another file.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" void __real__ZN14TComponentNameD1Ev(TComponentName* name);
extern "C" void __wrap__ZN14TComponentNameD1Ev(TComponentName* name);
void __wrap__ZN14TComponentNameD1Ev(TComponentName* name) {
    ++destructions;
    __real__ZN14TComponentNameD1Ev(name);
}
// NOLINTEND(bugprone-reserved-identifier)
