#pragma once
#include "services/files/filelock.h"
#include "services/xml/documentedit.h"
#include "services/xml/xmllist.h"
#include <functional>
#include <optional>
#include <string>

class ISFileName;

/// A document of people's own that is read once, changed in place and saved.
///
/// What is made of it is made of GetBytes(), so that all looks at the file see the same one.
class TEditedFile {
public:
    /// What Save() tells when others changed or removed the file.
    static constexpr const char* kChanged = "the file has changed since it was read";

    /// The handle must outlive the object and must not be null.
    explicit TEditedFile(const ISFileName* file) : File(file) {}

    /// Takes the file's lock, which the object then has until its end: for whoever is going to
    /// save, before the file is read.
    void TakeLock();
    /// Lets it go before that end.
    void DropLock() { Lock.reset(); }
    /// Reads the bytes. False, with the reason in `error`, for a missing file, one that cannot be
    /// read, and one that is there but whose lock could not be taken.
    bool Read(TXMLReadError* error);
    /// Whether there was a file to read.
    bool WasThere() const { return IsThere; }
    const std::string& GetBytes() const {
        return Edit.GetDocument().empty() ? Bytes : Edit.GetDocument();
    }
    const ISFileName* GetFile() const { return File; }

    /// Reads the bytes into `list`, as ReadFromText() of the list does: Change() then needs no
    /// second look at them.
    bool ReadInto(TXMLList* list, TXMLReadError* error);

    /// Edits the bytes for the change between two streams, as TDocumentEdit does. `isAsWanted` is
    /// given the edited bytes, reads them and tells whether a reader finds what is wanted; when it
    /// does not, new elements are tried whole. Returns why there is no such edit; "" when there is.
    std::string Change(const TXMLList& base, const TXMLList& wanted, TXMLEditRules rules,
                       const std::function<bool(const std::string&)>& isAsWanted);
    /// The document of a file that was missing. Returns "", as Change does.
    std::string Make(std::string document);

    /// As the file was read, without a change.
    const std::string& GetChanged() const { return IsThere && Edit.IsEmpty() ? GetBytes() : New; }
    /// Of what was read and what a save writes, see TDocumentEdit; "" when they are the same.
    std::string GetUnifiedDiff(const std::string& path) const;

    /// Replaces the file, which must be locked and still be what was read, or missing when it was.
    /// Returns why it cannot be done, the file then being as it was; "" when it is done.
    std::string Save() const;
    /// After a save: what the file holds now counts as read, and may be changed again.
    void GoOn();

private:
    bool IsAsRead() const;

    const ISFileName* File;
    std::optional<TFileLock> Lock;
    bool IsThere = false;  // as far as was read
    std::string Bytes;     // until they are the document of the edit
    std::string New;       // of a missing file, or with the edits
    TDocumentEdit Edit;
};
