#pragma once
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// How the words begin that a simulator takes for its options.
struct TToolWords {
    std::span<const std::string_view> Taken;
    /// Those of them that it refuses all the same.
    std::span<const std::string_view> Refused = {};
    bool HasOperands = false;  ///< in words of their own
};

extern const TToolWords kWordsOfGhdl;
extern const TToolWords kWordsOfIcarus;
extern const TToolWords kWordsOfNvc;
extern const TToolWords kWordsOfVerilator;
/// Of a Verilog simulation, whatever runs it.
extern const TToolWords kWordsWithPlus;

/// Whether the tool takes the word for an option.
bool IsTaken(std::string_view word, const TToolWords& tool);

/// Whether the word is an option, unless an option in front of it takes every word.
inline bool IsOptionWord(std::string_view word) {
    return word.starts_with('-') || word.starts_with('+');
}
/// Whether the next word may belong to the option.
bool MayHaveOperand(std::string_view option);
/// Whether it does even if it looks like an option, as one of another tool.
bool TakesAnyOperand(std::string_view option);

/// The words in order, each option with the operand that stands behind it. A word that is neither
/// is an entry of its own.
std::vector<std::vector<std::string>> WithOperands(const std::vector<std::string>& words);
/// The words with blanks in between.
std::string TextOfOption(const std::vector<std::string>& words);

/// The options that the tool takes, with their operands. `lose` is told each other one.
std::vector<std::string> ListTaken(const std::vector<std::string>& words, const TToolWords& tool,
                                   const std::function<void(const std::string& option)>& lose);
