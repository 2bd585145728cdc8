#include "flows/plan/toolwords.h"
#include <algorithm>

bool BeginsWithOne(std::string_view word, TWordBeginnings beginnings) {
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [word](std::string_view beginning) { return word.starts_with(beginning); });
}

std::vector<std::vector<std::string>> WithOperands(const std::vector<std::string>& words) {
    std::vector<std::vector<std::string>> groups;
    for (const std::string& word : words) {
        if (groups.empty() || IsOptionWord(word)) groups.emplace_back();
        groups.back().push_back(word);
    }
    return groups;
}
