#pragma once
#include "bench/runner/works.h"
#include <iosfwd>
#include <string>
#include <vector>

/// A row of the table of figures.
struct TReportRow {
    std::string Work;
    std::string Size;  ///< "10000", or "10000 to 100000" for growth
    std::string Unit;  ///< of ours and anchor: "s", "bytes", "x" or "instructions"
    TComparison Figures;
    double Goal = 0;
    std::optional<double> RedLine;
    std::string Verdict;
};

TReportRow MakeRow(const TWork& work, std::uint32_t files, TShape shape,
                   const TComparison& figures);
/// Of the instructions, whose goal is their limit.
TReportRow MakeInstructionRow(const TWork& work, std::uint32_t files, const TComparison& figures);

/// The figures of one work for builds of one shape.
struct TMeasured {
    const TWork* Work;
    std::uint32_t Files;
    TComparison Figures;
};
/// A row for each work with a growth goal and each two sizes of which one is ten times the other.
std::vector<TReportRow> MakeGrowthRows(const std::vector<TMeasured>& measured);

void PrintHead(std::ostream& out);
void PrintRow(const TReportRow& row, std::ostream& out);

/// What gave the figures.
struct TReportOrigin {
    std::string Shape;
    std::string Compiler;
    unsigned Cores = 0;
};
void PrintJson(const std::vector<TReportRow>& rows, const TReportOrigin& origin, std::ostream& out);
