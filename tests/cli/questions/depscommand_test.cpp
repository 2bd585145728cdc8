#include "tests/cli/scan/scannedbuild.h"

namespace {

/// The sources of ScannedBuild; "top.vhd" records what it needs and a file that is not listed, and
/// "e.vhd" nothing.
class DepsCommand : public ScannedBuild {
protected:
    DepsCommand() { Write({"e.vhd", "p.vhd", "old.vhd"}, {}); }
    static std::string Deps(std::vector<std::string> options) {
        options.insert(options.begin(), {"deps", "b.xml"});
        return ResultOf(options);
    }
};

}  // namespace

TEST_F(DepsCommand, PrintsWhatEveryFileNeeds) {
    EXPECT_EQ(Deps({}), "top.vhd\n  e.vhd\n  p.vhd\n  old.vhd\ne.vhd\np.vhd\nold.vhd\n");
    EXPECT_EQ(Deps({"--reverse"}),
              "top.vhd\ne.vhd\n  top.vhd\np.vhd\n  top.vhd\nold.vhd\n  top.vhd\n");
}

TEST_F(DepsCommand, PrintsWhatOneFileNeedsAndWhoNeedsIt) {
    Write({"e.vhd"}, {"p.vhd"});
    const struct {
        const char* Label;
        std::vector<std::string> Options;
        std::string Out;
    } rows[] = {
        {"direct", {"top.vhd"}, "e.vhd\n"},
        {"any letters", {"TOP.vhd"}, "e.vhd\n"},
        {"all, in compile order", {"top.vhd", "--all"}, "p.vhd\ne.vhd\n"},
        {"nothing", {"p.vhd", "--all"}, ""},
        {"reverse", {"p.vhd", "--reverse"}, "e.vhd\n"},
        {"all reverse, in compile order", {"p.vhd", "--reverse", "--all"}, "e.vhd\ntop.vhd\n"},
        {"chain", {"top.vhd", "--path-to", "p.vhd"}, "top.vhd\ne.vhd\np.vhd\n"},
        {"chain back", {"p.vhd", "--path-to", "top.vhd", "--reverse"}, "p.vhd\ne.vhd\ntop.vhd\n"},
        {"chain to itself", {"p.vhd", "--path-to", "p.vhd"}, "p.vhd\n"},
        {"absolute", {"e.vhd", "--absolute"}, Folder.Path("p.vhd") + "\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(Deps(row.Options), row.Out) << row.Label;
}

TEST_F(DepsCommand, LeavesTheFileOutOfItsCycle) {
    Write({"e.vhd"}, {"top.vhd"});
    EXPECT_EQ(Deps({"top.vhd", "--all"}), "e.vhd\n");
    EXPECT_EQ(Deps({"top.vhd", "--all", "--reverse"}), "e.vhd\n");
}

TEST_F(DepsCommand, TellsThatThereIsNoChain) {
    EXPECT_EQ(Deps({"p.vhd", "--path-to", "top.vhd"}),
              "1\nhdlbuild: error: p.vhd does not need top.vhd, neither directly nor through "
              "others\n");
    EXPECT_EQ(Deps({"top.vhd", "--path-to", "p.vhd", "--reverse"}),
              "1\nhdlbuild: error: p.vhd does not need top.vhd, neither directly nor through "
              "others\n");
    const TToolRun run = RunHdlbuild({"deps", "b.xml", "p.vhd", "--path-to", "top.vhd", "--json"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out,
              "{\n  \"format\": \"hdlbuild-deps\",\n  \"version\": 1,\n  \"build\": \"b.xml\",\n"
              "  \"chain\": []\n}\n");
}

TEST_F(DepsCommand, PrintsTheNeedsWithTheirPlaces) {
    EXPECT_EQ(Deps({"top.vhd", "--units"}),
              "e.vhd\n"
              "  top.vhd:3:42: entity work.e\n"
              "p.vhd\n"
              "  top.vhd:1:18: use lib.p\n"
              "old.vhd\n"
              "  top.vhd: recorded, not found in the sources\n");
    EXPECT_EQ(Deps({"p.vhd", "--units", "--reverse"}),
              "top.vhd\n"
              "  top.vhd:1:18: use lib.p\n"
              "e.vhd\n"
              "  e.vhd:2:23: selected lib.p\n"
              "  e.vhd: not recorded\n");
    EXPECT_EQ(Deps({"top.vhd", "--units", "--all"}),
              "p.vhd\n"
              "  top.vhd:1:18: use lib.p\n"
              "  e.vhd:2:23: selected lib.p\n"
              "  e.vhd: not recorded\n"
              "e.vhd\n"
              "  top.vhd:3:42: entity work.e\n"
              "old.vhd\n"
              "  top.vhd: recorded, not found in the sources\n");
    EXPECT_EQ(Deps({"p.vhd", "--units", "--all", "--reverse"}),
              "e.vhd\n"
              "  e.vhd:2:23: selected lib.p\n"
              "  e.vhd: not recorded\n"
              "top.vhd\n"
              "  top.vhd:3:42: entity work.e\n"
              "  top.vhd:1:18: use lib.p\n");
    EXPECT_EQ(Deps({"e.vhd", "--units", "--path-to", "p.vhd"}),
              "e.vhd\n"
              "p.vhd\n"
              "  e.vhd:2:23: selected lib.p\n"
              "  e.vhd: not recorded\n");
}

TEST_F(DepsCommand, TellsNeedsOfTheElaboration) {
    Folder.Write("top.vhd",
                 "entity top is end;\narchitecture a of top is component e is end component;\n"
                 "begin i: e; end;");
    Write({}, {"p.vhd"});
    EXPECT_EQ(Deps({"top.vhd", "--units"}), "e.vhd\n  top.vhd:3:10: component e (elaboration)\n");
}

TEST_F(DepsCommand, PrintsOneJsonObject) {
    EXPECT_EQ(Deps({"e.vhd", "--reverse", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-deps\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"files\": [\n"
              "    {\n"
              "      \"path\": \"e.vhd\",\n"
              "      \"dependents\": [\n"
              "        {\n"
              "          \"path\": \"top.vhd\"\n"
              "        }\n"
              "      ]\n"
              "    }\n"
              "  ]\n"
              "}\n");
    EXPECT_EQ(Deps({"e.vhd", "--units", "--path-to", "p.vhd", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-deps\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"chain\": [\n"
              "    {\n"
              "      \"path\": \"e.vhd\",\n"
              "      \"uses\": []\n"
              "    },\n"
              "    {\n"
              "      \"path\": \"p.vhd\",\n"
              "      \"uses\": [\n"
              "        {\n"
              "          \"user\": \"e.vhd\",\n"
              "          \"recorded\": false,\n"
              "          \"needs\": [\n"
              "            {\n"
              "              \"place\": \"e.vhd:2:23\",\n"
              "              \"kind\": \"selected\",\n"
              "              \"unit\": \"lib.p\",\n"
              "              \"step\": \"compile\"\n"
              "            }\n"
              "          ]\n"
              "        }\n"
              "      ]\n"
              "    }\n"
              "  ]\n"
              "}\n");
}

TEST_F(DepsCommand, RefusesWhatItCannotAnswer) {
    Folder.Write("sub/x.vhd", "");
    EXPECT_EQ(Deps({"sub/p.vhd"}),
              "2\nhdlbuild: error: sub/p.vhd is no source of the build; nearest: p.vhd\n");
    EXPECT_EQ(Deps({"tpo.vhd"}),
              "2\nhdlbuild: error: tpo.vhd is no source of the build; nearest: top.vhd\n");
    EXPECT_EQ(Deps({"something.vhd"}),
              "2\nhdlbuild: error: something.vhd is no source of the build\n");
    EXPECT_EQ(Deps({"p.vhd", "--path-to", "tpo.vhd"}),
              "2\nhdlbuild: error: tpo.vhd is no source of the build; nearest: top.vhd\n");
    EXPECT_EQ(Deps({"--all"}), "2\nhdlbuild: error: --all needs a FILE\n");
    EXPECT_EQ(Deps({"--path-to", "p.vhd"}), "2\nhdlbuild: error: --path-to needs a FILE\n");
    EXPECT_EQ(Deps({"p.vhd", "--all", "--path-to", "e.vhd"}),
              "2\nhdlbuild: error: --all excludes --path-to\n");
}

TEST_F(DepsCommand, TellsOfSourcesThatCannotBeRead) {
    Write({"gone.vhd"}, {});
    Folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">" + SourceText("gone.vhd") +
                                    "</SourceFileGroup>"));
    EXPECT_EQ(Deps({"gone.vhd"}), "1\nhdlbuild: error: Build File: Missing file(s) on load.\n");
    EXPECT_EQ(Deps({"gone.vhd", "--units"}),
              "1\nhdlbuild: error: Build File: Missing file(s) on load.\n"
              "hdlbuild: error: gone.vhd: not scanned: the file does not exist\n");
}
