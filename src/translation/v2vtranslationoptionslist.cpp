#include "translation/v2vtranslationoptionslist.h"
#include "services/base/keeper.h"
#include "services/base/sharedset.h"
#include "services/base/threadtext.h"
#include "services/xml/xmlstream.h"
#include "translation/v2vcatalogues.h"
#include "translation/v2voptionelement.h"
#include "translation/v2vtranslationfileoption.h"
#include "translation/v2vtranslationstringoption.h"
#include <algorithm>
#include <iterator>
#include <memory>
#include <new>
#include <typeinfo>
#include <utility>

namespace {

/// The lists that are not destroyed, on all threads.
TSharedSet<const TV2VTranslationOptionsList*>& LivingLists() {
    // Never destroyed: a list may be static.
    static auto& lists = *new TSharedSet<const TV2VTranslationOptionsList*>;
    return lists;
}

template <class T>
bool DestroyIfItIs(TV2VTranslationOption* option) {
    T* exact = dynamic_cast<T*>(option);
    if (!exact) return false;
    exact->T::~T();
    // Without a size: a class that is derived further may be larger.
    ::operator delete(static_cast<void*>(exact));
    return true;
}

TOwnOption MakeOption(const TV2VCommandLineOption& row) {
    const auto make = [&row]<class T>(T*) {
        return TOwnOption(new T(row.Switch, row.OptionText, row.HelpText, row.Enabled));
    };
    switch (row.Kind) {
        case V2V_PLAIN_OPTION:
            return make(static_cast<TV2VTranslationOption*>(nullptr));
        case V2V_FILE_OPTION:
            return make(static_cast<TV2VTranslationFileOption*>(nullptr));
        case V2V_STRING_OPTION:
            return make(static_cast<TV2VTranslationStringOption*>(nullptr));
        default:
            return nullptr;
    }
}

/// An option for each row of the table whose switch has none yet.
std::vector<TOwnOption> MakeOptions(const TV2VCommandLineOption* table, int count) {
    std::vector<TOwnOption> options;
    for (int i = 0; table && i < count; ++i) {
        const bool isListed = std::any_of(
            options.begin(), options.end(),
            [&row = table[i]](const auto& option) { return option->IsMatch(row.Switch); });
        if (isListed) continue;
        if (TOwnOption option = MakeOption(table[i])) options.push_back(std::move(option));
    }
    return options;
}

// The option of `list` that an element belongs to; null for none. An empty switch names no element.
TV2VTranslationOption* FindOptionOf(const TElementIterator& elemI,
                                    const TV2VTranslationOptionsList& list) {
    const TMyString dash = IsAtStart(elemI) ? GetSwitchOfTag(elemI.Current()->Name) : TMyString();
    return dash.IsEmpty() ? nullptr : list.FindOption(dash.c_str());
}

// From a START past its END, though never past the END of the whole list.
void SkipOption(TElementIterator& elemI, const std::string& listTag) {
    int depth = 0;
    do {
        if (IsAtStart(elemI)) ++depth;
        if (IsAtEnd(elemI)) --depth;
        ++elemI;
    } while (depth > 0 && elemI.NotAtTail() && !(elemI.Current()->Name == listTag.c_str()));
}

}  // namespace

bool AreOptionsOfTheLibrary(const TV2VTranslationOptionsList& options) {
    return std::all_of(options.begin(), options.end(), [](const TV2VTranslationOption* option) {
        const std::type_info& type = typeid(*option);
        return type == typeid(TV2VTranslationOption) ||
               type == typeid(TV2VTranslationStringOption) ||
               type == typeid(TV2VTranslationFileOption);
    });
}

void DeleteOption(TV2VTranslationOption* option) {
    DestroyIfItIs<TV2VTranslationStringOption>(option) ||
        DestroyIfItIs<TV2VTranslationFileOption>(option) ||
        DestroyIfItIs<TV2VTranslationOption>(option);
}

TV2VTranslationOptionsList::TV2VTranslationOptionsList(TProjectComponent* component,
                                                       const char* tag)
    : Tag(tag ? tag : ""), Component(component) {
    LivingLists().Add(this);
}

TV2VTranslationOptionsList::TV2VTranslationOptionsList(const TV2VTranslationOptionsList& other)
    : Options(other.Options), Tag(other.Tag), Component(other.Component) {
    LivingLists().Add(this);
}

