#include "flows/optiontexts.h"
#include <algorithm>

std::vector<std::string> WordsOfOptions(std::string_view text) {
    std::vector<std::string> words;
    bool isQuoted = false;
    bool isInWord = false;
    for (const char c : text) {
        const bool isBlank = c == ' ' || c == '\t' || c == '\n' || c == '\r';
        if (isBlank && !isQuoted) {
            isInWord = false;
            continue;
        }
        if (!isInWord) words.emplace_back();
        isInWord = true;
        if (c == '"')
            isQuoted = !isQuoted;
        else
            words.back() += c;
    }
    return words;
}

std::vector<std::string> ValuesOfList(std::string_view list) {
    std::vector<std::string> values;
    while (!list.empty()) {
        const std::size_t length = std::min(list.find('+'), list.size());
        if (length > 0) values.emplace_back(list.substr(0, length));
        list.remove_prefix(std::min(length + 1, list.size()));
    }
    return values;
}
