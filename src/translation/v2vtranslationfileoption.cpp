#include "translation/v2vtranslationfileoption.h"
#include "services/base/threadtext.h"
#include "services/designdatabase/projectcomponent.h"
#include "services/files/pathtext.h"
#include "services/names/isfilename.h"
#include "translation/v2voptionelement.h"
#include "translation/v2vtranslationoptionslist.h"

namespace {

// The directory that names are relative to; "" when there is none.
std::string GetBaseDirectory(const TV2VTranslationOption& option) {
    const TV2VTranslationOptionsList* list = option.GetOwningList();
    const TProjectComponent* component =
        TV2VTranslationOptionsList::IsAlive(list) ? list->GetComponent() : nullptr;
    const ISFileName* file = component ? component->GetFileName() : nullptr;
    return file ? file->GetParts(PART_DIRECTORY) : "";
}

// Every file's name relative to `directory`, canonical when that is "".
std::vector<std::string> GetNames(const std::vector<const ISFileName*>& files,
                                  const std::string& directory) {
    std::vector<std::string> names;
    for (const ISFileName* file : files) {
        TMyString relative;
        names.emplace_back(directory.empty()
                               ? file->Canonical(false)
                               : file->GetFileNameRelativeTo(directory.c_str(), &relative));
    }
    return names;
}

std::string QuotedAndJoined(std::vector<std::string> names) {
    for (auto& name : names) {
        TMyString text(name);
        name = GetStringQuotedIfNecessary(text).Str();
    }
    return JoinedByBlanks(names);
}

}  // namespace

TV2VTranslationFileOption::TV2VTranslationFileOption(const char* dashOption,
                                                     const char* optionString,
                                                     const char* description, bool enabled)
    : TV2VTranslationOption(dashOption, optionString, description, enabled) {}

bool TV2VTranslationFileOption::HasStringOption() {
    return true;
}

void TV2VTranslationFileOption::WriteToFile(TXMLList* document) {
    PushOption(document, *this, GetNames(Files, GetBaseDirectory(*this)));
}

bool TV2VTranslationFileOption::ReadFromFile(DListIterator<TElement*>& elemI) {
    static TCheckSite tagCheck(kOptionTagCondition, kV2VSourceName, 266);
    ReadOptionStart(elemI, this, tagCheck);
    for (const auto& text : ReadAdditionalOptions(elemI)) AddFileNoDup(text.c_str());
    return true;
}

const char* TV2VTranslationFileOption::GetListDisplayString() {
    return KeepTextOfThread<struct TFilesForDisplay>(QuotedAndJoined(GetNames(Files, "")));
}

const char* TV2VTranslationFileOption::GetListString() {
    return KeepTextOfThread<struct TFiles>(
        QuotedAndJoined(GetNames(Files, GetBaseDirectory(*this))));
}

void TV2VTranslationFileOption::AddAnOption(const char* text) {
    AddFileNoDup(text);
}

void TV2VTranslationFileOption::ClearList() {
    Files.clear();
}

void TV2VTranslationFileOption::AddFileNoDup(const char* name) {
    AddFileNoDup(ISFileName::NewISFileName(name));
}

void TV2VTranslationFileOption::AddFileNoDup(const ISFileName* file) {
    if (!file || !*file->GetParts(PART_ALL) || FindFile(file)) return;
    Files.push_back(file);
}

bool TV2VTranslationFileOption::FindFile(const ISFileName*) const {
    return false;
}
