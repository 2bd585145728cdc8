// TTBIdentifier: names compared as VHDL and Verilog compare them.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    const TTBIdentifier counter("counter", LANGUAGE_VHDL);
    std::cout << "VHDL: " << (counter == TTBIdentifier("COUNTER", LANGUAGE_VHDL)) << ", Verilog: "
              << (TTBIdentifier("counter", LANGUAGE_VERILOG) ==
                  TTBIdentifier("COUNTER", LANGUAGE_VERILOG))
              << "\n";
    const TTBIdentifier odd("a+b", LANGUAGE_VERILOG);
    std::cout << '[' << odd.GetEscapedName(LANGUAGE_VERILOG, 0, false, false).c_str() << "]\n"
              << '[' << odd.GetEscapedName(LANGUAGE_VHDL, 0, false, false).c_str() << "]\n";
    return 0;
}
