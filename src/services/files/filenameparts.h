#pragma once

/// The parts of a path, for GetParts and its kin: any sum of the bits, 0 for everything.
enum TFileNameParts : unsigned {
    PART_ALL = 0,
    PART_DRIVE = 1,      ///< drive or host
    PART_ROOT = 2,       ///< the delimiter after it
    PART_FOLDERS = 4,    ///< with the delimiter that ends them
    PART_DIRECTORY = 7,  ///< all of the above
    PART_NAME = 8,       ///< the last part without its extension
    PART_EXTENSION = 16  ///< from the last dot of the last part on, dot included
};
