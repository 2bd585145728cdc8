#include "flows/run/messagelevels.h"
#include <cctype>

namespace {

constexpr const char* kLevelNames[] = {"", "note", "warning", "error", "failure"};

/// What begins a message, or ends its head.
struct TMark {
    const char* Text;
    TMessageLevel Level;
};

template <std::size_t kCount>
TMessageLevel LevelOfStart(std::string_view line, const TMark (&marks)[kCount]) {
    for (const TMark& mark : marks)
        if (line.starts_with(mark.Text)) return mark.Level;
    return LEVEL_NONE;
}

/// "tb.vhd:4:3:@0ms:(report error): text", also "(assertion error)" and, of PSL, "(psl ... error)".
TMessageLevel GhdlLevel(std::string_view line) {
    const std::size_t time = line.find(":@");
    const std::size_t open = line.find(":(", time);
    const std::size_t close = line.find("): ", open);
    if (time == std::string_view::npos || close == std::string_view::npos) return LEVEL_NONE;
    const std::string_view kind = line.substr(open + 2, close - open - 2);
    return FindLevel(kind.substr(kind.rfind(' ') + 1));
}

/// Whether the text has ":12: " in it, as behind the name of a file.
bool HasLineNumber(std::string_view text) {
    for (std::size_t at = 0; (at = text.find(':', at)) != std::string_view::npos;) {
        const std::size_t begin = ++at;
        while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at]))) ++at;
        if (at > begin && text.substr(at, 1) == ":") return true;
    }
    return false;
}

/// "ERROR: tb.v:2: text".
TMessageLevel IcarusLevel(std::string_view line) {
    constexpr TMark kMarks[] = {{"INFO: ", LEVEL_NOTE},
                                {"WARNING: ", LEVEL_WARNING},
                                {"ERROR: ", LEVEL_ERROR},
                                {"FATAL: ", LEVEL_FAILURE}};
    return HasLineNumber(line) ? LevelOfStart(line, kMarks) : LEVEL_NONE;
}

/// "[120] %Error: tb.v:2: Assertion failed in TOP.tb: text".
TMessageLevel VerilatorLevel(std::string_view line) {
    constexpr TMark kMarks[] = {{"-Info: ", LEVEL_NOTE},
                                {"%Warning: ", LEVEL_WARNING},
                                {"%Error: ", LEVEL_ERROR},
                                {"%Fatal: ", LEVEL_FAILURE}};
    const std::size_t end = line.find("] ");
    if (!line.starts_with('[') || end == std::string_view::npos) return LEVEL_NONE;
    return LevelOfStart(line.substr(end + 2), kMarks);
}

/// "** Error: 5ns+0: text".
TMessageLevel NvcLevel(std::string_view line) {
    constexpr TMark kMarks[] = {{"** Note: ", LEVEL_NOTE},
                                {"** Warning: ", LEVEL_WARNING},
                                {"** Error: ", LEVEL_ERROR},
                                {"** Failure: ", LEVEL_FAILURE},
                                {"** Fatal: ", LEVEL_FAILURE}};
    return LevelOfStart(line, kMarks);
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
