#include "bench/runner/report.h"
#include <gtest/gtest.h>
#include <sstream>

namespace {

const TComparison kSeconds = {0.25, 0.125, 2, 1.75, 2.25};
const TComparison kBytes = {1923, 1270, 1.514, 1.514, 1.514};

std::vector<TReportRow> MakeRows() {
    return {MakeRow(GetWork("order"), 1000, TShape::RANDOM, kSeconds),
            MakeRow(GetWork("live-memory"), 100000, TShape::RANDOM, kBytes),
            MakeRow(GetWork("tool-show"), 1000, TShape::RANDOM, {1.25, 1, 1.25, 1.2, 1.3})};
}

std::string Table(const std::vector<TReportRow>& rows) {
    std::ostringstream out;
    PrintHead(out);
    for (const TReportRow& row : rows) PrintRow(row, out);
    return out.str();
}

}  // namespace

TEST(Report, PrintsOneLineForEachFigure) {
    EXPECT_EQ("\n" + Table(MakeRows()),
              R"(
work                      files             ours           anchor    ratio          spread    goal   red line  verdict
order                      1000        250.00 ms        125.00 ms     2.00      1.75..2.25    1.50       2.50  missed
live-memory              100000             1923             1270     1.51      1.51..1.51     600        800  above the red line
tool-show                  1000       1250.00 ms       1000.00 ms     1.25      1.20..1.30    1.30             met
)");
}

TEST(Report, TellsTheGrowthOfNeighbouringSizes) {
    const TWork* read = &GetWork("read");
    const TWork* order = &GetWork("order");
    const std::vector<TMeasured> measured = {
        {read, 1000, {1, 1, 1, 1, 1}},          {order, 1000, {1, 1, 1, 1, 1}},
        {read, 10000, {15, 10, 1.5, 1.5, 1.5}}, {order, 10000, {12, 11, 1.1, 1.1, 1.1}},
        {read, 50000, {99, 99, 1, 1, 1}},       {order, 100000, {240, 110, 2.2, 2.2, 2.2}}};
    EXPECT_EQ("\n" + Table(MakeGrowthRows(measured)),
              R"(
work                      files             ours           anchor    ratio          spread    goal   red line  verdict
read grows        1000 to 10000           15.0 x           10.0 x     1.50      1.50..1.50   14.00             missed
order grows       1000 to 10000           12.0 x           11.0 x     1.09      1.09..1.09    1.20             met
order grows     10000 to 100000           20.0 x           10.0 x     2.00      2.00..2.00    1.20             missed
)");
}

TEST(Report, TellsWhetherInstructionsAreWithinTheirLimit) {
    TWork work = GetWork("read");
    work.InstructionLimit = 2;
    EXPECT_EQ("\n" + Table({MakeInstructionRow(work, 10000, {190, 100, 1.9, 1.9, 1.9}),
                            MakeInstructionRow(work, 10000, {201, 100, 2.01, 2.01, 2.01}),
                            MakeInstructionRow(work, 10000, {150, 100, 1.5, 1.5, 1.5})}),
              R"(
work                      files             ours           anchor    ratio          spread    goal   red line  verdict
read                      10000              190              100     1.90      1.90..1.90    2.00             within the limit
read                      10000              201              100     2.01      2.01..2.01    2.00             DEARER: above the limit
read                      10000              150              100     1.50      1.50..1.50    2.00             within the limit, which can be 1.58
)");
}

TEST(Report, PrintsAllFiguresAsJson) {
    std::vector<TReportRow> rows = MakeRows();
    rows.erase(rows.begin() + 1);
    std::ostringstream out;
    PrintJson(rows, {"random", "GNU 12", 2}, out);
    EXPECT_EQ(out.str(), R"({
  "shape": "random",
  "compiler": "GNU 12",
  "cores": 2,
  "rows": [
    {
      "work": "order",
      "files": "1000",
      "unit": "s",
      "ours": 0.25,
      "anchor": 0.125,
      "ratio": 2.0,
      "lowest": 1.75,
      "highest": 2.25,
      "goal": 1.5,
      "verdict": "missed",
      "redLine": 2.5
    },
    {
      "work": "tool-show",
      "files": "1000",
      "unit": "s",
      "ours": 1.25,
      "anchor": 1.0,
      "ratio": 1.25,
      "lowest": 1.2,
      "highest": 1.3,
      "goal": 1.3,
      "verdict": "met"
    }
  ]
}
)");
}
