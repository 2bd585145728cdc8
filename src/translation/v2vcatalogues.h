#pragma once
#include "translation/v2vcommandlineoption.h"

// The switches of the two translators in the order of their lists and command lines. The texts are
// shown to users and passed to the translators unchanged, oddities of spelling included.

extern const TV2VCommandLineOption kVerilog2VhdlCatalogue[21];
extern const TV2VCommandLineOption kVhdl2VerilogCatalogue[29];
