#pragma once
#include <string>
#include <vector>

class ISFileName;

/// One mention of a source in a build file.
struct TSourceMention {
    std::string Language;  ///< of its group, as the file says it
    std::string Path;      ///< canonical
};

/// A source that a build file lists more than once; paths are equal ignoring case.
struct TRepeatedSource {
    std::vector<TSourceMention> Places;  ///< at least two, in the order of the document
};

/// One way in which a build file spells the path of a source.
struct TSpelling {
    std::string Path;       ///< canonical
    std::string Dependent;  ///< the first source with such a dependency; "" for a listed source
};

/// A source that dependencies spell in another case than its entry, or than each other. Where case
/// matters to the file system, one of the files does not exist.
struct TSpelledSource {
    std::vector<TSpelling> Spellings;  ///< at least two; the listed ones first
};

/// What the document of a build file shows, but not the build read from it.
struct TDocumentFindings {
    /// Of a repeated name, the build keeps but one.
    std::vector<TRepeatedSource> Repeated;
    std::vector<TSpelledSource> Spelled;
};

/// Reads the document once more. Without findings when the file cannot be read.
TDocumentFindings CheckDocument(const ISFileName* buildFile);
