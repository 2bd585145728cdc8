#pragma once
#include "services/base/api.h"
#include "services/base/mystring.h"
#include "services/files/filenameparts.h"
#include <string>

/// A file's name and what can be asked of it. Texts are in UTF-8; a returned `const char*` or
/// `char*` is never null, belongs to the object, must be neither freed nor changed, and lives as
/// long as the object does unchanged. Reserved bools have no effect.
class HDLBUILDFILE_API IFileName {
public:
    virtual ~IFileName() = default;
    virtual void Release() const = 0;
    /// A name of its own with the same text; the caller deletes it.
    virtual IFileName* CloneFileName() const = 0;
    /// The canonical path with symbolic links followed; the canonical path itself when that fails.
    virtual const char* CanonicalWithExpandedLinks() const = 0;
    virtual void FormCanonicalName() = 0;
    /// The absolute path, "." and ".." resolved, letter case kept, without looking at the disk. The
    /// identity of a file is this text compared without regard to case. Empty stays empty.
    virtual const char* Canonical(bool reserved) const = 0;
    virtual const char* CanonicalWithoutFinalSlash() const = 0;
    /// The last part, extension included.
    virtual const char* ShortName(bool reserved) const = 0;
    virtual TMyString OsFriendlyCanonical(bool reserved) const = 0;
    /// The canonical path shortened to `length` bytes or less with "..." in its middle.
    virtual const char* Squeezed(int length, bool reserved) const = 0;
    virtual const char* GetParts(unsigned int parts) const = 0;
    /// Whether any of the selected parts is there.
    virtual bool HasParts(unsigned int parts) const = 0;
    /// Puts `text` in place of the selected parts.
    virtual void SetPart(unsigned int part, const std::string& text) = 0;
    virtual void StripParts(unsigned int parts) = 0;
    virtual bool IsValid() const = 0;
    virtual bool IsUNC() const = 0;
    /// Each of these asks the disk anew.
    virtual bool Exists() const = 0;
    virtual bool IsReadable() const = 0;
    virtual bool IsWritable() const = 0;
    /// By its name alone: "name~" or "#name#".
    virtual bool IsAutoSaveTempFile() const = 0;
    /// Deletes the file, or an empty folder.
    virtual bool Remove() const = 0;
    /// 0 when done, -1 when it failed; CreateDir makes one folder that must not exist yet.
    virtual int ChangeDir() const = 0;
    virtual int CreateDir() const = 0;
    /// The path relative to the directory part of `base`, as below; absolute for null.
    virtual std::string GetRelativeFileNameString(const IFileName* base, bool, bool) const = 0;
    /// Sets `*out`, unless null, to the path relative to `directory`, always with '/', and returns
    /// its text: "." for the directory itself, absolute for another drive or host and for a null or
    /// empty directory.
    virtual const char* GetFileNameRelativeTo(const char* directory, TMyString* out) const = 0;
    /// Squeezed, or the whole canonical path for 0 or less.
    virtual const char* GetDisplayFileName(int length, bool reserved) const = 0;
    /// Drops the last part.
    virtual void Pop() = 0;
    /// Puts a name or relative path below this one; an absolute path replaces it.
    virtual void PushFileName(const char* name) = 0;
    virtual void PushDirectory(const char* name) = 0;
    /// Marks the name as that of a text which its editor has not stored yet; nothing else changes.
    virtual void SetAsVirtualFile() = 0;
    virtual bool IsVirtualFile() const = 0;
    /// Makes an empty file of the name unless there is one, and drops the mark. False, with the
    /// mark kept, when the name is not virtual or no file can be made.
    virtual bool ConvertVirtualFileToTempFile() = 0;
    virtual void StripVirtualState() = 0;
    /// The last part without its last extension.
    virtual char* GetNameNoExt() const = 0;
    virtual char* GetNameAndExt() const = 0;
    virtual char* GetFullFileName() const = 0;
    virtual char* GetFullFileNameNoExt() const = 0;
    /// The directory part, with the delimiter that ends it.
    virtual char* GetPathOnly() const = 0;
    /// The extension with its dot; "" without one.
    virtual char* GetExtOnly() const = 0;
    virtual char* GetNameOnly() const = 0;

    /// `path` relative to the directory `base`: always with '/', "." for the base itself, absolute
    /// for another drive or host. A relative `path` stays as it is. Null counts as empty, which
    /// stays empty.
    static void CreateRelativeFileName(const char* base, const char* path, std::string* out, bool,
                                       bool);
    /// For display: relative as above when `path` is `base` or below it, else absolute.
    static void CreateNiceFileNameForUI(const char* base, const char* path, std::string* out);
};
