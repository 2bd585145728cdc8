// TComponentName: a design unit that is simulated, compared by the rules of its language.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    const TComponentName counter(TTBIdentifier("Counter", LANGUAGE_VHDL),
                                 TTBIdentifier("rtl", LANGUAGE_VHDL), "work");
    std::cout << counter.GetDestinationLibraryName() << "\n";
    // VHDL ignores the case of letters, libraries are compared as they are.
    const TTBIdentifier entity("COUNTER", LANGUAGE_VHDL);
    const TTBIdentifier architecture("RTL", LANGUAGE_VHDL);
    std::cout << "equal: " << counter.IsEqualTo(entity, architecture, "work") << "\n"
              << "in WORK: " << counter.IsEqualTo(entity, architecture, "WORK") << "\n";
    return 0;
}
