#include "services/xml/xmlname.h"

#include <algorithm>
#include <mutex>
#include <optional>
#include <unordered_map>

#include "services/xml/expatrun.h"
#include "services/xml/xmltext.h"

namespace {

bool IsAsciiNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':';
}

bool IsAsciiNameCharacter(char c) {
    return IsAsciiNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

/// Documents that were parsed, and whether they are well-formed.
class TKnownDocuments {
public:
    std::optional<bool> Find(const std::string& document) {
        const std::lock_guard guard(Lock);
        const auto found = Documents.find(document);
        return found == Documents.end() ? std::nullopt : std::optional(found->second);
    }
    void Add(const std::string& document, bool isWellFormed) {
        const std::lock_guard guard(Lock);
        Documents.emplace(document, isWellFormed);
    }

private:
    std::mutex Lock;
    std::unordered_map<std::string, bool> Documents;
};

// Editions of XML differ in the letters beyond ASCII. Our own parser's opinion counts: what it
// refuses could not be read back.
bool IsAcceptedInName(std::string_view character, bool first) {
    static auto& known = *new TKnownDocuments;
    const std::string document = (first ? "<" : "<_") + std::string(character) + "/>";
    if (const auto isAccepted = known.Find(document)) return *isAccepted;
    const bool isAccepted = IsWellFormed(document);
    known.Add(document, isAccepted);
    return isAccepted;
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
