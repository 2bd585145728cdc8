#include "services/hdl/sourcefileextensions.h"

#include "services/base/fold.h"
#include "services/hdl/hdllanguagetable.h"

TSourceFileExtensions* TSourceFileExtensions::GetInstance() {
    static auto* extensions = new TSourceFileExtensions;
    return extensions;
}

THdlLanguage TSourceFileExtensions::GetSourceFileLanguageFromExtension(
    const char* extension) const {
    const std::string_view given = extension ? extension : "";
    const std::string dotted = (given.starts_with('.') ? "" : ".") + std::string(given);
    for (const THdlLanguageRecord& record : GetHdlLanguageTable())
        for (const char* known : record.FileExtensions)
            if (EqualIgnoringCase(dotted, known)) return record.Language;
    return LANGUAGE_NONE;
}
