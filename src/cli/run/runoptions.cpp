#include "cli/run/runoptions.h"
#include "cli/frame/texts.h"
#include "flows/knownnames.h"
#include "flows/optiontexts.h"
#include "flows/plan/planoptions.h"
#include <algorithm>
#include <charconv>

namespace {

bool IsNumber(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

/// Reads the arguments one by one, up to the first that is wrong.
class TOptionReader {
public:
    TOptionReader(const TRunArguments& arguments, TRunOptions* options)
        : Arguments(arguments), Options(*options) {}

    /// The complaint; "" without one.
    std::string Read() {
        for (const auto read :
             {&TOptionReader::ReadTools, &TOptionReader::ReadStandard, &TOptionReader::ReadGenerics,
              &TOptionReader::ReadLevel, &TOptionReader::ReadNumbers, &TOptionReader::ReadFarm})
            if (std::string complaint = (this->*read)(); !complaint.empty()) return complaint;
        Options.Wishes.Launcher = WordsOfOptions(Arguments.Launcher);
        Options.Wishes.Arguments = Arguments.Words;
        Options.Wishes.OnlyCompile = Arguments.OnlyCompile;
        Options.Wishes.Waves = Arguments.Waves;
        return {};
    }

private:
    std::string ReadTools() {
        std::vector<std::string> known;
        for (const TRunTool& tool : GetRunTools()) known.emplace_back(tool.Name);
        if (Arguments.Tools.empty() && !Arguments.List)
            return "--with is required; known: " + JoinNames(known);
        for (const std::string& name : Arguments.Tools) {
            const TRunTool* const tool = FindRunTool(name);
            if (!tool) return UnknownName("simulator", name, known);
            for (const TRunTool* const other : Options.Tools)
                if (other->Language == tool->Language)
                    return std::string("--with ") + other->Name + " and --with " + name +
                           " are for one language";
            Options.Tools.push_back(tool);
        }
        return {};
    }

    std::string ReadStandard() {
        if (Arguments.Standard.empty()) return {};
        Options.Wishes.VhdlStandard = FindVhdlStandard(Arguments.Standard);
        if (!Options.Wishes.VhdlStandard.empty()) return {};
        return UnknownName("standard of VHDL", Arguments.Standard,
                           {"1987", "1993", "2000", "2002", "2008", "2019"});
    }

    std::string ReadGenerics() {
        for (const std::string& generic : Arguments.Generics) {
            const std::size_t sign = generic.find('=');
            if (sign == std::string::npos || sign == 0)
                return "-g takes NAME=VALUE, not '" + generic + "'";
            Options.Wishes.Generics.push_back({generic.substr(0, sign), generic.substr(sign + 1)});
        }
        return {};
    }

    std::string ReadLevel() {
        Options.Wishes.FailOn = FindLevel(Arguments.FailOn);
        if (Options.Wishes.FailOn != LEVEL_NONE) return {};
        return UnknownName("level", Arguments.FailOn, {"note", "warning", "error", "failure"});
    }

    std::string ReadNumbers() {
        Options.Wishes.TimeoutSeconds = SecondsOf(Arguments.Timeout);
        if (Options.Wishes.TimeoutSeconds == 0)
            return "--timeout takes a time like 90, 90s, 10m or 2h, not '" + Arguments.Timeout +
                   "'";
        if (!Arguments.Jobs.empty() && (!IsNumber(Arguments.Jobs) || Arguments.Jobs.size() > 4 ||
                                        Arguments.Jobs.find_first_not_of('0') == std::string::npos))
            return "--jobs takes a number from 1 to 9999, not '" + Arguments.Jobs + "'";
        Options.Wishes.Seed = Arguments.Seed;
        if (!Arguments.Seed.empty() && !IsNumber(Arguments.Seed))
            return "--seed takes a number, not '" + Arguments.Seed + "'";
        return {};
    }

    std::string ReadFarm() {
        if (Arguments.Farm.empty()) return {};
        std::vector<std::string> known;
        for (const TFarm& farm : GetFarms()) known.emplace_back(farm.Name);
        Options.Wishes.Farm = Arguments.Farm;
        Options.Farm = FindFarm(Arguments.Farm);
        return Options.Farm ? "" : UnknownName("farm", Arguments.Farm, known);
    }

    const TRunArguments& Arguments;
    TRunOptions& Options;
};

}  // namespace

long long SecondsOf(const std::string& text) {
    constexpr struct {
        const char* Unit;
        long long Seconds;
    } kUnits[] = {{"", 1}, {"s", 1}, {"m", 60}, {"h", 3600}};
    // Clocks count nanoseconds, which have room for some more.
    constexpr long long kLongest = 1'000'000'000;
    long long number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || number <= 0) return 0;
    for (const auto& unit : kUnits)
        if (std::string_view(stop, static_cast<std::size_t>(end - stop)) == unit.Unit)
            return number <= kLongest / unit.Seconds ? number * unit.Seconds : 0;
    return 0;
}

int ReadRunOptions(const TRunArguments& arguments, const TToolStreams& streams,
                   TRunOptions* options) {
    const std::string complaint = TOptionReader(arguments, options).Read();
    if (complaint.empty()) return kExitDone;
    ReportError(streams, complaint);
    return kExitUsage;
}
