#pragma once

/// What the last read of a build file met. THdlBuildFile::GetErrorString gives the text of each.
enum THdlBuildFileReadResults : int {
    READ_NO_ERROR = 0,
    READ_ATTRIBUTES_FAILED = 1,  ///< never set by this library
    READ_COMPONENT_NAMES_FAILED = 2,
    READ_EXTERNAL_CONFIGURATIONS_FAILED = 3,
    READ_GENERAL_SETTINGS_FAILED = 4,
    READ_PROJECT_SETTINGS_FAILED = 5,
    READ_TRANSLATION_OPTIONS_FAILED = 6,
    READ_SOURCE_FILES_FAILED = 7,
    READ_VARIABLES_FAILED = 8,
    READ_FILES_MISSING = 9
};
