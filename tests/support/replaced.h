#pragma once
#include <string>
#include <string_view>

/// `text` with `to` in the place of the first `from`; a text that no test expects when there is
/// none.
inline std::string Replaced(std::string text, std::string_view from, std::string_view to) {
    const std::size_t place = text.find(from);
    if (place == std::string::npos) return "no " + std::string(from) + " in " + text;
    return text.replace(place, from.size(), to);
}

/// `text` with `to` in the place of every `from`, if there is any.
inline std::string ReplacedEverywhere(std::string text, std::string_view from,
                                      std::string_view to) {
    for (std::size_t i = 0; (i = text.find(from, i)) != std::string::npos; i += to.size())
        text.replace(i, from.size(), to);
    return text;
}
