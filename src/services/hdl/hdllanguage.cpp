#include "services/hdl/hdllanguage.h"

#include "services/base/fold.h"
#include "services/hdl/hdllanguagetable.h"
#include <algorithm>

namespace {

bool IsNameOf(std::string_view word, const THdlLanguageRecord& record) {
    return EqualIgnoringCase(word, record.Name) ||
           std::any_of(record.OtherNames.begin(), record.OtherNames.end(),
                       [word](const char* name) { return EqualIgnoringCase(word, name); });
}

}  // namespace

const char* GetStringFromHdlLanguage(THdlLanguage language) {
    return GetHdlLanguageRecord(language).Name;
}

THdlLanguage GetHdlLanguageFromString(const char* text) {
    const auto word = TrimmedView(text ? text : "");
    for (const THdlLanguageRecord& record : GetHdlLanguageTable())
        if (IsNameOf(word, record)) return record.Language;
    return LANGUAGE_NONE;
}

const char* GetDisplayStringFromHdlLanguage(THdlLanguage language) {
    return GetHdlLanguageRecord(language).DisplayName;
}
