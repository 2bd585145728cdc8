#include "cli/commands.h"
#include "tests/cli/appdatadirectory.h"
#include "tests/cli/projecttext.h"
#include "tests/cli/toolrun.h"
#include "tests/cli/userinifile.h"
#include "tests/support/replaced.h"
#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>

namespace {

using TLine = std::vector<std::string>;

/// A command line for every command and verb, over the files of Files. Commands that change a file
/// have something to change.
const std::map<std::string, TLine>& CommandLines() {
    static const std::map<std::string, TLine> lines = {
        {"show", {"show", "b.xml"}},
        {"check", {"check", "b.xml"}},
        {"order", {"order", "b.xml"}},
        {"options", {"options", "b.xml"}},
        {"command-file", {"command-file", "b.xml"}},
        {"list", {"list", "b.xml"}},
        {"deps", {"deps", "d.xml"}},
        {"needed", {"needed", "d.xml", "--top", "e"}},
        {"diff", {"diff", "d.xml", "d.xml"}},
        {"new", {"new", "n.xml"}},
        {"add", {"add", "b.xml", "a.vhd"}},
        {"source", {"source", "d.xml", "a.vhd", "--library", "ip"}},
        {"remove", {"remove", "d.xml", "a.vhd"}},
        {"rename", {"rename", "d.xml", "a.vhd", "b.vhd"}},
        {"depend", {"depend", "d.xml", "a.vhd", "--on", "e.vhd"}},
        {"top", {"top", "b.xml"}},
        {"top list", {"top", "b.xml", "list"}},
        {"top add", {"top", "b.xml", "add", "work.e(a)"}},
        {"top remove", {"top", "d.xml", "remove", "work.t"}},
        {"top force", {"top", "b.xml", "force", "on"}},
        {"set", {"set", "b.xml", "SnapshotName", "s"}},
        {"get", {"get", "b.xml"}},
        {"tool", {"tool", "b.xml", "VHDL", "Scirocco"}},
        {"use", {"use", "b.xml", "p.hpj"}},
        {"scan", {"scan", "d.xml"}},
        {"graph", {"graph", "d.xml"}},
        {"export", {"export", "d.xml", "--to", "ghdl"}},
        {"import", {"import", "vunit-csv", "t.csv", "-o", "n.xml"}},
        {"run", {"run", "d.xml", "--list"}},
        {"completion", {"completion", "bash"}},
        {"settings list", {"settings", "p.hpj", "list"}},
        {"settings show", {"settings", "p.hpj", "show"}},
        {"settings current", {"settings", "p.hpj", "current", "Debug"}},
        {"settings copy", {"settings", "p.hpj", "copy", "NCSim", "New"}},
        {"settings remove", {"settings", "p.hpj", "remove", "Release"}},
        {"settings reset", {"settings", "p.hpj", "reset", "Release"}},
        {"settings set", {"settings", "p.hpj", "set", "Release", "LogFileName", "a.log"}},
        {"templates list", {"templates", "list"}},
        {"templates show", {"templates", "show", "NCSim"}},
        {"servers list", {"servers", "list", "far", "--file", "s.cfg"}},
        {"servers add", {"servers", "add", "far", "GCC", "--file", "s.cfg"}},
        {"servers remove", {"servers", "remove", "far", "VCS", "--file", "s.cfg"}},
        {"servers default-file", {"servers", "default-file"}},
        {"simulators", {"simulators"}},
        {"translator", {"translator", "b.xml", "v2vhdl"}},
        {"translator list", {"translator", "b.xml", "v2vhdl", "list"}},
        {"translator enable", {"translator", "b.xml", "v2vhdl", "enable", "-rip", "a b"}},
        {"translator disable", {"translator", "b.xml", "v2vhdl", "disable", "-r"}},
        {"translator command-line", {"translator", "b.xml", "v2vhdl", "command-line"}},
    };
    return lines;
}

/// A folder with a file of every kind.
class Files {
public:
    Files() {
        Folder.Write("b.xml", BuildText("<Verilog2VhdlTranslationOptions><v2v-r Enabled=\"true\"/>"
                                        "</Verilog2VhdlTranslationOptions>"
                                        "<ProjectLanguageConfigurationList>"
                                        "<LanguageSettings Language=\"Verilog\"/>"
                                        "</ProjectLanguageConfigurationList>"));
        Folder.Write("d.xml",
                     BuildText("<TopLevelComponents><ComponentList Language=\"VHDL\">"
                               "<Component Library=\"work\">t</Component></ComponentList>"
                               "</TopLevelComponents>"
                               "<SourceFileGroup Language=\"VHDL\">" +
                               SourceText("a.vhd") + SourceText("e.vhd") + "</SourceFileGroup>"));
        Folder.Write("a.vhd", "architecture a of e is begin end;");
        Folder.Write("e.vhd", "entity e is end;");
        Folder.Write("t.csv", "work,e.vhd\n");
        Folder.Write("p.hpj", ProjectText());
        Folder.Write("s.cfg",
                     "<HdlBuildFileList><ExternalSimulatorSettings><Tool Name=\"VCS\">Verilog"
                     "</Tool></ExternalSimulatorSettings></HdlBuildFileList>");
    }
    std::string Text() const {
        std::string text = Folder.List();
        for (const char* name : {"b.xml", "d.xml", "p.hpj", "s.cfg"}) text += Folder.Read(name);
        return text;
    }

private:
    WorkingFolder Folder;
    UserIniFile Ini{""};
    AppDataDirectory AppData;
};

/// Calls `visit` for each command that can be run, with its words: those with verbs only through
/// them.
template <class Visit>
void WalkCommands(Visit visit) {
    for (const TCommand& command : MakeCommands()) {
        if (command.Run) visit(std::string(command.Name), command);
        for (const TCommand& verb : command.Verbs)
            visit(std::string(command.Name) + " " + verb.Name, verb);
    }
}

bool Offers(const TCommand& command, const std::string& name) {
    for (const TArgument& argument : command.Arguments)
        if (argument.Name == name) return true;
    return false;
}

TToolRun RunWith(const TLine& line, const TLine& options) {
    TLine words = line;
    words.insert(words.end(), options.begin(), options.end());
    return RunHdlbuild(words);
}

}  // namespace

