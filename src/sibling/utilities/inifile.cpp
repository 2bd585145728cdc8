#include "sibling/utilities/inifile.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#define SI_IMPLEMENTATION
#define SI_NO_CONVERSION
#define SI_NO_MBCS
#include <SimpleIni.h>

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kLineEnds = "\r\n";

bool HasOuterBlank(std::string_view text) {
    return !text.empty() && (kBlanks.find(text.front()) != std::string_view::npos ||
                             kBlanks.find(text.back()) != std::string_view::npos);
}

bool IsQuoted(std::string_view text) {
    return text.size() >= 2 && text.front() == '"' && text.back() == '"';
}

// A name that its line cannot hold as it is stands in double quotes there, with its awkward bytes
// as %XX. A name that looks like such a form takes it too, so that no two names share one.
bool LooksEncoded(std::string_view name) {
    return IsQuoted(name) && (name.size() == 2 || name.find('%') != std::string_view::npos);
}

std::string Encoded(std::string_view name) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string encoded = "\"";
    for (const char c : name) {
        if (std::string_view("\r\n\t =%\";#[").find(c) == std::string_view::npos) {
            encoded += c;
            continue;
        }
        encoded += '%';
        encoded += kDigits[c >> 4];
        encoded += kDigits[c & 15];
    }
    return encoded + '"';
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

std::string Decoded(std::string_view stored) {
    if (!LooksEncoded(stored)) return std::string(stored);
    stored = stored.substr(1, stored.size() - 2);
    std::string name;
    for (std::size_t i = 0; i < stored.size(); ++i) {
        const bool hasDigits = stored[i] == '%' && i + 2 < stored.size() &&
                               HexDigit(stored[i + 1]) >= 0 && HexDigit(stored[i + 2]) >= 0;
        if (!hasDigits) {
            name += stored[i];
            continue;
        }
        name += static_cast<char>(HexDigit(stored[i + 1]) * 16 + HexDigit(stored[i + 2]));
        i += 2;
    }
    return name;
}

std::string StoredSection(std::string_view section) {
    const bool fits =
        section.find_first_of(kLineEnds) == std::string_view::npos && !LooksEncoded(section);
    return fits ? std::string(section) : Encoded(section);
}

std::string StoredKey(std::string_view key) {
    const bool fits = !key.empty() && key.find_first_of("\r\n=") == std::string_view::npos &&
                      std::string_view(";#[").find(key.front()) == std::string_view::npos &&
                      !HasOuterBlank(key) && !LooksEncoded(key);
    return fits ? std::string(key) : Encoded(key);
}

std::string StoredValue(const std::string& value) {
    return HasOuterBlank(value) || IsQuoted(value) ? '"' + value + '"' : value;
}

std::string_view WithoutByteOrderMark(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    return text;
}

std::string_view WithoutOuterBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

enum class TLineKind { Section, Key, Other };

struct TLine {
    std::string_view Text;  // without its line end
    std::string_view End;
    TLineKind Kind = TLineKind::Other;
    std::string_view Name;  // of the section or key, as stored
};

void Classify(TLine* line) {
    const auto text = WithoutOuterBlanks(line->Text);
    if (text.empty() || text.front() == ';' || text.front() == '#') return;
    const bool isSection = text.front() == '[';
    const auto end = isSection ? text.rfind(']') : text.find('=');
    if (end == std::string_view::npos || end == 0) return;
    line->Kind = isSection ? TLineKind::Section : TLineKind::Key;
    line->Name = isSection ? text.substr(1, end - 1) : WithoutOuterBlanks(text.substr(0, end));
}

/// Cuts the first line off `*text`.
TLine TakeLine(std::string_view* text) {
    TLine line;
    const auto length = std::min(text->find_first_of(kLineEnds), text->size());
    line.Text = text->substr(0, length);
    text->remove_prefix(length);
    const std::size_t endLength = text->starts_with("\r\n") ? 2 : text->empty() ? 0 : 1;
    line.End = text->substr(0, endLength);
    text->remove_prefix(endLength);
    Classify(&line);
    return line;
}

