#pragma once
#include "flows/diagnosticrules.h"
#include "services/files/filestatus.h"
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class ISFileName;
class TSourceMentions;

/// One mention of a source in a build file.
struct TSourceMention {
    std::string Language;  ///< of its group, as the file says it
    std::string Library;   ///< as the file says it; "": the destination library of the build
    std::string Path;      ///< canonical
    std::uint32_t Place;   ///< of the element in the document
};

/// A source that a build file lists more than once; paths are equal ignoring case.
struct TRepeatedSource {
    std::vector<TSourceMention> Places;  ///< at least two, in the order of the document
};

/// One way in which a build file spells the path of a source.
struct TSpelling {
    std::string Path;       ///< canonical
    std::string Dependent;  ///< the first source with such a dependency; "" for a listed source
    std::uint32_t Place;    ///< of the first element with it
};

/// A source that dependencies spell in another case than its entry, or than each other. Where case
/// matters to the file system, one of the files does not exist.
struct TSpelledSource {
    std::vector<TSpelling> Spellings;  ///< at least two; the listed ones first
};

/// A file that no group lists, but that a source depends on.
struct TUnlistedDependency {
    std::string Path;       ///< canonical
    std::string Dependent;  ///< the first source with that dependency; "" without a name
    bool Exists;
    std::uint32_t Place;  ///< of that dependency
};

/// A folder in the place of a source or a dependency.
struct TFolderAsSource {
    std::string Path;  ///< canonical
    std::uint32_t Place;
};

/// A top-level component as a build file names it.
struct TTopMention {
    std::string Language;  ///< of its list
    std::string Library;
    std::string Entity;
    std::string Architecture;
    std::uint32_t Place;  ///< of the element in the document
};

/// What the document of a build file shows, but not the build read from it.
struct TDocumentFindings {
    TFileStatus Status;              ///< of the file, when it was read
    std::vector<TDiagnostic> Words;  ///< of TDocumentWords
    /// Of a repeated name, the build keeps but one.
    std::vector<TRepeatedSource> Repeated;
    std::vector<TSpelledSource> Spelled;
    std::vector<TUnlistedDependency> Unlisted;
    std::vector<TFolderAsSource> Folders;
    std::vector<TTopMention> Tops;                    ///< all of them
    std::shared_ptr<const TSourceMentions> Mentions;  ///< null for a file that cannot be read

    /// The document that the places are in, read again: a long one is not kept. "" when the file
    /// has changed since.
    std::string ReadText(const ISFileName* buildFile) const;
    /// Where the file is listed first, in whatever case; kNoXMLPlace for one that is not.
    std::uint32_t FindPlace(const ISFileName* file) const;
};

/// Reads the document once more. Asks the disk once for each file that is a dependency alone, and
/// for each listed source that no read of the build has looked at before. Without findings when the
/// file cannot be read.
TDocumentFindings CheckDocument(const ISFileName* buildFile);
/// The same of a text that is to be the file's: Status tells nothing.
TDocumentFindings CheckDocument(const ISFileName* buildFile, std::string text);
