#include "flows/toptexts.h"
#include "flows/knownnames.h"
#include "flows/listedsources.h"
#include "services/base/mystring.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/hdl/identifier.h"
#include <algorithm>
#include <string_view>
#include <utility>

namespace {

/// The length of the extended identifier that `text` begins with, doubled backslashes included.
std::size_t VhdlExtendedLength(std::string_view text) {
    std::size_t end = 1;
    while (end < text.size() && (text[end] != '\\' || text.substr(end).starts_with("\\\\")))
        end += text[end] == '\\' ? std::size_t{2} : std::size_t{1};
    return std::min(end + 1, text.size());
}

std::string_view WithoutBlanks(std::string_view text) {
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

/// Takes a name from the front of `text`: an escaped one, or what stands in front of one of `ends`.
std::string TakeName(std::string_view* text, THdlLanguage language, std::string_view ends) {
    std::size_t length = std::min(text->find_first_of(ends), text->size());
    if (text->starts_with('\\') && language == LANGUAGE_VHDL)
        length = VhdlExtendedLength(*text);
    else if (text->starts_with('\\') && language == LANGUAGE_VERILOG)
        length = std::min(text->find(' '), text->size() - 1) + 1;
    const std::string_view name = text->substr(0, length);
    text->remove_prefix(length);
    return std::string(name.starts_with('\\') ? name : WithoutBlanks(name));
}

bool Take(std::string_view* text, char character) {
    if (!text->starts_with(character)) return false;
    text->remove_prefix(1);
    return true;
}

bool ReadParts(std::string_view text, TNamedTop* named) {
    TBuildTop& top = named->Top;
    top.Entity = TakeName(&text, top.Language, ".(");
    if (Take(&text, '.')) {
        named->HasLibrary = true;
        top.Library = std::exchange(top.Entity, TakeName(&text, top.Language, ".("));
    }
    if (Take(&text, '(')) {
        top.Architecture = TakeName(&text, top.Language, ")");
        if (top.Architecture.empty() || !Take(&text, ')')) return false;
    }
    return text.empty() && !top.Entity.empty();
}

/// "" for a name that stands for itself.
std::string NameComplaint(const std::string& name, THdlLanguage language) {
    const std::string escaped =
        TTBIdentifier(name.c_str(), language).GetEscapedName(language, '-', false, false).Str();
    if (name.starts_with('\\') || escaped == name) return "";
    return "'" + name + "' is no simple name of " + GetStringFromHdlLanguage(language) +
           ": as an escaped one it is written '" + escaped + "'";
}

std::string Folded(const std::string& text) {
    TMyString folded = text;
    folded.toLower();
    return folded.Str();
}

/// Folded as VHDL does: but for what stands between backslashes.
std::string FoldedOutsideNames(const std::string& text) {
    std::string folded;
    std::string part;
    bool isExtended = false;
    for (const char c : text + '\\') {
        if (c != '\\') {
            part += c;
            continue;
        }
        folded += isExtended ? part : Folded(part);
        folded += c;
        part.clear();
        isExtended = !isExtended;
    }
    folded.pop_back();
    return folded;
}

/// What users may call a top-level component, the fullest name first.
std::vector<std::string> NamesOf(const TBuildTop& top) {
    const std::string entity =
        top.Architecture.empty() ? top.Entity : top.Entity + "(" + top.Architecture + ")";
    return {top.Library + "." + entity, top.Library + "." + top.Entity, entity, top.Entity};
}

/// Who compares two names.
enum TNameRule { RULE_TEXT, RULE_LANGUAGE, RULE_ANY_CASE };

bool IsEqual(const std::string& known, const std::string& name, TNameRule rule,
             THdlLanguage language) {
    if (rule == RULE_ANY_CASE) return Folded(known) == Folded(name);
    if (rule == RULE_LANGUAGE && language == LANGUAGE_VHDL)
        return FoldedOutsideNames(known) == FoldedOutsideNames(name);
    return known == name;
}

/// Those that a user means with the name: the first way to read it that fits any counts.
std::vector<const TBuildTop*> FindTopsOf(const std::vector<TBuildTop>& tops,
                                         const std::string& name) {
    std::vector<std::vector<std::string>> names;
    names.reserve(tops.size());
    for (const TBuildTop& top : tops) names.push_back(NamesOf(top));
    constexpr std::size_t kForms = 4;
    for (const TNameRule rule : {RULE_TEXT, RULE_LANGUAGE, RULE_ANY_CASE})
        // Libraries may differ in their case alone: only a full name is taken by its letters.
        for (std::size_t form = 0; form < (rule == RULE_TEXT ? 1 : kForms); ++form) {
            std::vector<const TBuildTop*> found;
            for (std::size_t number = 0; number < tops.size(); ++number)
                if (IsEqual(names[number][form], name, rule, tops[number].Language))
                    found.push_back(&tops[number]);
            if (!found.empty()) return found;
        }
    return {};
}

}  // namespace

std::string TextOf(const TBuildTop& top) {
    return top.Library + "." + top.Entity +
           (top.Architecture.empty() ? "" : "(" + top.Architecture + ")");
}

TJson TopAsJson(const TBuildTop& top) {
    return {{"language", GetStringFromHdlLanguage(top.Language)},
            {"library", top.Library},
            {"entity", top.Entity},
            {"architecture", top.Architecture}};
}

TNamedTop ReadTop(const std::string& text, THdlLanguage language) {
    TNamedTop named{{language, {}, {}, {}}};
    if (!ReadParts(text, &named)) {
        named.Complaint =
            "'" + text + "': LIBRARY.ENTITY or LIBRARY.ENTITY(ARCHITECTURE) is wanted";
        return named;
    }
    named.Complaint = NameComplaint(named.Top.Entity, language);
    if (named.Complaint.empty()) named.Complaint = NameComplaint(named.Top.Architecture, language);
    return named;
}

TNamedTop ReadTopOf(const std::string& text, THdlLanguage language, const THdlBuildFile& build) {
    TNamedTop named = ReadTop(text, language);
    if (!named.HasLibrary) named.Top.Library = GetDestinationLibraryName(build);
    return named;
}

TNamedTop ReadTopToAdd(const std::string& text, THdlLanguage language, const THdlBuildFile& build) {
    TNamedTop named = ReadTopOf(text, language, build);
    if (named.Complaint.empty() && named.Top.Library.empty())
        named.Complaint = "'" + text + "': a library is wanted in front of the point";
    return named;
}

bool RemoveTopsCalled(const std::string& text, THdlLanguage language, THdlBuildFile& build) {
    bool isRemoved = false;
    for (const THdlLanguageRecord& record : GetHdlLanguageTable()) {
        if (language != LANGUAGE_NONE && record.Language != language) continue;
        const TNamedTop named = ReadTopOf(text, record.Language, build);
        if (named.Complaint.empty() && RemoveTop(build, named.Top)) isRemoved = true;
    }
    return isRemoved;
}

const TBuildTop* FindTopOf(const std::vector<TBuildTop>& tops, const std::string& name) {
    const std::vector<const TBuildTop*> found = FindTopsOf(tops, name);
    return found.size() == 1 ? found.front() : nullptr;
}

std::string NoTopOf(const std::vector<TBuildTop>& tops, const std::string& name) {
    const std::vector<const TBuildTop*> found = FindTopsOf(tops, name);
    std::vector<std::string> names;
    names.reserve(found.size());
    for (const TBuildTop* const top : found)
        names.push_back(TextOf(*top) + " (" + GetDisplayStringFromHdlLanguage(top->Language) + ")");
    if (!found.empty())
        return "several top-level components are called '" + name + "': " + JoinNames(names);
    return UnknownName("top-level component", name, FullNamesOf(tops));
}

std::vector<std::string> FullNamesOf(const std::vector<TBuildTop>& tops) {
    std::vector<std::string> names;
    names.reserve(tops.size());
    for (const TBuildTop& top : tops) names.push_back(TextOf(top));
    return names;
}
