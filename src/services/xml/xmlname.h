#pragma once
#include <cstddef>
#include <string>
#include <string_view>

/// `name` in UTF-8 with each character that XML does not allow at its place in a name replaced
/// by '_'; "_" for the empty name. Letters beyond ASCII stay when the parser accepts them.
std::string ToXMLName(std::string_view name);
/// Whether `name` is a name of ASCII characters: one that is printed as it is.
bool IsAsciiXMLName(std::string_view name);
/// Whether every character of `name` is allowed at its place: ToXMLName replaces none, though it
/// may change the encoding.
bool IsXMLName(std::string_view name);

/// Formats have few names: in a table with so many places, most are found where the last of the
/// same look was.
inline constexpr std::size_t kNamePlaces = 32;
/// The place of a name, which must not be empty, in such a table.
inline std::size_t GetNamePlace(std::string_view name) {
    const auto first = static_cast<unsigned char>(name.front());
    const auto last = static_cast<unsigned char>(name.back());
    return (name.size() + first + 8 * std::size_t{last}) % kNamePlaces;
}

/// Whether two of a few attributes, pairs of name and value, are called alike.
template <class TAttributes>
bool HasRepeatedName(const TAttributes& attributes) {
    for (auto one = attributes.begin(); one != attributes.end(); ++one)
        for (auto other = attributes.begin(); other != one; ++other)
            if (one->first == other->first) return true;
    return false;
}
