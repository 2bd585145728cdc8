#include "settings/inikeys.h"
#include "services/base/fold.h"
#include "services/ini/propcache.h"
#include <algorithm>

namespace {

constexpr int kTextBufferSize = 316;

// The number is kept under nine digits, so that it always fits.
bool IsKeyNumber(std::string_view digits) {
    return !digits.empty() && digits.size() <= 9 &&
           std::all_of(digits.begin(), digits.end(), IsDecimalDigit) &&
           (digits.size() == 1 || digits.front() != '0');
}

}  // namespace

std::vector<int> NumberedKeys(const char* section, const std::string& key, int first) {
    std::vector<int> numbers;
    for (const std::string& present : GetSystemPropCache()->GetPrivatePropKeys(section)) {
        if (!present.starts_with(key)) continue;
        const std::string digits = present.substr(key.size());
        if (IsKeyNumber(digits)) numbers.push_back(LeadingNumber(digits));
    }
    std::erase_if(numbers, [first](int number) { return number < first; });
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

TIniKeys::TIniKeys(const char* section, std::string prefix)
    : Cache(GetSystemPropCache()), Section(section ? section : ""), Prefix(std::move(prefix)) {}

std::optional<std::string> TIniKeys::ReadText(const char* key) const {
    char text[kTextBufferSize];
    if (!Cache->GetPrivatePropString(Section.c_str(), (Prefix + key).c_str(), nullptr, text,
                                     kTextBufferSize))
        return std::nullopt;
    return text;
}

std::optional<std::vector<std::string>> TIniKeys::ReadStringsFromINI(const char* key) const {
    const std::string name = key;
    const int count = LeadingNumber(ReadText((name + " Count").c_str()).value_or("-1"));
    if (count < 0) return std::nullopt;
    std::vector<std::string> texts;
    // Only the keys that exist are visited, so that a huge count in the file costs nothing.
    for (const int number : NumberedKeys(Section.c_str(), Prefix + name, 0)) {
        if (number >= count) break;
        texts.push_back(ReadText((name + std::to_string(number)).c_str()).value_or(""));
    }
    return texts;
}

void TIniKeys::WriteText(const char* key, const char* value) const {
    Cache->WritePrivatePropString(Section.c_str(), (Prefix + key).c_str(), value);
}

void TIniKeys::WriteStringsToINI(const char* key, const std::vector<std::string>& texts) const {
    if (texts.empty()) return;
    const std::string name = key;
    WriteText((name + " Count").c_str(), std::to_string(texts.size()).c_str());
    for (std::size_t i = 0; i < texts.size(); ++i)
        WriteText((name + std::to_string(i)).c_str(), texts[i].c_str());
}
