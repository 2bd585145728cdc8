#include "flows/run/junit.h"
#include "flows/run/runfiles.h"
#include "flows/run/runrecipe.h"
#include <algorithm>

namespace {

/// The length of the character in UTF-8 that the text begins with; 0 when it is none.
std::size_t LengthOfCharacter(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = first < 0x80   ? 1
                               : first < 0xC2 ? 0
                               : first < 0xE0 ? 2
                               : first < 0xF0 ? 3
                               : first < 0xF5 ? 4
                                              : 0;
    if (length == 0 || text.size() < length) return 0;
    for (std::size_t at = 1; at < length; ++at)
        if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80) return 0;
    // Longer forms of shorter characters, halves of pairs of UTF-16, and what is beyond U+10FFFF.
    const auto second = static_cast<unsigned char>(length > 2 ? text[1] : '\0');
    const bool isNone = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                        (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
    return isNone ? 0 : length;
}

/// What no document may hold is U+FFFD: simulations print bytes of all kinds.
std::string XmlText(std::string_view text) {
    std::string escaped;
    while (!text.empty()) {
        const std::size_t length = LengthOfCharacter(text);
        const char c = text.front();
        const bool isControl = static_cast<unsigned char>(c) < ' ' && c != '\n' && c != '\t';
        if (length == 0 || isControl || text.starts_with("\xEF\xBF\xBE") ||
            text.starts_with("\xEF\xBF\xBF"))
            escaped += "\xEF\xBF\xBD";
        else if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (c == '>')
            escaped += "&gt;";
        else if (c == '"')
            escaped += "&quot;";
        else
            escaped += text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return escaped;
}

std::string Seconds(long long milliseconds) {
    const std::string digits = std::to_string(milliseconds % 1000 + 1000);
    return std::to_string(milliseconds / 1000) + "." + digits.substr(1);
}

/// `name="text"` behind a blank.
std::string Attribute(const char* name, std::string_view text) {
    return std::string(" ") + name + "=\"" + XmlText(text) + "\"";
}

std::string CaseOf(const TRunSimulation& simulation, const TRunStep& step,
                   const TSimulationOutcome& outcome) {
    const std::string title = TitleOf(*simulation.Top);
    const std::string& library = simulation.Top->Library;
    std::string text = "    <testcase" + Attribute("classname", simulation.Tool + "." + library) +
                       Attribute("name", title.substr(library.size() + 1)) +
                       Attribute("time", Seconds(outcome.Milliseconds));
    switch (outcome.Verdict) {
        case SIMULATION_PASSED:
            return text + "/>\n";
        case SIMULATION_NOT_RUN:
            return text + ">\n      <skipped/>\n    </testcase>\n";
        default:
            return text + ">\n      <failure" + Attribute("message", outcome.Reason) + ">" +
                   XmlText(ReadText(step.Record.Log)) + "</failure>\n    </testcase>\n";
    }
}

}  // namespace

std::string WriteJunit(const std::string& name, const TRunPlan& run,
                       const std::vector<TSimulationOutcome>& outcomes) {
    long long milliseconds = 0;
    for (const TSimulationOutcome& outcome : outcomes) milliseconds += outcome.Milliseconds;
    const auto count = [&outcomes](TSimulationVerdict verdict) {
        return std::to_string(std::count_if(
            outcomes.begin(), outcomes.end(),
            [verdict](const TSimulationOutcome& outcome) { return outcome.Verdict == verdict; }));
    };
    const std::string attributes =
        Attribute("name", name) + Attribute("tests", std::to_string(outcomes.size())) +
        Attribute("failures", count(SIMULATION_FAILED)) + Attribute("errors", "0") +
        Attribute("skipped", count(SIMULATION_NOT_RUN)) + Attribute("time", Seconds(milliseconds));
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" + attributes +
                       ">\n  <testsuite" + attributes + ">\n";
    for (std::size_t number = 0; number < outcomes.size(); ++number) {
        const TRunSimulation& simulation = run.Simulations[number];
        text += CaseOf(simulation, run.Steps[simulation.Step], outcomes[number]);
    }
    return text + "  </testsuite>\n</testsuites>\n";
}
