#pragma once
#include "services/hdl/hdllanguage.h"
#include <string>
#include <string_view>
#include <vector>

/// How sources are looked for on the disk.
struct TSourceSearch {
    bool EntersFolders = false;             ///< else a folder is a complaint
    THdlLanguage Language = LANGUAGE_NONE;  ///< of what is found; LANGUAGE_NONE: by the extension
    /// Patterns of what is passed over. One without delimiter is compared with the names of files
    /// and folders, another one with whole paths; relative ones are taken against the working
    /// directory.
    std::vector<std::string> Excluded = {};
    bool KeepsRest = false;      ///< to look for what sources include
    bool EntersOutputs = false;  ///< and sources that tools have made
};

struct TFoundSource {
    std::string Path;  ///< canonical
    THdlLanguage Language;
    bool operator==(const TFoundSource&) const = default;
};

struct TFoundSources {
    std::vector<TFoundSource> Sources;  ///< each once, in the order of the paths, then of the names
    /// With KeepsRest the other files of the folders that were entered, in that order, each once.
    std::vector<std::string> Rest = {};
    /// Links to folders that a pattern means, and that were passed over; canonical.
    std::vector<std::string> Links = {};
    std::string Complaint;     ///< why there are none; "" without a fault
    bool IsFileFault = false;  ///< whether a file is missing or a folder cannot be read
};

/// The sources that `paths` name: files, folders and patterns (see filepatterns.h), in UTF-8,
/// relative ones against the working directory. Of what is in a folder those are taken whose
/// extension is one of `search.Language`, or of any language, and no files that others include; of
/// what a pattern matches, all with `search.Language`, else those with an extension of a language.
/// Hidden files and folders, build outputs and links to folders are passed over, unless a path or a
/// part of a pattern that is no `**` means them.
TFoundSources FindSources(const std::vector<std::string>& paths, const TSourceSearch& search);

/// The files of an include directory, with '/'.
struct TIncludedFiles {
    std::vector<std::string> Headers;  ///< whose extension says that others include them
    std::vector<std::string> Others;   ///< sources first
};

/// The files in a folder, and in those below; each kind in the order of the names. None in a folder
/// that cannot be read.
TIncludedFiles FindIncludedFiles(const std::string& folder);

/// Whether tools put what they make into folders of that name.
bool IsOutputFolder(std::string_view name);
