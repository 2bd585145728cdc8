// Prints docs/diagnostics.md.
#include "tests/flows/diagnosticspage.h"
#include <iostream>

int main() {
    std::cout << MakeDiagnosticsPage();
    return std::cout.flush() ? 0 : 1;
}
