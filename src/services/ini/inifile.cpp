#include "services/ini/inifile.h"

#include "services/ini/iniline.h"
#include <cstddef>
#include <unordered_map>
#define SI_IMPLEMENTATION
#define SI_NO_CONVERSION
#define SI_NO_MBCS
#include <SimpleIni.h>
#include <new>

namespace {

std::vector<TIniLine> LinesOf(std::string_view text) {
    std::vector<TIniLine> lines;
    while (!text.empty()) lines.push_back(TakeIniLine(&text));
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
        // Keys without a section can only come before all others.
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
            const TIniLine& line = Lines[i];
            if (line.Kind == TIniLineKind::Other) continue;
            if (line.Kind == TIniLineKind::Section) section = line.Name;
            LastLines[std::string(section)] = i;
            if (line.Kind == TIniLineKind::Section) continue;
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
        const TIniLine& line = Lines[index];
        const TIniChange* change = ChangesOfLines[index];
        if (change && !change->Value) return;
        if (!change || LinesOfChanges[change] != index) {
            Result.append(line.Text).append(line.End);
            return;
        }
        const auto value = line.Text.find_first_not_of(kIniBlanks, line.Text.find('=') + 1);
        Result.append(line.Text.substr(0, value)).append(StoredIniValue(*change->Value));
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
        Result.append(StoredIniValue(*change.Value)).append(LineEnd);
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
        if (!Result.empty() && kIniLineEnds.find(Result.back()) == std::string_view::npos)
            Result += LineEnd;
    }

    std::vector<TIniLine> Lines;
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
    return AddressOf(StoredIniSection(section), StoredIniKey(key));
}

std::string IniSectionOf(std::string_view address) {
    return TAddressParts(address).Section;
}

std::string IniKeyOf(std::string_view address) {
    return NameFromIni(TAddressParts(address).Key);
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
        const TIniLine line = TakeIniLine(&text);
        if (line.Kind == TIniLineKind::Section)
            lines.append("[").append(Store->NumberOf(line.Name)).append("]\n");
        else if (line.Kind == TIniLineKind::Key)
            lines.append(line.Text).append("\n");
    }
    if (Store->Values.LoadData(lines.data(), lines.size()) == SI_NOMEM) throw std::bad_alloc();
}

std::optional<std::string> TIniValues::Find(const std::string& address) const {
    const TAddressParts parts(address);
    const auto number = Store->Numbers.find(parts.Section);
    if (number == Store->Numbers.end()) return {};
    const char* value = Store->Values.GetValue(number->second.c_str(), parts.Key.c_str());
    if (!value) return {};
    return ValueFromIni(value);
}

void TIniValues::AppendAddresses(const std::string& section,
                                 std::vector<std::string>* addresses) const {
    const auto number = Store->Numbers.find(section);
    if (number == Store->Numbers.end()) return;
    CSimpleIniCaseA::TNamesDepend keys;
    Store->Values.GetAllKeys(number->second.c_str(), keys);
    for (const auto& key : keys) addresses->push_back(AddressOf(section, key.pItem));
}
