#include "services/files/directories.h"

// A module that uses the library: linked as a program, and as a shared library. Without the library
// at hand (MinGW), it only includes its headers.
extern "C" const char* AskTheLibrary() {
#ifdef _WIN32
    return "";
#else
    return GetOrvaneHomeDirectory();
#endif
}

int main() {
    return AskTheLibrary() == nullptr;
}
