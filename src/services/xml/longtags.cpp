#include "services/xml/longtags.h"
#include "services/xml/xmlreader.h"

namespace {

// One attribute takes at least these: a space, a name of one letter, =, and two quotes.
constexpr std::size_t kLeastLength = 5 * kMaxXMLAttributes;

bool HasTooManyAttributes(std::string_view tag) {
    std::size_t count = 0;
    char quote = '\0';
    for (const char c : tag.substr(1)) {
        if (c == '<') return false;
        if (quote != '\0') {
            if (c == quote) quote = '\0';
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            return false;
        } else if (c == '=' && ++count > kMaxXMLAttributes) {
            return true;
        }
    }
    return false;
}

}  // namespace

// A start tag has no '<' inside. From one of them to the last one that is near: hardly any byte of
// an ordinary document is looked at.
std::size_t FindOverfullTag(std::string_view document, std::size_t begin) {
    std::size_t place = document.find('<', begin);
    while (place != std::string_view::npos && document.size() - place > kLeastLength) {
        const std::size_t last = document.rfind('<', place + kLeastLength);
        if (last != place) {
            place = last;
        } else {
            if (HasTooManyAttributes(document.substr(place))) return place;
            place = document.find('<', place + kLeastLength);
        }
    }
    return std::string_view::npos;
}
