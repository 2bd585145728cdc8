#pragma once
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The text of INI files. A section begins at a line "[name]" and its name ends at the last ']' of
// that line; "key=value" lines belong to the section above them; lines that begin with ';' or '#',
// and all others, mean nothing and are kept. The last of several lines with one key counts.

/// Names one value in a file. Equal for equal (section, key) only; both compare exactly.
std::string IniAddress(std::string_view section, std::string_view key);
/// The part of an address that all keys of one section share.
std::string IniSectionOf(std::string_view address);
/// The key that the address was made of.
std::string IniKeyOf(std::string_view address);

/// A new value, or the deletion of a key.
struct TIniChange {
    std::string Address;
    std::optional<std::string> Value;  ///< without line ends
};

/// `text` with the changes made: lines of changed keys are replaced in place, new keys follow the
/// last one of their section, new sections the last line. Every other byte stays. `changes` names
/// no address twice.
std::string MergedIniText(std::string_view text, const std::vector<TIniChange>& changes);

/// The values of a file.
class TIniValues {
public:
    TIniValues();
    ~TIniValues();
    TIniValues(const TIniValues&) = delete;
    TIniValues& operator=(const TIniValues&) = delete;

    /// Replaces the values by those of `text`.
    void Parse(std::string_view text);
    /// The value without the double quotes that keep outer blanks; nothing for an absent key.
    std::optional<std::string> Find(const std::string& address) const;
    /// Adds the address of every key in the section, which is given by IniSectionOf.
    void AppendAddresses(const std::string& section, std::vector<std::string>* addresses) const;

private:
    struct TStore;
    std::unique_ptr<TStore> Store;
};
