#include "bench/runner/report.h"
#include <array>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <sstream>

namespace {

const char* TextOf(TVerdict verdict) {
    switch (verdict) {
        case TVerdict::MET:
            return "met";
        case TVerdict::MISSED:
            return "missed";
        case TVerdict::ABOVE_RED_LINE:
            return "above the red line";
    }
    return "";
}

std::string Fixed(double value, int places) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(places) << value;
    return text.str();
}

std::string FormatFigure(double figure, const std::string& unit) {
    if (unit == "s") return Fixed(figure * 1000, 2) + " ms";
    if (unit == "x") return Fixed(figure, 1) + " x";
    return Fixed(figure, 0);
}

// A goal for a ratio needs two places, one in bytes none.
std::string FormatGoal(double goal) {
    return Fixed(goal, goal < 100 ? 2 : 0);
}

// A limit far above the count would let work become dearer unseen.
std::string TextOfLimit(const TWork& work, const TComparison& figures) {
    if (!IsWithinLimit(work, figures)) return "DEARER: above the limit";
    const double limit = LimitFor(figures);
    const bool isTight = work.InstructionLimit < limit * 1.02;
    return isTight ? "within the limit" : "within the limit, which can be " + Fixed(limit, 2);
}

using TColumns = std::array<std::string, 9>;

void PrintColumns(const TColumns& columns, std::ostream& out) {
    constexpr int kWidths[] = {13, 16, 15, 15, 7, 14, 6, 9, 0};
    std::ostringstream line;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const bool isText = i == 0 || i + 1 == columns.size();
        line << (i ? "  " : "") << (isText ? std::left : std::right) << std::setw(kWidths[i])
             << columns[i];
    }
    out << line.str() << std::endl;
}

bool IsTenTimes(const TMeasured& large, const TMeasured& small) {
    return large.Work == small.Work && large.Files == 10 * small.Files;
}

TReportRow MakeGrowthRow(const TGrowthGoal& goal, const TMeasured& small, const TMeasured& large) {
    const TComparison figures = Compare(
        {{large.Figures.Ours / small.Figures.Ours, large.Figures.Anchor / small.Figures.Anchor}});
    const double figure = goal.IsAgainstAnchor ? figures.Ratio : figures.Ours;
    return {std::string(goal.Work) + " grows",
            std::to_string(small.Files) + " to " + std::to_string(large.Files),
            "x",
            figures,
            goal.Goal,
            {},
            TextOf(figure <= goal.Goal ? TVerdict::MET : TVerdict::MISSED)};
}

}  // namespace

TReportRow MakeRow(const TWork& work, std::uint32_t files, TShape shape,
                   const TComparison& figures) {
    const bool isTime =
        work.Ours.Value == std::string("seconds") || work.Ours.Value == std::string("process");
    return {work.Name,
            std::to_string(files),
            isTime ? "s" : "bytes",
            figures,
            GetGoal(work, files, shape),
            work.Goal.RedLine,
            TextOf(Judge(work, files, shape, figures))};
}

TReportRow MakeInstructionRow(const TWork& work, std::uint32_t files, const TComparison& figures) {
    return {work.Name, std::to_string(files),     "instructions", figures, work.InstructionLimit,
            {},        TextOfLimit(work, figures)};
}

std::vector<TReportRow> MakeGrowthRows(const std::vector<TMeasured>& measured) {
    std::vector<TReportRow> rows;
    for (const TGrowthGoal& goal : GetGrowthGoals())
        for (const TMeasured& small : measured)
            for (const TMeasured& large : measured)
                if (small.Work->Name == std::string(goal.Work) && IsTenTimes(large, small))
                    rows.push_back(MakeGrowthRow(goal, small, large));
    return rows;
}

void PrintHead(std::ostream& out) {
    PrintColumns(
        {"work", "files", "ours", "anchor", "ratio", "spread", "goal", "red line", "verdict"}, out);
}

void PrintRow(const TReportRow& row, std::ostream& out) {
    const TComparison& figures = row.Figures;
    PrintColumns({row.Work, row.Size, FormatFigure(figures.Ours, row.Unit),
                  FormatFigure(figures.Anchor, row.Unit), Fixed(figures.Ratio, 2),
                  Fixed(figures.Lowest, 2) + ".." + Fixed(figures.Highest, 2), FormatGoal(row.Goal),
                  row.RedLine ? FormatGoal(*row.RedLine) : "", row.Verdict},
                 out);
}

void PrintJson(const std::vector<TReportRow>& rows, const TReportOrigin& origin,
               std::ostream& out) {
    nlohmann::ordered_json document = {{"shape", origin.Shape},
                                       {"compiler", origin.Compiler},
                                       {"cores", origin.Cores},
                                       {"rows", nlohmann::ordered_json::array()}};
    for (const TReportRow& row : rows) {
        nlohmann::ordered_json item = {
            {"work", row.Work},
            {"files", row.Size},
            {"unit", row.Unit},
            {"ours", row.Figures.Ours},
            {"anchor", row.Figures.Anchor},
            {"ratio", row.Figures.Ratio},
            {"lowest", row.Figures.Lowest},
            {"highest", row.Figures.Highest},
            {"goal", row.Goal},
            {"verdict", row.Verdict},
        };
        if (row.RedLine) item["redLine"] = *row.RedLine;
        document["rows"].push_back(std::move(item));
    }
    out << document.dump(2) << '\n';
}
