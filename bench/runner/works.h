#pragma once
#include "bench/builds/dependencygraph.h"
#include "bench/runner/comparison.h"
#include <cstdint>
#include <optional>
#include <span>

enum class TProgram {
    OURS,    ///< bench_ours: the library
    ANCHOR,  ///< bench_anchor
    TOOL,    ///< hdlbuild, measured from its start to its end
    NONE,    ///< no program of its own: the value is another one of our run
};

/// One side of a comparison: what is started, and which of the values that it prints counts.
struct TSide {
    TProgram Program;
    const char* Work;
    const char* Value;
};

/// What a figure is held to.
struct TGoal {
    double Goal;
    double AtMillion;               ///< the goal from a million files on
    std::optional<double> RedLine;  ///< not to be crossed, while a goal may be missed
};

/// A piece of work that is measured.
struct TWork {
    const char* Name;
    TSide Ours;
    TSide Anchor;
    TGoal Goal;
    /// Whether the goal is for our figure itself rather than for its ratio to the anchor.
    bool IsGoalAbsolute = false;
    /// Smaller builds are not measured: what every process needs would count more than the work.
    std::uint32_t FewestFiles = 0;
    /// The work is for a build of this size, once; 0: for all sizes, in pairs.
    std::uint32_t OnlyFiles = 0;
    /// Of the instructions at 10,000 files, ours to the anchor's; 0 where none are counted.
    double InstructionLimit = 0;
};

std::span<const TWork> GetWorks();
const TWork& GetWork(const char* name);

/// What may grow by how much when a build has ten times the files.
struct TGrowthGoal {
    const char* Work;
    bool IsAgainstAnchor;  ///< our growth to the anchor's, rather than our growth
    double Goal;
};
std::span<const TGrowthGoal> GetGrowthGoals();

enum class TVerdict { MET, MISSED, ABOVE_RED_LINE };

/// The goal for a build; that of other shapes is a little higher than that of random ones.
double GetGoal(const TWork& work, std::uint32_t files, TShape shape);
TVerdict Judge(const TWork& work, std::uint32_t files, TShape shape, const TComparison& figures);
/// Whether the ratio of the instructions is at most the limit of the work.
bool IsWithinLimit(const TWork& work, const TComparison& instructions);
/// The limit that goes with a ratio: a twentieth above it.
double LimitFor(const TComparison& instructions);
