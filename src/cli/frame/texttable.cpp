#include "cli/frame/texttable.h"
#include "cli/frame/texts.h"
#include <algorithm>

void PrintTable(std::vector<std::vector<std::string>> rows, std::ostream& out) {
    std::vector<std::size_t> widths;
    for (auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            row[i] = row[i].empty() ? "-" : Escaped(row[i]);
            widths[i] = std::max(widths[i], row[i].size());
        }
    }
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            out << row[i]
                << (i + 1 < row.size() ? std::string(widths[i] + 2 - row[i].size(), ' ') : "\n");
}

void PrintNames(const std::vector<std::string>& names, const std::string& current,
                std::ostream& out) {
    for (const std::string& name : names) PrintLine(out, (name == current ? "* " : "  ") + name);
}
