#include "flows/documentwords.h"
#include "flows/simulatornames.h"
#include "services/hdl/hdllanguage.h"
#include "services/hdl/timebase.h"
#include <algorithm>

namespace {

constexpr const char* kBlanks = " \t\r\n";

std::string Trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string::npos) return "";
    return std::string(text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin));
}

bool IsLanguage(const std::string& text) {
    if (GetHdlLanguageFromString(text.c_str()) != LANGUAGE_NONE) return true;
    const std::string none = GetStringFromHdlLanguage(LANGUAGE_NONE);
    return std::equal(text.begin(), text.end(), none.begin(), none.end(),
                      [](char a, char b) { return (a | 0x20) == (b | 0x20); });
}

bool IsTimeUnit(const std::string& text) {
    TUnit unit = UNIT_PS;
    return TTimeBase::GetTimeUnitFromString(text.c_str(), &unit);
}

bool IsSimulator(const std::string& text) {
    return GetSimulatorTypeFromName(text.c_str()) != SIM_NONE ||
           text == GetSimulatorNameFromType(SIM_NONE);
}

bool IsSimulatorOrNumber(const std::string& text) {
    return FindSimulator(text) != SIM_NONE || IsSimulator(text);
}

struct TWordCheck {
    TWordKind Kind;
    bool (*IsKnown)(const std::string& word);
    TDiagnosticCode Code;
};

constexpr TWordCheck kWordChecks[] = {
    {WORD_LANGUAGE, IsLanguage, DIAGNOSTIC_UNKNOWN_LANGUAGE},
    {WORD_NEEDED_LANGUAGE, IsLanguage, DIAGNOSTIC_UNKNOWN_LANGUAGE},
    {WORD_SIMULATOR, IsSimulator, DIAGNOSTIC_UNKNOWN_SIMULATOR},
    {WORD_SIMULATOR_OR_NUMBER, IsSimulatorOrNumber, DIAGNOSTIC_UNKNOWN_SIMULATOR},
    {WORD_TIME_UNIT, IsTimeUnit, DIAGNOSTIC_UNKNOWN_TIME_UNIT},
};

}  // namespace

void TDocumentWords::Meet(const TMetElement& element) {
    if (element.Type == TElement::START)
        Open(element);
    else if (element.Type == TElement::END)
        Close();
    else
        MeetText(element);
}

const TKnownElement* TDocumentWords::FindKnown(std::string_view name) {
    const TKnownElement* const parent = Stack.empty() ? nullptr : Stack.back().Known;
    if (!parent) return FindKnownElement(name, "");
    const TKnownElement*& last = LastIn[static_cast<std::size_t>(parent - &GetKnownElements()[0])];
    if (last && last->Name == name) return last;
    const TKnownElement* const known = FindKnownElement(name, parent->Name);
    if (known) last = known;
    return known;
}

void TDocumentWords::Open(const TMetElement& start) {
    const TKnownElement* known = FindKnown(start.Name);
    if (!known) MeetUnknown(std::string(start.Name), start.Place);
    MeetInList(known);
    Stack.push_back({known, start.Place});
    if (known) CheckAttributes(*known, start);
}

// A reader of a list knows entries that hold a text at most.
void TDocumentWords::MeetInList(const TKnownElement* known) {
    if (Stack.empty()) return;
    TOpen& parent = Stack.back();
    if (parent.Known && !parent.Known->NeededEntry.empty()) {
        const bool isEntry = known && known->Name == parent.Known->NeededEntry;
        (isEntry ? parent.HasEntry : parent.IsBroken) = true;
    }
    if (Stack.size() > 1) Stack[Stack.size() - 2].IsBroken = true;
}

void TDocumentWords::Close() {
    if (Stack.empty()) return;
    const TOpen open = Stack.back();
    Stack.pop_back();
    if (!open.Known || open.Known->NeededEntry.empty()) return;
    if (open.IsBroken || !open.HasEntry)
        Add(DIAGNOSTIC_UNREADABLE_LIST, {open.Known->Name, open.Known->NeededEntry, Language},
            open.Place);
}

// What is in an unknown element is passed over like the element itself.
void TDocumentWords::MeetUnknown(const std::string& name, std::uint32_t place) {
    const TKnownElement* parent = Stack.empty() ? nullptr : Stack.back().Known;
    if (!Stack.empty() && (!parent || parent->Unknown == UNKNOWN_IS_FREE)) return;
    const std::string parentName = parent ? parent->Name : "";
    const TKnownElement* const elsewhere = FindElementElsewhere(name);
    const std::string meant = elsewhere ? "" : FindMeantElement(name, parentName);
    if (elsewhere)
        AddOnce(DIAGNOSTIC_MISPLACED_ELEMENT, {name, elsewhere->Parent}, place);
    else if (!meant.empty())
        AddOnce(DIAGNOSTIC_MISSPELT_ELEMENT, {name, meant}, place);
    else if (parent && parent->Unknown == UNKNOWN_ENDS_SECTION)
        AddOnce(DIAGNOSTIC_ELEMENT_ENDS_SECTION, {name, parentName}, place);
    else
        AddOnce(DIAGNOSTIC_UNKNOWN_ELEMENT, {name}, place);
}

void TDocumentWords::MeetText(const TMetElement& text) {
    if (Stack.empty() || !Stack.back().Known) return;
    if (!Stack.back().Known->NeededEntry.empty()) Stack.back().IsBroken = true;
    CheckWord(Stack.back().Known->Text, text.Text, text.Place);
}

void TDocumentWords::CheckAttributes(const TKnownElement& known, const TMetElement& start) {
    if (known.Unknown == UNKNOWN_IS_FREE) return;
    if (known.Name == "LanguageSettings") {
        Language = start.GetAttribute("Language");
        if (Language.empty()) Add(DIAGNOSTIC_SETTINGS_WITHOUT_LANGUAGE, {}, start.Place);
    }
    for (const TKnownAttribute& attribute : known.Attributes)
        if (attribute.Kind != WORD_ANY)
            CheckWord(attribute.Kind, start.GetAttribute(attribute.Name), start.Place);
    for (const auto& [name, value] : start.Attributes) {
        const bool isKnown =
            std::any_of(known.Attributes.begin(), known.Attributes.end(),
                        [&name = name](const TKnownAttribute& row) { return name == row.Name; });
        if (!isKnown)
            AddOnce(DIAGNOSTIC_UNKNOWN_ATTRIBUTE, {std::string(name), known.Name}, start.Place);
    }
}

void TDocumentWords::CheckWord(TWordKind kind, std::string_view text, std::uint32_t place) {
    if (kind == WORD_ANY) return;
    const std::string word = Trimmed(text);
    if (word.empty() && kind != WORD_NEEDED_LANGUAGE) return;
    for (const TWordCheck& check : kWordChecks)
        if (check.Kind == kind && !check.IsKnown(word)) AddOnce(check.Code, {word}, place);
}

void TDocumentWords::AddOnce(TDiagnosticCode code, std::vector<std::string> names,
                             std::uint32_t place) {
    if (Told.emplace(code, names).second) Add(code, std::move(names), place);
}
