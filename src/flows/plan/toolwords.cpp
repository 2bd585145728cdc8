#include "flows/plan/toolwords.h"
#include <algorithm>
#include <iterator>

namespace {

constexpr std::string_view kOfGhdl[] = {"--", "-f", "-g", "-C", "-P", "-W"};
constexpr std::string_view kOfIcarus[] = {"-g", "-W", "-P", "-p", "-m", "-N", "-u", "-d"};
constexpr std::string_view kOfNvc[] = {"--"};
constexpr std::string_view kOfVerilator[] = {
    "--",       "-O",        "-fno-",   "-Wall",    "-Wpedantic", "-Wno-", "-Wwarn-",
    "-Werror-", "-Wfuture-", "-CFLAGS", "-LDFLAGS", "-MAKEFLAGS", "-G",    "-j"};
// Warnings of Icarus Verilog alone: Verilator ends at one that it does not know.
constexpr std::string_view kNotOfVerilator[] = {"-Wno-anachronisms",
                                                "-Wno-declaration-after-use",
                                                "-Wno-floating-nets",
                                                "-Wno-implicit-dim",
                                                "-Wno-infloop",
                                                "-Wno-macro-redefinition",
                                                "-Wno-macro-replacement",
                                                "-Wno-portbind",
                                                "-Wno-select-range",
                                                "-Wno-sensitivity-entire-array",
                                                "-Wno-sensitivity-entire-vector",
                                                "-Wno-timescale"};
constexpr std::string_view kWithPlus[] = {"+"};

/// Options of Verilator whose operand is for a compiler, a linker or make.
constexpr std::string_view kTakingAny[] = {"-CFLAGS", "-LDFLAGS", "-MAKEFLAGS"};

bool BeginsWithOne(std::string_view word, std::span<const std::string_view> beginnings) {
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [word](std::string_view beginning) { return word.starts_with(beginning); });
}

}  // namespace

const TToolWords kWordsOfGhdl{.Taken = kOfGhdl};
const TToolWords kWordsOfIcarus{.Taken = kOfIcarus, .HasOperands = true};
const TToolWords kWordsOfNvc{.Taken = kOfNvc};
const TToolWords kWordsOfVerilator{
    .Taken = kOfVerilator, .Refused = kNotOfVerilator, .HasOperands = true};
const TToolWords kWordsWithPlus{.Taken = kWithPlus};

bool IsTaken(std::string_view word, const TToolWords& tool) {
    return BeginsWithOne(word, tool.Taken) && !BeginsWithOne(word, tool.Refused);
}

bool MayHaveOperand(std::string_view option) {
    if (TakesAnyOperand(option)) return true;
    const bool isLong = option.starts_with("--") && option.find('=') == std::string_view::npos;
    return isLong || (option.starts_with('-') && option.size() == 2);
}

bool TakesAnyOperand(std::string_view option) {
    return std::find(std::begin(kTakingAny), std::end(kTakingAny), option) != std::end(kTakingAny);
}

std::vector<std::vector<std::string>> WithOperands(const std::vector<std::string>& words) {
    std::vector<std::vector<std::string>> groups;
    for (const std::string& word : words) {
        const bool isBehind =
            !groups.empty() && groups.back().size() == 1 && MayHaveOperand(groups.back().front());
        if (!isBehind || (IsOptionWord(word) && !TakesAnyOperand(groups.back().front())))
            groups.emplace_back();
        groups.back().push_back(word);
    }
    return groups;
}

std::string TextOfOption(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text.append(text.empty() ? "" : " ").append(word);
    return text;
}

std::vector<std::string> ListTaken(const std::vector<std::string>& words, const TToolWords& tool,
                                   const std::function<void(const std::string& option)>& lose) {
    std::vector<std::string> taken;
    for (const std::vector<std::string>& option : WithOperands(words)) {
        const std::size_t count = !IsTaken(option.front(), tool) ? 0
                                  : tool.HasOperands             ? option.size()
                                                                 : 1;
        const auto end = option.begin() + static_cast<std::ptrdiff_t>(count);
        taken.insert(taken.end(), option.begin(), end);
        if (end != option.end()) lose(TextOfOption({end, option.end()}));
    }
    return taken;
}
