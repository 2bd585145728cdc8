#include "settings/hpjfile.h"

#include "services/files/filelock.h"
#include "services/logging/usermessages.h"
#include "services/names/isfilename.h"
#include "services/xml/xmlsectionfile.h"
#include "settings/projectsimsettings.h"

namespace {

class TProjectDocument : public TXMLSectionFile {
public:
    explicit TProjectDocument(TProjectSimSettings* settings)
        : TXMLSectionFile("ProjectSettings", "SimulationProject", CHILD_OF_ROOT),
          Settings(settings) {}

    /// Which file and settings these are, for a comparison with those on disk at another time.
    std::string GetState() const { return IsEmpty() ? "" : "file " + GetSectionText(); }

    THpjFileResult Read(const char* path) {
        if (!ReadFile(path)) return GetReadError().Missing ? HPJ_FILE_MISSING : HPJ_FILE_UNREADABLE;
        if (!HasParent()) return HPJ_FILE_FOREIGN;
        return GetSectionCount() > 1 ? HPJ_FILE_REPEATED_SETTINGS : HPJ_FILE_DONE;
    }

protected:
    void FillSection() override { Settings->WriteToProjectFile(this); }

private:
    TProjectSimSettings* Settings;
};

}  // namespace

THpjFileResult THpjFile::Read(TProjectSimSettings* settings) {
    TProjectDocument document(settings);
    ReadResult = document.Read(File->Canonical(false));
    ReadError = document.GetReadError();
    StateRead = document.GetState();
    if (!settings) return ReadResult;
    settings->SetProjectFileName(File);
    if (ReadResult != HPJ_FILE_DONE || document.GetSectionCount() == 0) return ReadResult;
    DListIterator<TElement*> section = document.GetSection();
    if (!settings->ReadFromFile(section, File)) ReadResult = HPJ_FILE_INVALID_SETTINGS;
    return ReadResult;
}

THpjFileResult THpjFile::Save(TProjectSimSettings* settings) {
    if (!settings) return HPJ_FILE_NOT_WRITTEN;
    if (ReadResult != HPJ_FILE_DONE && ReadResult != HPJ_FILE_MISSING) return ReadResult;
    const std::string file = File->Canonical(false);
    const TMessagesHeldBack messages;
    // From here on nobody else's save comes between the reading and the writing.
    const TFileLock lock(file.c_str());
    if (lock.IsHeld()) return SaveLocked(settings, file.c_str());
    TellSaveFailure(file, lock.GetReason());
    return HPJ_FILE_NOT_WRITTEN;
}

THpjFileResult THpjFile::SaveLocked(TProjectSimSettings* settings, const char* path) {
    TProjectDocument document(settings);
    const THpjFileResult result = document.Read(path);
    ReadError = document.GetReadError();
    if (result != HPJ_FILE_DONE && result != HPJ_FILE_MISSING) return result;
    if (StateRead && *StateRead != document.GetState()) return HPJ_FILE_CHANGED;
    if (!document.ReplaceSection(path)) return HPJ_FILE_NOT_WRITTEN;
    // Without memory for it, there is nothing to compare.
    StateRead.reset();
    StateRead = document.GetState();
    return HPJ_FILE_DONE;
}

const char* THpjFile::GetErrorString(THpjFileResult result) {
    static constexpr const char* kTexts[] = {
        "",
        "the file does not exist",
        "the file cannot be read",
        "the file is no project file: its root is not SimulationProject",
        "the file holds the section ProjectSettings more than once",
        "the section ProjectSettings cannot be read",
        "the file cannot be written",
        "the settings in the file have changed since they were read",
    };
    const auto number = static_cast<std::size_t>(result);
    return number < std::size(kTexts) ? kTexts[number] : "unknown error";
}
