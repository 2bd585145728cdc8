#include "flows/nearestnames.h"
#include "flows/scan/asciicase.h"
#include <algorithm>
#include <numeric>

namespace {

std::size_t CountEdits(std::string_view from, std::string_view to) {
    // Row i: the edits from the first i letters of one to the beginnings of the other.
    std::vector<std::size_t> beforeLast;
    std::vector<std::size_t> last(to.size() + 1);
    std::iota(last.begin(), last.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::vector<std::size_t> row = {i};
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
            std::size_t edits = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
                edits = std::min(edits, beforeLast[j - 2] + 1);
            row.push_back(edits);
        }
        beforeLast = std::move(last);
        last = std::move(row);
    }
    return last.back();
}

}  // namespace

std::vector<std::string> NearestNames(std::string_view name,
                                      const std::vector<std::string>& known) {
    const std::string wanted = FoldAscii(name);
    std::vector<std::string> nearest;
    if (wanted.empty()) return nearest;
    const std::size_t most = wanted.size() / 3;
    std::size_t fewest = std::max(most, std::size_t{1});
    for (const std::string& candidate : known) {
        const std::string folded = FoldAscii(candidate);
        std::size_t edits = 1;
        if (!folded.starts_with(wanted) || folded == wanted) {
            // Not counted when the lengths tell: a word of any length may be given.
            const std::size_t shorter = std::min(wanted.size(), folded.size());
            if (std::max(wanted.size(), folded.size()) - shorter > most) continue;
            edits = CountEdits(wanted, folded);
            if (edits > most) continue;
        }
        if (edits > fewest) continue;
        if (edits < fewest) nearest.clear();
        fewest = edits;
        nearest.push_back(candidate);
    }
    return nearest;
}
