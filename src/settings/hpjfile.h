#pragma once
#include "services/xml/xmllist.h"
#include <optional>
#include <string>

class TProjectSimSettings;

enum THpjFileResult : int {
    HPJ_FILE_DONE = 0,
    HPJ_FILE_MISSING = 1,
    HPJ_FILE_UNREADABLE = 2,  ///< THpjFile::GetReadError() tells why
    HPJ_FILE_FOREIGN = 3,
    HPJ_FILE_REPEATED_SETTINGS = 4,
    HPJ_FILE_INVALID_SETTINGS = 5,
    HPJ_FILE_NOT_WRITTEN = 6,
    HPJ_FILE_CHANGED = 7  ///< the settings in the file are no longer those that were read
};

/// A project file (".hpj") on disk: the settings, in the element "ProjectSettings" directly below
/// the root "SimulationProject", among sections of other components.
///
/// Saving replaces the settings' element and keeps every other element, attribute and text and the
/// document type line. Comments and processing instructions of the file are lost.
class HDLBUILDFILE_API THpjFile {
public:
    /// The handle must outlive the object and must not be null.
    explicit THpjFile(const ISFileName* file) : File(file) {}

    /// Reads the settings; a file without them, and a missing one, leaves the configurations of
    /// `settings` as they are. In every case they belong to this file afterwards. Null only tells
    /// how reading goes.
    THpjFileResult Read(TProjectSimSettings* settings);

    /// Replaces the settings in the file as it is on disk by now, so that a save keeps what other
    /// components saved meanwhile. A missing file is made. Settings that are no longer those of the
    /// last Read or Save, a file made and a file deleted since included, are not replaced:
    /// HPJ_FILE_CHANGED. (Who saves after this comparison, while the new file is written, is
    /// not noticed.) Without a Read there is nothing to compare. After a read that failed nothing
    /// is saved, as `settings` may lack configurations: the result of that read is repeated. On
    /// failure the file stays as it was. Null: HPJ_FILE_NOT_WRITTEN.
    THpjFileResult Save(TProjectSimSettings* settings);

    /// Of the last Read or Save.
    const TXMLReadError& GetReadError() const { return ReadError; }
    /// The text of a result; "" for HPJ_FILE_DONE. Static, never null.
    static const char* GetErrorString(THpjFileResult result);

private:
    const ISFileName* File;
    THpjFileResult ReadResult = HPJ_FILE_DONE;
    TXMLReadError ReadError;
    std::optional<std::string> StateRead;  // of the file, as of the last Read or Save
};
