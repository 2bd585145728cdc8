#include "flows/filepatterns.h"
#include "flows/scan/asciicase.h"

namespace {

constexpr std::string_view kDelimiters = "/\\";
constexpr std::string_view kAnyParts = "**";

/// The bytes of the character in UTF-8 that begins at `place`.
std::size_t LengthOfCharacter(std::string_view text, std::size_t place) {
    std::size_t length = 1;
    while (place + length < text.size() &&
           (static_cast<unsigned char>(text[place + length]) & 0xC0U) == 0x80U)
        ++length;
    return length;
}

/// Walks a text and a pattern in step. Of the wildcards that take any number of items only the last
/// one met needs to be tried with more: what the earlier ones took can stay. So the time is the
/// product of both lengths at most.
template <class TIsAny, class TStep>
bool MatchesAll(std::size_t patternSize, std::size_t textSize, TIsAny isAny, TStep step) {
    constexpr auto kNoPlace = static_cast<std::size_t>(-1);
    std::size_t pattern = 0;
    std::size_t text = 0;
    std::size_t lastAny = kNoPlace;
    std::size_t taken = 0;  // where the text behind that wildcard begins
    while (text < textSize) {
        if (pattern < patternSize && isAny(pattern)) {
            lastAny = pattern++;
            taken = text;
        } else if (const std::size_t length = pattern < patternSize ? step(pattern, text) : 0) {
            ++pattern;
            text += length;
        } else if (lastAny != kNoPlace) {
            pattern = lastAny + 1;
            text = ++taken;
        } else {
            return false;
        }
    }
    while (pattern < patternSize && isAny(pattern)) ++pattern;
    return pattern == patternSize;
}

}  // namespace

bool IsFilePattern(std::string_view text) {
    return text.find_first_of("*?") != std::string_view::npos;
}

std::vector<std::string_view> PartsOfPath(std::string_view path) {
    std::vector<std::string_view> parts;
    while (!path.empty()) {
        const std::size_t end = path.find_first_of(kDelimiters);
        parts.push_back(path.substr(0, end));
        path = end == std::string_view::npos ? std::string_view() : path.substr(end + 1);
    }
    return parts;
}

bool MatchesPartOfPattern(std::string_view pattern, std::string_view part) {
    return MatchesAll(
        pattern.size(), part.size(), [&](std::size_t i) { return pattern[i] == '*'; },
        [&](std::size_t i, std::size_t j) -> std::size_t {
            if (pattern[i] == '?') return LengthOfCharacter(part, j);
            return FoldAscii(pattern[i]) == FoldAscii(part[j]) ? 1 : 0;
        });
}

bool MatchesFilePattern(std::string_view pattern, std::string_view path) {
    const std::vector<std::string_view> patterns = PartsOfPath(pattern);
    const std::vector<std::string_view> parts = PartsOfPath(path);
    return MatchesAll(
        patterns.size(), parts.size(), [&](std::size_t i) { return patterns[i] == kAnyParts; },
        [&](std::size_t i, std::size_t j) -> std::size_t {
            return MatchesPartOfPattern(patterns[i], parts[j]) ? 1 : 0;
        });
}