std::vector<TLine> LinesOf(std::string_view text) {
    std::vector<TLine> lines;
    while (!text.empty()) lines.push_back(TakeLine(&text));
    return lines;
}

std::string AddressOf(std::string_view storedSection, std::string_view storedKey) {
    return std::string(storedSection).append(1, '\n').append(storedKey);
}

struct TAddressParts {
    explicit TAddressParts(std::string_view address) {
        const auto border = address.find('\n');
        Section = address.substr(0, border);
        Key = address.substr(border + 1);
    }
    std::string Section;
    std::string Key;
};

constexpr std::size_t kNoLine = static_cast<std::size_t>(-1);

/// One merge: where the changes belong in the lines, then the new text.
class TIniMerge {
public:
    TIniMerge(std::string_view text, const std::vector<TIniChange>& changes)
        : Lines(LinesOf(text)), LineEnd("\n"), Changes(changes) {
        if (!Lines.empty() && !Lines[0].End.empty()) LineEnd = Lines[0].End;
        // Keys without a section can only stand above all others.
        LastLines[""] = kNoLine;
        FindPlaces();
        DistributeNewKeys();
    }

    std::string Merged() {
        AppendNewKeys(kNoLine);
        for (std::size_t i = 0; i < Lines.size(); ++i) {
            AppendLine(i);
            AppendNewKeys(i);
        }
        AppendNewSections();
        return Result;
    }

private:
    void FindPlaces() {
        std::unordered_map<std::string_view, const TIniChange*> byAddress;
        for (const auto& change : Changes) byAddress[change.Address] = &change;
        ChangesOfLines.resize(Lines.size());
        std::string_view section;
        for (std::size_t i = 0; i < Lines.size(); ++i) {
            const TLine& line = Lines[i];
            if (line.Kind == TLineKind::Other) continue;
            if (line.Kind == TLineKind::Section) section = line.Name;
            LastLines[std::string(section)] = i;
            if (line.Kind == TLineKind::Section) continue;
            const auto change = byAddress.find(AddressOf(section, line.Name));
            if (change == byAddress.end()) continue;
            ChangesOfLines[i] = change->second;
            LinesOfChanges[change->second] = i;
        }
    }

    void DistributeNewKeys() {
        for (const auto& change : Changes) {
            if (!change.Value || LinesOfChanges.contains(&change)) continue;
            const auto place = LastLines.find(TAddressParts(change.Address).Section);
            if (place == LastLines.end())
                AddToNewSection(change);
            else
                NewKeys[place->second].push_back(&change);
        }
    }

    void AddToNewSection(const TIniChange& change) {
        const auto section = TAddressParts(change.Address).Section;
        const auto place = NewSectionPlaces.emplace(section, NewSections.size());
        if (place.second) NewSections.emplace_back(section, std::vector<const TIniChange*>());
        NewSections[place.first->second].second.push_back(&change);
    }

    void AppendLine(std::size_t index) {
        const TLine& line = Lines[index];
        const TIniChange* change = ChangesOfLines[index];
        if (change && !change->Value) return;
        if (!change || LinesOfChanges[change] != index) {
            Result.append(line.Text).append(line.End);
            return;
        }
        const auto value = line.Text.find_first_not_of(kBlanks, line.Text.find('=') + 1);
        Result.append(line.Text.substr(0, value)).append(StoredValue(*change->Value));
        Result.append(line.End);
    }

    void AppendNewKeys(std::size_t afterLine) {
        const auto keys = NewKeys.find(afterLine);
        if (keys == NewKeys.end()) return;
        for (const TIniChange* change : keys->second) AppendNewKey(*change);
    }

    void AppendNewKey(const TIniChange& change) {
        EndLine();
        Result.append(TAddressParts(change.Address).Key).append("=");
        Result.append(StoredValue(*change.Value)).append(LineEnd);
    }

