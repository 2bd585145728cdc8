#pragma once
#include <string>
#include <vector>

class ISFileName;

/// One mention of a source in a build file.
struct TSourcePlace {
    std::string Language;  ///< of its group, as the file says it
    std::string Path;      ///< canonical
};

/// A source that a build file names more than once; paths are equal ignoring case.
struct TRepeatedSource {
    std::vector<TSourcePlace> Places;  ///< at least two, in the order of the document
};

/// What the document of a build file shows, but not the build read from it.
struct TDocumentFindings {
    bool HasBuild = true;  ///< whether there is an "HdlBuildFile" element
    /// Of a repeated name, the build keeps but one.
    std::vector<TRepeatedSource> Repeated;
};

/// Reads the document once more. Without findings when the file cannot be read.
TDocumentFindings CheckDocument(const ISFileName* buildFile);
