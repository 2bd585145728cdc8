#include "cli/frame/findings.h"
#include <gtest/gtest.h>
#include <sstream>

namespace {

/// A text is wrong when it holds digits, and when it is short.
using TText = std::string;

std::vector<char> FindDigits(const TText& text) {
    std::vector<char> digits;
    for (const char c : text)
        if (c >= '0' && c <= '9') digits.push_back(c);
    return digits;
}

TDiagnostic DiagnoseDigit(const char& digit, const TText& text) {
    return {DIAGNOSTIC_MISSING_FILE, {std::string(1, digit), "digit"}, {"in " + text}};
}

TJson DigitAsJson(const char& digit, const TText&) {
    return std::string(1, digit);
}

bool IsShort(const TText& text) {
    return text.size() < 3;
}

TDiagnostic DiagnoseLength(const TText& text) {
    return {DIAGNOSTIC_READ_RESULT, {std::to_string(text.size()), "too short"}};
}

TJson LengthAsJson(const TText& text) {
    return text.size();
}

/// The exit status and the output.
std::string Report(const TText& text, bool isJson) {
    const std::vector<TFindingKind<TText>> kinds = {
        FaultKind("length", IsShort, DiagnoseLength, LengthAsJson),
        FindingKind("digits", FindDigits, DiagnoseDigit, DigitAsJson),
    };
    TReportOptions options;
    if (isJson) options.Format = "json";
    std::ostringstream out;
    std::ostringstream err;
    const int status = ReportFindings(FindAll(kinds, text), "a\n.txt", [&] { return text; },
                                      {{"format", "f"}}, options, {out, err});
    return std::to_string(status) + "\n" + out.str() + err.str();
}

}  // namespace

TEST(Findings, PrintTheLinesOfAllKinds) {
    EXPECT_EQ(Report("abc", false), "0\na\\n.txt: no problems\n");
    EXPECT_EQ(Report("a", false), "1\nread result 1: too short\n");
    EXPECT_EQ(Report("1\t2", false),
              "1\nmissing file: 1 (digit)\n  in 1\\t2\nmissing file: 2 (digit)\n  in 1\\t2\n");
    EXPECT_EQ(Report("7", false), "1\nread result 1: too short\nmissing file: 7 (digit)\n  in 7\n");
}

TEST(Findings, PrintOneJsonObjectWithAMemberForEachKind) {
    EXPECT_EQ(Report("abc", true),
              "0\n{\n  \"format\": \"f\",\n  \"clean\": true,\n  \"length\": 3,\n"
              "  \"digits\": [],\n  \"diagnostics\": []\n}\n");
    const std::string both = Report("7", true);
    EXPECT_EQ(both.substr(0, both.find("  \"diagnostics\"")),
              "1\n{\n  \"format\": \"f\",\n  \"clean\": false,\n  \"length\": 1,\n"
              "  \"digits\": [\n    \"7\"\n  ],\n");
}
