#pragma once
#include "services/hdl/hdllanguage.h"

/// Tells a source file's language from its extension.
class HDLBUILDFILE_API TSourceFileExtensions {
public:
    /// Never null, never destroyed.
    static TSourceFileExtensions* GetInstance();

    /// `extension` with or without its dot, in any letter case. Unknown, empty and null texts give
    /// LANGUAGE_NONE.
    THdlLanguage GetSourceFileLanguageFromExtension(const char* extension) const;

private:
    TSourceFileExtensions() = default;
};
