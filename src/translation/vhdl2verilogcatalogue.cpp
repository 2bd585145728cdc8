#include "translation/v2vcatalogues.h"

const TV2VCommandLineOption kVhdl2VerilogCatalogue[29] = {
    {"-f", "-File {file_name}, -f {file_name}",
     "Read command line arguments from the specified file", V2V_FILE_OPTION, false},
    {"-r", "-Replace, -r",
     "Replace the existing output_file with the new output_file; default is to backup the "
     "output_file to <output_file_name>.old",
     V2V_PLAIN_OPTION, false},
    {"-s", "-Silent, -s", "Suppress printing out of messages indicating translator actions",
     V2V_PLAIN_OPTION, false},
    {"-nc", "-No_Comments, -nc", "Suppress extraction of comments from input HDL file",
     V2V_PLAIN_OPTION, false},
    {"-d", "-Debug, -d", "Prints debug messages from the tool", V2V_PLAIN_OPTION, false},
    {"-nd", "-No_Default_Defines, -nd",
     "Verilog define directives for TRUE and FALSE are present in all output files; use of this "
     "switch suppresses printing of default defines",
     V2V_PLAIN_OPTION, false},
    {"-np", "-No_Package_Translation {package_names}, -np {package_names}",
     "Packages with <package_name> or having <package_name> as prefix are not translated",
     V2V_STRING_OPTION, false},
    {"-ncc", "-No_Component_Check, -ncc",
     "Translation will proceed even if some component definitions or entity declarations are "
     "missing; this can be used to force translation of individual components without all its "
     "components; the translation result might not compile because of the absence of its component",
     V2V_PLAIN_OPTION, true},
    {"-ip", "-Include_Package_Files, -ip",
     "Use of this switch will direct the translator to write the translation of packages into "
     "files <package_name>_package.verilog and '<package_name>_modules.verilog'; default is to "
     "include them in the output file",
     V2V_PLAIN_OPTION, false},
    {"-fm", "-Function_Map {file_names}, -fm {file_names}",
     "Read the function mapping files specified for translation", V2V_FILE_OPTION, false},
    {"-isc", "-Ignore_Subprogram_Calls, -isc",
     "Do not translate the headers of function and procedure calls", V2V_PLAIN_OPTION, false},
    {"-tsb", "-Translate_Subprogram_Bodies, -tsb",
     "Translate the bodies of function and procedures into a separate file (overrides the -isc "
     "switch). By default subprogram bodies will not be translated. Translation is done on "
     "unconditional basis: Output is not guaranteed to work",
     V2V_PLAIN_OPTION, false},
    {"-pg", "-Preserve_Generate, -pg",
     "Preserve generate statement.  Generate statements will not be elaborated if the concurrent "
     "body contains only concurrent assignments.",
     V2V_PLAIN_OPTION, false},
    {"-sm", "-Support_Multi-Dimensional_Array, -sm",
     "Bit-wise access of multi-dimensional arrway will be translated.  Additional signals or "
     "subprograms may be created for translating multi-dimensional arrays.",
     V2V_PLAIN_OPTION, false},
    {"-iir", "-Ignore_Integer_Range, -iir",
     "Ignore the integer range and translate VHDL integers to 32-bit Verilog integers.",
     V2V_PLAIN_OPTION, false},
    {"-sd", "-Support_Directives, -sdi",
     "Support translation directives, such as translate_off/translate_on.", V2V_PLAIN_OPTION,
     false},
    {"-flc", "-Force_Lower_Case, -flc", "Changes all identifiers to lower case.", V2V_PLAIN_OPTION,
     false},
    {"-ts", "-Time_Scale {timescale}, -ts {timescale}", "Set the Verilog 'timescale.",
     V2V_STRING_OPTION, false},
    {"-l", "-Log {logfile_name}, -l {logfile_name}",
     "Logs translator messages into file <logfile_name>; default log file is 'vhdl2v.log'",
     V2V_FILE_OPTION, false},
    {"-synth", "-SYNTHesis, -synth",
     "Produces synthesizable code; presently restricted to suppressing initial statements and "
     "using '==' Verilog operators instead of '===' operators.",
     V2V_PLAIN_OPTION, false},
    {"-87", "-87", "Disable support for VHDL-93; enable VHDL-87 support instead", V2V_PLAIN_OPTION,
     false},
    {"-sv", "-System_Verilog, -sv", "Generate SystemVerilog output", V2V_PLAIN_OPTION, false},
    {"-nh", "-No_Header, -nh", "Do not print ASC header in the output file.", V2V_PLAIN_OPTION,
     false},
    {"-nt", "-No_Timescale, -nt",
     "Do not print timescale directive in the output file. Default is OFF (timescale is printed in "
     "the output file).",
     V2V_PLAIN_OPTION, false},
    {"-sp", "-Save_Parenthesis, -sp",
     "Inserts parenthesis in expressions to prevent confusion about precedence of operators",
     V2V_PLAIN_OPTION, false},
    {"-bl", "-Blocking, -bl", "Use blocking assignments in all combinational procedural blocks",
     V2V_PLAIN_OPTION, false},
    {"-fig", "-Force_If_Generate, -fig",
     "Force translation of 'if_generate' statement, regardless the 'if' conditions. The result "
     "might not be equivalent to the input when this option is set.  Manual editing of the "
     "translation result may be necessary.",
     V2V_PLAIN_OPTION, false},
    {"-signed", "-signed",
     "Translate VHDL IEEE.STD_LOGIC_ARITH.SIGNED data type to use Verilog 2001 'signed' keyword",
     V2V_PLAIN_OPTION, false},
    {"-ci", "-Convert_Integers_for_Synth, -ci",
     "Convert integer literals to fixed-length bit strings", V2V_PLAIN_OPTION, false},
};
