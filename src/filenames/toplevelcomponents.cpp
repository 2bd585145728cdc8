#include "filenames/toplevelcomponents.h"

#include "filenames/componentname.h"
#include "services/base/fold.h"
#include "services/logging/binarylog.h"
#include "services/xml/xmlstream.h"

namespace {

bool IsUnknownLanguageText(const char* text, THdlLanguage language) {
    return language == LANGUAGE_NONE &&
           !EqualIgnoringCase(TrimmedView(text), GetStringFromHdlLanguage(LANGUAGE_NONE));
}

/// Deletes the names of a list unless they were kept.
class TNamesNotKept {
public:
    explicit TNamesNotKept(TComponentNameList* list) : List(list) {}
    TNamesNotKept(const TNamesNotKept&) = delete;
    TNamesNotKept& operator=(const TNamesNotKept&) = delete;
    ~TNamesNotKept() {
        if (List) List->Flush();
    }
    void KeepIn(TKeeper* keeper) {
        for (const TComponentName* name : *List) keeper->Keep(name);
        List = nullptr;
    }

private:
    TComponentNameList* List;
};

}  // namespace

bool TTopLevelComponents::AddComponentName(const char* entity, const char* architecture,
                                           const char* library, THdlLanguage language) {
    TComponentNameList* list = GetComponentNameList(language);
    if (!list) {
        list = CallersShare->Keep(std::make_unique<TComponentNameList>(language));
        Lists[language] = list;
    }
    return list->AddComponentName(entity, architecture, library);
}

const TComponentNameList* TTopLevelComponents::GetComponentNameList(THdlLanguage language) const {
    const auto entry = Lists.find(language);
    return entry == Lists.end() ? nullptr : entry->second;
}

TComponentNameList* TTopLevelComponents::GetComponentNameList(THdlLanguage language) {
    const auto entry = Lists.find(language);
    return entry == Lists.end() ? nullptr : entry->second;
}

// A file may lose names here without any other message.
TComponentNameList* TTopLevelComponents::StartList(const char* languageText) {
    const THdlLanguage language = GetHdlLanguageFromString(languageText);
    if (IsUnknownLanguageText(languageText, language))
        LogDiagnostic(
            TBinaryLogMessageOneArg("Top-level components of the unknown language \"%1%\" are read "
                                    "as those of no language.",
                                    languageText));
    const TComponentNameList* const former = GetComponentNameList(language);
    if (former && former->size())
        LogDiagnostic(TBinaryLogMessageOneArg(
            "A second list of top-level components replaces the first one of language \"%1%\".",
            GetStringFromHdlLanguage(language)));
    TComponentNameList* const list = Read.Keep(std::make_unique<TComponentNameList>(language));
    Lists[language] = list;
    return list;
}

bool TTopLevelComponents::ReadTopLevelComponentNames(DListIterator<TElement*>& element) {
    if (IsAtStart(element, "TopLevelComponents")) {
        ForceTopLevelComponents = element.Current()->GetBool("ForceTopLevelComponents", false);
        ++element;
        SkipToStart(element);
    }
    while (IsAtStart(element, "ComponentList")) {
        TComponentNameList* list = StartList(element.Current()->GetAttribute("Language"));
        ++element;
        SkipToStart(element);
        TNamesNotKept names(list);
        const bool isWhole = list->ReadFromFile(element);
        names.KeepIn(&NamesRead);
        if (!isWhole) return false;
    }
    return true;
}

void TTopLevelComponents::WriteTopLevelComponentNames(TXMLList* document) const {
    if (!document) return;
    TAttributeList attributes;
    if (ForceTopLevelComponents) attributes.PushBool("ForceTopLevelComponents", true);
    document->Psh("TopLevelComponents", &attributes, TElement::START, nullptr);
    for (const auto& [language, list] : Lists) {
        PushStart(document, "ComponentList", {{"Language", GetStringFromHdlLanguage(language)}});
        list->WriteToFile(document);
        PushEnd(document, "ComponentList");
    }
    PushEnd(document, "TopLevelComponents");
}

void TTopLevelComponents::Clear() {
    for (const auto& [language, list] : Lists) {
        CallersShare->Delete(list);
        Read.Delete(list);
    }
    Lists.clear();
    NamesRead.HandOverAll();
}
