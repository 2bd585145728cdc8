#include "translation/v2vcatalogues.h"

const TV2VCommandLineOption kVerilog2VhdlCatalogue[21] = {
    {"-r", "-Replace, -r",
     "Replace the existing output_file with the new output_file; default is to backup the "
     "output_file to <output_file_name>.old",
     V2V_PLAIN_OPTION, false},
    {"-s", "-Silent, -s", "Suppress printing out of messages indicating translator actions",
     V2V_PLAIN_OPTION, false},
    {"-np", "-No_Package, -np",
     "Valid with the -Package option; suppresses writing out of VHDL packages of Verilog files "
     "supplied with -Package option; default is to create VHDL package with filename "
     "<pkgfilename_without_extension>_pack.hdl",
     V2V_PLAIN_OPTION, false},
    {"-e", "-Environment {Mentor|Synopsys|Generic}, -e {m|s|g}",
     "Prints VHDL which is compliant with specified option, default is generic", V2V_STRING_OPTION,
     false},
    {"-p", "-Package {HDL files}, -p {HDL files}", "Loads the Package file specified",
     V2V_FILE_OPTION, false},
    {"-l", "-Log {logfile_name}, -l {logfile_name}",
     "Logs translator messages into file <logfile_name>; default log file is 'v2v.log'",
     V2V_FILE_OPTION, false},
    {"-87", "-87", "Produces VHDL compatible with 1076-1987 compliant simulator", V2V_PLAIN_OPTION,
     false},
    {"-ne", "-No_Extract_Comments, -ne", "Does not preserve comments in Verilog input",
     V2V_PLAIN_OPTION, false},
    {"-ncc", "-No_Component_Check, -ncc",
     "Does not look for module declarations for modules instantiated in instantiations. This is "
     "useful for translating designs which use large libraries",
     V2V_PLAIN_OPTION, true},
    {"-synth", "-SYNTH, -synth", "Produces synthesizable VHDL", V2V_PLAIN_OPTION, false},
    {"-mrv", "-Map_Regs_to_Variables, -mrv",
     "Produces Synthesizable VHDL with procedural assignments being mapped to variable assignments",
     V2V_PLAIN_OPTION, false},
    {"-nz", "-No_Zero_Wait, -nz", "Does not print 'WAIT FOR 0 ns;' overridden by -synth option",
     V2V_PLAIN_OPTION, false},
    {"-mdc", "-Make_Defines_Constants, -mdc",
     "Makes all defines encountered in the input file constants in the Architecture; default is to "
     "create Generics in Entity",
     V2V_PLAIN_OPTION, false},
    {"-mpc", "-Make_Parameters_Constants, -mpc",
     "Makes all parameters encountered in the input file constants in the Architecture; default is "
     "to create Generics in Entity",
     V2V_PLAIN_OPTION, false},
    {"-rip", "-Reserved_Identifier_Prefix <prefix string>, -rip <prefix string>",
     "Prefixes specified string to a reserved verilog2vhdl identifier. (See User's Manual, Chapter "
     "3) for VHDL compliance",
     V2V_STRING_OPTION, false},
    {"-ris", "-Reserved_Identifier_Suffix <suffix string>, -ris <suffix string>",
     "Suffixes specified string to a reserved verilog2vhdl identifier. (See User's Manual, Chapter "
     "3) for VHDL compliance",
     V2V_STRING_OPTION, false},
    {"-po", "-Preserve_Order, -po",
     "When printing VHDL, retain the order of concurrent constructs in the Verilog input; default "
     "is to format the output VHDL",
     V2V_PLAIN_OPTION, false},
    {"-an", "-Architecture_Name, -an",
     "Set the name of the generated VHDL architecture.  The default name is 'VeriArch'",
     V2V_PLAIN_OPTION, false},
    {"-nh", "-No_Header, -nh", "Do not print ASC header in the output file", V2V_PLAIN_OPTION,
     false},
    {"-novpp", "-No_Verilog_PreProcessing, -novpp",
     "Disable the Verilog preprocessor (disables compiler directives) By default, the preprocessor "
     "is enabled.",
     V2V_PLAIN_OPTION, false},
    {"-do_macro_substitution", "-do_macro_substitution",
     "Force macro substitution preprocessing before translation (disables integer constant "
     "creation from define statements)",
     V2V_PLAIN_OPTION, false},
};