TV2VTranslationOptionsList& TV2VTranslationOptionsList::operator=(
    const TV2VTranslationOptionsList& other) {
    if (this == &other) return *this;
    // All memory is taken before anything changes.
    auto options = other.Options;
    std::string tag = other.Tag;
    LetGo();
    Options.swap(options);
    Tag.swap(tag);
    Component = other.Component;
    return *this;
}

TV2VTranslationOptionsList::~TV2VTranslationOptionsList() {
    LetGo();
    ForgetKept(this);
    LivingLists().Remove(this);
}

bool TV2VTranslationOptionsList::IsAlive(const TV2VTranslationOptionsList* list) {
    return LivingLists().Has(list);
}

// Without a look at the options: a copy of the list may have deleted them.
void TV2VTranslationOptionsList::LetGo() {
    for (const TV2VTranslationOption* option : Options) KeepUntilExit(option);
}

bool TV2VTranslationOptionsList::AddOptionNoDup(TV2VTranslationOption* option) {
    if (!option || FindOption(option->GetDashOption())) return false;
    // It is handed over, whether there is memory for its place or not.
    TOwnOption given(option);
    Options.push_back(option);
    given.release()->SetOwningList(this);
    return true;
}

bool TV2VTranslationOptionsList::AddOptionNoDup(const char* dash, const char* optionString,
                                                const char* description, bool enabled) {
    if (FindOption(dash)) return false;
    return AddOptionNoDup(new TV2VTranslationOption(dash, optionString, description, enabled));
}

TV2VTranslationOption* TV2VTranslationOptionsList::FindOption(const char* dash) const {
    for (TV2VTranslationOption* option : Options)
        if (option->IsMatch(dash)) return option;
    return nullptr;
}

bool TV2VTranslationOptionsList::IsOptionEnabled(const char* dash) const {
    const TV2VTranslationOption* option = FindOption(dash);
    return option && option->IsEnabled();
}

void TV2VTranslationOptionsList::Flush() {
    for (TV2VTranslationOption* option : Options) DeleteOption(option);
    Options.clear();
}

const char* TV2VTranslationOptionsList::GetCommandLineOptions() const {
    std::vector<std::string> texts;
    for (TV2VTranslationOption* option : Options) texts.push_back(option->GetCommandLineOption());
    return KeepTextOfThread<struct TCommandLineOptions>(JoinedByBlanks(texts));
}

bool TV2VTranslationOptionsList::ReadFromFile(DListIterator<TElement*>& elemI) {
    while (elemI.NotAtTail() && !(elemI.Current()->Name == Tag.c_str())) {
        // The section of another list ends with an element that the tag does not name.
        if (IsAtEnd(elemI)) break;
        TV2VTranslationOption* option = FindOptionOf(elemI, *this);
        if (option) {
            TElementIterator inside = elemI;
            option->ReadFromFile(inside);
        }
        SkipOption(elemI, Tag);
    }
    return true;
}

bool TV2VTranslationOptionsList::ReadFromFile(TXMLList* document) {
    if (!document) return true;
    TElementIterator elemI(*document);
    if (!TXMLList::FindNext(elemI, Tag.c_str(), "SimulationProject")) return true;
    ++elemI;
    return ReadFromFile(elemI);
}

void TV2VTranslationOptionsList::WriteToFile(TXMLList* document) const {
    if (!document) return;
    PushStart(document, Tag.c_str());
    for (TV2VTranslationOption* option : Options)
        if (option->IsEnabled()) option->WriteToFile(document);
    PushEnd(document, Tag.c_str());
}

void TV2VTranslationOptionsList::PopulateWithDefaultOptions(TV2VTranslationOptionsList* list,
                                                            const TV2VCommandLineOption* table,
                                                            int count) {
    if (!list) return;
    std::vector<TOwnOption> options = MakeOptions(table, count);
    list->Options.reserve(options.size());
    list->Flush();
    for (TOwnOption& option : options) {
        option->SetOwningList(list);
        list->Options.push_back(option.release());
    }
}

void TV2VTranslationOptionsList::PopulateWithDefaultVerilog2VhdlOptions(
    TV2VTranslationOptionsList* list) {
    PopulateWithDefaultOptions(list, kVerilog2VhdlCatalogue, std::size(kVerilog2VhdlCatalogue));
}

void TV2VTranslationOptionsList::PopulateWithDefaultVhdl2VerilogOptions(
    TV2VTranslationOptionsList* list) {
    PopulateWithDefaultOptions(list, kVhdl2VerilogCatalogue, std::size(kVhdl2VerilogCatalogue));
}
