#include "flows/imports/tclcommands.h"
#include <gtest/gtest.h>

namespace {

/// The line of each command, '$' when it is not literal, and its words, a '|' behind each.
std::string CommandsOf(const std::string& text) {
    TTclCommands commands(text);
    std::string listed;
    TTclCommand command;
    while (commands.Next(&command)) {
        listed += std::to_string(command.Line) + (command.IsLiteral ? " " : " $ ");
        for (const std::string& word : command.Words) listed += word + "|";
        listed += "\n";
    }
    if (commands.GetFault()) listed += std::to_string(command.Line) + " " + commands.GetFault();
    return listed;
}

}  // namespace

TEST(TclCommands, AreTakenApartAsTclDoes) {
    const struct {
        const char* Text;
        const char* Commands;
    } rows[] = {
        {"a b; c\r\n\n  d\n", "1 a|b|\n1 c|\n3 d|\n"},
        {"# x \\\n y\na # b\n", "3 a|#|b|\n"},
        {"a {b {c} \\} $d} \"e f\" {}", "1 a|b {c} \\} $d|e f||\n"},
        {"a b\\ c\\$d\\n\\\n  e", "1 a|b c$d\n|e|\n"},
        {"a \"b\\\n  c\" d\\\r\n\te\n", "1 a|b c|d|e|\n"},
        {"a $b\nc [d e]f \"[g h]\"\n{*}i", "1 $ a|$b|\n2 $ c|[d e]f|[g h]|\n3 $ i|\n"},
        {"if {$a} {\n  b\n}\nc", "1 if|$a|\n  b\n|\n4 c|\n"},
        {"a {b", "1 a brace that is not closed"},
        {"a\nb \"c", "1 a|\n2 a quote that does not end"},
        {"a [b", "1 a bracket that is not closed"},
        {"a {b}c", "1 a word that goes on behind its end"},
        {"a \\", "1 a|\\|\n"},
        {"", ""},
    };
    for (const auto& row : rows) EXPECT_EQ(CommandsOf(row.Text), row.Commands) << row.Text;
}
