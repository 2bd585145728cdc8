#pragma once
#include <map>
#include <string>
#include <type_traits>

/// What an object tells: each answer by its operation.
using TState = std::map<std::string, std::string>;

std::string Quoted(const std::string& text);

/// A value as a text that is the same in each run: addresses are not shown.
template <class T>
std::string Shown(const T& value) {
    if constexpr (std::is_same_v<T, const char*> || std::is_same_v<T, char*>)
        return value ? Quoted(value) : "null";
    else if constexpr (std::is_pointer_v<T> || std::is_null_pointer_v<T>)
        return value == nullptr ? "null" : "an object";
    else if constexpr (std::is_same_v<T, bool>)
        return value ? "true" : "false";
    else if constexpr (std::is_enum_v<T>)
        return std::to_string(static_cast<long long>(value));
    else if constexpr (std::is_arithmetic_v<T>)
        return std::to_string(value);
    else if constexpr (requires { std::string(value); })
        return Quoted(std::string(value));
    else if constexpr (requires { value.Str().c_str(); })
        return Quoted(value.Str());
    else if constexpr (requires {
                           value.empty();
                           value.size();
                       })
        return value.empty() ? "empty" : std::to_string(value.size()) + " entries";
    else
        return "a value";
}

/// Asks, unless there is no answer.
template <class Ask>
void Show(const char* operation, const Ask& ask, TState& state) {
    if constexpr (!std::is_void_v<decltype(ask())>) state[operation] = Shown(ask());
}
