#pragma once
#include "services/names/ifilename.h"
#include <map>
#include <string>
#include <string_view>

/// A path under construction. Copyable; nothing here looks at the disk.
class HDLBUILDFILE_API TUtilFileName {
public:
    TUtilFileName() = default;
    /// Null counts as empty. `format` is reserved: every format is recognised from the text.
    explicit TUtilFileName(const char* text, int format = 1);

    /// Puts a file name or relative path below what is held, which counts as a directory with or
    /// without a delimiter at its end; an absolute one replaces it. Null and "" change nothing.
    void PushFileName(const char* name);
    /// The same, and what is held then is a directory.
    void PushDirectory(const char* name);
    /// Drops the last part; what is left ends with a delimiter. A root stays.
    void Pop();
    /// Drops the parts selected by TFileNameParts bits.
    void StripParts(unsigned int parts);
    /// Whether any of the selected parts is there. PART_NAME | PART_EXTENSION asks for a file part.
    bool HasParts(unsigned int parts) const;
    bool IsEmpty() const { return Text.empty(); }

    /// Each text is valid until the name changes or dies. Empty stays empty; only the canonical
    /// forms of a relative path take the working directory into account.
    const char* GetParts(unsigned int parts) const;
    const char* Canonical(bool reserved = false) const;
    const char* CanonicalWithoutFinalSlash() const;

private:
    void SetText(std::string text);
    const char* Kept(unsigned int form, std::string_view result) const;

    std::string Text;
    mutable std::map<unsigned int, std::string> Results;  // by parts, and the two canonical forms
};