TEST(CommandTable, EveryCommandPrintsOneJsonObjectWithItsFormat) {
    std::size_t count = 0;
    WalkCommands([&count](const std::string& name, const TCommand& command) {
        ++count;
        ASSERT_TRUE(CommandLines().contains(name)) << name;
        EXPECT_TRUE(Offers(command, "--json")) << name;
        const Files files;
        const TToolRun run = RunWith(CommandLines().at(name), {"--json"});
        EXPECT_EQ(run.Status, kExitDone) << name << run.Err;
        EXPECT_EQ(run.Err, "") << name;
        const auto result = nlohmann::ordered_json::parse(run.Out, nullptr, false);
        ASSERT_TRUE(result.is_object()) << name << run.Out;
        auto member = result.begin();
        EXPECT_EQ(member.key(), "format") << name;
        EXPECT_EQ(member.value().get<std::string>().substr(0, 9), "hdlbuild-") << name;
        EXPECT_EQ((++member).key(), "version") << name;
        EXPECT_EQ(member.value(), 1) << name;
    });
    EXPECT_EQ(count, CommandLines().size());
}

TEST(CommandTable, HelpPrintsTheHelpOfEveryCommand) {
    EXPECT_EQ(ResultOf({"help"}), ResultOf({"--help"}));
    for (const TCommand& command : MakeCommands()) {
        TLine line = {command.Name};
        EXPECT_EQ(ResultOf({"help", command.Name}), ResultOf({command.Name, "--help"}));
        for (const TArgument& argument : command.Arguments)
            if (argument.Name[0] != '-') line.emplace_back("x");
        for (const TCommand& verb : command.Verbs) {
            TLine words = line;
            words.insert(words.end(), {verb.Name, "--help"});
            EXPECT_EQ(ResultOf({"help", command.Name, verb.Name}), ResultOf(words));
        }
    }
}

TEST(CommandTable, EveryCommandDoesTheSameWhenQuiet) {
    WalkCommands([](const std::string& name, const TCommand&) {
        TLine first = CommandLines().at(name);
        first.insert(first.begin(), "--quiet");
        TLine last = CommandLines().at(name);
        last.emplace_back("--quiet");
        const auto resultOf = [](const TLine& line) {
            const Files files;
            return ResultOf(line) + files.Text();
        };
        const std::string result = resultOf(CommandLines().at(name));
        EXPECT_EQ(resultOf(first), result) << name;
        EXPECT_EQ(resultOf(last), result) << name;
    });
}

TEST(CommandTable, ADryRunSaysTheSameAndChangesNothing) {
    std::string changing;
    WalkCommands([&changing](const std::string& name, const TCommand& command) {
        // A run that is dry shows its steps.
        if (!Offers(command, "--dry-run") || name == "run") return;
        changing += name + "\n";
        for (const bool isJson : {false, true}) {
            const Files files;
            const std::string before = files.Text();
            const TLine options = isJson ? TLine{"--json"} : TLine{};
            TLine dry = options;
            dry.push_back("--dry-run");
            const TToolRun dryRun = RunWith(CommandLines().at(name), dry);
            EXPECT_EQ(dryRun.Status, kExitDone) << name << dryRun.Err;
            EXPECT_EQ(files.Text(), before) << name;
            const TToolRun run = RunWith(CommandLines().at(name), options);
            EXPECT_EQ(run.Status, kExitDone) << name << run.Err;
            EXPECT_NE(files.Text(), before) << name;
            EXPECT_EQ(dryRun.Err, run.Err) << name;
            // Behind what the run says stands the difference of the file.
            const std::size_t diff = dryRun.Out.find(isJson ? ",\n  \"diff\": " : "--- ");
            ASSERT_NE(diff, std::string::npos) << name << dryRun.Out;
            std::string said = dryRun.Out.substr(0, diff);
            if (isJson) said += "\n}\n";
            EXPECT_EQ(isJson ? Replaced(said, "\"saved\": false", "\"saved\": true")
                             : Replaced(said, "not saved (dry run)", "saved"),
                      run.Out)
                << name;
        }
    });
    EXPECT_EQ(changing,
              "new\n"
              "add\n"
              "source\n"
              "remove\n"
              "rename\n"
              "depend\n"
              "top add\n"
              "top remove\n"
              "top force\n"
              "set\n"
              "tool\n"
              "use\n"
              "scan\n"
              "import\n"
              "settings current\n"
              "settings copy\n"
              "settings remove\n"
              "settings reset\n"
              "settings set\n"
              "servers add\n"
              "servers remove\n"
              "translator enable\n"
              "translator disable\n");
}
