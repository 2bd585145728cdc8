#include "services/options/optionwords.h"

namespace options {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
bool IsPlus(char c) {
    return c == '+';
}

// The non-empty parts between separators outside quotes.
template <class Separator>
TOptionWords Split(std::string_view text, Separator isSeparator) {
    TOptionWords split;
    std::string part;
    for (const char c : text) {
        if (!split.EndsInQuotes && isSeparator(c)) {
            if (!part.empty()) split.Words.push_back(part);
            part.clear();
            continue;
        }
        if (c == '"') split.EndsInQuotes = !split.EndsInQuotes;
        part += c;
    }
    if (!part.empty()) split.Words.push_back(part);
    return split;
}

}  // namespace

TOptionWords SplitIntoWords(std::string_view text) {
    return Split(text, IsBlank);
}

std::vector<std::string> SplitAtPlus(std::string_view text) {
    return Split(text, IsPlus).Words;
}

std::string_view WithoutEnclosingQuotes(std::string_view word) {
    const bool enclosed =
        word.size() > 1 && word.front() == '"' && word.find('"', 1) == word.size() - 1;
    return enclosed ? word.substr(1, word.size() - 2) : word;
}

}  // namespace options
