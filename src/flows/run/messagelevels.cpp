#include "flows/run/messagelevels.h"
#include <algorithm>
#include <cctype>

namespace {

constexpr const char* kLevelNames[] = {"", "note", "warning", "error", "failure"};

// What a simulation writes without ending the line stands in front of a message, so marks are
// looked for in the whole line, and the gravest of several counts.

/// What the head of a message has in it.
struct TMark {
    const char* Text;
    TMessageLevel Level;
};

template <std::size_t kCount>
TMessageLevel LevelOfMarks(std::string_view text, const TMark (&marks)[kCount]) {
    TMessageLevel gravest = LEVEL_NONE;
    for (const TMark& mark : marks)
        if (mark.Level > gravest && text.find(mark.Text) != std::string_view::npos)
            gravest = mark.Level;
    return gravest;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at;
}

/// "tb.vhd:4:3:@0ms:(report error): text", also "(assertion error)" and, of PSL, "(psl ... error)".
TMessageLevel GhdlLevel(std::string_view line) {
    TMessageLevel gravest = LEVEL_NONE;
    for (std::size_t at = 0; (at = line.find(":@", at)) != std::string_view::npos;) {
        const std::size_t number = at + 2;
        const std::size_t unit = SkipDigits(line, number);
        at = unit;
        while (at < line.size() && std::islower(static_cast<unsigned char>(line[at]))) ++at;
        if (unit == number || at == unit || line.substr(at, 2) != ":(") continue;
        const std::string_view kind = line.substr(at + 2);
        const std::size_t close = kind.find_first_of("():");
        if (close == std::string_view::npos || kind.substr(close, 3) != "): ") continue;
        const std::size_t word = kind.substr(0, close).rfind(' ') + 1;
        gravest = std::max(gravest, FindLevel(kind.substr(word, close - word)));
    }
    return gravest;
}

/// Where the last line number begins, as in "tb.v:12: " behind the name of a file; 0 for none.
std::size_t FindLineNumber(std::string_view line) {
    std::size_t last = 0;
    for (std::size_t at = 0; (at = line.find(':', at)) != std::string_view::npos;) {
        const std::size_t begin = at++;
        const std::size_t end = SkipDigits(line, at);
        if (end > at && line.substr(end, 2) == ": ") last = begin;
    }
    return last;
}

/// "ERROR: tb.v:2: text".
TMessageLevel IcarusLevel(std::string_view line) {
    constexpr TMark kMarks[] = {{"INFO: ", LEVEL_NOTE},
                                {"WARNING: ", LEVEL_WARNING},
                                {"ERROR: ", LEVEL_ERROR},
                                {"FATAL: ", LEVEL_FAILURE}};
    return LevelOfMarks(line.substr(0, FindLineNumber(line)), kMarks);
}

/// "[120] %Error: tb.v:2: Assertion failed in TOP.tb: text".
TMessageLevel VerilatorLevel(std::string_view line) {
    constexpr TMark kMarks[] = {{"] -Info: ", LEVEL_NOTE},
                                {"] %Warning: ", LEVEL_WARNING},
                                {"] %Error: ", LEVEL_ERROR},
                                {"] %Fatal: ", LEVEL_FAILURE}};
    return LevelOfMarks(line.substr(std::min(line.find('['), line.size())), kMarks);
}

/// "** Error: 5ns+0: text".
TMessageLevel NvcLevel(std::string_view line) {
    constexpr TMark kMarks[] = {{"** Note: ", LEVEL_NOTE},
                                {"** Warning: ", LEVEL_WARNING},
                                {"** Error: ", LEVEL_ERROR},
                                {"** Failure: ", LEVEL_FAILURE},
                                {"** Fatal: ", LEVEL_FAILURE}};
    return LevelOfMarks(line, kMarks);
}

constexpr struct {
    const char* Tool;
    TMessageLevel (*LevelOf)(std::string_view line);
} kTools[] = {
    {"ghdl", GhdlLevel}, {"icarus", IcarusLevel}, {"nvc", NvcLevel}, {"verilator", VerilatorLevel}};

}  // namespace

const char* GetLevelName(TMessageLevel level) {
    return kLevelNames[level];
}

TMessageLevel FindLevel(std::string_view name) {
    for (const TMessageLevel level : {LEVEL_NOTE, LEVEL_WARNING, LEVEL_ERROR, LEVEL_FAILURE})
        if (name == GetLevelName(level)) return level;
    return LEVEL_NONE;
}

TGravestMessage FindGravestMessage(std::string_view tool, std::string_view output) {
    TGravestMessage gravest;
    for (const auto& known : kTools) {
        if (tool != known.Tool) continue;
        for (std::size_t end = 0; !output.empty(); output.remove_prefix(end)) {
            end = std::min(output.find('\n'), output.size() - 1) + 1;
            std::string_view line = output.substr(0, end);
            while (line.ends_with('\n') || line.ends_with('\r')) line.remove_suffix(1);
            if (const TMessageLevel level = known.LevelOf(line); level > gravest.Level)
                gravest = {level, std::string(line)};
        }
    }
    return gravest;
}
