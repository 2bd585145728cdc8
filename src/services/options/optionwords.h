#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace options {

// The words of an option text. Blank, tab, LF and CR separate words. A double quote starts and ends
// a quoted part anywhere in a word; an unclosed one runs to the end. A backslash is an ordinary
// character. Words keep their spelling, quotes included.

struct TOptionWords {
    std::vector<std::string> Words;
    bool EndsInQuotes = false;  ///< the last word holds an unclosed quote
};

TOptionWords SplitIntoWords(std::string_view text);

/// The parts of `text` between '+' outside quotes, without empty ones.
std::vector<std::string> SplitAtPlus(std::string_view text);

/// `word` without the one pair of quotes that encloses it whole; any other word as it is.
std::string_view WithoutEnclosingQuotes(std::string_view word);

}  // namespace options
