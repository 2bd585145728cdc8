#include "bench/runner/works.h"
#include <cstring>

namespace {

constexpr double kRoomOfOtherShapes = 1.3;
constexpr double kRoomOfInstructions = 1.05;

constexpr TSide Library(const char* work, const char* value = "seconds") {
    return {TProgram::OURS, work, value};
}
constexpr TSide Anchor(const char* work, const char* value = "seconds") {
    return {TProgram::ANCHOR, work, value};
}
constexpr TSide Tool(const char* work) {
    return {TProgram::TOOL, work, "process"};
}

// The goals are for a quiet machine. An instruction limit is what was counted last plus a
// twentieth.
constexpr TWork kWorks[] = {
    {.Name = "read",
     .Ours = Library("read"),
     .Anchor = Anchor("read"),
     .Goal = {1.1, 1.4, 1.6},
     .InstructionLimit = 1.20},
    {.Name = "order",
     .Ours = Library("order"),
     .Anchor = Anchor("order"),
     .Goal = {1.5, 1.5, 2.5},
     .InstructionLimit = 3.55},
    {.Name = "write",
     .Ours = Library("write"),
     .Anchor = Anchor("write"),
     .Goal = {1.0, 1.2, 2.0},
     .InstructionLimit = 1.08},
    {.Name = "command-file",
     .Ours = Library("command-file"),
     .Anchor = Anchor("command-file"),
     .Goal = {1.5, 1.5, 2.5},
     .InstructionLimit = 1.19},
    {.Name = "live-memory",
     .Ours = Library("memory", "live"),
     .Anchor = Anchor("memory", "live"),
     .Goal = {600, 600, 800},
     .IsGoalAbsolute = true,
     .FewestFiles = 100000},
    {.Name = "peak-memory",
     .Ours = Library("memory", "peak"),
     .Anchor = Anchor("memory", "peak"),
     .Goal = {1140, 1140, 1500},
     .IsGoalAbsolute = true,
     .FewestFiles = 100000},
    {.Name = "tool-show",
     .Ours = Tool("show"),
     .Anchor = Library("read-and-order"),
     .Goal = {1.3, 1.3, {}}},
    {.Name = "tool-order",
     .Ours = Tool("order"),
     .Anchor = Library("read-and-order"),
     .Goal = {1.3, 1.3, {}}},
    {.Name = "tool-check", .Ours = Tool("check"), .Anchor = Tool("order"), .Goal = {2.0, 2.0, {}}},
    {.Name = "reload",
     .Ours = Library("reload", "late"),
     .Anchor = {TProgram::NONE, "", "early"},
     .Goal = {1.2, 1.2, 1.2},
     .OnlyFiles = 1000},
};

constexpr TGrowthGoal kGrowthGoals[] = {
    {"read", false, 14},
    {"order", true, 1.2},
};

}  // namespace

std::span<const TWork> GetWorks() {
    return kWorks;
}

const TWork& GetWork(const char* name) {
    for (const TWork& work : kWorks)
        if (std::strcmp(work.Name, name) == 0) return work;
    return kWorks[0];
}

std::span<const TGrowthGoal> GetGrowthGoals() {
    return kGrowthGoals;
}

double GetGoal(const TWork& work, std::uint32_t files, TShape shape) {
    const double goal = files < 1000000 ? work.Goal.Goal : work.Goal.AtMillion;
    return shape == TShape::RANDOM ? goal : goal * kRoomOfOtherShapes;
}

TVerdict Judge(const TWork& work, std::uint32_t files, TShape shape, const TComparison& figures) {
    const double figure = work.IsGoalAbsolute ? figures.Ours : figures.Ratio;
    if (figure <= GetGoal(work, files, shape)) return TVerdict::MET;
    const bool isAbove = work.Goal.RedLine && figure > *work.Goal.RedLine;
    return isAbove ? TVerdict::ABOVE_RED_LINE : TVerdict::MISSED;
}

bool IsWithinLimit(const TWork& work, const TComparison& instructions) {
    return instructions.Ratio <= work.InstructionLimit;
}

double LimitFor(const TComparison& instructions) {
    return instructions.Ratio * kRoomOfInstructions;
}
