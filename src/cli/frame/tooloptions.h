#pragma once

/// An option that no command lists among its arguments.
struct TToolOption {
    const char* Names;        ///< as those of an argument: "-o,--output"
    const char* Description;  ///< without a full stop
    const char* Value = "";   ///< what the help calls its value; "" for a flag
};

inline constexpr TToolOption kHelpOption{"-h,--help", "Print this help message and exit"};
/// Where a word of a command may begin with "-h".
inline constexpr TToolOption kLongHelpOption{"--help", kHelpOption.Description};

// Of the tool alone.
inline constexpr TToolOption kVersionOption{"-V,--version", "Print the version"};
inline constexpr TToolOption kVerboseOption{"--verbose",
                                            "With --version: also what the tool is built with"};
inline constexpr TToolOption kVersionJsonOption{"--json",
                                                "With --version: print all of it as JSON"};

// Of the tool and of each command: they may stand on either side of it.
inline constexpr TToolOption kQuietOption{"--quiet", "Do not show how far long work has come"};
inline constexpr TToolOption kSizeOption{"--max-file-size",
                                         "Read no file of more bytes, 1G if not given", "SIZE"};
