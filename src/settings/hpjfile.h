#pragma once
#include "services/xml/xmllist.h"
#include <optional>
#include <string>

class TProjectSimSettings;
/// How the reading or saving of a project file ended.
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
    /// `settings` as they are. In every case they belong to this file afterwards. With null
    /// the file is only read, for the result.
    THpjFileResult Read(TProjectSimSettings* settings);

    /// Reads the file again and replaces only the settings in it, so that what other components
    /// saved since the last Read is kept. A missing file is made. When the settings in the file are
    /// no longer those of the last Read or Save, or the file was made or deleted since, nothing is
    /// replaced: HPJ_FILE_CHANGED. The file's lock (see TFileLock) is held from the reading to the
    /// end of the writing, so no other save comes between; a lock that cannot be had is
    /// HPJ_FILE_NOT_WRITTEN, with a message box. Without a Read there is nothing to compare. After
    /// a Read that failed nothing is saved, as `settings` may lack configurations: the result of
    /// that Read is returned again. On failure the file stays as it was. Null:
    /// HPJ_FILE_NOT_WRITTEN.
    THpjFileResult Save(TProjectSimSettings* settings);

    /// Of the last Read or Save.
    const TXMLReadError& GetReadError() const { return ReadError; }
    /// The text of a result; "" for HPJ_FILE_DONE. Static, never null.
    static const char* GetErrorString(THpjFileResult result);

private:
    THpjFileResult SaveLocked(TProjectSimSettings* settings, const char* path);

    const ISFileName* File;
    THpjFileResult ReadResult = HPJ_FILE_DONE;
    TXMLReadError ReadError;
    std::optional<std::string> StateRead;  // of the file, as of the last Read or Save
};
