#pragma once
#include <cstddef>
#include <string>
#include <string_view>

/// 3 when `text` begins with the byte order mark of UTF-8, else 0.
std::size_t LengthOfByteOrderMark(std::string_view text);

/// The length of the UTF-8 character at the beginning of `text`; 0 when there is none, as for an
/// overlong form, a surrogate or half a character.
std::size_t LengthOfUtf8Character(std::string_view text);

/// Whether `text` is UTF-8 throughout. What is not is taken for Latin-1.
bool IsUtf8Text(std::string_view text);

/// A text in Latin-1 as UTF-8.
std::string Latin1ToUtf8(std::string_view text);
