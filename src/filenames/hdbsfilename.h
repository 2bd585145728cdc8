#pragma once
#include "services/designdatabase/hdbbase.h"
#include "services/names/isfilename.h"

/// A file name that takes part in the design database: it wraps one file-name handle and forwards
/// every question and every time stamp to it. Copies wrap the same handle.
///
/// Immutable: Release, FormCanonicalName, SetPart, StripParts, Pop, PushFileName and PushDirectory
/// only log a failed check. Without a handle every question is answered as for the blank name, and
/// the ISFileName operations and the three relative or display forms log a failed check as well.
class HDLBUILDFILE_API THdbSFileName : public ISFileName, public hdb::IHDBBase {
public:
    /// Wraps the shared handle of `name`; null counts as empty.
    explicit THdbSFileName(const char* name);
    /// Wraps `handle`, which stays the caller's and must outlive this object and its copies; null
    /// allowed.
    explicit THdbSFileName(const ISFileName* handle);
    THdbSFileName(const THdbSFileName& other);
    THdbSFileName& operator=(const THdbSFileName& other);
    /// Leaves the handle alone.
    ~THdbSFileName() override;

    void SetDateAndTimeFlag(const char* key) const override;
    void UpdateTimeFileLastLoaded(const char* key) const override;
    void UpdateTimeFileLastCompiled(const char* key) const override;
    bool IsFileModifiedSinceLastLoaded(const char* key, bool whenUnknown) const override;
    bool IsFileModifiedSinceLastCompiled(const char* key, bool whenUnknown) const override;
    unsigned long GetLastCompiledTimestamp(unsigned long* out) const override;
    bool IsFileModifiedSinceTimestamp(const unsigned long* const stamp) const override;
    unsigned long GetFileModificationTime(unsigned long* out) const override;
    bool CompareModificationTimeTo(unsigned long low, unsigned long high) const override;
    bool IsEquivalent(const ISFileName& other) const override;
    /// The wrapped handle; null when there is none.
    const ISFileName* GetFileName() const override;

    void Release() const override;
    IFileName* CloneFileName() const override;
    const char* CanonicalWithExpandedLinks() const override;
    void FormCanonicalName() override;
    const char* Canonical(bool reserved) const override;
    const char* CanonicalWithoutFinalSlash() const override;
    const char* ShortName(bool reserved) const override;
    TMyString OsFriendlyCanonical(bool reserved) const override;
    const char* Squeezed(int length, bool reserved) const override;
    const char* GetParts(unsigned int parts) const override;
    bool HasParts(unsigned int parts) const override;
    void SetPart(unsigned int part, const std::string& text) override;
    void StripParts(unsigned int parts) override;
    bool IsValid() const override;
    bool IsUNC() const override;
    bool Exists() const override;
    bool IsReadable() const override;
    bool IsWritable() const override;
    bool IsAutoSaveTempFile() const override;
    bool Remove() const override;
    int ChangeDir() const override;
    int CreateDir() const override;
    std::string GetRelativeFileNameString(const IFileName* base, bool first,
                                          bool second) const override;
    const char* GetFileNameRelativeTo(const char* directory, TMyString* out) const override;
    const char* GetDisplayFileName(int length, bool reserved) const override;
    void Pop() override;
    void PushFileName(const char* name) override;
    void PushDirectory(const char* name) override;
    // The state of a virtual file belongs to the handle and shows through all of its wrappers.
    void SetAsVirtualFile() override;
    bool IsVirtualFile() const override;
    bool ConvertVirtualFileToTempFile() override;
    void StripVirtualState() override;
    char* GetNameNoExt() const override;
    char* GetNameAndExt() const override;
    char* GetFullFileName() const override;
    char* GetFullFileNameNoExt() const override;
    char* GetPathOnly() const override;
    char* GetExtOnly() const override;
    char* GetNameOnly() const override;

    void Accept(IBaseVisitor* visitor) const override;
    /// The canonical name.
    const char* GetName() const override;
    TRope GetFullName() override;
    hdb::TItemKind GetHDBItemKind() override;
    THdlLanguage GetLanguage() override;
    const hdb::IHDBBase* GetSourceParent(bool reserved) const override;
    bool IsProtected() const override;

    /// How many times in this process an assignment gave a tracked name or a plain source another
    /// handle, or THdlSourceFile::Initialize() gave a plain source a new dependency list. An index
    /// of names or dependencies that was built at another count is out of date. The count is one
    /// for all threads: a change on one makes the lists of all look at their own entries again.
    static unsigned long long GetHandleChangeCount();

private:
    const ISFileName* FileName;
};

/// Adds one to THdbSFileName::GetHandleChangeCount().
void CountHandleChange();
