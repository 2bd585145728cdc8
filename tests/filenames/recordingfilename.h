#pragma once
#include "services/names/isfilename.h"
#include <string>
#include <utility>

/// A file-name handle without a file: records each call as "Operation(arguments)\n" and answers
/// with a value that no other operation gives. Null texts show as "null".
class RecordingFileName : public ISFileName {
public:
    void SetDateAndTimeFlag(const char* key) const override { Add("SetDateAndTimeFlag", key); }
    void UpdateTimeFileLastLoaded(const char* key) const override {
        Add("UpdateTimeFileLastLoaded", key);
    }
    void UpdateTimeFileLastCompiled(const char* key) const override {
        Add("UpdateTimeFileLastCompiled", key);
    }
    bool IsFileModifiedSinceLastLoaded(const char* key, bool unknown) const override {
        return Add("IsFileModifiedSinceLastLoaded", key, unknown), true;
    }
    bool IsFileModifiedSinceLastCompiled(const char* key, bool unknown) const override {
        return Add("IsFileModifiedSinceLastCompiled", key, unknown), true;
    }
    unsigned long GetLastCompiledTimestamp(unsigned long* out) const override {
        return Add("GetLastCompiledTimestamp", out != nullptr), *out = 601;
    }
    bool IsFileModifiedSinceTimestamp(const unsigned long* const stamp) const override {
        return Add("IsFileModifiedSinceTimestamp", *stamp), true;
    }
    unsigned long GetFileModificationTime(unsigned long* out) const override {
        return Add("GetFileModificationTime", out != nullptr), *out = 801;
    }
    bool CompareModificationTimeTo(unsigned long low, unsigned long high) const override {
        return Add("CompareModificationTimeTo", low, high), true;
    }
    bool IsEquivalent(const ISFileName& other) const override {
        return Add("IsEquivalent", other.Canonical(false)), true;
    }
    const ISFileName* GetFileName() const override { return Add("GetFileName"), this; }

    void Release() const override { Add("Release"); }
    IFileName* CloneFileName() const override {
        return Add("CloneFileName"), new RecordingFileName;
    }
    const char* CanonicalWithExpandedLinks() const override {
        return Add("CanonicalWithExpandedLinks"), "expanded";
    }
    void FormCanonicalName() override { Add("FormCanonicalName"); }
    const char* Canonical(bool reserved) const override {
        return Add("Canonical", reserved), "canonical";
    }
    const char* CanonicalWithoutFinalSlash() const override {
        return Add("CanonicalWithoutFinalSlash"), "without slash";
    }
    const char* ShortName(bool reserved) const override {
        return Add("ShortName", reserved), "short";
    }
    TMyString OsFriendlyCanonical(bool reserved) const override {
        return Add("OsFriendlyCanonical", reserved), "friendly";
    }
    const char* Squeezed(int length, bool reserved) const override {
        return Add("Squeezed", length, reserved), "squeezed";
    }
    const char* GetParts(unsigned int parts) const override {
        return Add("GetParts", parts), "parts";
    }
    bool HasParts(unsigned int parts) const override { return Add("HasParts", parts), true; }
    void SetPart(unsigned int part, const std::string& text) override {
        Add("SetPart", part, text.c_str());
    }
    void StripParts(unsigned int parts) override { Add("StripParts", parts); }
    bool IsValid() const override { return Add("IsValid"), true; }
    bool IsUNC() const override { return Add("IsUNC"), true; }
    bool Exists() const override { return Add("Exists"), true; }
    bool IsReadable() const override { return Add("IsReadable"), true; }
    bool IsWritable() const override { return Add("IsWritable"), true; }
    bool IsAutoSaveTempFile() const override { return Add("IsAutoSaveTempFile"), true; }
    bool Remove() const override { return Add("Remove"), true; }
    int ChangeDir() const override { return Add("ChangeDir"), 21; }
    int CreateDir() const override { return Add("CreateDir"), 22; }
    std::string GetRelativeFileNameString(const IFileName* base, bool first,
                                          bool second) const override {
        return Add("GetRelativeFileNameString", base->Canonical(false), first, second), "relative";
    }
    const char* GetFileNameRelativeTo(const char* directory, TMyString* out) const override {
        Add("GetFileNameRelativeTo", directory);
        return *out = "relative to";
    }
    const char* GetDisplayFileName(int length, bool reserved) const override {
        return Add("GetDisplayFileName", length, reserved), "display";
    }
    void Pop() override { Add("Pop"); }
    void PushFileName(const char* name) override { Add("PushFileName", name); }
    void PushDirectory(const char* name) override { Add("PushDirectory", name); }
    void SetAsVirtualFile() override { Add("SetAsVirtualFile"); }
    bool IsVirtualFile() const override { return Add("IsVirtualFile"), true; }
    bool ConvertVirtualFileToTempFile() override {
        return Add("ConvertVirtualFileToTempFile"), true;
    }
    void StripVirtualState() override { Add("StripVirtualState"); }
    char* GetNameNoExt() const override { return Add("GetNameNoExt"), Piece("name no ext"); }
    char* GetNameAndExt() const override { return Add("GetNameAndExt"), Piece("name and ext"); }
    char* GetFullFileName() const override { return Add("GetFullFileName"), Piece("full"); }
    char* GetFullFileNameNoExt() const override {
        return Add("GetFullFileNameNoExt"), Piece("full no ext");
    }
    char* GetPathOnly() const override { return Add("GetPathOnly"), Piece("path"); }
    char* GetExtOnly() const override { return Add("GetExtOnly"), Piece("ext"); }
    char* GetNameOnly() const override { return Add("GetNameOnly"), Piece("name only"); }

    /// The calls since the last one.
    std::string Take() const { return std::exchange(Calls, {}); }

private:
    static std::string Text(const char* text) { return text ? text : "null"; }
    static std::string Text(bool value) { return value ? "true" : "false"; }
    template <class Number>
    static std::string Text(Number number) {
        return std::to_string(number);
    }
    template <class... Arguments>
    void Add(const char* operation, Arguments... arguments) const {
        std::string list;
        ((list += (list.empty() ? "" : ", ") + Text(arguments)), ...);
        Calls += std::string(operation) + "(" + list + ")\n";
    }
    char* Piece(const char* text) const {
        LastPiece = text;
        return LastPiece.data();
    }

    mutable std::string Calls;
    mutable std::string LastPiece;
};
