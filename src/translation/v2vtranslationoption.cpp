#include "translation/v2vtranslationoption.h"
#include "services/base/keeper.h"
#include "translation/v2voptionelement.h"

namespace {

std::string TextOf(const char* text) {
    return text ? text : "";
}

}  // namespace

TV2VTranslationOption::TV2VTranslationOption(const char* dashOption, const char* optionString,
                                             const char* description, bool enabled)
    : DashOption(TextOf(dashOption)),
      OptionString(TextOf(optionString)),
      Description(TextOf(description)),
      Enabled(enabled) {}

TV2VTranslationOption::~TV2VTranslationOption() {
    ForgetKept(this);
}

bool TV2VTranslationOption::HasStringOption() {
    return false;
}

void TV2VTranslationOption::WriteToFile(TXMLList* document) {
    PushOption(document, *this, {});
}

bool TV2VTranslationOption::ReadFromFile(DListIterator<TElement*>& elemI) {
    static TCheckSite tagCheck(kOptionTagCondition, kV2VSourceName, 44);
    ReadOptionStart(elemI, this, tagCheck);
    return true;
}

const char* TV2VTranslationOption::GetListDisplayString() {
    return "";
}

const char* TV2VTranslationOption::GetListString() {
    return "";
}

bool TV2VTranslationOption::IsMatch(const char* text) const {
    return DashOption == (text ? text : "");
}

std::string TV2VTranslationOption::GetCommandLineOption() {
    return Enabled ? DashOption + " " + GetListDisplayString() : std::string();
}
