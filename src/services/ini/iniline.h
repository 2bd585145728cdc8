#pragma once
#include <string>
#include <string_view>

// How one line of an INI file is cut and classified, and how names and values are stored in it.

enum class TIniLineKind { Section, Key, Other };

struct TIniLine {
    std::string_view Text;  ///< without its line end
    std::string_view End;
    TIniLineKind Kind = TIniLineKind::Other;
    std::string_view Name;  ///< of the section or key, as stored
};

inline constexpr std::string_view kIniBlanks = " \t";
inline constexpr std::string_view kIniLineEnds = "\r\n";

std::string_view WithoutByteOrderMark(std::string_view text);
/// Cuts the first line off `*text`, which must not be empty.
TIniLine TakeIniLine(std::string_view* text);

/// The name as its line holds it: itself, or an encoded form when the line could not hold it.
/// Different names have different stored forms.
std::string StoredIniSection(std::string_view section);
std::string StoredIniKey(std::string_view key);
/// The inverse of both.
std::string NameFromIni(std::string_view stored);

/// The value, in double quotes where its ends need them; and without them.
std::string StoredIniValue(const std::string& value);
std::string ValueFromIni(std::string_view stored);
