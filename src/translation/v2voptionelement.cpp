#include "translation/v2voptionelement.h"
#include "services/base/booltext.h"
#include "translation/v2vtranslationoption.h"
#include <algorithm>
#include <climits>
#include <cstring>

namespace {

constexpr const char* kTagPrefix = "v2v";
constexpr const char* kArgumentTag = "AdditionalOptions";

// Bytes beyond ASCII are left to the writer of the file, which knows the characters they make up.
bool IsAllowedInName(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x80 || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
           (c >= 'a' && c <= 'z') || std::strchr("-_.:", c);
}

// A reader finds the switch from the first '-' of the name on.
bool IsFoundInTag(const std::string& dashOption) {
    return dashOption.front() == '-' &&
           std::all_of(dashOption.begin(), dashOption.end(), IsAllowedInName);
}

bool CanNameElement(const std::string& dashOption) {
    static TCheckSite check("IsFoundInTag(dashOption)", kV2VSourceName, 28);
    if (dashOption.empty()) return false;
    if (IsFoundInTag(dashOption)) return true;
    check.Report();
    return false;
}

}  // namespace

std::string GetOptionTag(const char* dashOption) {
    return std::string(kTagPrefix) + dashOption;
}

TMyString GetSwitchOfTag(const TMyString& name) {
    const int dash = name.FindCharAfterPos('-', 0);
    return dash < 0 ? TMyString() : name.SubStr(static_cast<unsigned>(dash), UINT_MAX);
}

void PushOption(TXMLList* document, const TV2VTranslationOption& option,
                const std::vector<std::string>& arguments) {
    if (!document || !CanNameElement(option.GetDashOption())) return;
    const std::string optionTag = GetOptionTag(option.GetDashOption());
    PushStart(document, optionTag.c_str(),
              {{"Enabled", ConvertBooleanToStringBool(option.IsEnabled())}});
    for (const auto& argument : arguments) PushTextElement(document, kArgumentTag, argument);
    PushEnd(document, optionTag.c_str());
}

void ReadOptionStart(TElementIterator& elemI, TV2VTranslationOption* option, TCheckSite& tagCheck) {
    if (!elemI.NotAtTail()) return;
    const std::string optionTag = GetOptionTag(option->GetDashOption());
    if (!(elemI.Current()->Name == optionTag.c_str())) tagCheck.Report();
    option->SetEnabled(elemI.Current()->GetAttributeBool("Enabled", false));
    ++elemI;
}

std::vector<std::string> ReadAdditionalOptions(TElementIterator& elemI) {
    std::vector<std::string> arguments;
    while (IsAtStart(elemI, kArgumentTag)) {
        TElementIterator text = elemI;
        ++text;
        arguments.push_back(IsAtText(text) ? text.Current()->Text.Str() : "");
        SkipElement(elemI);
    }
    return arguments;
}

std::string JoinedByBlanks(const std::vector<std::string>& texts) {
    std::string joined;
    for (const auto& text : texts) {
        if (&text != &texts.front()) joined += ' ';
        joined += text;
    }
    return joined;
}