    void AppendNewSections() {
        for (const auto& [section, changes] : NewSections) {
            EndLine();
            if (!Result.empty()) Result += LineEnd;
            Result.append("[").append(section).append("]").append(LineEnd);
            for (const TIniChange* change : changes) AppendNewKey(*change);
        }
    }

    void EndLine() {
        if (!Result.empty() && kLineEnds.find(Result.back()) == std::string_view::npos)
            Result += LineEnd;
    }

    std::vector<TLine> Lines;
    std::string LineEnd;
    const std::vector<TIniChange>& Changes;
    std::unordered_map<std::string, std::size_t> LastLines;  // by section: its last one that counts
    std::vector<const TIniChange*> ChangesOfLines;
    std::unordered_map<const TIniChange*, std::size_t> LinesOfChanges;  // the last, which counts
    std::unordered_map<std::size_t, std::vector<const TIniChange*>> NewKeys;  // by the line before
    std::unordered_map<std::string, std::size_t> NewSectionPlaces;
    std::vector<std::pair<std::string, std::vector<const TIniChange*>>> NewSections;
    std::string Result;
};

}  // namespace

std::string IniAddress(std::string_view section, std::string_view key) {
    return AddressOf(StoredSection(section), StoredKey(key));
}

std::string IniSectionOf(std::string_view address) {
    return TAddressParts(address).Section;
}

std::string IniKeyOf(std::string_view address) {
    return Decoded(TAddressParts(address).Key);
}

std::string MergedIniText(std::string_view text, const std::vector<TIniChange>& changes) {
    const auto body = WithoutByteOrderMark(text);
    const auto mark = text.substr(0, text.size() - body.size());
    return std::string(mark) + TIniMerge(body, changes).Merged();
}

// SimpleIni ends a section at the first ']' of its line, drops blanks at the ends of section names
// and takes a broken header for a section. So it is given the lines that count only, with the
// sections as numbers.
struct TIniValues::TStore {
    CSimpleIniCaseA Values;
    std::unordered_map<std::string, std::string> Numbers;  // of the sections, by stored name

    const std::string& NumberOf(std::string_view section) {
        return Numbers.try_emplace(std::string(section), std::to_string(Numbers.size()))
            .first->second;
    }
};

TIniValues::TIniValues() : Store(std::make_unique<TStore>()) {}

TIniValues::~TIniValues() = default;

void TIniValues::Parse(std::string_view text) {
    Store = std::make_unique<TStore>();
    std::string lines = "[" + Store->NumberOf("") + "]\n";
    text = WithoutByteOrderMark(text);
    while (!text.empty()) {
        const TLine line = TakeLine(&text);
        if (line.Kind == TLineKind::Section)
            lines.append("[").append(Store->NumberOf(line.Name)).append("]\n");
        else if (line.Kind == TLineKind::Key)
            lines.append(line.Text).append("\n");
    }
    Store->Values.LoadData(lines.data(), lines.size());
}

std::optional<std::string> TIniValues::Find(const std::string& address) const {
    const TAddressParts parts(address);
    const auto number = Store->Numbers.find(parts.Section);
    if (number == Store->Numbers.end()) return {};
    const char* value = Store->Values.GetValue(number->second.c_str(), parts.Key.c_str());
    if (!value) return {};
    const std::string_view text = value;
    return std::string(IsQuoted(text) ? text.substr(1, text.size() - 2) : text);
}

void TIniValues::AppendAddresses(const std::string& section,
                                 std::vector<std::string>* addresses) const {
    const auto number = Store->Numbers.find(section);
    if (number == Store->Numbers.end()) return;
    CSimpleIniCaseA::TNamesDepend keys;
    Store->Values.GetAllKeys(number->second.c_str(), keys);
    for (const auto& key : keys) addresses->push_back(AddressOf(section, key.pItem));
}
