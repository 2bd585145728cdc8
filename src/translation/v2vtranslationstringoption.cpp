#include "translation/v2vtranslationstringoption.h"
#include "services/base/threadtext.h"
#include "translation/v2voptionelement.h"
#include <algorithm>
#include <memory>
#include <utility>

TV2VTranslationStringOption::TV2VTranslationStringOption(const char* dashOption,
                                                         const char* optionString,
                                                         const char* description, bool enabled)
    : TV2VTranslationOption(dashOption, optionString, description, enabled) {}

bool TV2VTranslationStringOption::HasStringOption() {
    return true;
}

void TV2VTranslationStringOption::WriteToFile(TXMLList* document) {
    PushOption(document, *this, AdditionalOptions);
}

bool TV2VTranslationStringOption::ReadFromFile(DListIterator<TElement*>& elemI) {
    static TCheckSite tagCheck(kOptionTagCondition, kV2VSourceName, 135);
    ReadOptionStart(elemI, this, tagCheck);
    for (const auto& text : ReadAdditionalOptions(elemI)) AddAnOption(text.c_str());
    return true;
}

// The two operations keep a buffer each: a call of one leaves the result of the other alone.
const char* TV2VTranslationStringOption::GetListDisplayString() {
    return KeepTextOfThread<struct TStringsForDisplay>(GetListString());
}

const char* TV2VTranslationStringOption::GetListString() {
    return KeepTextOfThread<struct TStrings>(JoinedByBlanks(AdditionalOptions));
}

bool TV2VTranslationStringOption::FindString(const char* text) {
    const std::string wanted = text ? text : "";
    return std::find(AdditionalOptions.begin(), AdditionalOptions.end(), wanted) !=
           AdditionalOptions.end();
}

void TV2VTranslationStringOption::ClearList() {
    AdditionalOptions.clear();
}

void TV2VTranslationStringOption::AddAnOption(const char* text) {
    AdditionalOptions.emplace_back(text ? text : "");
}

void TV2VTranslationStringOption::ParseAndPopulateList(const char* text) {
    // Before clearing: the text may be one of the arguments.
    const TMyString copy(text);
    TMyString* split = nullptr;
    const int count = copy.WordSplit(&split, ' ');
    const std::unique_ptr<TMyString[]> words(split);
    ClearList();
    for (int i = 0; i < count; ++i) AddAnOption(split[i].c_str());
}
