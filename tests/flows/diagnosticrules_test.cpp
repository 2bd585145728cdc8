#include "flows/diagnosticrules.h"
#include "tests/flows/diagnosticspage.h"
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>

TEST(DiagnosticRules, PrintTheNamesOfAFaultInTheirPlaces) {
    EXPECT_EQ(GetDiagnosticText({DIAGNOSTIC_MISSING_FILE, {"{2}/a.vhd", "VHDL"}}),
              "missing file: {2}/a.vhd (VHDL)");
    EXPECT_EQ(GetDiagnosticText({DIAGNOSTIC_SPELLINGS, {"2", "a.vhd, A.vhd"}, {"unused"}}),
              "2 spellings: a.vhd, A.vhd");
    EXPECT_EQ(GetDiagnosticText({DIAGNOSTIC_NO_BUILD, {}}),
              "no HdlBuildFile element: the document describes no build");
}

TEST(DiagnosticRules, AreFoundByTheirCodes) {
    for (const TDiagnosticRule& rule : GetDiagnosticRules()) {
        EXPECT_EQ(&GetDiagnosticRule(rule.Code), &rule);
        EXPECT_EQ(FindDiagnosticRule(GetDiagnosticId(rule.Code)), &rule);
    }
    EXPECT_EQ(FindDiagnosticRule("hb201"), &GetDiagnosticRule(DIAGNOSTIC_MISSING_FILE));
    for (const char* id : {"", "HB", "201", "HB2010", "HB20", "HB999", "XB201"})
        EXPECT_EQ(FindDiagnosticRule(id), nullptr) << id;
}

TEST(DiagnosticRules, AreAscendingWithANameAndACureEach) {
    static const std::regex name("[a-z]+(-[a-z]+)*");
    int code = 100;
    std::set<std::string> names;
    for (const TDiagnosticRule& rule : GetDiagnosticRules()) {
        const std::string id = GetDiagnosticId(rule.Code);
        EXPECT_LT(code, rule.Code) << id;
        code = rule.Code;
        EXPECT_TRUE(names.insert(rule.Name).second) << id;
        EXPECT_TRUE(std::regex_match(rule.Name, name)) << id;
        EXPECT_EQ(std::string(rule.Cure).back(), '.') << id;
        EXPECT_NE(std::string(rule.Text).back(), '.') << id;
    }
}

TEST(DiagnosticRules, AreWhatThePageOfTheDocumentationSays) {
    std::ifstream stream(HDLBUILDFILE_SOURCE_DIR "/docs/diagnostics.md", std::ios::binary);
    const std::string page{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(page, MakeDiagnosticsPage());
}

TEST(DiagnosticRules, NameTheirSeverities) {
    EXPECT_STREQ(GetSeverityText(SEVERITY_NOTE), "note");
    EXPECT_STREQ(GetSeverityText(SEVERITY_WARNING), "warning");
    EXPECT_STREQ(GetSeverityText(SEVERITY_ERROR), "error");
}
