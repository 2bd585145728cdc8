#pragma once
#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// How the words begin that a simulator takes for its options.
using TWordBeginnings = std::span<const std::string_view>;

inline constexpr std::array<std::string_view, 6> kWordsOfGhdl = {"--", "-f", "-g",
                                                                 "-C", "-P", "-W"};
inline constexpr std::array<std::string_view, 8> kWordsOfIcarus = {"-g", "-W", "-P", "-p",
                                                                   "-m", "-N", "-u", "-d"};
inline constexpr std::array<std::string_view, 1> kWordsOfNvc = {"--"};
inline constexpr std::array<std::string_view, 3> kWordsOfVerilator = {"--", "-O", "-W"};
/// Of a Verilog simulation, whatever runs it.
inline constexpr std::array<std::string_view, 1> kWordsWithPlus = {"+"};

bool BeginsWithOne(std::string_view word, TWordBeginnings beginnings);

/// Whether the word is an option, and no operand of one.
inline bool IsOptionWord(std::string_view word) {
    return word.starts_with('-') || word.starts_with('+');
}

/// The words in order, each option with the operands that stand behind it. Operands without an
/// option are the first entry.
std::vector<std::vector<std::string>> WithOperands(const std::vector<std::string>& words);
