#include "services/xml/unifieddiff.h"

#include <algorithm>

namespace {

constexpr std::size_t kContext = 3;

/// Whole lines of the text that others replace.
struct TChangedLines {
    std::size_t Begin;  // places in the text
    std::size_t End;
    std::string New;
};

std::size_t FindLineBegin(std::string_view text, std::size_t place) {
    const std::size_t end = place == 0 ? std::string_view::npos : text.rfind('\n', place - 1);
    return end == std::string_view::npos ? 0 : end + 1;
}

std::size_t FindLineEnd(std::string_view text, std::size_t place) {
    const std::size_t end = text.find('\n', place);
    return end == std::string_view::npos ? text.size() : end + 1;
}

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        lines.push_back(text.substr(0, FindLineEnd(text, 0)));
        text.remove_prefix(lines.back().size());
    }
    return lines;
}

std::size_t CountLines(std::string_view text) {
    const auto ends = std::count(text.begin(), text.end(), '\n');
    return static_cast<std::size_t>(ends) + (text.empty() || text.back() == '\n' ? 0 : 1);
}

// Leaves the lines out that are equal at the beginning and at the end.
void Trim(std::string_view text, TChangedLines* changed) {
    const auto oldLines = SplitLines(text.substr(changed->Begin, changed->End - changed->Begin));
    const auto newLines = SplitLines(changed->New);
    std::size_t oldEnd = oldLines.size();
    std::size_t newEnd = newLines.size();
    std::size_t begin = 0;
    while (begin < oldEnd && begin < newEnd && oldLines[begin] == newLines[begin]) ++begin;
    std::size_t newBegin = 0;
    for (std::size_t i = 0; i < begin; ++i) newBegin += newLines[i].size();
    std::size_t newTail = 0;
    for (; oldEnd > begin && newEnd > begin && oldLines[oldEnd - 1] == newLines[newEnd - 1];
         --oldEnd, --newEnd)
        newTail += newLines[newEnd - 1].size();
    changed->Begin += newBegin;
    changed->End -= newTail;
    changed->New = changed->New.substr(newBegin, changed->New.size() - newBegin - newTail);
}

// Edits of one line, and of lines that follow each other, are one change.
std::vector<TChangedLines> FindChangedLines(std::string_view text,
                                            const std::vector<TTextEdit>& edits) {
    std::vector<TChangedLines> changes;
    for (std::size_t i = 0; i < edits.size();) {
        std::size_t place = FindLineBegin(text, edits[i].Begin);
        TChangedLines changed{place, 0, {}};
        do {
            const TTextEdit& edit = edits[i++];
            changed.New += text.substr(place, edit.Begin - place);
            changed.New += edit.Inserted;
            place = edit.Begin + edit.Removed;
            changed.End = FindLineEnd(text, place);
        } while (i < edits.size() && edits[i].Begin <= changed.End);
        changed.New += text.substr(place, changed.End - place);
        Trim(text, &changed);
        if (changed.Begin < changed.End || !changed.New.empty())
            changes.push_back(std::move(changed));
    }
    return changes;
}

class TUnifiedPrinter {
public:
    explicit TUnifiedPrinter(std::string_view text) : Text(text) {}

    std::string Print(const std::vector<TChangedLines>& changes, std::string_view path) {
        Printed.append("--- ").append(path).append("\n+++ ").append(path).append("\n");
        for (std::size_t i = 0; i < changes.size();) {
            const std::size_t begin = GoBack(changes[i].Begin);
            std::size_t last = i;
            while (last + 1 < changes.size() &&
                   GoBack(changes[last + 1].Begin) <= GoOn(changes[last].End))
                ++last;
            PrintHunk({changes.begin() + static_cast<std::ptrdiff_t>(i),
                       changes.begin() + static_cast<std::ptrdiff_t>(last) + 1},
                      begin, GoOn(changes[last].End));
            i = last + 1;
        }
        return std::move(Printed);
    }

private:
    std::size_t GoBack(std::size_t place) const {
        for (std::size_t i = 0; i < kContext; ++i)
            if (place > 0) place = FindLineBegin(Text, place - 1);
        return place;
    }
    std::size_t GoOn(std::size_t place) const {
        for (std::size_t i = 0; i < kContext; ++i) place = FindLineEnd(Text, place);
        return place;
    }

    void PrintHunk(const std::vector<TChangedLines>& changes, std::size_t begin, std::size_t end) {
        LinesBefore += CountLines(Text.substr(Counted, begin - Counted));
        const std::size_t oldLines = CountLines(Text.substr(begin, end - begin));
        std::size_t newLines = oldLines;
        for (const TChangedLines& changed : changes)
            newLines += CountLines(changed.New) -
                        CountLines(Text.substr(changed.Begin, changed.End - changed.Begin));
        PrintRange("@@ -", LinesBefore, oldLines);
        PrintRange(" +", LinesBefore + Shift, newLines);
        Printed += " @@\n";
        for (const TChangedLines& changed : changes) {
            PrintLines(' ', Text.substr(begin, changed.Begin - begin));
            PrintLines('-', Text.substr(changed.Begin, changed.End - changed.Begin));
            PrintLines('+', changed.New);
            begin = changed.End;
        }
        PrintLines(' ', Text.substr(begin, end - begin));
        LinesBefore += oldLines;
        Shift += newLines - oldLines;
        Counted = end;
    }

    // A range without lines is named by the line in front of it.
    void PrintRange(const char* mark, std::size_t linesBefore, std::size_t count) {
        Printed += mark + std::to_string(linesBefore + (count > 0 ? 1 : 0));
        if (count != 1) Printed += "," + std::to_string(count);
    }

    void PrintLines(char mark, std::string_view lines) {
        for (const std::string_view line : SplitLines(lines)) {
            Printed.append(1, mark).append(line);
            if (!line.ends_with('\n')) Printed += "\n\\ No newline at end of file\n";
        }
    }

    std::string_view Text;
    std::string Printed;
    std::size_t LinesBefore = 0;  // of the text up to Counted
    std::size_t Counted = 0;
    std::size_t Shift = 0;  // lines that the hunks so far added; less than none wraps around
};

}  // namespace

std::string MakeUnifiedDiff(std::string_view text, const std::vector<TTextEdit>& edits,
                            std::string_view path) {
    const std::vector<TChangedLines> changes = FindChangedLines(text, edits);
    return changes.empty() ? std::string() : TUnifiedPrinter(text).Print(changes, path);
}
