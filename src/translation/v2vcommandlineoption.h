#pragma once
#include <cstdint>

/// The kinds of options that a catalogue's row can ask for.
enum TV2VOptionKind : std::int32_t {
    V2V_PLAIN_OPTION = 0,   ///< TV2VTranslationOption
    V2V_FILE_OPTION = 1,    ///< TV2VTranslationFileOption
    V2V_STRING_OPTION = 2,  ///< TV2VTranslationStringOption
};

/// One row of a catalogue of switches. The texts are not owned; null counts as empty.
struct TV2VCommandLineOption {
    const char* Switch;      ///< the dash option
    const char* OptionText;  ///< the switch as shown, with its long form and argument
    const char* HelpText;
    std::int32_t Kind;  ///< a TV2VOptionKind; a row of any other kind is skipped
    bool Enabled;       ///< when a list is first filled
};
