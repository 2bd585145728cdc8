#include "flows/formats/shelltext.h"

// Nothing but a single quote means anything within single quotes.
std::string ShellWord(const std::string& text) {
    constexpr std::string_view kPlain =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
        "0123456789_./-+=:,@%";
    if (!text.empty() && text.find_first_not_of(kPlain) == std::string::npos) return text;
    std::string word = "'";
    for (const char c : text)
        if (c == '\'')
            word += "'\\''";
        else
            word += c;
    return word + "'";
}

std::vector<std::string> JoinedWords(std::initializer_list<std::vector<std::string>> lists) {
    std::vector<std::string> words;
    for (const std::vector<std::string>& list : lists)
        words.insert(words.end(), list.begin(), list.end());
    return words;
}

std::string ShellWords(const std::vector<std::string>& texts) {
    std::string words;
    for (const std::string& text : texts) words.append(" ").append(ShellWord(text));
    return words;
}

std::string GhdlStandard(const TPlanSettings& settings) {
    const std::string& standard = settings.Standard;
    return standard.empty() ? "08" : standard.substr(standard.size() - 2);
}
