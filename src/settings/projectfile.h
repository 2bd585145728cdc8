#pragma once
#include "services/xml/xmllist.h"
#include <optional>
#include <string>

class TProjectSimSettings;

enum TProjectFileResult : int {
    PROJECT_FILE_DONE = 0,
    PROJECT_FILE_MISSING = 1,
    PROJECT_FILE_UNREADABLE = 2,  ///< TProjectFile::GetReadError() tells why
    PROJECT_FILE_FOREIGN = 3,
    PROJECT_FILE_REPEATED_SETTINGS = 4,
    PROJECT_FILE_INVALID_SETTINGS = 5,
    PROJECT_FILE_NOT_WRITTEN = 6,
    PROJECT_FILE_CHANGED = 7  ///< the settings in the file are no longer those that were read
};

/// A project file (".hpj") on disk: the settings, in the element "ProjectSettings" directly below
/// the root "SimulationProject", among sections of other components.
///
/// Saving replaces the settings' element and keeps every other element, attribute and text and the
/// document type line. Comments and processing instructions of the file are lost.
class HDLBUILDFILE_API TProjectFile {
public:
    /// The handle must outlive the object and must not be null.
    explicit TProjectFile(const ISFileName* file) : File(file) {}

    /// Reads the settings; a file without them, and a missing one, leaves the configurations of
    /// `settings` as they are. In every case they belong to this file afterwards. Null only tells
    /// how reading goes.
    TProjectFileResult Read(TProjectSimSettings* settings);

    /// Replaces the settings in the file as it is on disk by now, so that a save keeps what other
    /// components saved meanwhile. A missing file is made. Settings that are no longer those of the
    /// last Read or Save, a file made and a file deleted since included, are not replaced:
    /// PROJECT_FILE_CHANGED. (Who saves after this comparison, while the new file is written, is
    /// not noticed.) Without a Read there is nothing to compare. After a read that failed nothing
    /// is saved, as `settings` may lack configurations: the result of that read is repeated. On
    /// failure the file stays as it was. Null: PROJECT_FILE_NOT_WRITTEN.
    TProjectFileResult Save(TProjectSimSettings* settings);

    /// Of the last Read or Save.
    const TXMLReadError& GetReadError() const { return ReadError; }
    /// The text of a result; "" for PROJECT_FILE_DONE. Static, never null.
    static const char* GetErrorString(TProjectFileResult result);

private:
    const ISFileName* File;
    TProjectFileResult ReadResult = PROJECT_FILE_DONE;
    TXMLReadError ReadError;
    std::optional<std::string> StateRead;  // of the file, as of the last Read or Save
};
