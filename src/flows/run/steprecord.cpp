#include "flows/run/steprecord.h"
#include <charconv>
#include <functional>

namespace {

/// Lines of a name, a tabulator and a text, in which neither stands as it is.
class TFieldLines {
public:
    void Add(const char* name, std::string_view text) {
        Lines.append(name).append("\t");
        for (const char c : text)
            if (const std::size_t at = kEscaped.find(c); at != std::string_view::npos)
                (Lines += '\\') += kEscapes[at];
            else
                Lines += c;
        Lines += '\n';
    }
    std::string Take() { return std::move(Lines); }

    /// False when a line has another form, or `take` does not know its name.
    static bool Read(std::string_view lines,
                     const std::function<bool(std::string_view, std::string)>& take) {
        for (std::size_t end; !lines.empty(); lines.remove_prefix(end + 1)) {
            end = lines.find('\n');
            const std::size_t tabulator = lines.find('\t');
            if (end == std::string_view::npos || tabulator > end) return false;
            if (!take(lines.substr(0, tabulator),
                      Unescaped(lines.substr(tabulator + 1, end - tabulator - 1))))
                return false;
        }
        return true;
    }

private:
    static std::string Unescaped(std::string_view text) {
        std::string plain;
        for (std::size_t at = 0; at < text.size(); ++at)
            if (text[at] == '\\' && at + 1 < text.size())
                plain += kEscaped[std::min(kEscapes.find(text[++at]), kEscaped.size() - 1)];
            else
                plain += text[at];
        return plain;
    }

    static constexpr std::string_view kEscaped = "\t\n\r\\";
    static constexpr std::string_view kEscapes = "tnr\\";

    std::string Lines;
};

bool ReadNumber(const std::string& text, long long* number) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, *number);
    return error == std::errc() && stop == end;
}

constexpr struct {
    const char* Name;
    std::string TStepRecord::*Field;
} kTexts[] = {
    {"title", &TStepRecord::Title},   {"inputs", &TStepRecord::Inputs},
    {"folder", &TStepRecord::Folder}, {"log", &TStepRecord::Log},
    {"stamp", &TStepRecord::Stamp},   {"result", &TStepRecord::Result},
    {"tool", &TStepRecord::Tool},     {"farm", &TStepRecord::Farm},
    {"job", &TStepRecord::Job},
};

constexpr struct {
    const char* Name;
    std::vector<std::string> TStepRecord::*Field;
} kLists[] = {
    {"fresh", &TStepRecord::FreshFolders},
    {"guarded", &TStepRecord::GuardedFiles},
    {"product", &TStepRecord::Products},
    {"farm-program", &TStepRecord::FarmPrograms},
};

bool TakeField(std::string_view name, std::string text, TStepRecord* record) {
    for (const auto& row : kTexts)
        if (name == row.Name) return record->*row.Field = std::move(text), true;
    for (const auto& row : kLists)
        if (name == row.Name) return (record->*row.Field).push_back(std::move(text)), true;
    if (name == "command") return record->Commands.emplace_back(1, text), true;
    if (name == "from") return record->Moves.emplace_back(text, ""), true;
    if (name == "timeout") return ReadNumber(text, &record->TimeoutSeconds);
    if (name == "fail-on") return (record->FailOn = FindLevel(text)) != LEVEL_NONE;
    if (name == "word" && !record->Commands.empty())
        return record->Commands.back().push_back(std::move(text)), true;
    if (name == "to" && !record->Moves.empty())
        return record->Moves.back().second = std::move(text), true;
    return false;
}

}  // namespace

std::string WriteRecord(const TStepRecord& record) {
    TFieldLines lines;
    for (const auto& row : kTexts) lines.Add(row.Name, record.*row.Field);
    for (const auto& row : kLists)
        for (const std::string& text : record.*row.Field) lines.Add(row.Name, text);
    for (const auto& [from, to] : record.Moves) {
        lines.Add("from", from);
        lines.Add("to", to);
    }
    lines.Add("timeout", std::to_string(record.TimeoutSeconds));
    lines.Add("fail-on", GetLevelName(record.FailOn));
    for (const std::vector<std::string>& command : record.Commands)
        for (const std::string& word : command)
            lines.Add(&word == &command.front() ? "command" : "word", word);
    return lines.Take();
}

bool ReadRecord(std::string_view text, TStepRecord* record) {
    *record = {};
    return TFieldLines::Read(text,
                             [record](std::string_view name, std::string value) {
                                 return TakeField(name, std::move(value), record);
                             }) &&
           !record->Commands.empty() && !record->Stamp.empty();
}

std::string WriteResult(const TStepResult& result) {
    TFieldLines lines;
    lines.Add("verdict", result.HasPassed ? "passed" : "failed");
    lines.Add("milliseconds", std::to_string(result.Milliseconds));
    lines.Add("reason", result.Reason);
    return lines.Take();
}

bool ReadResult(std::string_view text, TStepResult* result) {
    *result = {};
    bool hasVerdict = false;
    return TFieldLines::Read(text,
                             [&](std::string_view name, std::string value) {
                                 if (name == "milliseconds")
                                     return ReadNumber(value, &result->Milliseconds);
                                 if (name == "reason")
                                     return result->Reason = std::move(value), true;
                                 result->HasPassed = value == "passed";
                                 hasVerdict =
                                     name == "verdict" && (result->HasPassed || value == "failed");
                                 return hasVerdict;
                             }) &&
           hasVerdict;
}
