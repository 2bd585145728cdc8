#pragma once
#include "flows/scan/vhdlscan.h"
#include "tests/flows/scan/scannedtext.h"
#include <gtest/gtest.h>
#include <string>
#include <vector>

struct TScanRow {
    const char* Text;
    const char* Found;
};

inline std::string Scan(std::string_view text) {
    return TextOf(ScanVhdl(text, {}));
}

inline void ExpectFound(const std::vector<TScanRow>& rows) {
    for (const TScanRow& row : rows) EXPECT_EQ(Scan(row.Text), row.Found) << row.Text;
}

/// The lines of needs that a text in an architecture of a file of its own gives.
inline std::string NeedsIn(const std::string& declarations, const std::string& statements = "") {
    const std::string found = Scan("library lib; entity e is end;\narchitecture a of e is\n" +
                                   declarations + "\nbegin\n" + statements + "\nend;");
    const std::string before =
        "entity e 1:21 library lib\n"
        "architecture a of e 2:14\n"
        "  primary work.e 2:19\n";
    return found.starts_with(before) ? found.substr(before.size()) : found;
}
