#pragma once
#include "services/files/filereplace.h"
#include "services/files/filestatus.h"
#include "services/files/filesystem.h"
#include "services/files/pathconventions.h"
#include "services/files/pathpieces.h"
#include "services/files/pathtext.h"
#include "services/names/ifilename.h"
#include <algorithm>
#include <cstdint>
#include <string_view>

/// A file name that belongs to one caller and may be changed; deleted by the caller.
IFileName* NewOwnFileName(std::string_view path);

/// Answers the queries of IFileName from a canonical text, for a class derived from `Base`. What an
/// answer is made of is kept for the life of the process, so that handles stay small.
template <class Base>
class TFileNameQueries : public Base {
public:
    const char* CanonicalWithExpandedLinks() const override {
        const std::string real = GetFileSystem().ExpandLinks(Path());
        if (real.empty()) return Text;
        const bool isDirectory = IsPathDelimiter(Text[Length - 1]);
        return KeptPathText(CanonicalPath(isDirectory ? real + kPathDelimiter : real));
    }
    const char* Canonical(bool) const override { return Text; }
    const char* CanonicalWithoutFinalSlash() const override {
        const std::string_view shorter = WithoutFinalDelimiter(View());
        return shorter.size() == Length ? Text : KeptPathText(shorter);
    }
    const char* ShortName(bool) const override { return GetNameAndExt(); }
    TMyString OsFriendlyCanonical(bool) const override {
        std::string friendly = Path();
        std::replace_if(friendly.begin(), friendly.end(), IsPathDelimiter, kPathDelimiter);
        return friendly;
    }
    const char* Squeezed(int length, bool) const override {
        return KeptPathText(SqueezePath(View(), length));
    }
    const char* GetParts(unsigned int parts) const override { return Kept(parts); }
    bool HasParts(unsigned int parts) const override {
        return !SplitPath(View()).Join(parts).empty();
    }

    bool IsValid() const override { return Length != 0; }
    bool IsUNC() const override { return View().substr(0, 2) == "\\\\"; }
    bool Exists() const override { return Length != 0 && LookAtFile(Path()).Exists; }
    bool IsReadable() const override { return Length != 0 && LookWhetherReadable(Path()); }
    bool IsWritable() const override { return Length != 0 && LookWhetherWritable(Path()); }
    bool IsAutoSaveTempFile() const override {
        const std::string name = SplitPath(View()).Join(PART_NAME | PART_EXTENSION);
        if (name.size() < 2) return false;
        return name.back() == '~' || (name.front() == '#' && name.back() == '#');
    }

    bool Remove() const override { return GetFileSystem().Remove(Path()).IsDone(); }
    int ChangeDir() const override {
        return GetFileSystem().ChangeWorkingDirectory(Path()).IsDone() ? 0 : -1;
    }
    int CreateDir() const override { return GetFileSystem().MakeFolder(Path()).IsDone() ? 0 : -1; }

    std::string GetRelativeFileNameString(const IFileName* base, bool, bool) const override {
        return RelativeToDirectory(base ? base->GetPathOnly() : "", View());
    }
    const char* GetFileNameRelativeTo(const char* directory, TMyString* out) const override {
        std::string relative =
            RelativeToDirectory(CanonicalPath(directory ? directory : ""), View());
        if (!out) return KeptPathText(relative);
        *out = TMyString(std::move(relative));
        return out->c_str();
    }
    const char* GetDisplayFileName(int length, bool) const override {
        return length > 0 ? KeptPathText(SqueezePath(View(), length)) : Text;
    }

    void SetAsVirtualFile() override { IsVirtual = true; }
    bool IsVirtualFile() const override { return IsVirtual != 0; }
    bool ConvertVirtualFileToTempFile() override {
        if (!IsVirtual || Length == 0) return false;
        if (!Exists() && !ReplaceWholeFile(Text, {}, nullptr)) return false;
        IsVirtual = false;
        return true;
    }
    void StripVirtualState() override { IsVirtual = false; }

    char* GetNameNoExt() const override { return Kept(PART_NAME); }
    char* GetNameAndExt() const override { return Kept(PART_NAME | PART_EXTENSION); }
    char* GetFullFileName() const override { return const_cast<char*>(Text); }
    char* GetFullFileNameNoExt() const override { return Kept(PART_DIRECTORY | PART_NAME); }
    char* GetPathOnly() const override { return Kept(PART_DIRECTORY); }
    char* GetExtOnly() const override { return Kept(PART_EXTENSION); }
    char* GetNameOnly() const override { return Kept(PART_NAME); }

protected:
    /// `canonical` must end with a zero and outlive the object or the next call.
    void SetText(std::string_view canonical) {
        Text = canonical.data();
        Length = static_cast<std::uint32_t>(canonical.size()) & kMostLength;
    }
    std::string_view View() const { return {Text, Length}; }
    std::string Path() const { return {Text, Length}; }

private:
    char* Kept(unsigned int parts) const { return KeptPathText(SplitPath(View()).Join(parts)); }

    static constexpr std::uint32_t kMostLength = 0x7FFFFFFF;

    const char* Text = "";
    // Together, because there are millions of handles: what derives from this has 32 bits beside.
    std::uint32_t Length : 31 = 0;
    std::uint32_t IsVirtual : 1 = false;
};
