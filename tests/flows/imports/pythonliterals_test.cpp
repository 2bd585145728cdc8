#include "flows/imports/pythonliterals.h"
#include <gtest/gtest.h>

namespace {

/// The line and name of each statement, '!' when it is not literal, and its texts.
std::string StatementsOf(const std::string& text) {
    TPythonStatements statements(text);
    std::string listed;
    TPythonStatement statement;
    while (statements.Next(&statement)) {
        listed += std::to_string(statement.Line) + " " + statement.Name +
                  (statement.IsLiteral ? "" : "!");
        for (const TPythonText& each : statement.Texts)
            listed += " " + std::to_string(each.Line) + "[" + each.Key + "]" + each.Text;
        listed += "\n";
    }
    if (statements.GetFault())
        listed += std::to_string(statement.Line) + " " + statements.GetFault();
    return listed;
}

}  // namespace

TEST(PythonLiterals, AreTextsListsAndDictionaries) {
    const struct {
        const char* Text;
        const char* Statements;
    } rows[] = {
        {"a = 'x'; b = \"y\"\n", "1 a 1[]x\n1 b 1[]y\n"},
        {"files = [\n  'a.v',  # one\n  \"b.v\",\n]\n", "1 files 2[]a.v 3[]b.v\n"},
        {"m = {'local': ['p', 'q'], 'git': 'r'}", "1 m 1[local]p 1[local]q 1[git]r\n"},
        {"a += ('x' 'y',\n'z')", "1 a 1[]xy 2[]z\n"},
        {"a = 'b' \\\n 'c'\n", "1 a 1[]bc\n"},
        {"a = '''x\ny''' + z\n", "1 a! 1[]x\ny\n"},
        {"a = r'x\\y' 'it\\'s\\\\n\\d'", "1 a 1[]x\\yit's\\n\\d\n"},
        {"a = 'x\\\n y' r'x\\\n'\n", "1 a 1[]x yx\\\n\n"},
        {"a = None\nb = []\n", "1 a\n2 b\n"},
        {"a = b\nc = f('x')\nif x == 'y':\n    d = 'z'\n",
         "1 a!\n2 c! 2[]x\n3 if! 3[]y\n4 d 4[]z\n"},
        {"a == 'b'\n[1, 2]\n", "1 a! 1[]b\n2 !\n"},
        {"a = ['x'", "1 a bracket that is not closed"},
        {"a = ['x')", "1 a bracket that is not open"},
        {"a = 'x\n", "1 a quote that does not end"},
        {"# only\n\n", ""},
    };
    for (const auto& row : rows) EXPECT_EQ(StatementsOf(row.Text), row.Statements) << row.Text;
}
