#pragma once
// What mutated sources include: which mutant is on in this process.
#include <cstdlib>
#include <type_traits>

namespace mutation {

/// The number in the environment variable HDLBUILDFILE_MUTANT; 0 is no mutant.
inline const unsigned long active = [] {
    const char* number = std::getenv("HDLBUILDFILE_MUTANT");
    return number ? std::strtoul(number, nullptr, 10) : 0ul;
}();

inline bool On(unsigned long mutant) {
    return mutant == active;
}

/// For functions that are also evaluated by the compiler, where no mutant is on.
constexpr bool OnAtRunTime(unsigned long mutant) {
    return !std::is_constant_evaluated() && On(mutant);
}

template <class Enum>
constexpr Enum Next(bool on, Enum value) {
    return on ? static_cast<Enum>(static_cast<long>(value) + 1) : value;
}

template <class Left, class Right>
constexpr bool Less(bool on, const Left& left, const Right& right) {
    return on ? left <= right : left < right;
}
template <class Left, class Right>
constexpr bool LessOrEqual(bool on, const Left& left, const Right& right) {
    return on ? left < right : left <= right;
}
template <class Left, class Right>
constexpr bool Greater(bool on, const Left& left, const Right& right) {
    return on ? left >= right : left > right;
}
template <class Left, class Right>
constexpr bool GreaterOrEqual(bool on, const Left& left, const Right& right) {
    return on ? left > right : left >= right;
}

}  // namespace mutation
