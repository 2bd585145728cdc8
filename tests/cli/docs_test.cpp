#include "cli/commands.h"
#include "services/hdl/hdllanguagetable.h"
#include "tests/cli/toolrun.h"
#include "tests/cli/userinifile.h"
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>

// The pages say of the tool what its tables say.

namespace {

std::string ReadPage(const std::string& name) {
    std::ifstream stream(HDLBUILDFILE_SOURCE_DIR "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

/// The section of a page below the heading, up to the next one.
std::string SectionOf(const std::string& page, const std::string& heading) {
    const std::size_t begin = page.find("\n" + heading + "\n");
    if (begin == std::string::npos) return "";
    const std::size_t from = begin + heading.size() + 2;
    return page.substr(from, page.find("\n#", from) - from);
}

/// The names between back quotes.
std::vector<std::string> QuotedIn(const std::string& text) {
    std::vector<std::string> names;
    for (std::size_t at = text.find('`'); at != std::string::npos; at = text.find('`', at + 1)) {
        const std::size_t end = text.find('`', at + 1);
        names.push_back(text.substr(at + 1, end - at - 1));
        at = end;
    }
    return names;
}

/// The names in the first column of the tables of a section.
std::multiset<std::string> FirstColumn(const std::string& section) {
    std::multiset<std::string> names;
    for (const std::string& line : LinesOf(section))
        if (line.starts_with("| `"))
            for (const std::string& name : QuotedIn(line.substr(0, line.find(" |", 1))))
                names.insert(name);
    return names;
}

std::multiset<std::string> NamesOfMembers(const nlohmann::ordered_json& object) {
    std::multiset<std::string> names;
    for (const auto& member : object.items()) names.insert(member.key());
    return names;
}

/// The JSON object that a command prints.
nlohmann::ordered_json ObjectOf(std::vector<std::string> words) {
    words.emplace_back("--json");
    return nlohmann::ordered_json::parse(RunHdlbuild(words).Out);
}

/// The usage line of each command that can be run, as its help has it.
std::multiset<std::string> UsageLines() {
    std::multiset<std::string> lines;
    const auto add = [&lines](std::vector<std::string> words) {
        words.emplace_back("--help");
        const std::string help = RunHdlbuild(words).Out;
        const std::size_t begin = help.find("Usage: ") + 7;
        lines.insert(help.substr(begin, help.find('\n', begin) - begin));
    };
    add({"help"});
    for (const TCommand& command : MakeCommands()) {
        std::vector<std::string> words = {command.Name};
        if (command.Run) add(words);
        for (const TArgument& argument : command.Arguments)
            if (argument.Name[0] != '-') words.emplace_back("x");
        for (const TCommand& verb : command.Verbs) {
            words.emplace_back(verb.Name);
            add(words);
            words.pop_back();
        }
    }
    return lines;
}

}  // namespace

TEST(Docs, ReadmeNamesEveryCommand) {
    const std::string readme = ReadPage("README.md");
    for (const TCommand& command : MakeCommands())
        EXPECT_NE(readme.find("\nhdlbuild " + std::string(command.Name) + " "), std::string::npos)
            << command.Name;
    EXPECT_NE(readme.find("\nhdlbuild help "), std::string::npos);
}

TEST(Docs, CommandsPageHasTheUsageOfEveryCommand) {
    std::multiset<std::string> lines;
    for (const std::string& line : LinesOf(ReadPage("docs/commands.md")))
        if (line.starts_with("hdlbuild ")) lines.insert(line);
    EXPECT_EQ(lines, UsageLines());
}

TEST(Docs, CommandsPageNamesEveryOption) {
    const std::vector<std::string> names = QuotedIn(ReadPage("docs/commands.md"));
    const std::set<std::string> quoted(names.begin(), names.end());
    for (const TCommand& command : MakeCommands()) {
        std::vector<TArgument> arguments = command.Arguments;
        for (const TCommand& verb : command.Verbs)
            arguments.insert(arguments.end(), verb.Arguments.begin(), verb.Arguments.end());
        for (const TArgument& argument : arguments)
            EXPECT_TRUE(argument.Name[0] != '-' || quoted.contains(argument.Name))
                << command.Name << " " << argument.Name;
    }
}

TEST(Docs, CommandsPageNamesEveryFindingOfCheck) {
    const WorkingFolder folder;
    folder.Write("b.xml", BuildText(""));
    std::multiset<std::string> keys = NamesOfMembers(ObjectOf({"check", "b.xml"}));
    for (const char* common : {"format", "version", "build", "clean"}) keys.erase(common);
    EXPECT_EQ(FirstColumn(SectionOf(ReadPage("docs/commands.md"), "## Builds")), keys);
}

TEST(Docs, SettingsPageNamesEveryKey) {
    const std::string page = ReadPage("docs/settings.md");
    const UserIniFile ini("");
    const auto settings = ObjectOf({"templates", "show", "NCSim"});
    EXPECT_EQ(FirstColumn(SectionOf(page, "### General settings")),
              NamesOfMembers(settings["general"]));
    EXPECT_EQ(FirstColumn(SectionOf(page, "### Settings of a language")),
              NamesOfMembers(settings["languages"]["Verilog"]));
}

TEST(Docs, SettingsPageNamesTheStoredLanguages) {
    std::string sentence = "\nLanguages are ";
    const std::vector<THdlLanguage>& languages = GetStoredLanguages();
    for (std::size_t i = 0; i < languages.size(); ++i) {
        if (i > 0) sentence += i + 1 < languages.size() ? ", " : " and ";
        sentence += "`" + std::string(GetHdlLanguageRecord(languages[i]).Name) + "`";
    }
    EXPECT_NE(ReadPage("docs/settings.md").find(sentence + ";"), std::string::npos) << sentence;
}
