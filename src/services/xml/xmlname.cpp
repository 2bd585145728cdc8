#include "services/xml/xmlname.h"

#include <algorithm>
#include <map>

#include "services/xml/expatrun.h"
#include "services/xml/xmltext.h"

namespace {

bool IsAsciiNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':';
}

bool IsAsciiNameCharacter(char c) {
    return IsAsciiNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

// Editions of XML differ in the letters beyond ASCII. Our own parser's opinion counts: what it
// refuses could not be read back.
bool IsAcceptedInName(std::string_view character, bool first) {
    static auto* const known = new std::map<std::string, bool, std::less<>>;
    std::string document = (first ? "<" : "<_") + std::string(character) + "/>";
    const auto found = known->find(document);
    if (found != known->end()) return found->second;
    const bool accepted = IsWellFormed(document);
    known->emplace(std::move(document), accepted);
    return accepted;
}

bool CanStandInName(std::string_view character, bool first) {
    if (character.size() > 1) return IsAcceptedInName(character, first);
    return first ? IsAsciiNameStart(character[0]) : IsAsciiNameCharacter(character[0]);
}

}  // namespace

std::string ToXMLName(std::string_view name) {
    const std::string text = ToUtf8(name);
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = Utf8LengthAt(text, i);
        const std::string_view character = std::string_view(text).substr(i, length);
        result += CanStandInName(character, i == 0) ? character : "_";
        i += length;
    }
    return result.empty() ? "_" : result;
}

bool IsAsciiXMLName(std::string_view name) {
    return !name.empty() && IsAsciiNameStart(name[0]) &&
           std::all_of(name.begin(), name.end(), IsAsciiNameCharacter);
}

bool IsXMLName(std::string_view name) {
    // Most names are ASCII, and every element asks.
    return IsAsciiXMLName(name) || ToXMLName(name) == ToUtf8(name);
}
